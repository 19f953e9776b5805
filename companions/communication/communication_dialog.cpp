#include "companions/communication/communication_dialog.h"

#include "Common/strings.h"
#include "companions/common/edit_text.h"
#include "companions/common/messages.h"
#include "companions/common/wide_text.h"
#include "companions/communication/address_form.h"
#include "companions/communication/communication_resource.h"
#include "datamanager/printer_settings.h"

#include <array>

namespace {

enum class TextId : unsigned {
#define ZR_COMPANION_TEXT(name, number, text) name = number,
#include "companions/communication/communication_texts.def"
#undef ZR_COMPANION_TEXT
};

std::string Text(TextId text) {
    return LoadText(static_cast<unsigned>(text));
}

std::string FaultText(AddressFault fault) {
    switch (fault) {
    case AddressFault::None: break;
    case AddressFault::TooLong: return WithNumber(Text(TextId::AddressTooLong), "%1", kMostAddressBytes);
    case AddressFault::IpV6: return Text(TextId::AddressIpV6);
    case AddressFault::Character: return Text(TextId::AddressCharacter);
    case AddressFault::IpV4: return Text(TextId::AddressIpV4);
    case AddressFault::Label: return Text(TextId::AddressLabel);
    }
    return {};
}

// What the code page lacks can't be in an address either.
AddressFault FaultOfEntered(const std::wstring& address) {
    const auto narrow = NarrowText(address);
    return narrow ? FaultOfAddress({narrow->Units().data(), narrow->Units().size()})
                  : AddressFault::Character;
}

} // namespace

int CommunicationDialog::OnInit() {
    std::array<wchar_t, printer_settings::kAddressLength> address{};
    printer_settings::ReadAddress(m_printer, address);
    SetWindowTextW(Control(IDC_ADDRESS), address.data());
    m_shownAddress = PlainEditText(Control(IDC_ADDRESS));
    m_mode = printer_settings::ReadNumber(m_printer, printer_settings::kCommunicationMode);
    CheckDlgButton(m_dialog, IDC_OLDER_PRINTER, m_mode != 0 ? BST_CHECKED : BST_UNCHECKED);
    return IDC_ADDRESS;
}

std::optional<std::wstring> CommunicationDialog::EnteredAddress() const {
    const std::wstring text = PlainEditText(Control(IDC_ADDRESS));
    const std::wstring_view address = WithoutBlanksAround(text);
    if (text == m_shownAddress || address == m_shownAddress)
        return std::nullopt;
    return std::wstring(address);
}

std::optional<std::uint32_t> CommunicationDialog::EnteredMode() const {
    const bool isOlderPrinter = IsChecked(IDC_OLDER_PRINTER);
    if (isOlderPrinter == (m_mode != 0))
        return std::nullopt;
    return isOlderPrinter ? 1 : 0;
}

CompanionDialog::Stored CommunicationDialog::Store() {
    const std::optional<std::wstring> address = EnteredAddress();
    const std::optional<std::uint32_t> mode = EnteredMode();
    if (address) {
        if (const AddressFault fault = FaultOfEntered(*address); fault != AddressFault::None)
            return Refuse(IDC_ADDRESS, FaultText(fault));
    }
    if (const std::uint32_t status = Write(address, mode); status != ERROR_SUCCESS)
        return TellNotStored(status);
    return address || mode ? Stored::Something : Stored::Nothing;
}

std::uint32_t CommunicationDialog::Write(const std::optional<std::wstring>& address,
                                         std::optional<std::uint32_t> mode) const {
    using namespace printer_settings;
    std::optional<RawData> modeBefore;
    if (mode) {
        std::uint32_t status = ReadRaw(m_printer, kCommunicationMode, modeBefore);
        if (status == ERROR_SUCCESS)
            status = WriteNumber(m_printer, kCommunicationMode, *mode);
        if (status != ERROR_SUCCESS)
            return status;
    }
    const std::uint32_t status = address ? WriteAddress(m_printer, *address) : 0;
    if (status != ERROR_SUCCESS && mode)
        PutBack(m_printer, kCommunicationMode, modeBefore);
    return status;
}

// The communication dialog on a printer of the spooler.
#pragma once

#include "companions/communication/communication_resource.h"
#include "companions/communication/communication_setting.h"
#include "tests/companions/common/companion_dialog_fixture.h"

inline constexpr wchar_t kAddress[] = L"PrinterPortAddress";
inline constexpr wchar_t kMode[] = L"CommunicationMode";

class CommunicationDialogTest : public CompanionDialogTest {
  protected:
    std::int32_t Run(Steps steps) {
        const ModalDialog user(std::move(steps));
        return OnCommunicationSettingDlg(printer.Handle(), "Software\\Zephra\\Tests\\UserInfo");
    }
    // Nothing was there before.
    std::int32_t Enter(const std::string& address) {
        return Run({[&](HWND dialog) { TypeInto(dialog, IDC_ADDRESS, address); }, Ok});
    }

    void PutAddress(const std::wstring& address) {
        printer.Put(kAddress, REG_SZ, address.c_str(), (address.size() + 1) * sizeof(wchar_t));
    }
    void PutMode(DWORD mode) { printer.Put(kMode, REG_DWORD, &mode, sizeof mode); }
    std::optional<StoredBytes> Address() { return PrinterData("PrinterPortAddress"); }
    std::optional<StoredBytes> Mode() { return PrinterData("CommunicationMode"); }

    // What the dialog shows, which is cancelled then.
    struct Shown {
        std::string address;
        bool isOlderPrinter;
    };
    Shown Opened() {
        Shown shown{};
        EXPECT_EQ(Run({[&](HWND dialog) {
                           shown = {TextOf(dialog, IDC_ADDRESS), IsChecked(dialog, IDC_OLDER_PRINTER)};
                       },
                       Cancel}),
                  0);
        return shown;
    }
};

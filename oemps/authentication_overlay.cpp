#include "oemps/authentication_overlay.h"

#include "Common/error_message.h"
#include "Common/log.h"
#include "Common/text.h"
#include "Common/win_handles.h"
#include "oemps/authentication_data.h"
#include "oemps/manage_method.h"
#include "oemps/owner_values.h"
#include "oemps/printer_names.h"

#include <array>
#include <memory>
#include <new>
#include <optional>
#include <span>
#include <string>

namespace {

// One value as text, whatever its type. Of size 0 it is read and empty; one that is larger than the buffer
// fails.
LSTATUS ReadText(HKEY key, const char* name, std::span<char, kOwnerTextSize> text) {
    DWORD size = 0;
    LSTATUS status = RegQueryValueExA(key, name, nullptr, nullptr, nullptr, &size);
    if (status == ERROR_SUCCESS && size > 0) {
        size = static_cast<DWORD>(text.size());
        status = RegQueryValueExA(key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(text.data()), &size);
    }
    ZR_LOG("%s status=%ld\n", name, status);
    if (status != ERROR_SUCCESS)
        ZR_LOG("%s\n", ErrorMessage(static_cast<DWORD>(status)).c_str());
    return status;
}

// The user's four values. They hold a password, so they are wiped from the stack.
class OwnerValues {
  public:
    OwnerValues() = default;
    ~OwnerValues() { SecureZeroMemory(&m_texts, sizeof m_texts); }
    OwnerValues(const OwnerValues&) = delete;
    OwnerValues& operator=(const OwnerValues&) = delete;

    // Reads all four; false if one of them failed.
    bool Read(HKEY key) {
        bool isRead = true;
        for (std::size_t i = 0; i < kNames.size(); ++i)
            isRead = ReadText(key, kNames[i], m_texts[i]) == ERROR_SUCCESS && isRead;
        return isRead;
    }

    std::string_view Name() const { return FieldText(m_texts[1]); }
    std::string_view Password() const { return FieldText(m_texts[2]); }
    std::string_view Account() const { return FieldText(m_texts[3]); }

  private:
    // The first must be readable; what it holds is of no account.
    static constexpr std::array kNames = {owner_values::kSpecifyOwner, owner_values::kOwner,
                                          owner_values::kPassword, owner_values::kAccount};
    std::array<std::array<char, kOwnerTextSize>, kNames.size()> m_texts{};
};

} // namespace

int OverWriteRegistryAuthenticationInfo(PrivateDevMode& record, const PRINTER_INFO_2A& printerInfo,
                                        HANDLE printer, std::string_view keyText) {
    ZR_LOG_ENTRY();
    if (!OverWriteRegistryData(printerInfo, record, printer, keyText))
        ClearAuthenticationData(record);
    return 1;
}

int OverWriteRegistryData(const PRINTER_INFO_2A& printerInfo, PrivateDevMode& record, HANDLE printer,
                          std::string_view keyText) {
    ZR_LOG_ENTRY();
    if (!printerInfo.pPrinterName) {
        ZR_LOG("no printer name\n");
        return 0;
    }
    OwnerValues values;
    const std::optional<ManageMethod> method = ReadManageMethod(printer);
    if (!method)
        return 0;

    const std::string path = UserInfoKey(keyText);
    ZR_LOG("%s\n", path.c_str());
    UniqueRegistryKey key;
    const LSTATUS opened = RegOpenKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, KEY_ALL_ACCESS, key.Receive());
    if (opened != ERROR_SUCCESS) {
        ZR_LOG("RegOpenKeyEx status=%ld\n", opened);
        return SetAuthenticationData(record, method->mode, kLoginName, "", "", "");
    }
    const bool areRead = values.Read(key.Get());
    if (!areRead || method->status != ERROR_SUCCESS) {
        ZR_LOG("the owner can't be told\n");
        return 0;
    }
    // The key of a user whose values are all there is never closed.
    static_cast<void>(key.Release());
    // Not the text of "SpecifyJobOwnerName_User": the owner is "JobOwnerName_User" even where that says that
    // it is the user who is logged in.
    return SetAuthenticationData(record, method->mode, "", values.Name(), values.Password(),
                                 values.Account());
}

// The authentication dialog on a printer of the spooler and a key of the real registry.
#pragma once

#include "companions/authentication/authentication_manager.h"
#include "companions/authentication/authentication_resource.h"
#include "tests/companions/common/companion_dialog_fixture.h"

#include <array>
#include <map>

inline constexpr const char* kSpecifyOwner = "SpecifyJobOwnerName_User";
inline constexpr const char* kOwner = "JobOwnerName_User";
inline constexpr const char* kPassword = "JobOwnerNamePassword_User";
inline constexpr const char* kAccount = "AccountID_User";

class AuthenticationDialogTest : public CompanionDialogTest {
  protected:
    using Values = std::map<std::string, StoredBytes>;

    ~AuthenticationDialogTest() override { RegDeleteTreeA(HKEY_CURRENT_USER, parent.c_str()); }

    std::int32_t Run(Steps steps, std::uint32_t permission = 1) {
        const ModalDialog user(std::move(steps));
        return OnAuthenticationManagerDlg(printer.Handle(), key.c_str(), permission);
    }

    void PutMode(DWORD mode) { printer.Put(L"ManageMethod", REG_DWORD, &mode, sizeof mode); }
    std::optional<StoredBytes> Mode() { return PrinterData("ManageMethod"); }

    void Put(const char* name, DWORD type, const std::string& bytes) {
        HKEY opened = nullptr;
        RegCreateKeyExA(HKEY_CURRENT_USER, key.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_SET_VALUE,
                        nullptr, &opened, nullptr);
        EXPECT_EQ(RegSetValueExA(opened, name, 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                                 static_cast<DWORD>(bytes.size())),
                  ERROR_SUCCESS);
        RegCloseKey(opened);
    }
    void PutText(const char* name, const std::string& text) { Put(name, REG_SZ, text + '\0'); }
    void PutAccount(const std::string& owner, const std::string& password, const std::string& account) {
        PutText(kSpecifyOwner, "SpecifyName");
        PutText(kOwner, owner);
        PutText(kPassword, password);
        PutText(kAccount, account);
    }

    bool HasKey() const {
        HKEY opened = nullptr;
        const bool has = RegOpenKeyExA(HKEY_CURRENT_USER, key.c_str(), 0, KEY_READ, &opened) == ERROR_SUCCESS;
        RegCloseKey(opened);
        return has;
    }
    // All values of the key, by name.
    Values Stored() const {
        Values values;
        HKEY opened = nullptr;
        if (RegOpenKeyExA(HKEY_CURRENT_USER, key.c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS)
            return values;
        std::array<char, 256> name{};
        StoredBytes value;
        for (DWORD i = 0;; ++i) {
            DWORD nameSize = name.size();
            value.bytes.assign(2 * kMegabyte, '\0');
            DWORD size = static_cast<DWORD>(value.bytes.size());
            if (RegEnumValueA(opened, i, name.data(), &nameSize, nullptr, &value.type,
                              reinterpret_cast<BYTE*>(value.bytes.data()), &size) != ERROR_SUCCESS)
                break;
            value.bytes.resize(size);
            values[name.data()] = value;
        }
        RegCloseKey(opened);
        return values;
    }

    static void Specify(HWND dialog, const std::string& user) {
        ClickButton(dialog, IDC_OWNER_SPECIFIED);
        TypeInto(dialog, IDC_USER_ID, user);
    }
    static void EnterAll(HWND dialog) {
        ClickButton(dialog, IsChecked(dialog, IDC_MODE_ON) ? IDC_MODE_OFF : IDC_MODE_ON);
        Specify(dialog, "suzuki");
        TypeInto(dialog, IDC_PASSWORD, "new");
        TypeInto(dialog, IDC_ACCOUNT, "other");
    }

    static std::string LoginName() {
        std::array<char, 257> name{};
        DWORD size = name.size();
        EXPECT_TRUE(GetUserNameA(name.data(), &size));
        return name.data();
    }

    const std::string parent = "Software\\Zephra\\Tests\\Account" + std::to_string(GetCurrentProcessId());
    std::string key = parent + "\\表\\UserInfo";
};

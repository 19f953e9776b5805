// What the dialog stores is what a merge lays over a record.
#include "datamanager/key_names.h"
#include "oemps/authentication_overlay.h"
#include "tests/companions/authentication/authentication_fixture.h"

#include <cstring>

namespace {

class AuthenticationToRecord : public AuthenticationDialogTest {
  protected:
    AuthenticationToRecord() {
        key = std::string(kAuthenticationParent) + "\\" + keyText;
        CDevMode(record).SetDefault(kDevModeSize);
        record.ManageMethod = 5;
        std::strcpy(record.AuthJobUserId, "another user");
        std::strcpy(record.AuthJobPassword, "another password");
        std::strcpy(record.AuthJobAccount, "another account");
    }
    ~AuthenticationToRecord() override {
        RegDeleteTreeA(HKEY_CURRENT_USER, key.substr(0, key.rfind('\\')).c_str());
    }

    void Overlay() {
        std::string name = printer.Name();
        PRINTER_INFO_2A info{};
        info.pPrinterName = name.data();
        EXPECT_EQ(OverWriteRegistryAuthenticationInfo(record, info, printer.Handle(), keyText), 1);
    }
    static Steps Specified(const std::string& user, const std::string& password, const std::string& account) {
        return {[=](HWND dialog) {
                    ClickButton(dialog, IDC_MODE_ON);
                    ClickButton(dialog, IDC_OWNER_SPECIFIED);
                    TypeInto(dialog, IDC_USER_ID, user);
                    TypeInto(dialog, IDC_PASSWORD, password);
                    TypeInto(dialog, IDC_ACCOUNT, account);
                },
                Ok};
    }
    void ExpectCleared() {
        EXPECT_EQ(record.ManageMethod, 0u);
        EXPECT_STREQ(record.AuthJobUserId, "");
        EXPECT_STREQ(record.AuthJobPassword, "");
        EXPECT_STREQ(record.AuthJobAccount, "");
    }

    const std::string keyText = "Dialog Test " + std::to_string(GetCurrentProcessId()) + "{G}\\UserInfo";
    PrivateDevMode record{};
};

TEST_F(AuthenticationToRecord, TakesTheSpecifiedAccount) {
    EXPECT_EQ(Run(Specified("表田", "ソ secret", "十-01")), 1);
    Overlay();
    EXPECT_EQ(record.ManageMethod, 1u);
    EXPECT_EQ(record.SpecifyJobOwnerName, 1u);
    EXPECT_STREQ(record.AuthJobUserId, "表田");
    EXPECT_STREQ(record.AuthJobPassword, "ソ secret");
    EXPECT_STREQ(record.AuthJobAccount, "十-01");
}

// The stored name counts, whether it was specified or not: that is why the dialog stores the login name too.
TEST_F(AuthenticationToRecord, TakesTheLoginName) {
    EXPECT_EQ(Run({[](HWND dialog) { ClickButton(dialog, IDC_MODE_ON); }, Ok}), 1);
    Overlay();
    EXPECT_EQ(record.ManageMethod, 1u);
    EXPECT_EQ(record.SpecifyJobOwnerName, 1u);
    EXPECT_EQ(record.AuthJobUserId, LoginName());
    EXPECT_STREQ(record.AuthJobPassword, "");
    EXPECT_STREQ(record.AuthJobAccount, "");
}

TEST_F(AuthenticationToRecord, TakesTheLongestTextsWithoutTouchingAnotherField) {
    PrivateDevMode before = record;
    const std::string user(65, 'u');
    const std::string password(128, 'p');
    const std::string account(65, 'a');
    EXPECT_EQ(Run(Specified(user, password, account)), 1);
    Overlay();
    EXPECT_EQ(record.AuthJobUserId, user);
    EXPECT_EQ(record.AuthJobPassword, password);
    EXPECT_EQ(record.AuthJobAccount, account);
    for (PrivateDevMode* each : {&before, &record}) {
        each->ManageMethod = 0;
        each->SpecifyJobOwnerName = 0;
        std::memset(each->AuthJobUserId, 0, sizeof each->AuthJobUserId);
        std::memset(each->AuthJobPassword, 0, sizeof each->AuthJobPassword);
        std::memset(each->AuthJobAccount, 0, sizeof each->AuthJobAccount);
    }
    EXPECT_EQ(std::memcmp(&before, &record, sizeof record), 0);
}

TEST_F(AuthenticationToRecord, ClearsTheAccountOnceTheModeIsOff) {
    EXPECT_EQ(Run(Specified("suzuki", "secret", "keiri")), 1);
    EXPECT_EQ(Run({[](HWND dialog) { ClickButton(dialog, IDC_MODE_OFF); }, Ok}), 1);
    Overlay();
    ExpectCleared();
}

TEST_F(AuthenticationToRecord, KeepsThePasswordThatWasNotRetyped) {
    EXPECT_EQ(Run(Specified("suzuki", "secret", "keiri")), 1);
    EXPECT_EQ(Run({[](HWND dialog) { TypeInto(dialog, IDC_USER_ID, "tanaka"); }, Ok}), 1);
    Overlay();
    EXPECT_STREQ(record.AuthJobUserId, "tanaka");
    EXPECT_STREQ(record.AuthJobPassword, "secret");
}

TEST_F(AuthenticationToRecord, TakesAnAccountOfAnotherMode) {
    PutMode(7);
    EXPECT_EQ(Run({Ok}, 0), 1);
    Overlay();
    EXPECT_EQ(record.ManageMethod, 7u);
    EXPECT_EQ(record.AuthJobUserId, LoginName());
}

// Values that were not stored together, or don't fit, leave a record without an account.
TEST_F(AuthenticationToRecord, IsRepairedByOkWhereTheAccountWasIncomplete) {
    PutMode(1);
    PutText(kOwner, std::string(1000, 'x'));
    Overlay();
    ExpectCleared();
    EXPECT_EQ(Run({Ok}), 1);
    Overlay();
    EXPECT_EQ(record.AuthJobUserId, LoginName());
}

} // namespace

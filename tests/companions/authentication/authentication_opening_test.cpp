// What the dialog shows of what is stored.
#include "tests/companions/authentication/authentication_fixture.h"
#include "tests/companions/common/dialog_look.h"

namespace {

class OpenedAuthentication : public AuthenticationDialogTest {
  protected:
    void Opened(const std::function<void(HWND)>& look, std::uint32_t permission = 1) {
        EXPECT_EQ(Run({look, Cancel}, permission), 0);
    }
    void ExpectMode(bool isOn) {
        Opened([isOn](HWND dialog) {
            EXPECT_EQ(IsChecked(dialog, IDC_MODE_ON), isOn);
            EXPECT_EQ(IsChecked(dialog, IDC_MODE_OFF), !isOn);
        });
    }
    static int PasswordLength(HWND dialog) { return GetWindowTextLengthW(GetDlgItem(dialog, IDC_PASSWORD)); }
};

TEST_F(OpenedAuthentication, IsTitledAndLooksGood) {
    for (const std::uint32_t permission : {0u, 1u}) {
        Opened(
            [](HWND dialog) {
                EXPECT_EQ(message_box_detail::TextOf(dialog), "認証設定");
                ExpectGoodLook(dialog);
            },
            permission);
    }
}

TEST_F(OpenedAuthentication, BeginsAtTheModeAndTabsInTheOrderOfItsRows) {
    PutMode(1);
    PutAccount("tanaka", "", "");
    Opened([](HWND dialog) {
        EXPECT_EQ(GetDlgCtrlID(GetFocus()), IDC_MODE_ON);
        EXPECT_EQ(TabOrder(dialog), (std::vector{IDC_MODE_ON, IDC_OWNER_SPECIFIED, IDC_USER_ID, IDC_PASSWORD,
                                                 IDC_ACCOUNT, IDOK, IDCANCEL}));
    });
}

TEST_F(OpenedAuthentication, BeginsAtTheOwnerWithoutThePermission) {
    Opened(
        [](HWND dialog) {
            EXPECT_EQ(GetDlgCtrlID(GetFocus()), IDC_OWNER_LOGIN);
            EXPECT_EQ(TabOrder(dialog),
                      (std::vector{IDC_OWNER_LOGIN, IDC_PASSWORD, IDC_ACCOUNT, IDOK, IDCANCEL}));
        },
        0);
}

TEST_F(OpenedAuthentication, HidesThePasswordFromTheScreen) {
    Opened([](HWND dialog) {
        EXPECT_TRUE(GetWindowLongPtrA(GetDlgItem(dialog, IDC_PASSWORD), GWL_STYLE) & ES_PASSWORD);
        EXPECT_NE(SendDlgItemMessageA(dialog, IDC_PASSWORD, EM_GETPASSWORDCHAR, 0, 0), 0);
    });
}

TEST_F(OpenedAuthentication, ShowsTheLoginNameAndAModeThatIsOffWhileNothingIsStored) {
    Opened([](HWND dialog) {
        EXPECT_TRUE(IsChecked(dialog, IDC_MODE_OFF));
        EXPECT_TRUE(IsChecked(dialog, IDC_OWNER_LOGIN));
        EXPECT_FALSE(IsChecked(dialog, IDC_OWNER_SPECIFIED));
        EXPECT_EQ(TextOf(dialog, IDC_LOGIN_NAME), LoginName());
        EXPECT_EQ(TextOf(dialog, IDC_USER_ID), "");
        EXPECT_FALSE(IsEnabled(dialog, IDC_USER_ID));
        EXPECT_EQ(PasswordLength(dialog), 0);
        EXPECT_EQ(TextOf(dialog, IDC_ACCOUNT), "");
    });
    EXPECT_FALSE(HasKey());
}

TEST_F(OpenedAuthentication, TakesEachModeButZeroForOn) {
    PutMode(0);
    ExpectMode(false);
    PutMode(1);
    ExpectMode(true);
    PutMode(7);
    ExpectMode(true);
}

TEST_F(OpenedAuthentication, TakesTheFirstByteForTheModeWhateverTheTypeAndSize) {
    printer.Put(L"ManageMethod", REG_BINARY, "\1", 1);
    ExpectMode(true);
    printer.Put(L"ManageMethod", REG_BINARY, "\0\1", 2);
    ExpectMode(false);
    printer.Put(L"ManageMethod", REG_SZ, L"1", 4);
    ExpectMode(true);
    printer.Put(L"ManageMethod", REG_BINARY, std::string(kMegabyte, '\1').data(), kMegabyte);
    ExpectMode(true);
    printer.Put(L"ManageMethod", REG_BINARY, "", 0);
    ExpectMode(false);
    PutMode(0x100);
    ExpectMode(false);
}

TEST_F(OpenedAuthentication, DisablesTheModeWithoutThePermissionAndSaysWhy) {
    PutMode(1);
    Opened(
        [](HWND dialog) {
            EXPECT_TRUE(IsChecked(dialog, IDC_MODE_ON));
            EXPECT_FALSE(IsEnabled(dialog, IDC_MODE_ON));
            EXPECT_FALSE(IsEnabled(dialog, IDC_MODE_OFF));
            EXPECT_EQ(TextOf(dialog, IDC_MODE_NOTE), "認証の方法を変更する権限がありません。");
        },
        0);
    Opened(
        [](HWND dialog) {
            EXPECT_TRUE(IsEnabled(dialog, IDC_MODE_ON));
            EXPECT_TRUE(IsEnabled(dialog, IDC_MODE_OFF));
            EXPECT_EQ(TextOf(dialog, IDC_MODE_NOTE), "プリンターを使うすべてのユーザーに適用されます。");
        },
        0x80000000);
}

TEST_F(OpenedAuthentication, ShowsAnOwnerThatWasSpecified) {
    PutAccount("表田", "", "ソ-01");
    Opened([](HWND dialog) {
        EXPECT_TRUE(IsChecked(dialog, IDC_OWNER_SPECIFIED));
        EXPECT_EQ(TextOf(dialog, IDC_USER_ID), "表田");
        EXPECT_TRUE(IsEnabled(dialog, IDC_USER_ID));
        EXPECT_EQ(TextOf(dialog, IDC_ACCOUNT), "ソ-01");
        EXPECT_EQ(PasswordLength(dialog), 0);
    });
}

// A job carries the stored name, whatever kind of owner it is said to be of.
TEST_F(OpenedAuthentication, ShowsAStoredNameAsSpecifiedWhateverItsKind) {
    PutAccount("tanaka", "", "");
    for (const char* kind : {"LoginName2", "loginname", "LoginName", ""}) {
        PutText(kSpecifyOwner, kind);
        Opened([kind](HWND dialog) {
            EXPECT_TRUE(IsChecked(dialog, IDC_OWNER_SPECIFIED)) << kind;
            EXPECT_EQ(TextOf(dialog, IDC_USER_ID), "tanaka") << kind;
        });
    }
}

TEST_F(OpenedAuthentication, ShowsTheLoginNameWhereItIsTheStoredOne) {
    PutAccount(LoginName(), "", "");
    Opened([](HWND dialog) { EXPECT_TRUE(IsChecked(dialog, IDC_OWNER_SPECIFIED)); });
    PutText(kSpecifyOwner, "LoginName");
    Opened([](HWND dialog) {
        EXPECT_TRUE(IsChecked(dialog, IDC_OWNER_LOGIN));
        EXPECT_EQ(TextOf(dialog, IDC_USER_ID), "");
        EXPECT_EQ(TextOf(dialog, IDC_LOGIN_NAME), LoginName());
    });
}

TEST_F(OpenedAuthentication, ShowsTextsOfAnyTypeAsTheirReadersTakeThem) {
    for (const DWORD type : {REG_BINARY, REG_NONE, REG_MULTI_SZ, REG_DWORD}) {
        Put(kSpecifyOwner, type, "tanaka");
        Put(kOwner, type, "tanaka");
        Put(kAccount, type, "keiri");
        Opened([type](HWND dialog) {
            EXPECT_TRUE(IsChecked(dialog, IDC_OWNER_SPECIFIED)) << type;
            EXPECT_EQ(TextOf(dialog, IDC_USER_ID), "tanaka") << type;
            EXPECT_EQ(TextOf(dialog, IDC_ACCOUNT), "keiri") << type;
        });
    }
}

TEST_F(OpenedAuthentication, HasEditsThatHoldUtf16) {
    Opened([](HWND dialog) { ExpectWideEdits(dialog, {IDC_USER_ID, IDC_PASSWORD, IDC_ACCOUNT}); });
}

TEST_F(OpenedAuthentication, SaysThatTheAccountIsNotUsedWhileTheModeIsOff) {
    Opened(
        [](HWND dialog) { EXPECT_EQ(TextOf(dialog, IDC_OWNER_NOTE), "認証しない場合は使用されません。"); });
}

TEST_F(OpenedAuthentication, ShowsTextsWithoutATerminator) {
    Put(kSpecifyOwner, REG_SZ, "SpecifyName");
    Put(kOwner, REG_SZ, "tanaka");
    Put(kAccount, REG_EXPAND_SZ, "keiri");
    Opened([](HWND dialog) {
        EXPECT_TRUE(IsChecked(dialog, IDC_OWNER_SPECIFIED));
        EXPECT_EQ(TextOf(dialog, IDC_USER_ID), "tanaka");
        EXPECT_EQ(TextOf(dialog, IDC_ACCOUNT), "keiri");
    });
}

TEST_F(OpenedAuthentication, ShowsTextsUpToTheBuffersOfTheirReaders) {
    PutAccount(std::string(255, 'u'), "", std::string(256, 'a'));
    Opened([](HWND dialog) {
        EXPECT_EQ(TextOf(dialog, IDC_USER_ID), std::string(255, 'u'));
        EXPECT_EQ(TextOf(dialog, IDC_ACCOUNT), "");
    });
}

struct Unusable {
    const char* name;
    DWORD type;
    std::string bytes;
};

class UnusableValue : public OpenedAuthentication, public testing::WithParamInterface<Unusable> {};

INSTANTIATE_TEST_SUITE_P(All, UnusableValue,
                         testing::Values(Unusable{"nothing", REG_SZ, ""}, Unusable{"end", REG_SZ, {"", 1}},
                                         Unusable{"endInNumber", REG_DWORD, {"\0\1\2\3", 4}},
                                         Unusable{"megabyte", REG_SZ, std::string(1 << 20, 'x')},
                                         Unusable{"megabyteOfBytes", REG_BINARY, std::string(1 << 20, 'x')}),
                         [](const auto& test) { return test.param.name; });

TEST_P(UnusableValue, IsShownAsNone) {
    PutText(kSpecifyOwner, "SpecifyName");
    for (const char* name : {kOwner, kAccount})
        Put(name, GetParam().type, GetParam().bytes);
    Opened([](HWND dialog) {
        EXPECT_TRUE(IsChecked(dialog, IDC_OWNER_LOGIN));
        EXPECT_EQ(TextOf(dialog, IDC_USER_ID), "");
        EXPECT_EQ(TextOf(dialog, IDC_ACCOUNT), "");
    });
}

TEST_P(UnusableValue, HidesNoOwnerAsTheKindOfOne) {
    Put(kSpecifyOwner, GetParam().type, GetParam().bytes);
    Opened([](HWND dialog) { EXPECT_TRUE(IsChecked(dialog, IDC_OWNER_LOGIN)); });
    PutText(kOwner, "tanaka");
    Opened([](HWND dialog) {
        EXPECT_TRUE(IsChecked(dialog, IDC_OWNER_SPECIFIED));
        EXPECT_EQ(TextOf(dialog, IDC_USER_ID), "tanaka");
    });
}

TEST_F(OpenedAuthentication, ShowsEightMarksForAPasswordOfAnyLength) {
    for (const std::size_t length : {1u, 8u, 128u, 255u}) {
        PutText(kPassword, std::string(length, 'p'));
        Opened([](HWND dialog) { EXPECT_EQ(PasswordLength(dialog), 8); });
    }
}

TEST_F(OpenedAuthentication, ShowsMarksForAPasswordOfAnyTypeThatItsReadersTake) {
    Put(kPassword, REG_BINARY, "\x01\xFF");
    Opened([](HWND dialog) { EXPECT_EQ(PasswordLength(dialog), 8); });
    Put(kPassword, REG_SZ, "secret");
    Opened([](HWND dialog) { EXPECT_EQ(PasswordLength(dialog), 8); });
}

TEST_F(OpenedAuthentication, ShowsNoMarksForAPasswordThatItsReadersDoNotTake) {
    PutText(kPassword, "");
    Opened([](HWND dialog) { EXPECT_EQ(PasswordLength(dialog), 0); });
    Put(kPassword, REG_SZ, "");
    Opened([](HWND dialog) { EXPECT_EQ(PasswordLength(dialog), 0); });
    Put(kPassword, REG_SZ, std::string(kMegabyte, 'p'));
    Opened([](HWND dialog) { EXPECT_EQ(PasswordLength(dialog), 0); });
}

TEST_F(OpenedAuthentication, LetsTheNameBeEnteredOnlyForASpecifiedOwner) {
    Opened([](HWND dialog) {
        ClickButton(dialog, IDC_OWNER_SPECIFIED);
        EXPECT_TRUE(IsEnabled(dialog, IDC_USER_ID));
        ClickButton(dialog, IDC_OWNER_LOGIN);
        EXPECT_FALSE(IsEnabled(dialog, IDC_USER_ID));
    });
}

TEST_F(OpenedAuthentication, TakesHostileKeysForKeysWithoutValues) {
    for (const std::string& hostile :
         {std::string("\\"), std::string("\\\\server\\x"), std::string(10000, 'k'), std::string("表\\表\\表"),
          std::string("%s%n\\%x"), std::string("\xFF\x81")}) {
        key = hostile;
        Opened([](HWND dialog) { EXPECT_TRUE(IsChecked(dialog, IDC_OWNER_LOGIN)); });
    }
}

TEST_F(OpenedAuthentication, NeedsAPrinterAndAKey) {
    EXPECT_EQ(OnAuthenticationManagerDlg(nullptr, key.c_str(), 1), 0);
    EXPECT_EQ(OnAuthenticationManagerDlg(reinterpret_cast<HANDLE>(0x7FFF), key.c_str(), 1), 0);
    EXPECT_EQ(OnAuthenticationManagerDlg(INVALID_HANDLE_VALUE, key.c_str(), 1), 0);
    EXPECT_EQ(OnAuthenticationManagerDlg(printer.Handle(), nullptr, 1), 0);
    EXPECT_EQ(OnAuthenticationManagerDlg(printer.Handle(), "", 1), 0);
    EXPECT_EQ(OnAuthenticationManagerDlg(nullptr, nullptr, 0), 0);
}

} // namespace

// What OK stores, and what nothing stores.
#include "tests/companions/authentication/authentication_fixture.h"

namespace {

class StoredAuthentication : public AuthenticationDialogTest {
  protected:
    // As a message that the dialog shows: the rest of it is checked too.
    static void ExpectRefused(HWND dialog, const std::string& message, int control) {
        const MessageBoxSeen box = BoxAfterOk(dialog);
        EXPECT_EQ(box.text, message);
        EXPECT_EQ(box.caption, "認証設定");
        EXPECT_EQ(box.owner, dialog);
        EXPECT_EQ(box.icon, LoadIconA(nullptr, IDI_WARNING));
        ExpectAtText(dialog, control);
    }
};

TEST_F(StoredAuthentication, IsTheLoginNameWhereNothingElseIsChosen) {
    EXPECT_EQ(Run({Ok}), 1);
    EXPECT_EQ(Stored(), (Values{{kSpecifyOwner, Text("LoginName")},
                                {kOwner, Text(LoginName())},
                                {kPassword, Text("")},
                                {kAccount, Text("")}}));
    EXPECT_EQ(Mode(), std::nullopt);
}

TEST_F(StoredAuthentication, IsAllThatWasEntered) {
    EXPECT_EQ(Run({EnterAll, Ok}), 1);
    EXPECT_EQ(Stored(), (Values{{kSpecifyOwner, Text("SpecifyName")},
                                {kOwner, Text("suzuki")},
                                {kPassword, Text("new")},
                                {kAccount, Text("other")}}));
    EXPECT_EQ(Mode(), Number(1));
}

TEST_F(StoredAuthentication, IsTheLoginNameAgainWithoutTheNameThatWasSpecified) {
    PutAccount("tanaka", "secret", "keiri");
    EXPECT_EQ(Run({[](HWND dialog) { ClickButton(dialog, IDC_OWNER_LOGIN); }, Ok}), 1);
    EXPECT_EQ(Stored(), (Values{{kSpecifyOwner, Text("LoginName")},
                                {kOwner, Text(LoginName())},
                                {kPassword, Text("secret")},
                                {kAccount, Text("keiri")}}));
}

TEST_F(StoredAuthentication, KeepsDoubleByteCharactersWhoseSecondByteIsABackslash) {
    EXPECT_EQ(Run({[](HWND dialog) {
                       Specify(dialog, "表能");
                       TypeInto(dialog, IDC_PASSWORD, "ソ表");
                       TypeInto(dialog, IDC_ACCOUNT, "十");
                   },
                   Ok}),
              1);
    Values stored = Stored();
    EXPECT_EQ(stored[kOwner], Text("\x95\x5C\x94\x5C"));
    EXPECT_EQ(stored[kPassword], Text("\x83\x5C\x95\x5C"));
    EXPECT_EQ(stored[kAccount], Text("\x8F\x5C"));
}

TEST_F(StoredAuthentication, LeavesOtherValuesOfTheKeyAlone) {
    PutText("Other", "stays");
    EXPECT_EQ(Run({Ok}), 1);
    EXPECT_EQ(Stored().size(), 5u);
    EXPECT_EQ(Stored()["Other"], Text("stays"));
}

TEST_F(StoredAuthentication, CompletesAnAccountOfWhichAValueIsMissing) {
    PutText(kSpecifyOwner, "SpecifyName");
    PutText(kOwner, "tanaka");
    EXPECT_EQ(Run({Ok}), 1);
    EXPECT_EQ(Stored(), (Values{{kSpecifyOwner, Text("SpecifyName")},
                                {kOwner, Text("tanaka")},
                                {kPassword, Text("")},
                                {kAccount, Text("")}}));
}

TEST_F(StoredAuthentication, ReplacesWhatItsReadersDoNotTake) {
    for (const char* name : {kSpecifyOwner, kOwner, kPassword, kAccount})
        Put(name, REG_SZ, std::string(kMegabyte, 'x'));
    EXPECT_EQ(Run({Ok}), 1);
    EXPECT_EQ(Stored(), (Values{{kSpecifyOwner, Text("LoginName")},
                                {kOwner, Text(LoginName())},
                                {kPassword, Text("")},
                                {kAccount, Text("")}}));
}

TEST_F(StoredAuthentication, LeavesWhatWasNotChangedAsItIs) {
    Put(kSpecifyOwner, REG_DWORD, "1234");
    Put(kOwner, REG_BINARY, "tana\tka\xFF");
    Put(kPassword, REG_NONE, "\1");
    Put(kAccount, REG_MULTI_SZ, {"keiri\0\0", 7});
    const Values before = Stored();
    EXPECT_EQ(Run({Ok}), 0);
    EXPECT_EQ(Stored(), before);
    EXPECT_EQ(Run({[](HWND dialog) { ClickButton(dialog, IDC_MODE_ON); }, Ok}), 1);
    EXPECT_EQ(Stored(), before);
}

TEST_F(StoredAuthentication, KeepsTheNameOfAnotherKindOfOwner) {
    PutAccount("tanaka", "secret", "keiri");
    PutText(kSpecifyOwner, "LoginName");
    const Values before = Stored();
    EXPECT_EQ(Run({Ok}), 0);
    EXPECT_EQ(Stored(), before);
}

TEST_F(StoredAuthentication, HasItsOwnKindOnceAnotherNameIsSpecified) {
    PutAccount("tanaka", "secret", "keiri");
    PutText(kSpecifyOwner, "LoginName");
    EXPECT_EQ(Run({[](HWND dialog) { TypeInto(dialog, IDC_USER_ID, "suzuki"); }, Ok}), 1);
    EXPECT_EQ(Stored()[kSpecifyOwner], Text("SpecifyName"));
    EXPECT_EQ(Stored()[kOwner], Text("suzuki"));
}

TEST_F(StoredAuthentication, ReplacesOnlyTheTextThatWasChanged) {
    Put(kSpecifyOwner, REG_BINARY, "x");
    Put(kOwner, REG_BINARY, "tanaka");
    Put(kPassword, REG_BINARY, "secret");
    Put(kAccount, REG_BINARY, "keiri");
    Values expected = Stored();
    expected[kAccount] = Text("other");
    EXPECT_EQ(Run({[](HWND dialog) { TypeInto(dialog, IDC_ACCOUNT, "other"); }, Ok}), 1);
    EXPECT_EQ(Stored(), expected);
}

TEST_F(StoredAuthentication, IsNotCheckedWhereItWasNotChanged) {
    PutAccount(std::string(70, 'u'), "", "a\tb");
    const Values before = Stored();
    EXPECT_EQ(Run({[](HWND dialog) { ClickButton(dialog, IDC_MODE_ON); }, Ok}), 1);
    EXPECT_EQ(Stored(), before);
    EXPECT_EQ(Mode(), Number(1));
}

TEST_F(StoredAuthentication, IsTheLoginNameWhereAnEmptyOneWasSpecified) {
    PutAccount("", "secret", "keiri");
    EXPECT_EQ(Run({[](HWND dialog) { ClickButton(dialog, IDC_MODE_ON); }, Ok}), 1);
    EXPECT_EQ(Stored()[kSpecifyOwner], Text("LoginName"));
    EXPECT_EQ(Stored()[kOwner], Text(LoginName()));
    EXPECT_EQ(Stored()[kPassword], Text("secret"));
}

TEST_F(StoredAuthentication, HasTheModeAsANumber) {
    EXPECT_EQ(Run({[](HWND dialog) { ClickButton(dialog, IDC_MODE_ON); }, Ok}), 1);
    EXPECT_EQ(Mode(), Number(1));
    EXPECT_EQ(Run({[](HWND dialog) { ClickButton(dialog, IDC_MODE_OFF); }, Ok}), 1);
    EXPECT_EQ(Mode(), Number(0));
}

TEST_F(StoredAuthentication, KeepsAnotherModeUnlessTheUserChangesIt) {
    PutMode(7);
    EXPECT_EQ(Run({Ok}), 1);
    EXPECT_EQ(Mode(), Number(7));
    EXPECT_EQ(Run({[](HWND dialog) { ClickButton(dialog, IDC_MODE_OFF); },
                   [](HWND dialog) { ClickButton(dialog, IDC_MODE_ON); }, Ok}),
              0);
    EXPECT_EQ(Mode(), Number(7));
    EXPECT_EQ(Run({[](HWND dialog) { ClickButton(dialog, IDC_MODE_OFF); }, Ok}), 1);
    EXPECT_EQ(Mode(), Number(0));
}

TEST_F(StoredAuthentication, KeepsAModeOfAnotherTypeUnlessTheUserChangesIt) {
    const std::string megabyte(kMegabyte, '\2');
    printer.Put(L"ManageMethod", REG_BINARY, megabyte.data(), megabyte.size());
    EXPECT_EQ(Run({Ok}), 1);
    EXPECT_EQ(Mode(), (StoredBytes{REG_BINARY, megabyte}));
    EXPECT_EQ(Run({[](HWND dialog) { ClickButton(dialog, IDC_MODE_OFF); }, Ok}), 1);
    EXPECT_EQ(Mode(), Number(0));
}

TEST_F(StoredAuthentication, LeavesTheModeAloneWithoutThePermission) {
    PutMode(1);
    EXPECT_EQ(Run({[](HWND dialog) {
                       // A disabled control can still be told to check itself.
                       CheckRadioButton(dialog, IDC_MODE_OFF, IDC_MODE_ON, IDC_MODE_OFF);
                       Specify(dialog, "suzuki");
                   },
                   Ok},
                  0),
              1);
    EXPECT_EQ(Mode(), Number(1));
    EXPECT_EQ(Stored()[kOwner], Text("suzuki"));
}

TEST_F(StoredAuthentication, IsStoredAtReturn) {
    EXPECT_EQ(Run({[](HWND dialog) { Specify(dialog, "suzuki"); }, Return}), 1);
    EXPECT_EQ(Stored()[kOwner], Text("suzuki"));
}

TEST_F(StoredAuthentication, IsNothingAtCancelEscapeAndTheCloseBox) {
    PutMode(1);
    PutAccount("tanaka", "secret", "keiri");
    const Values before = Stored();
    for (const auto& leave : {Cancel, Escape, CloseBox}) {
        EXPECT_EQ(Run({EnterAll, leave}), 0);
        EXPECT_EQ(Stored(), before);
        EXPECT_EQ(Mode(), Number(1));
    }
}

TEST_F(StoredAuthentication, MakesNoKeyAtCancel) {
    EXPECT_EQ(Run({EnterAll, Cancel}), 0);
    EXPECT_FALSE(HasKey());
}

struct TextLimit {
    int control;
    std::size_t mostBytes;
    const char* value;
    const char* tooLong;
    const char* character;
};

class LimitedText : public StoredAuthentication, public testing::WithParamInterface<TextLimit> {
  protected:
    // Enters the text into the control, and what else is required.
    static void Enter(HWND dialog, const std::string& text) {
        Specify(dialog, "suzuki");
        TypeInto(dialog, GetParam().control, text);
    }
    void ExpectStored(const std::string& text) {
        EXPECT_EQ(Run({[&](HWND dialog) { Enter(dialog, text); }, Ok}), 1);
        EXPECT_EQ(Stored()[GetParam().value], Text(text));
    }
    void ExpectRefusedText(const std::string& text, const std::string& message) {
        EXPECT_EQ(Run({[&](HWND dialog) {
                           Enter(dialog, text);
                           ExpectRefused(dialog, message, GetParam().control);
                       },
                       Cancel}),
                  0);
        EXPECT_FALSE(HasKey());
    }
};

INSTANTIATE_TEST_SUITE_P(
    All, LimitedText,
    testing::Values(TextLimit{IDC_USER_ID, 65, kOwner,
                              "ユーザー名が長すぎます。\n半角65文字(全角32文字)以内で入力してください。",
                              "ユーザー名に使用できない文字が含まれています。"},
                    TextLimit{IDC_PASSWORD, 128, kPassword,
                              "パスワードが長すぎます。\n半角128文字(全角64文字)以内で入力してください。",
                              "パスワードに使用できない文字が含まれています。"},
                    TextLimit{IDC_ACCOUNT, 65, kAccount,
                              "アカウントIDが長すぎます。\n半角65文字(全角32文字)以内で入力してください。",
                              "アカウントIDに使用できない文字が含まれています。"}));

TEST_P(LimitedText, MayBeAsLongAsItsField) {
    ExpectStored(std::string(GetParam().mostBytes, 'a'));
}

TEST_P(LimitedText, IsRefusedWithOneByteMore) {
    ExpectRefusedText(std::string(GetParam().mostBytes + 1, 'a'), GetParam().tooLong);
}

TEST_P(LimitedText, IsCountedInBytes) {
    std::string text;
    while (text.size() <= GetParam().mostBytes)
        text += "表";
    ExpectRefusedText(text, GetParam().tooLong);
    ExpectStored(text.substr(2));
}

TEST_P(LimitedText, OfTenThousandCharactersIsRefused) {
    ExpectRefusedText(std::string(10000, 'a'), GetParam().tooLong);
}

TEST_P(LimitedText, HasNoControlCharacter) {
    ExpectRefusedText("a\tb", GetParam().character);
    ExpectRefusedText("a\x7F", GetParam().character);
}

TEST_P(LimitedText, HasNoCharacterThatTheCodePageLacks) {
    EXPECT_EQ(Run({[&](HWND dialog) {
                       Specify(dialog, "suzuki");
                       SetWindowTextW(GetDlgItem(dialog, GetParam().control), L"Andr\u00e9");
                       ExpectRefused(dialog, GetParam().character, GetParam().control);
                   },
                   Cancel}),
              0);
    EXPECT_FALSE(HasKey());
}

TEST_F(StoredAuthentication, NeedsTheNameOfASpecifiedOwner) {
    EXPECT_EQ(Run({[](HWND dialog) {
                       ClickButton(dialog, IDC_OWNER_SPECIFIED);
                       ExpectRefused(dialog, "ユーザー名を入力してください。", IDC_USER_ID);
                       TypeInto(dialog, IDC_USER_ID, "  ");
                       ExpectRefused(dialog, "ユーザー名を入力してください。", IDC_USER_ID);
                   },
                   Cancel}),
              0);
    EXPECT_FALSE(HasKey());
}

TEST_F(StoredAuthentication, IsStoredOnceItWasCorrected) {
    EXPECT_EQ(Run({[](HWND dialog) {
                       ClickButton(dialog, IDC_OWNER_SPECIFIED);
                       BoxAfterOk(dialog);
                       TypeInto(dialog, IDC_USER_ID, "suzuki");
                   },
                   Ok}),
              1);
    EXPECT_EQ(Stored()[kOwner], Text("suzuki"));
}

TEST_F(StoredAuthentication, DoesNotAskForTheNameOfALogin) {
    EXPECT_EQ(Run({[](HWND dialog) {
                       Specify(dialog, std::string(1000, 'a'));
                       ClickButton(dialog, IDC_OWNER_LOGIN);
                   },
                   Ok}),
              1);
    EXPECT_EQ(Stored()[kOwner], Text(LoginName()));
}

} // namespace

// What is stored where the spooler or the registry fails, or something goes while the dialog is open.
#include "tests/companions/authentication/authentication_fixture.h"
#include "tests/companions/common/refused_printer_data.h"

namespace {

class StoredAtFailure : public AuthenticationDialogTest {};

constexpr const char* kNotStored = "設定を保存できませんでした。保存されている設定は元のままです。\n";

// As the event of a printer that is deleted does it.
TEST_F(StoredAtFailure, IsWholeWhereItsKeyWasDeletedMeanwhile) {
    PutAccount("tanaka", "secret", "keiri");
    EXPECT_EQ(Run({[this](HWND) { RegDeleteTreeA(HKEY_CURRENT_USER, parent.c_str()); }, Ok}), 1);
    EXPECT_EQ(Stored(), (Values{{kSpecifyOwner, Text("SpecifyName")},
                                {kOwner, Text("tanaka")},
                                {kPassword, Text("")},
                                {kAccount, Text("keiri")}}));
}

TEST_F(StoredAtFailure, MakesNoKeyForAPrinterThatHasGone) {
    PutAccount("tanaka", "secret", "keiri");
    EXPECT_EQ(Run({[this](HWND dialog) {
                       TypeInto(dialog, IDC_USER_ID, "suzuki");
                       printer.Delete();
                       RegDeleteTreeA(HKEY_CURRENT_USER, parent.c_str());
                       const MessageBoxSeen box = BoxAfterOk(dialog);
                       EXPECT_EQ(box.text, "設定を保存できませんでした。保存されている設定は元のままです。\n"
                                           "プリンターが見つかりません。");
                       EXPECT_EQ(box.icon, LoadIconA(nullptr, IDI_ERROR));
                   },
                   Cancel}),
              0);
    EXPECT_FALSE(HasKey());
}

TEST_F(StoredAtFailure, TellsThatTheKeyCannotBeMadeAndStays) {
    key = parent + "\\" + std::string(300, 'k');
    PutMode(1);
    EXPECT_EQ(Run({[](HWND dialog) {
                       EnterAll(dialog);
                       const std::string text = BoxAfterOk(dialog).text;
                       EXPECT_TRUE(text.starts_with(kNotStored)) << text;
                       EXPECT_TRUE(IsWindow(dialog));
                       EXPECT_EQ(TextOf(dialog, IDC_USER_ID), "suzuki");
                   },
                   Cancel}),
              0);
    EXPECT_EQ(Mode(), Number(1));
}

TEST_F(StoredAtFailure, TellsTheNumberOfAFailureWithoutAReasonOfItsOwn) {
    // A key that lasts can't stand below one that goes with the system.
    HKEY made = nullptr;
    RegCreateKeyExA(HKEY_CURRENT_USER, parent.c_str(), 0, nullptr, REG_OPTION_VOLATILE, KEY_ALL_ACCESS,
                    nullptr, &made, nullptr);
    RegCloseKey(made);
    EXPECT_EQ(Run({[](HWND dialog) {
                       const std::string text = BoxAfterOk(dialog).text;
                       EXPECT_TRUE(text.starts_with(std::string(kNotStored) + "エラー コード: 1021\n"))
                           << text;
                   },
                   Cancel}),
              0);
}

struct RefusedMode : RefusedPrinterData {
    RefusedMode() : RefusedPrinterData("AuthenticationManager.dll", L"ManageMethod", ERROR_ACCESS_DENIED) {}
};

TEST_F(StoredAtFailure, IsWhatItWasBeforeIfTheModeCannotBeStored) {
    PutMode(1);
    PutAccount("tanaka", "secret", "keiri");
    Put(kAccount, REG_BINARY, "\x81");
    const Values before = Stored();
    EXPECT_EQ(Run({[](HWND dialog) {
                       EnterAll(dialog);
                       const RefusedMode mode;
                       EXPECT_EQ(BoxAfterOk(dialog).text,
                                 std::string(kNotStored) + "この設定を変更する権限がありません。");
                       EXPECT_TRUE(IsWindow(dialog));
                   },
                   Cancel}),
              0);
    EXPECT_EQ(Stored(), before);
}

TEST_F(StoredAtFailure, LosesTheValuesThatWereMissingBeforeIfTheModeCannotBeStored) {
    PutText(kOwner, "tanaka");
    const Values before = Stored();
    EXPECT_EQ(Run({[](HWND dialog) {
                       EnterAll(dialog);
                       const RefusedMode mode;
                       BoxAfterOk(dialog);
                   },
                   Cancel}),
              0);
    EXPECT_EQ(Stored(), before);
}

// An empty key would clear the owner of a job where a missing one leaves it to the login name.
TEST_F(StoredAtFailure, LeavesNoKeyThatWasNotThereIfTheModeCannotBeStored) {
    EXPECT_EQ(Run({[](HWND dialog) {
                       EnterAll(dialog);
                       const RefusedMode mode;
                       BoxAfterOk(dialog);
                   },
                   Cancel}),
              0);
    EXPECT_FALSE(HasKey());
    HKEY above = nullptr;
    EXPECT_EQ(RegOpenKeyExA(HKEY_CURRENT_USER, parent.c_str(), 0, KEY_READ, &above), ERROR_FILE_NOT_FOUND);
}

TEST_F(StoredAtFailure, LeavesTheKeysThatWereThereIfTheModeCannotBeStored) {
    const std::string whole = key;
    key = parent;
    PutText("Other", "stays");
    key = whole;
    EXPECT_EQ(Run({[](HWND dialog) {
                       EnterAll(dialog);
                       const RefusedMode mode;
                       BoxAfterOk(dialog);
                   },
                   Cancel}),
              0);
    EXPECT_FALSE(HasKey());
    key = parent + "\\表";
    EXPECT_FALSE(HasKey());
    key = parent;
    EXPECT_EQ(Stored(), (Values{{"Other", Text("stays")}}));
}

} // namespace

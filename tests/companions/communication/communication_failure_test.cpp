// What the communication dialog refuses, and what is refused to it.
#include "tests/companions/common/refused_printer_data.h"
#include "tests/companions/communication/communication_fixture.h"

namespace {

class CommunicationDialogFailure : public CommunicationDialogTest {};

struct Refused {
    const char* address;
    const char* message;
};

class RefusedAddress : public CommunicationDialogTest, public testing::WithParamInterface<Refused> {};

INSTANTIATE_TEST_SUITE_P(
    All, RefusedAddress,
    testing::Values(
        Refused{"aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa."
                "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa"
                "aaaaaaaaaaaaaaaaaaaaaaa.aaaaaa",
                "アドレスが長すぎます。\n半角127文字以内で入力してください。"},
        Refused{"print server", "アドレスに使用できない文字が含まれています。\n半角の英数字、ハイフン、"
                                "アンダースコア、ピリオドで入力してください。"},
        Refused{"表.example.jp", "アドレスに使用できない文字が含まれています。\n半角の英数字、ハイフン、"
                                 "アンダースコア、ピリオドで入力してください。"},
        Refused{"2001:db8::1", "IPv6のアドレスは使用できません。\nIPv4のアドレスまたはホスト名を入力して"
                               "ください。"},
        Refused{"192.168.1.256", "IPアドレスが正しくありません。\n0から255までの4つの数字をピリオドで区切って"
                                 "入力してください。"},
        Refused{"-server", "ホスト名が正しくありません。\nピリオドで区切られた各部分は1文字から63文字までで、"
                           "先頭と末尾にハイフンは使用できません。"}));

TEST_P(RefusedAddress, IsToldAndLeavesTheDialogOpenAtTheAddress) {
    PutAddress(L"10.0.0.1");
    EXPECT_EQ(Run({[](HWND dialog) {
                       ClickButton(dialog, IDC_OLDER_PRINTER);
                       TypeInto(dialog, IDC_ADDRESS, GetParam().address);
                       const MessageBoxSeen box = BoxAfterOk(dialog);
                       EXPECT_EQ(box.text, GetParam().message);
                       EXPECT_EQ(box.caption, "プリントサーバーとの通信設定");
                       EXPECT_EQ(box.owner, dialog);
                       ExpectAtText(dialog, IDC_ADDRESS);
                       EXPECT_EQ(TextOf(dialog, IDC_ADDRESS), GetParam().address);
                   },
                   Cancel}),
              0);
    EXPECT_EQ(Address(), Text("10.0.0.1"));
    EXPECT_EQ(Mode(), std::nullopt);
}

TEST_F(CommunicationDialogFailure, RefusesWhatTheCodePageLacks) {
    EXPECT_EQ(Run({[](HWND dialog) {
                       SetWindowTextW(GetDlgItem(dialog, IDC_ADDRESS), L"server\u00e9");
                       EXPECT_TRUE(BoxAfterOk(dialog).text.starts_with(
                           "アドレスに使用できない文字が含まれています。"));
                   },
                   Cancel}),
              0);
    EXPECT_EQ(Address(), std::nullopt);
}

TEST_F(CommunicationDialogFailure, CanBeCorrectedAfterARefusal) {
    EXPECT_EQ(Run({[](HWND dialog) {
                       TypeInto(dialog, IDC_ADDRESS, "a b");
                       BoxAfterOk(dialog);
                       TypeInto(dialog, IDC_ADDRESS, "a-b");
                   },
                   Ok}),
              1);
    EXPECT_EQ(Address(), Text("a-b"));
}

TEST_F(CommunicationDialogFailure, TellsThatThePrinterHasGoneAndStays) {
    EXPECT_EQ(Run({[this](HWND dialog) {
                       TypeInto(dialog, IDC_ADDRESS, "server");
                       printer.Delete();
                       EXPECT_EQ(BoxAfterOk(dialog).text,
                                 "設定を保存できませんでした。保存されている設定は元のままです。\n"
                                 "プリンターが見つかりません。");
                       EXPECT_TRUE(IsWindow(dialog));
                   },
                   [this](HWND dialog) {
                       ClickButton(dialog, IDC_OLDER_PRINTER);
                       EXPECT_EQ(BoxAfterOk(dialog).text,
                                 "設定を保存できませんでした。保存されている設定は元のままです。\n"
                                 "プリンターが見つかりません。");
                   },
                   Cancel}),
              0);
}

class RefusedByTheSpooler : public CommunicationDialogTest {
  protected:
    void ChangeBoth() {
        EXPECT_EQ(Run({[](HWND dialog) {
                           TypeInto(dialog, IDC_ADDRESS, "server");
                           ClickButton(dialog, IDC_OLDER_PRINTER);
                           const RefusedPrinterData address("CommunicationSetting.dll", kAddress,
                                                            ERROR_ACCESS_DENIED);
                           const MessageBoxSeen box = BoxAfterOk(dialog);
                           EXPECT_EQ(box.text,
                                     "設定を保存できませんでした。保存されている設定は元のままです。\n"
                                     "この設定を変更する権限がありません。");
                           EXPECT_EQ(box.icon, LoadIconA(nullptr, IDI_ERROR));
                       },
                       Cancel}),
                  0);
        EXPECT_EQ(Address(), std::nullopt);
    }
};

TEST_F(RefusedByTheSpooler, LeavesTheModeAsItWas) {
    PutMode(7);
    ChangeBoth();
    EXPECT_EQ(Mode(), Number(7));
}

TEST_F(RefusedByTheSpooler, LeavesAModeOfAnotherTypeAsItWas) {
    printer.Put(kMode, REG_SZ, L"1", 4);
    const auto text = Mode();
    ChangeBoth();
    EXPECT_EQ(Mode(), text);
    const std::string megabyte(kMegabyte, '\1');
    printer.Put(kMode, REG_BINARY, megabyte.data(), megabyte.size());
    ChangeBoth();
    EXPECT_EQ(Mode(), (StoredBytes{REG_BINARY, megabyte}));
    printer.Put(kMode, REG_BINARY, "", 0);
    ChangeBoth();
    EXPECT_EQ(Mode(), (StoredBytes{REG_BINARY, ""}));
}

// Where the spooler removes no data, as Wine's, the number is the one that a missing mode is taken for.
TEST_F(RefusedByTheSpooler, LeavesNoModeWhereThereWasNone) {
    ChangeBoth();
    const std::optional<StoredBytes> mode = Mode();
    EXPECT_TRUE(!mode || *mode == Number(0));
}

} // namespace

#include "companions/communication/communication_resource.h"
#include "companions/communication/communication_setting.h"
#include "tests/companions/common/companion_dialog_fixture.h"
#include "tests/companions/common/dialog_look.h"
#include "tests/companions/common/refused_printer_data.h"

#include "Common/strings.h"

namespace {

constexpr wchar_t kAddress[] = L"PrinterPortAddress";
constexpr wchar_t kMode[] = L"CommunicationMode";

class CommunicationDialog : public CompanionDialogTest {
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

TEST_F(CommunicationDialog, IsTitledAndLooksGood) {
    Run({[](HWND dialog) {
             EXPECT_EQ(message_box_detail::TextOf(dialog), "プリントサーバーとの通信設定");
             ExpectGoodLook(dialog);
         },
         Cancel});
}

TEST_F(CommunicationDialog, IsInTheMiddleOfTheActiveWindow) {
    const HWND owner = CreateWindowA("Static", "", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 60, 80, 700, 500,
                                     nullptr, nullptr, nullptr, nullptr);
    SetForegroundWindow(owner);
    SetActiveWindow(owner);
    Run({[owner](HWND dialog) {
             EXPECT_EQ(GetWindow(dialog, GW_OWNER), owner);
             EXPECT_FALSE(IsWindowEnabled(owner));
             ExpectGoodLook(dialog);
         },
         Cancel});
    EXPECT_TRUE(IsWindowEnabled(owner));
    DestroyWindow(owner);
}

TEST_F(CommunicationDialog, StaysOnTheScreenAboveAnOwnerAtItsEdge) {
    const HWND owner =
        CreateWindowA("Static", "", WS_POPUP | WS_VISIBLE, 0, 0, 20, 20, nullptr, nullptr, nullptr, nullptr);
    SetForegroundWindow(owner);
    SetActiveWindow(owner);
    Run({[owner](HWND dialog) {
             EXPECT_EQ(GetWindow(dialog, GW_OWNER), owner);
             RECT place{};
             GetWindowRect(dialog, &place);
             EXPECT_EQ(place.left, 0);
             EXPECT_EQ(place.top, 0);
         },
         Cancel});
    DestroyWindow(owner);
}

TEST_F(CommunicationDialog, BeginsAtTheAddressAndTabsInTheOrderOfItsRows) {
    PutAddress(L"10.0.0.1");
    Run({[](HWND dialog) {
             ExpectAtText(dialog, IDC_ADDRESS);
             EXPECT_EQ(TabOrder(dialog), (std::vector{IDC_ADDRESS, IDC_OLDER_PRINTER, IDOK, IDCANCEL}));
         },
         Cancel});
}

TEST_F(CommunicationDialog, NamesTheModeAsTheDevicePageDoes) {
    Run({[](HWND dialog) {
             const std::string text = TextOf(dialog, IDC_OLDER_PRINTER);
             EXPECT_EQ(text, "V1.6.6以前のプリンターに接続する(&V)");
             EXPECT_TRUE(text.starts_with(LoadText(20064)));
         },
         Cancel});
}

TEST_F(CommunicationDialog, OpensWithNothingStored) {
    const Shown shown = Opened();
    EXPECT_EQ(shown.address, "");
    EXPECT_FALSE(shown.isOlderPrinter);
}

TEST_F(CommunicationDialog, ShowsWhatIsStored) {
    PutAddress(L"print-server.example.jp");
    PutMode(1);
    const Shown shown = Opened();
    EXPECT_EQ(shown.address, "print-server.example.jp");
    EXPECT_TRUE(shown.isOlderPrinter);
}

TEST_F(CommunicationDialog, TakesEachModeButZeroForTheOlderPrinters) {
    PutMode(0);
    EXPECT_FALSE(Opened().isOlderPrinter);
    for (const DWORD mode : {1ul, 7ul, 0xFFFFFFFFul}) {
        PutMode(mode);
        EXPECT_TRUE(Opened().isOlderPrinter) << mode;
    }
}

TEST_F(CommunicationDialog, TakesAModeOfAnotherTypeForNone) {
    printer.Put(kMode, REG_SZ, L"1", 4);
    EXPECT_FALSE(Opened().isOlderPrinter);
    printer.Put(kMode, REG_BINARY, std::string(kMegabyte, '\1').data(), kMegabyte);
    EXPECT_FALSE(Opened().isOlderPrinter);
}

TEST_F(CommunicationDialog, ShowsAnAddressWithoutATerminator) {
    printer.Put(kAddress, REG_SZ, L"10.0.0.1", 8 * sizeof(wchar_t));
    EXPECT_EQ(Opened().address, "10.0.0.1");
}

TEST_F(CommunicationDialog, ShowsNoAddressThatIsNoneForItsReaders) {
    printer.Put(kAddress, REG_DWORD, "1234", 4);
    EXPECT_EQ(Opened().address, "");
    printer.Put(kAddress, REG_SZ, L"", 0);
    EXPECT_EQ(Opened().address, "");
    PutAddress(std::wstring(kMegabyte / 2, L'a'));
    EXPECT_EQ(Opened().address, "");
}

TEST_F(CommunicationDialog, LeavesWhatWasNotChangedAsItIs) {
    PutMode(7);
    printer.Put(kAddress, REG_SZ, L"LPT1:", 5 * sizeof(wchar_t));
    const auto before = Address();
    EXPECT_EQ(Run({Ok}), 0);
    EXPECT_EQ(Address(), before);
    EXPECT_EQ(Mode(), Number(7));
}

TEST_F(CommunicationDialog, StoresNothingWhereNothingWasStoredAndEntered) {
    EXPECT_EQ(Run({Ok}), 0);
    EXPECT_EQ(Address(), std::nullopt);
    EXPECT_EQ(Mode(), std::nullopt);
}

TEST_F(CommunicationDialog, LeavesAnAddressThatDoesNotFitAsItIs) {
    PutAddress(std::wstring(kMegabyte / 2, L'a'));
    const auto before = Address();
    EXPECT_EQ(Run({[](HWND dialog) { ClickButton(dialog, IDC_OLDER_PRINTER); }, Ok}), 1);
    EXPECT_EQ(Address(), before);
    EXPECT_EQ(Mode(), Number(1));
}

TEST_F(CommunicationDialog, StoresAnAddressAsTextWithItsEnd) {
    EXPECT_EQ(Enter("192.168.100.10"), 1);
    EXPECT_EQ(Address(), Text("192.168.100.10"));
    EXPECT_EQ(Mode(), std::nullopt);
}

TEST_F(CommunicationDialog, StoresTheModeAsNumber) {
    EXPECT_EQ(Run({[](HWND dialog) { ClickButton(dialog, IDC_OLDER_PRINTER); }, Ok}), 1);
    EXPECT_EQ(Mode(), Number(1));
    EXPECT_EQ(Address(), std::nullopt);
    EXPECT_EQ(Run({[](HWND dialog) { ClickButton(dialog, IDC_OLDER_PRINTER); }, Ok}), 1);
    EXPECT_EQ(Mode(), Number(0));
}

TEST_F(CommunicationDialog, KeepsAModeThatWasChangedAndChangedBack) {
    PutMode(7);
    EXPECT_EQ(Run({[](HWND dialog) { ClickButton(dialog, IDC_OLDER_PRINTER); },
                   [](HWND dialog) { ClickButton(dialog, IDC_OLDER_PRINTER); }, Ok}),
              0);
    EXPECT_EQ(Mode(), Number(7));
}

TEST_F(CommunicationDialog, ReplacesAnOtherModeThatIsChanged) {
    PutMode(7);
    EXPECT_EQ(Run({[](HWND dialog) { ClickButton(dialog, IDC_OLDER_PRINTER); }, Ok}), 1);
    EXPECT_EQ(Mode(), Number(0));
}

TEST_F(CommunicationDialog, StoresTheLongestAddress) {
    const std::string label(41, 'a');
    const std::string address = label + "." + label + "." + label + ".b";
    EXPECT_EQ(address.size(), 127u);
    EXPECT_EQ(Enter(address), 1);
    EXPECT_EQ(Address(), Text(address));
}

// An empty address is none for the code that records that of the printer's port where none is stored.
TEST_F(CommunicationDialog, StoresAnEmptyAddressForNone) {
    PutAddress(L"10.0.0.1");
    EXPECT_EQ(Enter(""), 1);
    EXPECT_EQ(Address(), Text(""));
    EXPECT_EQ(Opened().address, "");
}

TEST_F(CommunicationDialog, StoresAtReturn) {
    EXPECT_EQ(Run({[](HWND dialog) { TypeInto(dialog, IDC_ADDRESS, "server"); }, Return}), 1);
    EXPECT_EQ(Address(), Text("server"));
}

TEST_F(CommunicationDialog, StoresNothingAtCancelEscapeAndTheCloseBox) {
    PutAddress(L"10.0.0.1");
    PutMode(7);
    for (const auto& leave : {Cancel, Escape, CloseBox}) {
        EXPECT_EQ(Run({[](HWND dialog) {
                           TypeInto(dialog, IDC_ADDRESS, "server");
                           ClickButton(dialog, IDC_OLDER_PRINTER);
                           MoveFocus(dialog, IDC_ADDRESS);
                       },
                       leave}),
                  0);
        EXPECT_EQ(Address(), Text("10.0.0.1"));
        EXPECT_EQ(Mode(), Number(7));
    }
}

struct Refused {
    const char* address;
    const char* message;
};

class RefusedAddress : public CommunicationDialog, public testing::WithParamInterface<Refused> {};

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

TEST_F(CommunicationDialog, RefusesWhatTheCodePageLacks) {
    EXPECT_EQ(Run({[](HWND dialog) {
                       SetWindowTextW(GetDlgItem(dialog, IDC_ADDRESS), L"server\u00e9");
                       EXPECT_TRUE(BoxAfterOk(dialog).text.starts_with(
                           "アドレスに使用できない文字が含まれています。"));
                   },
                   Cancel}),
              0);
    EXPECT_EQ(Address(), std::nullopt);
}

TEST_F(CommunicationDialog, CanBeCorrectedAfterARefusal) {
    EXPECT_EQ(Run({[](HWND dialog) {
                       TypeInto(dialog, IDC_ADDRESS, "a b");
                       BoxAfterOk(dialog);
                       TypeInto(dialog, IDC_ADDRESS, "a-b");
                   },
                   Ok}),
              1);
    EXPECT_EQ(Address(), Text("a-b"));
}

TEST_F(CommunicationDialog, TellsThatThePrinterHasGoneAndStays) {
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

TEST_F(CommunicationDialog, HasAnEditThatHoldsUtf16) {
    Run({[](HWND dialog) { ExpectWideEdits(dialog, {IDC_ADDRESS}); }, Cancel});
}

TEST_F(CommunicationDialog, SaysWhatAnEmptyAddressMeans) {
    Run({[](HWND dialog) {
             EXPECT_EQ(TextOf(dialog, IDC_ADDRESS_NOTE), "空欄にすると、アドレスのない状態になります。");
         },
         Cancel});
}

TEST_F(CommunicationDialog, StoresAnAddressWithoutTheBlanksAroundIt) {
    EXPECT_EQ(Enter(" \tPRINT_SV01  "), 1);
    EXPECT_EQ(Address(), Text("PRINT_SV01"));
    EXPECT_EQ(Enter(" PRINT_SV01 "), 0);
}

TEST_F(CommunicationDialog, TakesBlanksAloneForNoAddress) {
    PutAddress(L"10.0.0.1");
    EXPECT_EQ(Enter("  "), 1);
    EXPECT_EQ(Address(), Text(""));
}

class RefusedByTheSpooler : public CommunicationDialog {
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

TEST_F(CommunicationDialog, NeedsNoKey) {
    const ModalDialog user({[](HWND dialog) { TypeInto(dialog, IDC_ADDRESS, "server"); }, Ok});
    EXPECT_EQ(OnCommunicationSettingDlg(printer.Handle(), nullptr), 1);
    EXPECT_EQ(Address(), Text("server"));
}

TEST(CommunicationDialogOfNoPrinter, DoesNotOpen) {
    for (const HANDLE handle :
         {static_cast<HANDLE>(nullptr), reinterpret_cast<HANDLE>(0x7FFF), INVALID_HANDLE_VALUE}) {
        EXPECT_EQ(OnCommunicationSettingDlg(handle, "Software\\Zephra\\Tests\\UserInfo"), 0);
        EXPECT_EQ(OnCommunicationSettingDlg(handle, nullptr), 0);
    }
}

} // namespace

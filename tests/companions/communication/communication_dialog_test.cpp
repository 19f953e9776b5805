// The communication dialog as it opens: its look, and what it shows of the printer's data.
#include "Common/strings.h"
#include "tests/companions/common/dialog_look.h"
#include "tests/companions/communication/communication_fixture.h"

namespace {

class CommunicationDialog : public CommunicationDialogTest {};

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

TEST_F(CommunicationDialog, HasAnEditThatHoldsUtf16) {
    Run({[](HWND dialog) { ExpectWideEdits(dialog, {IDC_ADDRESS}); }, Cancel});
}

TEST_F(CommunicationDialog, SaysWhatAnEmptyAddressMeans) {
    Run({[](HWND dialog) {
             EXPECT_EQ(TextOf(dialog, IDC_ADDRESS_NOTE), "空欄にすると、アドレスのない状態になります。");
         },
         Cancel});
}

TEST(CommunicationDialogOfNoPrinter, DoesNotOpen) {
    for (const HANDLE handle :
         {static_cast<HANDLE>(nullptr), reinterpret_cast<HANDLE>(0x7FFF), INVALID_HANDLE_VALUE}) {
        EXPECT_EQ(OnCommunicationSettingDlg(handle, "Software\\Zephra\\Tests\\UserInfo"), 0);
        EXPECT_EQ(OnCommunicationSettingDlg(handle, nullptr), 0);
    }
}

} // namespace

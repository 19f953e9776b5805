// What the communication dialog stores, and what it leaves as it is.
#include "tests/companions/communication/communication_fixture.h"

namespace {

class CommunicationDialogStoring : public CommunicationDialogTest {};

TEST_F(CommunicationDialogStoring, LeavesWhatWasNotChangedAsItIs) {
    PutMode(7);
    printer.Put(kAddress, REG_SZ, L"LPT1:", 5 * sizeof(wchar_t));
    const auto before = Address();
    EXPECT_EQ(Run({Ok}), 0);
    EXPECT_EQ(Address(), before);
    EXPECT_EQ(Mode(), Number(7));
}

TEST_F(CommunicationDialogStoring, StoresNothingWhereNothingWasStoredAndEntered) {
    EXPECT_EQ(Run({Ok}), 0);
    EXPECT_EQ(Address(), std::nullopt);
    EXPECT_EQ(Mode(), std::nullopt);
}

TEST_F(CommunicationDialogStoring, LeavesAnAddressThatDoesNotFitAsItIs) {
    PutAddress(std::wstring(kMegabyte / 2, L'a'));
    const auto before = Address();
    EXPECT_EQ(Run({[](HWND dialog) { ClickButton(dialog, IDC_OLDER_PRINTER); }, Ok}), 1);
    EXPECT_EQ(Address(), before);
    EXPECT_EQ(Mode(), Number(1));
}

TEST_F(CommunicationDialogStoring, StoresAnAddressAsTextWithItsEnd) {
    EXPECT_EQ(Enter("192.168.100.10"), 1);
    EXPECT_EQ(Address(), Text("192.168.100.10"));
    EXPECT_EQ(Mode(), std::nullopt);
}

TEST_F(CommunicationDialogStoring, StoresTheModeAsNumber) {
    EXPECT_EQ(Run({[](HWND dialog) { ClickButton(dialog, IDC_OLDER_PRINTER); }, Ok}), 1);
    EXPECT_EQ(Mode(), Number(1));
    EXPECT_EQ(Address(), std::nullopt);
    EXPECT_EQ(Run({[](HWND dialog) { ClickButton(dialog, IDC_OLDER_PRINTER); }, Ok}), 1);
    EXPECT_EQ(Mode(), Number(0));
}

TEST_F(CommunicationDialogStoring, KeepsAModeThatWasChangedAndChangedBack) {
    PutMode(7);
    EXPECT_EQ(Run({[](HWND dialog) { ClickButton(dialog, IDC_OLDER_PRINTER); },
                   [](HWND dialog) { ClickButton(dialog, IDC_OLDER_PRINTER); }, Ok}),
              0);
    EXPECT_EQ(Mode(), Number(7));
}

TEST_F(CommunicationDialogStoring, ReplacesAnOtherModeThatIsChanged) {
    PutMode(7);
    EXPECT_EQ(Run({[](HWND dialog) { ClickButton(dialog, IDC_OLDER_PRINTER); }, Ok}), 1);
    EXPECT_EQ(Mode(), Number(0));
}

TEST_F(CommunicationDialogStoring, StoresTheLongestAddress) {
    const std::string label(41, 'a');
    const std::string address = label + "." + label + "." + label + ".b";
    EXPECT_EQ(address.size(), 127u);
    EXPECT_EQ(Enter(address), 1);
    EXPECT_EQ(Address(), Text(address));
}

// An empty address is none for the code that records that of the printer's port where none is stored.
TEST_F(CommunicationDialogStoring, StoresAnEmptyAddressForNone) {
    PutAddress(L"10.0.0.1");
    EXPECT_EQ(Enter(""), 1);
    EXPECT_EQ(Address(), Text(""));
    EXPECT_EQ(Opened().address, "");
}

TEST_F(CommunicationDialogStoring, StoresAtReturn) {
    EXPECT_EQ(Run({[](HWND dialog) { TypeInto(dialog, IDC_ADDRESS, "server"); }, Return}), 1);
    EXPECT_EQ(Address(), Text("server"));
}

TEST_F(CommunicationDialogStoring, StoresNothingAtCancelEscapeAndTheCloseBox) {
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

TEST_F(CommunicationDialogStoring, StoresAnAddressWithoutTheBlanksAroundIt) {
    EXPECT_EQ(Enter(" \tPRINT_SV01  "), 1);
    EXPECT_EQ(Address(), Text("PRINT_SV01"));
    EXPECT_EQ(Enter(" PRINT_SV01 "), 0);
}

TEST_F(CommunicationDialogStoring, TakesBlanksAloneForNoAddress) {
    PutAddress(L"10.0.0.1");
    EXPECT_EQ(Enter("  "), 1);
    EXPECT_EQ(Address(), Text(""));
}

TEST_F(CommunicationDialogStoring, NeedsNoKey) {
    const ModalDialog user({[](HWND dialog) { TypeInto(dialog, IDC_ADDRESS, "server"); }, Ok});
    EXPECT_EQ(OnCommunicationSettingDlg(printer.Handle(), nullptr), 1);
    EXPECT_EQ(Address(), Text("server"));
}

} // namespace

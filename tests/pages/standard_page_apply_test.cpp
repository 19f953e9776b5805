// From the standard page's controls into the Current bank.
#include "pages/controls.h"
#include "pages/standardpage.h"
#include "tests/pages/standard_page_driver.h"

#include <commctrl.h>

#include <algorithm>

namespace {

using namespace keyword;

constexpr auto kNoRow = static_cast<WPARAM>(-1);

class StandardPageApply : public StandardPageDriver {
  protected:
    // A page object as each message has one.
    CStandardPageDlg Page() { return CStandardPageDlg(page, nullptr); }
};

// Each row of each control.

struct RowControl {
    int controlId;
    int keyword;
    int rows;
    std::vector<int> rowsOfMixedSizes;
};

const std::vector<RowControl> kRowControls{
    {5002, FittenToPaper, 5, {}}, {6010, DuplexMode, 5, {}},
    {1291, ColorMode, 2, {}},     {6014, NUP, 6, {}},
    {1281, Tray, 8, {}},          {1277, OutputTray, 5, {}},
    {1257, OffsetMode, 3, {}},    {1273, StapleMode, 22, {5, 10}},
    {1156, Fold, 11, {6}},
};

class ControlRow : public StandardPageDriver, public testing::WithParamInterface<RowControl> {};

INSTANTIATE_TEST_SUITE_P(StandardPage, ControlRow, testing::ValuesIn(kRowControls), [](const auto& test) {
    return kKeywordNames.at(static_cast<std::size_t>(test.param.keyword));
});

TEST_P(ControlRow, IsTheSettingsValue) {
    const RowControl& control = GetParam();
    OpenWith();
    ASSERT_EQ(RowCount(control.controlId), control.rows);
    for (int row = control.rows - 1; row >= 0; --row) {
        const bool isOfMixedSizes =
            std::ranges::find(control.rowsOfMixedSizes, row) != control.rowsOfMixedSizes.end();
        SetCurrent({{MixSizePrint, isOfMixedSizes}});
        CurrentBank expected = WholeBank();
        expected[static_cast<std::size_t>(control.keyword)] = static_cast<std::uint32_t>(row);
        ForgetChanges();
        EXPECT_EQ(Choose(control.controlId, row), 1) << row;
        EXPECT_EQ(WholeBank(), expected) << row;
        EXPECT_EQ(Row(control.controlId), row);
        EXPECT_EQ(ChangesSeen(), 1);
    }
}

TEST_P(ControlRow, IsNotStoredIfThereIsNone) {
    const RowControl& control = GetParam();
    OpenWith();
    for (const std::uint32_t value : {70u, 65535u, 0x80000000u, 0xFFFFFFFFu}) {
        SetCurrent({{control.keyword, value}});
        SendMessageA(Control(control.controlId), CB_SETCURSEL, kNoRow, 0);
        const CurrentBank before = WholeBank();
        EXPECT_EQ(Send(control.controlId, CBN_SELCHANGE), 1);
        EXPECT_EQ(WholeBank(), before) << value;
    }
}

TEST_F(StandardPageApply, WritesThePairOfThePunchRow) {
    OpenWith();
    ASSERT_EQ(RowCount(1155), 16);
    constexpr Setting kPairs[16][2] = {
        {{Punch, 0}, {PunchHoles, 1}}, {{Punch, 1}, {PunchHoles, 1}}, {{Punch, 2}, {PunchHoles, 1}},
        {{Punch, 3}, {PunchHoles, 1}}, {{Punch, 4}, {PunchHoles, 1}}, {{Punch, 5}, {PunchHoles, 1}},
        {{Punch, 1}, {PunchHoles, 2}}, {{Punch, 2}, {PunchHoles, 2}}, {{Punch, 3}, {PunchHoles, 2}},
        {{Punch, 4}, {PunchHoles, 2}}, {{Punch, 5}, {PunchHoles, 2}}, {{Punch, 1}, {PunchHoles, 3}},
        {{Punch, 2}, {PunchHoles, 3}}, {{Punch, 3}, {PunchHoles, 3}}, {{Punch, 4}, {PunchHoles, 3}},
        {{Punch, 5}, {PunchHoles, 3}},
    };
    for (int row = 15; row >= 0; --row) {
        const Settings pair(std::begin(kPairs[row]), std::end(kPairs[row]));
        SetCurrent({{MixSizePrint, pair[0].value == 5}});
        EXPECT_EQ(Choose(1155, row), 1);
        EXPECT_EQ(ValuesOf(pair), Text(pair)) << row;
        EXPECT_EQ(Row(1155), row);
    }
}

TEST_F(StandardPageApply, WritesNoPunchOfARowOutsideTheTable) {
    OpenWith({{Punch, 2}, {PunchHoles, 2}});
    AppendRow(Control(1155), "seventeenth");
    const CurrentBank before = WholeBank();
    for (const WPARAM row : {WPARAM{16}, kNoRow}) {
        SendMessageA(Control(1155), CB_SETCURSEL, row, 0);
        ASSERT_EQ(Row(1155), static_cast<int>(row));
        EXPECT_EQ(Page().ApplyPunch(&block), 0);
        EXPECT_EQ(WholeBank(), before);
    }
}

// Check boxes.

struct CheckControl {
    int controlId;
    int keyword;
};

TEST_F(StandardPageApply, WritesACheckAsOneAndNoCheckAsZero) {
    OpenWith();
    for (const CheckControl& control :
         {CheckControl{1244, PagePrintOnCenter}, {1275, Collate}, {1278, PageOrder}}) {
        for (const bool isChecked : {true, false, true}) {
            EXPECT_EQ(Click(control.controlId, isChecked), 1);
            EXPECT_EQ(Current(control.keyword), isChecked ? 1u : 0u);
        }
    }
}

TEST_F(StandardPageApply, WritesAThirdCheckStateAsZero) {
    OpenWith({{Collate, 1}});
    SetWindowLongA(Control(1275), GWL_STYLE,
                   (GetWindowLongA(Control(1275), GWL_STYLE) & ~BS_TYPEMASK) | BS_AUTO3STATE);
    CheckDlgButton(page, 1275, BST_INDETERMINATE);
    ASSERT_EQ(IsDlgButtonChecked(page, 1275), static_cast<UINT>(BST_INDETERMINATE));
    Send(1275, 0);
    EXPECT_EQ(Current(Collate), 0u);
}

TEST_F(StandardPageApply, TakesAClickOnACheckBox) {
    OpenWith();
    SendMessageA(Control(1275), BM_CLICK, 0, 0);
    EXPECT_EQ(Current(Collate), 1u);
    EXPECT_EQ(ChangesSeen(), 1);
}

// Orientation.

TEST_F(StandardPageApply, WritesTheOrientationOfACheckedButton) {
    OpenWith();
    EXPECT_EQ(Click(6002, true), 1);
    EXPECT_EQ(Current(PageOrientation), 1u);
    EXPECT_EQ(Click(6001, true), 1);
    EXPECT_EQ(Current(PageOrientation), 0u);
}

TEST_F(StandardPageApply, WritesNoOrientationOfAButtonThatIsNotChecked) {
    OpenWith({{PageOrientation, 1}});
    EXPECT_EQ(Click(6001, false), 1);
    EXPECT_EQ(Current(PageOrientation), 1u);
    SetCurrent({{PageOrientation, 9}});
    EXPECT_EQ(Click(6002, false), 1);
    EXPECT_EQ(Current(PageOrientation), 9u);
}

TEST_F(StandardPageApply, NeverWritesTheRotatedOrientation) {
    OpenWith();
    EXPECT_EQ(Click(6000, true), 1);
    EXPECT_EQ(Current(PageOrientation), 0u);
    EXPECT_EQ(ChangesSeen(), 1);
}

// Copies.

TEST_F(StandardPageApply, WritesTheCopiesAsTheyAreTyped) {
    OpenWith({{Copies, 1}});
    SetDlgItemTextA(page, 6004, "25");
    EXPECT_EQ(Current(Copies), 25u);
    EXPECT_EQ(ChangesSeen(), 1);
    SetDlgItemTextA(page, 6004, "9999");
    EXPECT_EQ(Current(Copies), 9999u);
}

TEST_F(StandardPageApply, WritesTheCopiesOfTheSpin) {
    OpenWith({{Copies, 7}});
    SendMessageA(Control(6005), UDM_SETPOS, 0, 8);
    EXPECT_EQ(Current(Copies), 8u);
}

// The error flag is stored with the number while it is being typed.
TEST_F(StandardPageApply, StoresTheRawPositionOfTypedCopiesThatAreNoNumberInTheRange) {
    for (const char* typed : {"0", "", "x"}) {
        OpenWith({{Copies, 7}});
        SetDlgItemTextA(page, 6004, typed);
        EXPECT_EQ(Current(Copies), 0x10000u + 7) << typed;
        EXPECT_EQ(CaptionOf(page, 6004), typed);
    }
}

TEST_F(StandardPageApply, CorrectsTypedCopiesWhenTheEditLosesTheFocusAndNotBefore) {
    for (const char* typed : {"0", "", "x"}) {
        OpenWith({{Copies, 7}});
        SetDlgItemTextA(page, 6004, typed);
        Send(6004, 0);
        EXPECT_EQ(CaptionOf(page, 6004), typed);
        ForgetChanges();
        EXPECT_EQ(Send(6004, 512), 1);
        EXPECT_EQ(CaptionOf(page, 6004), "7");
        EXPECT_EQ(Current(Copies), 7u);
        EXPECT_EQ(ChangesSeen(), 1);
    }
}

TEST_F(StandardPageApply, LeavesGoodCopiesAsTheyAreWhenTheEditLosesTheFocus) {
    OpenWith({{Copies, 7}});
    SetDlgItemTextA(page, 6004, "12");
    Send(6004, 512);
    EXPECT_EQ(CaptionOf(page, 6004), "12");
    EXPECT_EQ(Current(Copies), 12u);
}

TEST_F(StandardPageApply, TakesNumbersOfAnyLengthTypedForTheCopies) {
    OpenWith({{Copies, 7}});
    SetDlgItemTextA(page, 6004, std::string(5000, '9').c_str());
    Send(6004, 512);
    EXPECT_GE(Current(Copies), 1u);
    EXPECT_LE(Current(Copies), 9999u);
}

TEST_F(StandardPageApply, WritesNoCopiesWithoutTheSpin) {
    OpenWith({{Copies, 7}});
    DestroyWindow(Control(6005));
    SetDlgItemTextA(page, 6004, "12");
    Send(6004, 512);
    EXPECT_EQ(Current(Copies), 7u);
}

// Document size.

class DocumentSize : public StandardPageApply {
  protected:
    void OpenWithForms() {
        OpenWith({{PageSize, 1}});
        CStandardPageDlg::m_customPageSizeIndex = 2;
        ClearRows(Control(5000));
        Add("b", 0);
        Add("a", 1);
        Add("c", 2);
    }
    ~DocumentSize() override { CStandardPageDlg::m_customPageSizeIndex = 0; }

  private:
    void Add(const char* name, LPARAM form) {
        const LRESULT row = SendMessageA(Control(5000), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name));
        SendMessageA(Control(5000), CB_SETITEMDATA, static_cast<WPARAM>(row), form);
    }
};

TEST_F(DocumentSize, IsTheFormOfTheRowNotTheRow) {
    OpenWithForms();
    EXPECT_EQ(Choose(5000, 1), 1);
    EXPECT_EQ(Current(PageSize), 0u);
    EXPECT_EQ(Choose(5000, 0), 1);
    EXPECT_EQ(Current(PageSize), 1u);
    EXPECT_FALSE(IsShown(1329));
}

TEST_F(DocumentSize, OfTheLastFormOpensTheCustomSizeAndShowsItsButton) {
    OpenWithForms();
    auto dialog = CloseNextDialog(1330);
    EXPECT_EQ(Choose(5000, 2), 1);
    EXPECT_TRUE(dialog.get());
    EXPECT_EQ(Current(PageSize), 2u);
    EXPECT_TRUE(IsShown(1329));
    EXPECT_EQ(Choose(5000, 0), 1);
    EXPECT_FALSE(IsShown(1329));
}

TEST_F(DocumentSize, IsNotStoredWithoutASelection) {
    OpenWithForms();
    SetCurrent({{PageSize, 88}});
    SendMessageA(Control(5000), CB_SETCURSEL, kNoRow, 0);
    EXPECT_EQ(Send(5000, 1), 1);
    EXPECT_EQ(Current(PageSize), 88u);
}

// Duplex and N-up.

TEST_F(StandardPageApply, TurnsTheBookletIntoTwoUpWithoutDuplex) {
    OpenWith({{DuplexMode, 1}, {NUP, 6}});
    Choose(6010, 0);
    const Settings after{{DuplexMode, 0}, {NUP, 1}};
    EXPECT_EQ(ValuesOf(after), Text(after));
    EXPECT_EQ(Row(6014), 1);
}

TEST_F(StandardPageApply, LeavesTheBookletAloneWithEachKindOfDuplex) {
    OpenWith({{DuplexMode, 1}, {NUP, 6}});
    for (int row = 1; row < 5; ++row) {
        Choose(6010, row);
        EXPECT_EQ(Current(NUP), 6u);
    }
}

TEST_F(StandardPageApply, LeavesOtherNUPsAloneWithoutDuplex) {
    for (std::uint32_t nup = 0; nup < 6; ++nup) {
        OpenWith({{DuplexMode, 1}, {NUP, nup}});
        Choose(6010, 0);
        EXPECT_EQ(Current(NUP), nup);
    }
}

class BookletRow : public StandardPageApply {
  protected:
    // The list of N-up has no row for it.
    void OpenWithDuplex(std::uint32_t duplex) {
        OpenWith({{DuplexMode, duplex}});
        ASSERT_EQ(RowCount(6014), 6);
        AppendRow(Control(6014), "booklet");
    }
};

TEST_F(BookletRow, TurnsDuplexOn) {
    OpenWithDuplex(0);
    Choose(6014, 6);
    const Settings after{{DuplexMode, 1}, {NUP, 6}};
    EXPECT_EQ(ValuesOf(after), Text(after));
    EXPECT_EQ(Row(6010), 1);
}

TEST_F(BookletRow, LeavesDuplexThatIsOn) {
    OpenWithDuplex(3);
    Choose(6014, 6);
    EXPECT_EQ(Current(DuplexMode), 3u);
    EXPECT_EQ(Row(6010), 3);
}

TEST_F(StandardPageApply, LeavesDuplexAloneWithOtherNUPs) {
    OpenWith();
    for (int row = 0; row < 6; ++row) {
        Choose(6014, row);
        EXPECT_EQ(Current(DuplexMode), 0u);
    }
}

// The pairing stands even if duplex is then taken back.
TEST_F(StandardPageApply, LeavesTheBookletBeforeAnythingIsChecked) {
    OpenWith({{DuplexMode, 2}, {NUP, 6}, {Fold, 1}, {Punch, 1}, {PunchHoles, 1}});
    ChooseAndAnswer(6010, 0, IDCANCEL);
    const Settings after{{DuplexMode, 2}, {NUP, 1}};
    EXPECT_EQ(ValuesOf(after), Text(after));
    EXPECT_EQ(Row(6014), 1);
}

} // namespace

#include "pages/own_changes.h"
#include "pages/punch_rows.h"
#include "pages/standard_page_rows.h"
#include "tests/pages/standard_page_fixture.h"

namespace {

// A setting whose value is the row of a list.
struct ListCase {
    const char* name;
    int keyword;
    int control;
    std::uint32_t rows;
    void (CStandardPageDlg::*update)(SessionBlock*, int);
    std::uint32_t (CStandardPageDlg::*get)();
    void (CStandardPageDlg::*set)(std::uint32_t);
};

using Dlg = CStandardPageDlg;

constexpr ListCase kLists[] = {
    {"OutputPaperSize", 12, 5001, 50, &Dlg::UpdateOutputPaperSize, &Dlg::GetOutputPaperSize,
     &Dlg::SetOutputPaperSize},
    {"FitSize", 13, 5002, 5, &Dlg::UpdateFitSize, &Dlg::GetFitSize, &Dlg::SetFitSize},
    {"Duplex", 104, 6010, 5, &Dlg::UpdateDuplex, &Dlg::GetDuplex, &Dlg::SetDuplex},
    {"ColorModel", 138, 1291, 2, &Dlg::UpdateColorModel, &Dlg::GetColorModel, &Dlg::SetColorModel},
    {"NUP", 3, 6014, 6, &Dlg::UpdateNUP, &Dlg::GetNUP, &Dlg::SetNUP},
    {"Source", 4, 1281, 8, &Dlg::UpdateSource, &Dlg::GetSource, &Dlg::SetSource},
    {"OutputTray", 106, 1277, 5, &Dlg::UpdateOutputTray, &Dlg::GetOutputTray, &Dlg::SetOutputTray},
    {"Jog", 108, 1257, 3, &Dlg::UpdateJog, &Dlg::GetJog, &Dlg::SetJog},
    {"Staple", 111, 1273, 22, &Dlg::UpdateStaple, &Dlg::GetStaple, &Dlg::SetStaple},
    {"Fold", 114, 1156, 11, &Dlg::UpdateFold, &Dlg::GetFold, &Dlg::SetFold},
};

constexpr ListCase kChecks[] = {
    {"OnCenter", 14, 1244, 2, &Dlg::UpdateOnCenter, &Dlg::GetOnCenter, &Dlg::SetOnCenter},
    {"PageOrder", 110, 1278, 2, &Dlg::UpdatePageOrder, &Dlg::GetPageOrder, &Dlg::SetPageOrder},
    {"Sort", 109, 1275, 2, &Dlg::UpdateSort, &Dlg::GetCollate, &Dlg::SetCollate},
};

class StandardPageRows : public BuiltStandardPage {
  protected:
    void Update(const ListCase& row, int useDefault = 0) { (Page().*row.update)(&block, useDefault); }
    std::uint32_t Get(const ListCase& row) { return (Page().*row.get)(); }
    void Set(const ListCase& row, std::uint32_t value) { (Page().*row.set)(value); }
};

TEST_F(StandardPageRows, ShowTheRowOfEachValue) {
    for (const ListCase& list : kLists) {
        for (std::uint32_t value = 0; value < list.rows; ++value) {
            ExportedFunc_SetCurrent(list.keyword, value);
            Update(list);
            EXPECT_EQ(Row(list.control), static_cast<int>(value)) << list.name;
            EXPECT_EQ(Current(list.keyword), value) << list.name;
        }
    }
}

TEST_F(StandardPageRows, SelectNoRowForAValueWithoutOneAndLeaveItInTheBank) {
    for (const ListCase& list : kLists) {
        for (const std::uint32_t value : {list.rows, 65535u, 0xFFFFFFFFu}) {
            Select(list.control, 1);
            ExportedFunc_SetCurrent(list.keyword, value);
            Update(list);
            EXPECT_EQ(Row(list.control), -1) << list.name << " " << value;
            EXPECT_EQ(Current(list.keyword), value) << list.name;
        }
    }
}

TEST_F(StandardPageRows, ShowTheLowHalfOfAValue) {
    for (const ListCase& list : kLists) {
        ExportedFunc_SetCurrent(list.keyword, 0x10001);
        Update(list);
        EXPECT_EQ(Row(list.control), 1) << list.name;
    }
}

TEST_F(StandardPageRows, CheckABoxForAnyValueButZeroAndLeaveItInTheBank) {
    for (const ListCase& box : kChecks) {
        for (const std::uint32_t value : {0u, 1u, 0u, 2u, 22u, 0u, 65535u, 0x10000u, 0xFFFFFFFFu}) {
            ExportedFunc_SetCurrent(box.keyword, value);
            Update(box);
            EXPECT_EQ(IsChecked(box.control), value != 0) << box.name << " " << value;
            EXPECT_EQ(Current(box.keyword), value);
        }
    }
}

TEST_F(StandardPageRows, TakeTheDefaultWhenToldTo) {
    const auto takes = [this](const ListCase& row) {
        ExportedFunc_SetDefault(row.keyword, 1);
        ExportedFunc_SetCurrent(row.keyword, 0);
        Update(row, 1);
        return Current(row.keyword);
    };
    for (const ListCase& list : kLists) {
        if (list.keyword == 4)
            continue;
        EXPECT_EQ(takes(list), 1u) << list.name;
        EXPECT_EQ(Row(list.control), 1) << list.name;
    }
    for (const ListCase& box : kChecks) {
        EXPECT_EQ(takes(box), 1u) << box.name;
        EXPECT_TRUE(IsChecked(box.control)) << box.name;
    }
}

TEST_F(StandardPageRows, OfTheTrayShowTheDefaultWithoutTakingIt) {
    ExportedFunc_SetDefault(4, 3);
    ExportedFunc_SetCurrent(4, 1);
    Page().UpdateSource(&block, 1);
    EXPECT_EQ(Row(1281), 3);
    EXPECT_EQ(Current(4), 1u);
}

TEST_F(StandardPageRows, TakeADefaultThatHasNoRow) {
    for (const ListCase& list : kLists) {
        if (list.keyword == 4)
            continue;
        ExportedFunc_SetDefault(list.keyword, 0xFFFFFFFE);
        Update(list, 1);
        EXPECT_EQ(Current(list.keyword), 0xFFFFFFFE) << list.name;
    }
}

TEST_F(StandardPageRows, GiveTheButtonOfACustomOutputSizeToTheLastRowOnly) {
    for (std::uint32_t value = 0; value < 60; ++value) {
        ExportedFunc_SetCurrent(12, value);
        Page().UpdateOutputPaperSize(&block, 0);
        EXPECT_EQ(IsShown(1337), value == 49) << value;
        Page().SetOutputPaperSize(0);
        EXPECT_FALSE(IsShown(1337));
        Page().SetOutputPaperSize(value);
        EXPECT_EQ(IsShown(1337), value == 49) << value;
    }
}

TEST_F(StandardPageRows, GiveTheControlsValueWhileThePageIsActive) {
    for (const ListCase& list : kLists) {
        ExportedFunc_SetCurrent(list.keyword, 0);
        Select(list.control, 1);
        EXPECT_EQ(Get(list), 1u) << list.name;
        Select(list.control, -1);
        EXPECT_EQ(Get(list), 0xFFFFFFFF) << list.name;
    }
    for (const ListCase& box : kChecks) {
        CheckDlgButton(page, box.control, BST_CHECKED);
        EXPECT_EQ(Get(box), 1u) << box.name;
        CheckDlgButton(page, box.control, BST_UNCHECKED);
        EXPECT_EQ(Get(box), 0u) << box.name;
    }
    SendMessageA(Control(6005), UDM_SETPOS, 0, 33);
    EXPECT_EQ(Page().GetCopies(), 33u);
    Select(1155, 5);
    EXPECT_EQ(Page().GetPunch(), 5u);
    Select(1155, -1);
    EXPECT_EQ(Page().GetPunch(), 0u);
}

TEST_F(StandardPageRows, GiveTheBanksValueWhileAnotherPageIsActive) {
    ExportedFunc_SetActive(Sheet());
    const auto gives = [this](const ListCase& row) {
        ExportedFunc_SetCurrent(row.keyword, 77);
        return Get(row);
    };
    for (const ListCase& list : kLists)
        EXPECT_EQ(gives(list), 77u) << list.name;
    for (const ListCase& box : kChecks)
        EXPECT_EQ(gives(box), 77u) << box.name;
    ExportedFunc_SetCurrent(1, 12345);
    EXPECT_EQ(Page().GetCopies(), 12345u);
    ExportedFunc_SetCurrent(2, 9);
    EXPECT_EQ(Page().GetOrientation(), 9u);
}

TEST_F(StandardPageRows, AreSetWithoutWriting) {
    const auto setLeaves = [this](const ListCase& row, std::uint32_t value) {
        ExportedFunc_SetCurrent(row.keyword, 5);
        Set(row, value);
        return Current(row.keyword) == 5;
    };
    for (const ListCase& list : kLists) {
        for (std::uint32_t value = 0; value < list.rows; ++value) {
            EXPECT_TRUE(setLeaves(list, value)) << list.name;
            EXPECT_EQ(Row(list.control), static_cast<int>(value)) << list.name;
        }
        for (const std::uint32_t value : kHostileValues) {
            if ((value & 0xFFFF) == 0)
                continue; // its low half is row 0
            EXPECT_TRUE(setLeaves(list, value)) << list.name;
            EXPECT_EQ(Row(list.control), -1) << list.name << " " << value;
        }
    }
    for (const ListCase& box : kChecks) {
        for (const std::uint32_t value : {1u, 0u, 0xFFFFFFFFu}) {
            EXPECT_TRUE(setLeaves(box, value)) << box.name;
            EXPECT_EQ(IsChecked(box.control), value != 0) << box.name;
        }
    }
    ExportedFunc_SetCurrent(1, 5);
    Page().SetCopies(44);
    EXPECT_EQ(Copies(), "44");
    EXPECT_EQ(Current(1), 5u);
}

TEST_F(StandardPageRows, DoNothingWithoutTheirControls) {
    const auto doesNothing = [this](const ListCase& row) {
        Remove(row.control);
        ExportedFunc_SetDefault(row.keyword, 1);
        ExportedFunc_SetCurrent(row.keyword, 0);
        Update(row, 1);
        Set(row, 1);
        EXPECT_EQ(Current(row.keyword), 0u) << row.name;
        EXPECT_EQ(Get(row), 0xFFFFFFFF) << row.name;
    };
    for (const ListCase& list : kLists)
        doesNothing(list);
    for (const ListCase& box : kChecks)
        doesNothing(box);
    doesNothing({"Copies", 1, 6005, 0, &Dlg::UpdateCopies, &Dlg::GetCopies, &Dlg::SetCopies});
    doesNothing({"Punch", 112, 1155, 0, &Dlg::UpdatePunch, &Dlg::GetPunch, &Dlg::SetPunch});
    doesNothing(
        {"Orientation", 2, 6002, 0, &Dlg::UpdateOrientation, &Dlg::GetOrientation, &Dlg::SetOrientation});
    EXPECT_EQ(Page().Initialize(&block, 1), 1);
}

TEST(StandardPageRowTable, HasTheSettingsInTheOrderOfTheTransfer) {
    const struct {
        int keyword;
        int control;
        int label;
    } kExpected[] = {
        {12, 5001, 1295},  {13, 5002, 1296},  {14, 1244, 1244},  {104, 6010, 6009},
        {138, 1291, 1290}, {3, 6014, 1109},   {2, 1336, 1336},   {1, 6005, 6003},
        {4, 1281, 1370},   {106, 1277, 1276}, {108, 1257, 1298}, {110, 1278, 1278},
        {109, 1275, 1275}, {111, 1273, 1299}, {112, 1155, 1132}, {114, 1156, 1133},
    };
    int index = 0;
    for (const auto& expected : kExpected) {
        const PageRow& row = RowOf(static_cast<PageRowId>(index++));
        EXPECT_EQ(row.keyword, expected.keyword);
        EXPECT_EQ(row.control, expected.control);
        EXPECT_EQ(row.label, expected.label);
    }
    EXPECT_EQ(index, static_cast<int>(PageRowId::Fold) + 1);
}

} // namespace

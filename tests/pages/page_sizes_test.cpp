#include "session/form_names.h"
#include "tests/pages/standard_page_fixture.h"
#include "tests/session/fake_spooler.h"

namespace {

using Texts = std::vector<std::string>;

constexpr char kCustom[] = "PostScript カスタム ページ サイズ";

class StandardPageSizes : public StandardPageTest {
  protected:
    ~StandardPageSizes() override {
        spooler.forms.clear();
        ReadFormNames("Orvane X100");
    }

    void HaveForms(const Texts& forms) {
        spooler.forms = forms;
        ReadFormNames("Orvane X100");
    }
    void Initialize(std::uint32_t value = 0) {
        ExportedFunc_SetCurrent(0, value);
        Page().InitPageSize(&block, 0);
    }
    std::string SelectedText() const {
        const int row = Row(5000);
        return row < 0 ? "" : RowsOf(Control(5000)).at(static_cast<std::size_t>(row));
    }
    std::vector<int> FormsOfRows() const { return RowMarks(5000); }

    FakeSpooler spooler;
};

TEST_F(StandardPageSizes, AreTheSortedFormsWithTheirNumbers) {
    HaveForms({"Letter", "A4", "B5"});
    Initialize();
    EXPECT_EQ(RowsOf(Control(5000)), (Texts{"A4", "B5", "Letter"}));
    EXPECT_EQ(FormsOfRows(), (std::vector<int>{1, 2, 0}));
}

TEST_F(StandardPageSizes, SelectTheFormOfEachValue) {
    const Texts forms{"Letter", "A4", "B5", "A3"};
    HaveForms(forms);
    for (std::uint32_t value = 0; value < 4; ++value) {
        Initialize(value);
        EXPECT_EQ(SelectedText(), forms[value]);
        EXPECT_EQ(Current(0), value);
    }
}

TEST_F(StandardPageSizes, SelectNoRowForAValueWithoutAForm) {
    HaveForms({"Letter", "A4"});
    for (const std::uint32_t value : {2u, 22u, 65535u, 0x10001u, 0xFFFFFFFFu}) {
        Initialize(1);
        ExportedFunc_SetCurrent(0, value);
        Page().UpdatePageSize(&block, 0);
        EXPECT_EQ(Row(5000), -1) << value;
        EXPECT_EQ(Current(0), value);
        Initialize(value);
        EXPECT_EQ(Row(5000), -1) << value;
    }
}

TEST_F(StandardPageSizes, DoNotOfferTheCustomForm) {
    HaveForms({"A4", "A3", kCustom});
    Initialize();
    EXPECT_EQ(RowsOf(Control(5000)), (Texts{"A3", "A4"}));
    EXPECT_EQ(CStandardPageDlg::m_customPageSizeIndex, 2);
    EXPECT_EQ(CStandardPageDlg::customIndex, 2);
}

TEST_F(StandardPageSizes, LoseNoFurtherRowWhenTheyAreUpdated) {
    HaveForms({"A4", "A3", kCustom});
    Initialize();
    Page().UpdatePageSize(&block, 0);
    Page().UpdatePageSize(&block, 0);
    EXPECT_EQ(RowsOf(Control(5000)), (Texts{"A3", "A4"}));
}

// The row of the custom form is not corrected when later rows are sorted in before it.
TEST_F(StandardPageSizes, OfferTheCustomFormThatALaterRowHasMoved) {
    HaveForms({kCustom, "A4", "A3"});
    Initialize();
    EXPECT_EQ(CStandardPageDlg::customIndex, 0);
    EXPECT_EQ(RowsOf(Control(5000)), (Texts{"A3", "A4", kCustom}));
}

// One row goes for each custom form, always at the same place.
TEST_F(StandardPageSizes, LoseARowForEachFormWithACustomName) {
    HaveForms({"A4", "Z4", kCustom, kCustom});
    Initialize();
    // The custom rows are 1 and 2, or 2 and 1, before "Z4".
    EXPECT_EQ(RowsOf(Control(5000)).size(), 2u);
    EXPECT_EQ(RowsOf(Control(5000))[0], "A4");
}

TEST_F(StandardPageSizes, TakeTheDefaultWhenToldTo) {
    HaveForms({"Letter", "A4", "B5"});
    ExportedFunc_SetDefault(0, 2);
    ExportedFunc_SetCurrent(0, 0);
    Page().InitPageSize(&block, 1);
    EXPECT_EQ(SelectedText(), "B5");
    EXPECT_EQ(Current(0), 2u);
    ExportedFunc_SetDefault(0, 1);
    Page().UpdatePageSize(&block, 1);
    EXPECT_EQ(SelectedText(), "A4");
    EXPECT_EQ(Current(0), 1u);
}

TEST_F(StandardPageSizes, HideTheirEditButtonWhateverIsChosen) {
    HaveForms({"Letter", "A4"});
    for (std::uint32_t value = 0; value < 3; ++value) {
        ShowWindow(Control(1329), SW_SHOW);
        ExportedFunc_SetCurrent(0, value);
        Page().UpdatePageSize(&block, 0);
        EXPECT_FALSE(IsShown(1329)) << value;
    }
}

TEST_F(StandardPageSizes, TakeANameThatFillsItsSlot) {
    const std::string longName(64, 'x');
    HaveForms({longName, "A4"});
    Initialize();
    EXPECT_EQ(RowsOf(Control(5000)), (Texts{"A4", longName}));
}

TEST_F(StandardPageSizes, AreNoneWithoutForms) {
    HaveForms({});
    Initialize(3);
    EXPECT_EQ(RowCount(5000), 0);
    EXPECT_EQ(CStandardPageDlg::m_customPageSizeIndex, -1);
    EXPECT_EQ(Current(0), 3u);
}

TEST_F(StandardPageSizes, WriteNothingWithoutTheirControl) {
    HaveForms({"A4"});
    Remove(5000);
    ExportedFunc_SetDefault(0, 7);
    ExportedFunc_SetCurrent(0, 1);
    Page().InitPageSize(&block, 1);
    Page().UpdatePageSize(&block, 1);
    EXPECT_EQ(Current(0), 1u);
}

} // namespace

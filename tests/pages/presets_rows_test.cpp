// The rows of the favourites' combo box and the mark that the settings have changed.
#include "pages/page_images.h"
#include "pages/standardpage.h"
#include "tests/pages/presets_fixture.h"

namespace {

using Texts = std::vector<std::string>;

class PresetRows : public PresetsTest {
  protected:
    CStandardPageDlg Page() { return CStandardPageDlg(page, ProcessProfile()); }
    void Select(int row) { SendMessageA(Control(kPresets), CB_SETCURSEL, static_cast<WPARAM>(row), 0); }
    // A row as the page would have made it.
    void Insert(int row, const std::string& text, int number) {
        COMBOBOXEXITEMA item{};
        item.mask = CBEIF_TEXT | CBEIF_LPARAM;
        item.iItem = row;
        item.pszText = const_cast<char*>(text.c_str());
        item.lParam = number;
        SendMessageA(Control(kPresets), CBEM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item));
    }
    // The numbers and the images of all rows.
    std::vector<std::pair<int, int>> NumbersAndImages() const {
        std::vector<std::pair<int, int>> rows;
        for (int row = 0; row < RowCount(kPresets); ++row)
            rows.emplace_back(Number(row), Image(row));
        return rows;
    }
};

using Marks = std::vector<std::pair<int, int>>;

} // namespace

TEST_F(PresetRows, AreTheStandardSettingsAndTheFavoritesInTheOrderOfTheList) {
    OpenPage({Favorite("冊子"), Favorite("Flyer")});
    ASSERT_EQ(Manager().Count(), 2u);
    EXPECT_EQ(Presets(),
              (Texts{"標準", Manager().Favorite(0).Name.data(), Manager().Favorite(1).Name.data()}));
    EXPECT_EQ(NumbersAndImages(), (Marks{{-1, 1}, {0, 2}, {1, 2}}));
}

TEST_F(PresetRows, AreTheStandardSettingsAloneWithoutFavorites) {
    OpenPage();
    EXPECT_EQ(Presets(), Texts{"標準"});
    EXPECT_EQ(NumbersAndImages(), (Marks{{-1, 1}}));
}

TEST_F(PresetRows, OpenWithTheStandardSettingsSelectedWhichCannotBeDeleted) {
    OpenPage({Favorite("A")});
    EXPECT_EQ(Selected(), "標準");
    EXPECT_FALSE(CanDelete());
}

TEST_F(PresetRows, StayAsTheyAreWhileTheListIsTheSame) {
    OpenPage({Favorite("A")});
    COMBOBOXEXITEMA item{};
    item.mask = CBEIF_IMAGE | CBEIF_SELECTEDIMAGE;
    item.iItem = 1;
    SendMessageA(Control(kPresets), CBEM_SETITEMA, 0, reinterpret_cast<LPARAM>(&item));
    Page().UpdatePresetCombo();
    EXPECT_EQ(Image(1), 0) << "so the row is still the one that was there";
}

TEST_F(PresetRows, AreMadeAnewWhereOneTooManyStands) {
    OpenPage({Favorite("A")});
    Insert(2, "B", 1);
    Page().UpdatePresetCombo();
    EXPECT_EQ(Presets(), (Texts{"標準", "A"}));
}

TEST_F(PresetRows, AreMadeAnewWhereOneHasAnotherNumber) {
    OpenPage({Favorite("A")});
    SendMessageA(Control(kPresets), CB_SETITEMDATA, 1, 5);
    Page().UpdatePresetCombo();
    EXPECT_EQ(NumbersAndImages(), (Marks{{-1, 1}, {0, 2}}));
}

TEST_F(PresetRows, HaveTheLabelOfTheFavorites) {
    OpenPage();
    EXPECT_EQ(CaptionOf(page, 1213), "お気に入り(&J):");
}

TEST_F(PresetRows, HaveTheMarksOf16By16AllSheetsTheSame) {
    OpenPage();
    const auto images =
        reinterpret_cast<HIMAGELIST>(SendMessageA(Control(kPresets), CBEM_GETIMAGELIST, 0, 0));
    ASSERT_NE(images, nullptr);
    int width = 0, height = 0;
    ImageList_GetIconSize(images, &width, &height);
    EXPECT_EQ(std::pair(width, height), std::pair(16, 16));
    EXPECT_GE(ImageList_GetImageCount(images), 3);
    OpenPage();
    EXPECT_EQ(reinterpret_cast<HIMAGELIST>(SendMessageA(Control(kPresets), CBEM_GETIMAGELIST, 0, 0)), images);
}

TEST_F(PresetRows, OfAPageWithoutAManagerAreTheStandardSettingsAlone) {
    OpenPage({Favorite("A")});
    CSettingManager::Destroy();
    Page().InitPresetCombo();
    EXPECT_EQ(Presets(), Texts{"標準"});
    EXPECT_EQ(Selected(), "標準");
}

TEST_F(PresetRows, AreNotMissedByAPageWithoutTheirComboBox) {
    OpenPage({Favorite("A")});
    ChangeDuplex();
    const CurrentBank bank = WholeBank();
    DestroyWindow(Control(kPresets));
    CStandardPageDlg dialog(page, ProcessProfile());
    dialog.InitPresetCombo();
    dialog.UpdateChangeItemPresetCombo();
    dialog.SelectPreset("A");
    dialog.RemoveMarkedRow();
    dialog.RemoveUnselectedMarkedRow();
    dialog.OnPresetSelChange();
    EXPECT_EQ(WholeBank(), bank);
    EXPECT_EQ(Row(6010), 1);
}

TEST_F(PresetRows, FollowTheDirectoryWhenThePageIsInitializedAnew) {
    OpenPage({Favorite("A")});
    WriteFavorite(Favorite("B"));
    Page().InitPresetCombo();
    EXPECT_EQ(Presets(), (Texts{"標準", "A", "B"}));
}

TEST_F(PresetRows, MarkTheStandardSettingsOnceASettingDiffersFromThem) {
    OpenPage({Favorite("A")});
    ChangeDuplex();
    EXPECT_EQ(Presets(), (Texts{"標準", "<変更>標準", "A"}));
    EXPECT_EQ(NumbersAndImages(), (Marks{{-1, 1}, {-1, 1}, {0, 2}}));
    EXPECT_EQ(Row(kPresets), 1);
    EXPECT_FALSE(CanDelete());
}

TEST_F(PresetRows, LoseTheMarkWhenTheSettingIsChangedBack) {
    OpenPage({Favorite("A")});
    ChangeDuplex();
    ChangeDuplexBack();
    EXPECT_EQ(Presets(), (Texts{"標準", "A"}));
    EXPECT_EQ(Selected(), "標準");
    EXPECT_FALSE(CanDelete());
}

TEST_F(PresetRows, MarkAFavoriteBehindItsOwnRowAndLetItNotBeDeleted) {
    OpenPage({Favorite("A"), Favorite("B")});
    ChoosePreset("A");
    ASSERT_TRUE(CanDelete());
    ChangeDuplex();
    EXPECT_EQ(Presets(), (Texts{"標準", "A", "<変更>A", "B"}));
    EXPECT_EQ(NumbersAndImages(), (Marks{{-1, 1}, {0, 2}, {0, 2}, {1, 2}}));
    EXPECT_EQ(Selected(), "<変更>A");
    EXPECT_FALSE(CanDelete());
}

TEST_F(PresetRows, LetAFavoriteBeDeletedAgainWhenTheMarkGoes) {
    OpenPage({Favorite("A"), Favorite("B")});
    ChoosePreset("B");
    ChangeDuplex();
    ChangeDuplexBack();
    EXPECT_EQ(Presets(), (Texts{"標準", "A", "B"}));
    EXPECT_EQ(Selected(), "B");
    EXPECT_TRUE(CanDelete());
}

TEST_F(PresetRows, AreMarkedOnceHoweverManySettingsDiffer) {
    OpenPage();
    ChangeDuplex();
    Choose(1291, 1 - Row(1291));
    Choose(6014, 2);
    EXPECT_EQ(Presets(), (Texts{"標準", "<変更>標準"}));
    EXPECT_EQ(Row(kPresets), 1);
}

TEST_F(PresetRows, OfAMarkEndAt127BytesBetweenTwoCharacters) {
    OpenPage();
    // With the mark's 6 bytes and the letter the 61st of the double bytes would end behind byte 128.
    CFavoriteSetting longest = Favorite("x");
    std::string name = "x";
    while (name.size() + 2 < longest.Name.size())
        name += "長";
    std::ranges::copy(name, longest.Name.begin());
    Manager().AddFavorite(longest);
    Page().UpdatePresetCombo();
    Select(1);
    Page().UpdateChangeItemPresetCombo();
    ASSERT_EQ(RowCount(kPresets), 2) << "the settings are the favourite's";
    ChangeDuplex();
    ASSERT_EQ(RowCount(kPresets), 3);
    std::string expected = "<変更>x";
    for (int character = 0; character < 60; ++character)
        expected += "長";
    ASSERT_EQ(expected.size(), 127u);
    EXPECT_EQ(Presets().at(2), expected);
}

TEST_F(PresetRows, SelectPresetTakesTheRowOfExactlyTheText) {
    OpenPage({Favorite("A"), Favorite("AB")});
    Page().SelectPreset("AB");
    EXPECT_EQ(Selected(), "AB");
    Page().SelectPreset("A");
    EXPECT_EQ(Selected(), "A");
}

TEST_F(PresetRows, SelectPresetTakesRow0ForAnEmptyOrUnknownName) {
    OpenPage({Favorite("A")});
    for (const char* name : {"", "B", "a", "<変更>A"}) {
        Page().SelectPreset("A");
        Page().SelectPreset(name);
        EXPECT_EQ(Row(kPresets), 0) << name;
    }
}

// A file from elsewhere can have any name.
TEST_F(PresetRows, SelectPresetTakesTheStandardSettingsBeforeAFavoriteOfTheirName) {
    OpenPage({Favorite("A"), Favorite("標準")});
    ASSERT_EQ(Manager().Count(), 2u);
    Page().SelectPreset("A");
    Page().SelectPreset("標準");
    EXPECT_EQ(Row(kPresets), 0);
}

TEST_F(PresetRows, RemoveMarkedRowSelectsTheRowBeforeTheOneThatItTakes) {
    OpenPage({Favorite("A"), Favorite("B")});
    Insert(2, "<変更>A", 0);
    Select(2);
    Page().RemoveMarkedRow();
    EXPECT_EQ(Presets(), (Texts{"標準", "A", "B"}));
    EXPECT_EQ(Selected(), "A");
}

TEST_F(PresetRows, RemoveMarkedRowKeepsTheSelectionOfAnotherRow) {
    OpenPage({Favorite("A"), Favorite("B")});
    for (const char* selected : {"標準", "A", "B"}) {
        Insert(2, "<変更>A", 0);
        Page().SelectPreset(selected);
        Page().RemoveMarkedRow();
        EXPECT_EQ(Presets(), (Texts{"標準", "A", "B"}));
        EXPECT_EQ(Selected(), selected);
    }
}

TEST_F(PresetRows, RemoveMarkedRowTakesTheFirstAndSelectsNothingInPlaceOfRow0) {
    OpenPage();
    Insert(0, "<変更>x", 0);
    Insert(1, "<変更>y", 0);
    Select(0);
    Page().RemoveMarkedRow();
    EXPECT_EQ(Presets(), (Texts{"<変更>y", "標準"}));
    EXPECT_EQ(Row(kPresets), -1);
}

TEST_F(PresetRows, RemoveUnselectedMarkedRowLeavesTheSelectedOne) {
    OpenPage({Favorite("A")});
    Insert(2, "<変更>A", 0);
    Select(2);
    Page().RemoveUnselectedMarkedRow();
    EXPECT_EQ(Presets(), (Texts{"標準", "A", "<変更>A"}));
    Insert(1, "<変更>標準", -1);
    ASSERT_EQ(Selected(), "<変更>A");
    Page().RemoveUnselectedMarkedRow();
    EXPECT_EQ(Presets(), (Texts{"標準", "A", "<変更>A"}));
    EXPECT_EQ(Selected(), "<変更>A");
}

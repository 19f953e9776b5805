// Opening the favourites dialog, looking at favourites and leaving it.
#include "tests/pages/dialog_text.h"
#include "tests/pages/favorite_dialog_fixture.h"

#include <cstring>

namespace {

using FavoriteDialog = FavoriteDialogTest;

TEST_F(FavoriteDialog, BearsItsTexts) {
    std::string title;
    std::vector<std::string> texts;
    Run({[&](HWND dialog) {
             title = WindowText(dialog);
             for (const int control : {2, 4006, 1214, 1413, 1401, 1402})
                 texts.push_back(CaptionOf(dialog, control));
         },
         Press(IDCANCEL)});
    EXPECT_EQ(title, "お気に入りの読み込みと保存");
    EXPECT_EQ(texts, (std::vector<std::string>{"キャンセル", "読み込み(&L)...", "ファイルに保存(&S)...",
                                               "お気に入り", "名前", "コメント"}));
}

// A row's number is the favourite's in the manager's list, so nothing may sort the rows.
TEST_F(FavoriteDialog, ListsTheFavoritesInTheOrderOfTheManager) {
    for (const char* favorite : {"z", "a", "表"}) {
        CFavoriteSetting setting = MakeFavorite("");
        strcpy(setting.Name.data(), favorite);
        CSettingManager::GetSettingManager()->AddFavorite(setting);
    }
    std::vector<std::string> rows;
    RunAsListed({[&](HWND dialog) { rows = RowsOfList(dialog); }, Press(IDCANCEL)});
    EXPECT_EQ(rows, (std::vector<std::string>{"z", "a", "表"}));
}

TEST_F(FavoriteDialog, BeginsWithTheFavoriteThatThePageShows) {
    AddFavorite("a", "first");
    AddFavorite("b", "second");
    strcpy(chosen.data(), "b");
    int row = -1;
    std::string shownName, shownComment;
    Run({[&](HWND dialog) {
             row = SelectedRowOf(dialog);
             shownName = TextIn(dialog, kName);
             shownComment = TextIn(dialog, kComment);
         },
         Press(IDOK)});
    EXPECT_EQ(row, 1);
    EXPECT_EQ(shownName, "b");
    EXPECT_EQ(shownComment, "second");
    EXPECT_STREQ(chosen.data(), "b");
}

class FavoriteDialogBegins : public FavoriteDialogTest, public testing::WithParamInterface<const char*> {};

TEST_P(FavoriteDialogBegins, WithTheFirstFavoriteForAnyOtherRow) {
    AddFavorite("a", "first");
    AddFavorite("b", "second");
    strcpy(chosen.data(), GetParam());
    int row = -1;
    std::string shown;
    const INT_PTR result = Run({[&](HWND dialog) {
                                    row = SelectedRowOf(dialog);
                                    shown = TextIn(dialog, kName) + "/" + TextIn(dialog, kComment);
                                },
                                Press(IDOK)});
    EXPECT_EQ(result, IDOK);
    EXPECT_EQ(row, 0);
    EXPECT_EQ(shown, "a/first");
    EXPECT_STREQ(chosen.data(), "a");
}

INSTANTIATE_TEST_SUITE_P(Rows, FavoriteDialogBegins,
                         testing::Values("標準", "<変更>標準", "<変更>b", "gone", "B", ""));

TEST_F(FavoriteDialog, DisablesWhatNeedsAFavoriteWhileThereIsNone) {
    std::vector<int> enabled;
    std::string shown;
    bool focusIsUsable = false;
    const INT_PTR result = Run({[&](HWND dialog) {
                                    for (const int control : {1207, 1206, 1214, 4008, 4006, 1, 2})
                                        if (IsEnabled(dialog, control))
                                            enabled.push_back(control);
                                    shown = TextIn(dialog, kName) + TextIn(dialog, kComment);
                                    focusIsUsable = GetFocus() && IsWindowEnabled(GetFocus());
                                },
                                Press(IDCANCEL)});
    EXPECT_EQ(result, IDCANCEL);
    EXPECT_EQ(enabled, (std::vector{4006, 1, 2}));
    EXPECT_EQ(shown, "");
    EXPECT_TRUE(focusIsUsable);
}

TEST_F(FavoriteDialog, EnablesEverythingWithAFavorite) {
    AddFavorite("a");
    std::vector<int> disabled;
    Run({[&](HWND dialog) {
             for (const int control : {1207, 1206, 1214, 4008, 4006, 1, 2})
                 if (!IsEnabled(dialog, control))
                     disabled.push_back(control);
         },
         Press(IDCANCEL)});
    EXPECT_EQ(disabled, std::vector<int>{});
}

TEST_F(FavoriteDialog, EndsAtOnceByOkWithAnEmptyList) {
    strcpy(chosen.data(), "標準");
    EXPECT_EQ(Run({Press(IDOK)}), IDOK);
    EXPECT_STREQ(chosen.data(), "標準");
}

TEST_F(FavoriteDialog, OpensWithoutAManager) {
    CSettingManager::Destroy();
    EXPECT_EQ(RunAsListed({Press(IDOK)}), IDOK);
    EXPECT_EQ(CSettingManager::Existing(), nullptr);
}

TEST_F(FavoriteDialog, GivesTheNameOfTheRowThatTheUserWentTo) {
    AddFavorite("a");
    AddFavorite("b");
    AddFavorite("c");
    std::string shown;
    EXPECT_EQ(Run({Click(2), [&](HWND dialog) { shown = TextIn(dialog, kName); }, Press(IDOK)}), IDOK);
    EXPECT_EQ(shown, "c");
    EXPECT_STREQ(chosen.data(), "c");
}

TEST_F(FavoriteDialog, GoesFromRowToRowByKeyboard) {
    AddFavorite("a");
    AddFavorite("b", "second");
    std::string shown;
    Run({[](HWND dialog) {
             MoveFocus(dialog, kList);
             PressKey(VK_DOWN);
         },
         [&](HWND dialog) { shown = TextIn(dialog, kName) + "/" + TextIn(dialog, kComment); },
         [](HWND) { PressKey(VK_RETURN); }});
    EXPECT_EQ(shown, "b/second");
    EXPECT_STREQ(chosen.data(), "b");
}

TEST_F(FavoriteDialog, WritesNothingWithoutAChange) {
    AddFavorite("a", "first");
    AddFavorite("b", "second");
    // What a favourite that is saved would not look like.
    WriteBytes(PathOf("a"), FileContents(PathOf("a")) + "\n");
    const std::string before = FileContents(PathOf("a"));
    EXPECT_EQ(Run({Click(1), Click(0), Press(IDOK)}), IDOK);
    EXPECT_EQ(FileContents(PathOf("a")), before);
    EXPECT_EQ(Files(), (std::vector<std::string>{"a.pfk", "b.pfk"}));
}

TEST_F(FavoriteDialog, DropsChangesByCancel) {
    AddFavorite("a", "first");
    strcpy(chosen.data(), "標準");
    EXPECT_EQ(Run({Type(kName, "renamed"), Type(kComment, "other"), Press(IDCANCEL)}), IDCANCEL);
    EXPECT_EQ(Files(), std::vector<std::string>{"a.pfk"});
    EXPECT_EQ(Listed(), std::vector<std::string>{"a"});
    EXPECT_STREQ(ReadFavorite(PathOf("a")).Comment.data(), "first");
    EXPECT_STREQ(chosen.data(), "標準");
}

TEST_F(FavoriteDialog, EndsAsByCancelByItsCloseBoxAndByEscape) {
    AddFavorite("a");
    EXPECT_EQ(
        Run({Type(kName, "renamed"), [](HWND dialog) { PostMessageA(dialog, WM_SYSCOMMAND, SC_CLOSE, 0); }}),
        IDCANCEL);
    EXPECT_EQ(Run({Type(kName, "renamed"), [](HWND) { PressKey(VK_ESCAPE); }}), IDCANCEL);
    EXPECT_EQ(Files(), std::vector<std::string>{"a.pfk"});
}

TEST_F(FavoriteDialog, AnswersNotificationsThatItHasNoUseFor) {
    AddFavorite("a");
    std::vector<LRESULT> taken, untaken;
    Run({[&](HWND dialog) {
             for (const int code : {2, 3, 4, 5, 0x200, 0x300, 0x400})
                 taken.push_back(Command(dialog, kList, code));
             for (const int code : {6, 0x100, 0x301, 0x501, 0xFFFF})
                 untaken.push_back(Command(dialog, kList, code));
         },
         Press(IDCANCEL)});
    EXPECT_EQ(taken, std::vector<LRESULT>(7, 1));
    EXPECT_EQ(untaken, std::vector<LRESULT>(5, 0));
}

TEST_F(FavoriteDialog, LetsAnyTextBeTyped) {
    AddFavorite("a");
    const std::string typed(300, '*');
    std::string nameShown, commentShown;
    Run({Type(kName, typed), Type(kComment, typed),
         [&](HWND dialog) {
             // Edits never send this notification.
             Command(dialog, kName, 0);
             Command(dialog, kComment, 0);
             nameShown = TextIn(dialog, kName);
             commentShown = TextIn(dialog, kComment);
         },
         Press(IDCANCEL)});
    EXPECT_EQ(nameShown, typed);
    EXPECT_EQ(commentShown, typed);
}

TEST_F(FavoriteDialog, OnlyClosesOnceItsSheetHasGone) {
    AddFavorite("a");
    strcpy(chosen.data(), "標準");
    EXPECT_EQ(Run({Type(kName, "renamed"),
                   [&](HWND) {
                       EndSession();
                       CSettingManager::Destroy();
                   },
                   Press(IDOK)}),
              IDCANCEL);
    EXPECT_EQ(Files(), std::vector<std::string>{"a.pfk"});
    EXPECT_STREQ(chosen.data(), "標準");
}

TEST_F(FavoriteDialog, LivesWithManyFavorites) {
    for (int number = 0; number < 200; ++number) {
        CFavoriteSetting setting = MakeFavorite("");
        strcpy(setting.Name.data(), std::to_string(number).c_str());
        CSettingManager::GetSettingManager()->AddFavorite(setting);
    }
    strcpy(chosen.data(), "150");
    int row = -1;
    RunAsListed({[&](HWND dialog) { row = SelectedRowOf(dialog); }, Press(IDOK)});
    EXPECT_EQ(row, 150);
    EXPECT_STREQ(chosen.data(), "150");
}

} // namespace

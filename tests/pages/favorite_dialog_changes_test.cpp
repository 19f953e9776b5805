// Renaming a favourite and giving it another comment, by OK and by going to another row.
#include "tests/pages/dialog_text.h"
#include "tests/pages/favorite_dialog_fixture.h"

#include <cstring>

namespace {

using FavoriteDialog = FavoriteDialogTest;

const std::string kCommentRefused = "コメントは255バイト(半角255/全角127文字)以内で指定してください。";

struct Refused {
    std::string typed;
    std::string message;
};

class FavoriteDialogRefuses : public FavoriteDialogTest, public testing::WithParamInterface<Refused> {};

TEST_P(FavoriteDialogRefuses, TheName) {
    AddFavorite("a", "first");
    auto box = AnswerNextMessageBox();
    HWND dialogWindow = nullptr, focus = nullptr, edit = nullptr;
    std::string kept;
    const INT_PTR result = Run({Type(kName, GetParam().typed), [](HWND) { PressKey(VK_RETURN); },
                                [&](HWND dialog) {
                                    dialogWindow = dialog;
                                    focus = GetFocus();
                                    edit = GetDlgItem(dialog, kName);
                                    kept = TextIn(dialog, kName);
                                },
                                Press(IDCANCEL)});
    const MessageBoxSeen seen = box.get();
    EXPECT_EQ(seen.text, GetParam().message);
    EXPECT_EQ(seen.caption, kWarning);
    EXPECT_EQ(seen.icon, LoadIconA(nullptr, IDI_EXCLAMATION));
    EXPECT_FALSE(seen.canCancel);
    EXPECT_EQ(seen.owner, dialogWindow);
    EXPECT_EQ(result, IDCANCEL);
    EXPECT_EQ(focus, edit);
    EXPECT_EQ(kept, GetParam().typed);
    EXPECT_EQ(Files(), std::vector<std::string>{"a.pfk"});
}

INSTANTIATE_TEST_SUITE_P(
    Names, FavoriteDialogRefuses,
    testing::Values(Refused{"a\\b", kForbidden}, Refused{"a/b", kForbidden}, Refused{":", kForbidden},
                    Refused{"a*", kForbidden}, Refused{"a?", kForbidden}, Refused{"\"a\"", kForbidden},
                    Refused{"<a", kForbidden}, Refused{">", kForbidden}, Refused{"表|", kForbidden},
                    // The characters come before the length.
                    Refused{std::string(28, '*'), kForbidden}, Refused{"標準", kStandardRefused},
                    Refused{"", kNameLimits}, Refused{"   ", kNameLimits}, Refused{"　", kNameLimits},
                    Refused{" 　 ", kNameLimits}, Refused{std::string(28, 'x'), kNameLimits},
                    Refused{Repeated(14, "表"), kNameLimits}, Refused{std::string(900, 'x'), kNameLimits}));

class FavoriteDialogTakes : public FavoriteDialogTest, public testing::WithParamInterface<std::string> {};

TEST_P(FavoriteDialogTakes, TheName) {
    AddFavorite("a", "first", 7);
    EXPECT_EQ(Run({Type(kName, GetParam()), Press(IDOK)}), IDOK);
    EXPECT_EQ(Files(), std::vector<std::string>{GetParam() + ".pfk"});
    const CFavoriteSetting renamed = ReadFavorite(PathOf(GetParam()));
    EXPECT_STREQ(renamed.Comment.data(), "first");
    EXPECT_EQ(CopiesOf(renamed), 7);
    EXPECT_EQ(Listed(), std::vector<std::string>{GetParam()});
    EXPECT_EQ(chosen.data(), GetParam());
}

// "表" and "ソ" have the code of "\\" for their second byte.
INSTANTIATE_TEST_SUITE_P(Names, FavoriteDialogTakes,
                         testing::Values("b", std::string(27, 'x'), Repeated(13, "表"),
                                         "x" + Repeated(13, "ソ"), "表", "標準2", "a b", "v1.2", "ｱ"));

TEST_F(FavoriteDialog, RefusesTheNameOfAnotherFavoriteInEitherCase) {
    AddFavorite("a");
    AddFavorite("other", "its own");
    for (const char* typed : {"other", "OTHER"}) {
        auto box = AnswerNextMessageBox();
        std::string kept;
        EXPECT_EQ(Run({Type(kName, typed), Press(IDOK), [&](HWND dialog) { kept = TextIn(dialog, kName); },
                       Press(IDCANCEL)}),
                  IDCANCEL);
        const MessageBoxSeen seen = box.get();
        EXPECT_EQ(seen.text, TakenMessage(typed));
        EXPECT_EQ(seen.caption, kWarning);
        EXPECT_EQ(kept, typed);
    }
    EXPECT_EQ(Files(), (std::vector<std::string>{"a.pfk", "other.pfk"}));
    EXPECT_STREQ(ReadFavorite(PathOf("other")).Comment.data(), "its own");
}

// The comparison ignores case, so that such a name is no new one.
TEST_F(FavoriteDialog, TakesANameOfOtherCaseForNoChange) {
    AddFavorite("name", "first");
    EXPECT_EQ(Run({Type(kName, "NAME"), Press(IDOK)}), IDOK);
    EXPECT_EQ(Files(), std::vector<std::string>{"name.pfk"});
    EXPECT_EQ(Listed(), std::vector<std::string>{"name"});
    // A name that a row of the page has.
    EXPECT_STREQ(chosen.data(), "name");
}

TEST_F(FavoriteDialog, TakesACommentOfOtherCaseForNoChange) {
    AddFavorite("a", "comment");
    EXPECT_EQ(Run({Type(kComment, "COMMENT"), Press(IDOK)}), IDOK);
    EXPECT_STREQ(ReadFavorite(PathOf("a")).Comment.data(), "comment");
}

TEST_F(FavoriteDialog, KeepsTheFileWhenACommentChangesWithTheCaseOfTheName) {
    AddFavorite("name", "first");
    EXPECT_EQ(Run({Type(kName, "NAME"), Type(kComment, "second"), Press(IDOK)}), IDOK);
    EXPECT_EQ(Files(), std::vector<std::string>{"name.pfk"});
    EXPECT_EQ(Listed(), std::vector<std::string>{"name"});
    EXPECT_STREQ(chosen.data(), "name");
    EXPECT_STREQ(ReadFavorite(PathOf("name")).Comment.data(), "second");
}

// The second bytes of the two are those of "A" and "a".
TEST_F(FavoriteDialog, TellsDoubleByteNamesApartThatDifferInOneBitOfTheSecondByte) {
    AddFavorite("ア");
    EXPECT_EQ(Run({Type(kName, "チ"), Press(IDOK)}), IDOK);
    EXPECT_EQ(Files(), std::vector<std::string>{"チ.pfk"});
    EXPECT_STREQ(chosen.data(), "チ");
}

TEST_F(FavoriteDialog, SavesAChangedCommentAlone) {
    AddFavorite("a", "first", 7);
    EXPECT_EQ(Run({Type(kComment, "二番目 <&>"), Press(IDOK)}), IDOK);
    EXPECT_EQ(Files(), std::vector<std::string>{"a.pfk"});
    EXPECT_STREQ(ReadFavorite(PathOf("a")).Comment.data(), "二番目 <&>");
    EXPECT_EQ(CopiesOf(ReadFavorite(PathOf("a"))), 7);
    EXPECT_STREQ(chosen.data(), "a");
}

TEST_F(FavoriteDialog, SavesNameAndCommentTogether) {
    AddFavorite("a", "first");
    EXPECT_EQ(Run({Type(kName, "b"), Type(kComment, "second"), Press(IDOK)}), IDOK);
    EXPECT_EQ(Files(), std::vector<std::string>{"b.pfk"});
    EXPECT_STREQ(ReadFavorite(PathOf("b")).Comment.data(), "second");
}

TEST_F(FavoriteDialog, EmptiesAComment) {
    AddFavorite("a", "first");
    EXPECT_EQ(Run({Type(kComment, ""), Press(IDOK)}), IDOK);
    EXPECT_STREQ(ReadFavorite(PathOf("a")).Comment.data(), "");
}

TEST_F(FavoriteDialog, TakesACommentOf255Bytes) {
    AddFavorite("a");
    const std::string longest = Repeated(127, "表") + "x";
    EXPECT_EQ(Run({Type(kComment, longest), Press(IDOK)}), IDOK);
    EXPECT_EQ(ReadFavorite(PathOf("a")).Comment.data(), longest);
}

class FavoriteDialogRefusesLong : public FavoriteDialogTest,
                                  public testing::WithParamInterface<std::string> {};

TEST_P(FavoriteDialogRefusesLong, Comments) {
    AddFavorite("a", "first");
    auto box = AnswerNextMessageBox();
    std::string kept;
    EXPECT_EQ(Run({Type(kComment, GetParam()), Press(IDOK),
                   [&](HWND dialog) { kept = TextIn(dialog, kComment); }, Press(IDCANCEL)}),
              IDCANCEL);
    const MessageBoxSeen seen = box.get();
    EXPECT_EQ(seen.text, kCommentRefused);
    EXPECT_EQ(seen.caption, kWarning);
    EXPECT_EQ(kept, GetParam());
    EXPECT_STREQ(ReadFavorite(PathOf("a")).Comment.data(), "first");
}

INSTANTIATE_TEST_SUITE_P(Texts, FavoriteDialogRefusesLong,
                         testing::Values(std::string(256, 'x'), Repeated(128, "表"), std::string(1000, 'x')));

TEST_F(FavoriteDialog, SpeaksOfTheNameFirstWhenBothAreRefused) {
    AddFavorite("a");
    auto box = AnswerNextMessageBox();
    Run({Type(kName, "*"), Type(kComment, std::string(256, 'x')), Press(IDOK), Press(IDCANCEL)});
    EXPECT_EQ(box.get().text, kForbidden);
    EXPECT_EQ(Files(), std::vector<std::string>{"a.pfk"});
}

// What a comment of another program may hold is no change of the user's.
TEST_F(FavoriteDialog, LeavesAFavoriteWithAnOddCommentAlone) {
    for (const char* comment :
         {"one\ntwo", "one\ttwo", "one&#13;&#10;two", "one&#13;two", "one&#10;two", "one&#9;two\n"}) {
        WriteBytes(PathOf("a"),
                   std::string("<?xml version='1.0' encoding='UTF-8'?><Favorite><FileVer>2</FileVer>"
                               "<IotVer>10</IotVer><CharCode>0</CharCode><Comment>") +
                       comment + "</Comment><PageSize>A4</PageSize></Favorite>");
        const std::string before = FileContents(PathOf("a"));
        EXPECT_EQ(Run({Press(IDOK)}), IDOK);
        EXPECT_EQ(FileContents(PathOf("a")), before) << comment;
        EXPECT_EQ(Listed(), std::vector<std::string>{"a"}) << comment;
    }
}

// The file keeps neither line ends nor tabs.
TEST_F(FavoriteDialog, SavesACommentOfSeveralLinesOnOne) {
    AddFavorite("a", "first");
    EXPECT_EQ(Run({Type(kComment, "one\r\ntwo\tthree"), Press(IDOK)}), IDOK);
    EXPECT_STREQ(ReadFavorite(PathOf("a")).Comment.data(), "one two three");
    EXPECT_STREQ(CSettingManager::GetSettingManager()->Favorite(0).Comment.data(), "one two three");
}

TEST_F(FavoriteDialog, SavesWhatWasChangedWhenTheUserGoesToAnotherRow) {
    AddFavorite("a", "first");
    AddFavorite("b", "second");
    AddFavorite("c", "third");
    std::vector<std::string> rows;
    int row = -1;
    std::string shown;
    EXPECT_EQ(Run({Type(kName, "renamed"), Type(kComment, "new"), Click(1),
                   [&](HWND dialog) {
                       rows = RowsOfList(dialog);
                       row = SelectedRowOf(dialog);
                       shown = TextIn(dialog, kName) + "/" + TextIn(dialog, kComment);
                   },
                   Press(IDCANCEL)}),
              IDCANCEL);
    EXPECT_EQ(Files(), (std::vector<std::string>{"b.pfk", "c.pfk", "renamed.pfk"}));
    EXPECT_STREQ(ReadFavorite(PathOf("renamed")).Comment.data(), "new");
    // The list is read anew: the row that the user went to has moved up with its favourite.
    EXPECT_EQ(rows, (std::vector<std::string>{"b", "c", "renamed"}));
    EXPECT_EQ(rows, Listed());
    EXPECT_EQ(row, 0);
    EXPECT_EQ(shown, "b/second");
}

TEST_F(FavoriteDialog, StaysWithTheRenamedFavoriteWhenItsRowIsClickedAgain) {
    AddFavorite("a");
    AddFavorite("b");
    std::string shown;
    int row = -1;
    Run({Type(kName, "z"), Click(0),
         [&](HWND dialog) {
             // The click sends the notification or, on the selected row, none.
             Command(dialog, kList, LBN_SELCHANGE);
             shown = TextIn(dialog, kName);
             row = SelectedRowOf(dialog);
         },
         Press(IDCANCEL)});
    EXPECT_EQ(shown, "z");
    EXPECT_EQ(row, 1);
    EXPECT_EQ(Files(), (std::vector<std::string>{"b.pfk", "z.pfk"}));
}

class FavoriteDialogReturns : public FavoriteDialogTest, public testing::WithParamInterface<Refused> {};

TEST_P(FavoriteDialogReturns, ToTheRowWhoseNameIsRefused) {
    AddFavorite("a");
    AddFavorite("b");
    strcpy(chosen.data(), "a");
    auto box = AnswerNextMessageBox();
    int row = -1;
    std::string kept;
    Run({Type(kName, GetParam().typed), Click(1),
         [&](HWND dialog) {
             row = SelectedRowOf(dialog);
             kept = TextIn(dialog, kName);
         },
         Press(IDCANCEL)});
    const MessageBoxSeen seen = box.get();
    EXPECT_EQ(seen.text, GetParam().message);
    EXPECT_EQ(seen.caption, kWarning);
    EXPECT_EQ(row, 0);
    EXPECT_EQ(kept, GetParam().typed);
    EXPECT_EQ(Files(), (std::vector<std::string>{"a.pfk", "b.pfk"}));
}

INSTANTIATE_TEST_SUITE_P(Names, FavoriteDialogReturns,
                         testing::Values(Refused{"x?", kForbidden}, Refused{"標準", kStandardRefused},
                                         Refused{std::string(28, 'x'), kNameLimits},
                                         Refused{"b", TakenMessage("b")}));

TEST_F(FavoriteDialog, ReturnsToTheRowWhoseCommentIsRefused) {
    AddFavorite("a");
    AddFavorite("b");
    auto box = AnswerNextMessageBox();
    int row = -1;
    Run({Type(kComment, std::string(256, 'x')), Click(1), [&](HWND dialog) { row = SelectedRowOf(dialog); },
         Press(IDCANCEL)});
    EXPECT_EQ(box.get().text, kCommentRefused);
    EXPECT_EQ(row, 0);
}

TEST_F(FavoriteDialog, GoesToARowThatIsThereWhenTheChosenFileHasVanished) {
    AddFavorite("a");
    AddFavorite("b");
    std::vector<std::string> rows;
    std::string shown;
    EXPECT_EQ(Run({Type(kComment, "new"), [&](HWND) { DeleteFileA(PathOf("b").c_str()); }, Click(1),
                   [&](HWND dialog) {
                       rows = RowsOfList(dialog);
                       shown = TextIn(dialog, kName) + "/" + TextIn(dialog, kComment);
                   },
                   Press(IDOK)}),
              IDOK);
    EXPECT_EQ(rows, std::vector<std::string>{"a"});
    EXPECT_EQ(shown, "a/new");
    EXPECT_STREQ(chosen.data(), "a");
}

// The sheet goes while the refusal is open.
TEST_F(FavoriteDialog, SurvivesItsSheetBehindARefusal) {
    AddFavorite("a");
    auto box = AnswerNextMessageBox(IDOK, [&] {
        CSettingManager::Destroy();
        EndSession();
    });
    EXPECT_EQ(Run({Type(kName, "*"), Press(IDOK), Press(IDOK)}), IDCANCEL);
    EXPECT_EQ(box.get().text, kForbidden);
    EXPECT_EQ(Files(), std::vector<std::string>{"a.pfk"});
}

} // namespace

// Loading a favourite from a file: what the dialog shows and the directory holds then.
#include "tests/pages/favorite_dialog_fixture.h"
#include "tests/support/main_log.h"

#include <commdlg.h>
#include <dlgs.h>

#include <algorithm>
#include <cstring>

namespace {

const std::string kOtherFormat = "このファイルは形式が異なるため読み込めません。";

// What the dialog shows after a load.
struct Shown {
    std::vector<std::string> rows;
    int row = -1;
    std::string name;
    std::string comment;
};

class FavoriteFromFile : public FavoriteDialogTest {
  protected:
    // Loads the file and leaves the dialog by the button.
    Shown Load(const std::string& path, int button = IDOK) {
        Shown shown;
        m_result = Run({Press(kLoad), Choose(path), Look(shown), Press(button)});
        return shown;
    }
    static ModalDialog::Step Look(Shown& shown) {
        return [&shown](HWND dialog) {
            shown = {RowsOfList(dialog), SelectedRowOf(dialog), TextIn(dialog, kName),
                     TextIn(dialog, kComment)};
        };
    }
    INT_PTR Result() const { return m_result; }

  private:
    INT_PTR m_result = 0;
};

TEST_F(FavoriteFromFile, AddsTheFavoriteAndSelectsIt) {
    AddFavorite("a", "first");
    AddFavorite("z", "last");
    WriteFavorite(Elsewhere("loaded.pfk"), MakeFavorite("コメント", "A3", 7));
    const Shown shown = Load(Elsewhere("loaded.pfk"));
    EXPECT_EQ(shown.rows, (std::vector<std::string>{"a", "loaded", "z"}));
    EXPECT_EQ(shown.row, 1);
    EXPECT_EQ(shown.name, "loaded");
    EXPECT_EQ(shown.comment, "コメント");
    EXPECT_EQ(Result(), IDOK);
    EXPECT_STREQ(chosen.data(), "loaded");
    EXPECT_EQ(Listed(), shown.rows);
    const CFavoriteSetting saved = ReadFavorite(PathOf("loaded"));
    EXPECT_EQ(CopiesOf(saved), 7);
    EXPECT_STREQ(saved.Comment.data(), "コメント");
    EXPECT_STREQ(saved.PageSize.data(), "A3");
}

TEST_F(FavoriteFromFile, KeepsTheFavoriteWhenTheDialogIsCancelled) {
    WriteFavorite(Elsewhere("loaded.pfk"), MakeFavorite(""));
    Load(Elsewhere("loaded.pfk"), IDCANCEL);
    EXPECT_EQ(Files(), std::vector<std::string>{"loaded.pfk"});
}

TEST_F(FavoriteFromFile, EnablesTheControlsOfAnEmptyList) {
    WriteFavorite(Elsewhere("loaded.pfk"), MakeFavorite(""));
    std::vector<bool> before, after;
    const auto look = [](std::vector<bool>& enabled) {
        return [&enabled](HWND dialog) {
            for (const int control : {1207, 1206, 1214, 4008})
                enabled.push_back(IsEnabled(dialog, control));
        };
    };
    Run({look(before), Press(kLoad), Choose(Elsewhere("loaded.pfk")), look(after), Press(IDOK)});
    EXPECT_EQ(before, std::vector<bool>(4, false));
    EXPECT_EQ(after, std::vector<bool>(4, true));
    EXPECT_STREQ(chosen.data(), "loaded");
}

TEST_F(FavoriteFromFile, ReadsBackWhatWasSavedToAFile) {
    AddFavorite("表", "コメント <&>", 7);
    EXPECT_EQ(
        Run({Press(kSave), Choose(Elsewhere("ソ")), Press(kLoad), Choose(Elsewhere("ソ.pfk")), Press(IDOK)}),
        IDOK);
    EXPECT_EQ(Files(), (std::vector<std::string>{"ソ.pfk", "表.pfk"}));
    EXPECT_STREQ(chosen.data(), "ソ");
    EXPECT_EQ(FileContents(PathOf("ソ")), FileContents(PathOf("表")));
}

TEST_F(FavoriteFromFile, SavesWithoutTheReadOnlyMark) {
    CFavoriteSetting marked = MakeFavorite("");
    marked.CharCode = 1;
    WriteFavorite(Elsewhere("loaded.pfk"), marked);
    Load(Elsewhere("loaded.pfk"));
    EXPECT_EQ(ReadFavorite(PathOf("loaded")).CharCode, 0u);
}

// Nothing checks them: the favourite that is shown is another one then.
TEST_F(FavoriteFromFile, DropsWhatWasTypedBefore) {
    AddFavorite("a", "first");
    WriteFavorite(Elsewhere("loaded.pfk"), MakeFavorite("new"));
    Run({Type(kName, "*"), Type(kComment, "typed"), Press(kLoad), Choose(Elsewhere("loaded.pfk")),
         Press(IDOK)});
    EXPECT_EQ(Files(), (std::vector<std::string>{"a.pfk", "loaded.pfk"}));
    EXPECT_STREQ(ReadFavorite(PathOf("a")).Comment.data(), "first");
}

TEST_F(FavoriteFromFile, TakesANameOf26Bytes) {
    const std::string longest(26, 'x');
    WriteFavorite(Elsewhere(longest + ".pfk"), MakeFavorite(""));
    EXPECT_EQ(Load(Elsewhere(longest + ".pfk")).name, longest);
}

TEST_F(FavoriteFromFile, RefusesAFileOfTheFavoriteDirectoryItself) {
    AddFavorite("a", "first");
    auto box = AnswerNextMessageBox();
    Run({Press(kLoad), Choose(PathOf("a")),
         [](HWND dialog) { PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0); }, Press(IDOK)});
    EXPECT_EQ(box.get().text, TakenMessage("a"));
}

std::string Header(const std::string& fileVer, const std::string& iotVer) {
    return "<?xml version='1.0' encoding='UTF-8'?><Favorite><FileVer>" + fileVer + "</FileVer><IotVer>" +
           iotVer + "</IotVer><CharCode>0</CharCode><Comment>c</Comment><PageSize>A4</PageSize></Favorite>";
}

struct OddFile {
    const char* name;
    std::string bytes;
};

class FavoriteOfOtherFormat : public FavoriteFromFile, public testing::WithParamInterface<OddFile> {};

TEST_P(FavoriteOfOtherFormat, IsRefusedAndAddsNothing) {
    AddFavorite("a", "first");
    WriteBytes(Elsewhere("odd.pfk"), GetParam().bytes);
    auto box = AnswerNextMessageBox();
    HWND dialogWindow = nullptr;
    Shown shown;
    Run({[&](HWND dialog) { dialogWindow = dialog; }, Press(kLoad), Choose(Elsewhere("odd.pfk")), Look(shown),
         Press(IDOK)});
    const MessageBoxSeen seen = box.get();
    EXPECT_EQ(seen.text, kOtherFormat);
    EXPECT_EQ(seen.caption, "お気に入りの読み込み");
    EXPECT_EQ(seen.owner, dialogWindow);
    EXPECT_EQ(shown.rows, std::vector<std::string>{"a"});
    EXPECT_EQ(shown.name, "a");
    EXPECT_EQ(Files(), std::vector<std::string>{"a.pfk"});
    EXPECT_EQ(Listed(), std::vector<std::string>{"a"});
}

INSTANTIATE_TEST_SUITE_P(
    Files, FavoriteOfOtherFormat,
    testing::Values(OddFile{"OldFile", FileContents(ZR_TEST_DATA_DIR "/favorite_old.pfk")},
                    OddFile{"FileVer1", Header("1", "10")}, OddFile{"FileVer3", Header("3", "10")},
                    OddFile{"IotVer9", Header("2", "9")}, OddFile{"NoNumbers", Header("", "")},
                    OddFile{"HugeNumbers", Header("4294967298", "99999999999999999999")},
                    OddFile{"Empty", ""}, OddFile{"NoDocument", "not XML at all"},
                    OddFile{"Cut", Header("2", "10").substr(0, 100)},
                    OddFile{"OtherDocument", "<html><body/></html>"},
                    OddFile{"Zeros", std::string(5000, '\0')},
                    OddFile{"Declaration", "<!DOCTYPE x [<!ENTITY a 'b'>]>" + Header("2", "10")}),
    [](const auto& test) { return test.param.name; });

TEST_F(FavoriteFromFile, ReadsTheFrozenFile) {
    WriteBytes(Elsewhere("frozen.pfk"), FileContents(ZR_TEST_DATA_DIR "/favorite_v2.pfk"));
    auto box = AnswerNextMessageBox();
    EXPECT_EQ(Load(Elsewhere("frozen.pfk")).comment, "凍結した表 <&>");
    EXPECT_EQ(box.get().text,
              "「frozen」の原稿サイズはこのプリンターでは使用できません。\n原稿サイズを確認してください。");
    EXPECT_EQ(Listed(), std::vector<std::string>{"frozen"});
}

// Texts longer than their fields and numbers that no field holds.
TEST_F(FavoriteFromFile, TakesAbsurdValuesCutToTheirFields) {
    WriteBytes(Elsewhere("absurd.pfk"),
               "<?xml version='1.0' encoding='UTF-8'?><Favorite><FileVer>2</FileVer><IotVer>10</IotVer>"
               "<CharCode>77</CharCode><Comment>" +
                   std::string(5000, 'x') + "</Comment><PageSize>" + std::string(5000, '4') +
                   "</PageSize><PrintOption><NumOfCopies>99999999999</NumOfCopies><UserComment>" +
                   std::string(9000, 'y') + "</UserComment></PrintOption></Favorite>");
    auto box = AnswerNextMessageBox();
    const Shown shown = Load(Elsewhere("absurd.pfk"));
    EXPECT_NE(box.get().text, "");
    EXPECT_EQ(shown.name, "absurd");
    EXPECT_EQ(shown.comment, std::string(255, 'x'));
    EXPECT_EQ(Result(), IDOK);
    EXPECT_EQ(Files(), std::vector<std::string>{"absurd.pfk"});
}

TEST_F(FavoriteFromFile, WarnsOfADocumentSizeThatThePageLacks) {
    WriteFavorite(Elsewhere("loaded.pfk"), MakeFavorite("", "B7"));
    std::vector<std::string> whenAsked;
    auto box = AnswerNextMessageBox(IDOK, [&] { whenAsked = Files(); });
    const Shown shown = Load(Elsewhere("loaded.pfk"));
    const MessageBoxSeen seen = box.get();
    EXPECT_EQ(seen.text,
              "「loaded」の原稿サイズはこのプリンターでは使用できません。\n原稿サイズを確認してください。");
    EXPECT_EQ(seen.caption, kWarning);
    EXPECT_EQ(seen.icon, LoadIconA(nullptr, IDI_EXCLAMATION));
    // The favourite is there before it is spoken of.
    EXPECT_EQ(whenAsked, std::vector<std::string>{"loaded.pfk"});
    EXPECT_EQ(shown.name, "loaded");
}

TEST_F(FavoriteFromFile, WarnsOfAMissingDocumentSize) {
    WriteFavorite(Elsewhere("loaded.pfk"), MakeFavorite("", ""));
    auto box = AnswerNextMessageBox();
    const Shown shown = Load(Elsewhere("loaded.pfk"));
    const MessageBoxSeen seen = box.get();
    EXPECT_EQ(seen.text,
              "このお気に入りには原稿サイズが記録されていません。\n原稿サイズを確認してください。");
    EXPECT_EQ(seen.caption, kWarning);
    EXPECT_EQ(seen.icon, LoadIconA(nullptr, IDI_EXCLAMATION));
    EXPECT_EQ(shown.name, "loaded");
}

TEST_F(FavoriteFromFile, ShowsANameWithPlaceholdersAsItIs) {
    WriteFavorite(Elsewhere("%s%n%s.pfk"), MakeFavorite("", "%s"));
    auto box = AnswerNextMessageBox();
    Load(Elsewhere("%s%n%s.pfk"));
    EXPECT_EQ(box.get().text,
              "「%s%n%s」の原稿サイズはこのプリンターでは使用できません。\n原稿サイズを確認してください。");
}

// It comes into being when the file dialog has found that there is none.
TEST_F(FavoriteFromFile, TakesThePlaceOfNoFile) {
    AddFavorite("a", "first");
    AddFavorite("b", "second");
    strcpy(chosen.data(), "b");
    WriteFavorite(Elsewhere("loaded.pfk"), MakeFavorite(""));
    auto box = AnswerNextMessageBox();
    HWND dialogWindow = nullptr;
    Shown shown;
    EXPECT_EQ(Run({[&](HWND dialog) { dialogWindow = dialog; }, Press(kLoad),
                   [&](HWND dialog) {
                       CallWhenClosed(dialog, [&] { WriteBytes(PathOf("loaded"), "of another program"); });
                       Choose(Elsewhere("loaded.pfk"))(dialog);
                   },
                   Look(shown), Press(IDOK)}),
              IDOK);
    const MessageBoxSeen seen = box.get();
    EXPECT_EQ(seen.text, TakenMessage("loaded"));
    EXPECT_EQ(seen.caption, kWarning);
    EXPECT_EQ(seen.owner, dialogWindow);
    EXPECT_EQ(FileContents(PathOf("loaded")), "of another program");
    EXPECT_EQ(shown.rows, (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(shown.row, 1);
    EXPECT_EQ(shown.name, "b");
    EXPECT_EQ(Listed(), shown.rows);
    EXPECT_STREQ(chosen.data(), "b");
}

// The favourite directory goes when the file dialog has closed.
TEST_F(FavoriteFromFile, LeavesAnEmptyListEmptyWhenTheLoadedOneCannotBeSaved) {
    WriteFavorite(Elsewhere("loaded.pfk"), MakeFavorite(""));
    const MainLog log;
    Shown shown;
    bool canEdit = true;
    Run({Press(kLoad),
         [&](HWND dialog) {
             CallWhenClosed(dialog, [&] { RemoveDirectoryA(directory.c_str()); });
             Choose(Elsewhere("loaded.pfk"))(dialog);
         },
         Look(shown), [&](HWND dialog) { canEdit = IsEnabled(dialog, kName) || IsEnabled(dialog, kSave); },
         Press(IDOK)});
    EXPECT_EQ(shown.rows, std::vector<std::string>{});
    EXPECT_EQ(shown.name, "");
    EXPECT_FALSE(canEdit);
    EXPECT_EQ(Listed(), shown.rows);
    EXPECT_TRUE(std::ranges::any_of(
        log.Messages(), [](const std::string& message) { return message.ends_with("SaveFavorite Error"); }));
}

TEST_F(FavoriteFromFile, AddsNothingWhenTheFileDialogIsCancelled) {
    AddFavorite("a");
    EXPECT_EQ(
        Run({Press(kLoad), [](HWND dialog) { PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0); }, Press(IDOK)}),
        IDOK);
    EXPECT_EQ(Files(), std::vector<std::string>{"a.pfk"});
}

TEST_F(FavoriteFromFile, AddsNothingOnceItsSheetHasGone) {
    WriteFavorite(Elsewhere("loaded.pfk"), MakeFavorite(""));
    EXPECT_EQ(Run({Press(kLoad),
                   [&](HWND dialog) {
                       CSettingManager::Destroy();
                       EndSession();
                       Choose(Elsewhere("loaded.pfk"))(dialog);
                   },
                   Press(IDOK)}),
              IDCANCEL);
    EXPECT_EQ(Files(), std::vector<std::string>{});
}

TEST_F(FavoriteFromFile, BeginsOnTheDesktopWithTheFavoritesFiles) {
    std::string place, filter;
    Run({Press(kLoad),
         [&](HWND dialog) {
             std::array<char, 300> text{};
             SendMessageA(dialog, CDM_GETFOLDERPATH, text.size(), reinterpret_cast<LPARAM>(text.data()));
             place = text.data();
             filter = RowsOf(GetDlgItem(dialog, cmb1)).empty() ? "" : RowsOf(GetDlgItem(dialog, cmb1))[0];
             PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
         },
         Press(IDCANCEL)});
    EXPECT_EQ(place, FolderPath(CSIDL_DESKTOPDIRECTORY));
    EXPECT_EQ(filter, "*.pfk");
}

} // namespace

// Renaming a favourite among the files of its directory, which other sheets and programs change as well.
#include "Common/text.h"
#include "tests/pages/favorite_dialog_fixture.h"
#include "tests/support/main_log.h"

#include <algorithm>
#include <cstring>

namespace {

using FavoriteDialog = FavoriteDialogTest;

TEST_F(FavoriteDialog, KeepsTheOldFileWhenTheRenamedOneCannotBeSaved) {
    AddFavorite("a", "first");
    CSettingManager::GetSettingManager()->LoadFavoriteSettingList();
    CopyText(CSettingManager::GetSettingManager()->Favorite(0).Directory, Elsewhere("gone"));
    const MainLog log;
    EXPECT_EQ(RunAsListed({Type(kName, "b"), Type(kComment, "second"), Press(IDOK)}), IDOK);
    EXPECT_TRUE(IsFile(PathOf("a")));
    EXPECT_STREQ(ReadFavorite(PathOf("a")).Comment.data(), "first");
    EXPECT_EQ(Files(), std::vector<std::string>{"a.pfk"});
    // The list stays what the directory holds, and the page finds its row.
    EXPECT_EQ(Listed(), std::vector<std::string>{"a"});
    EXPECT_STREQ(chosen.data(), "a");
    EXPECT_TRUE(std::ranges::any_of(log.Messages(), [](const std::string& message) {
        return message.ends_with("ApplyChange() SaveFavoriteSetting Error");
    }));
}

TEST_F(FavoriteDialog, RenamesAFavoriteWhoseFileHasVanished) {
    AddFavorite("a", "first", 7);
    EXPECT_EQ(Run({Type(kName, "b"), [&](HWND) { DeleteFileA(PathOf("a").c_str()); }, Press(IDOK)}), IDOK);
    EXPECT_EQ(Files(), std::vector<std::string>{"b.pfk"});
    EXPECT_EQ(CopiesOf(ReadFavorite(PathOf("b"))), 7);
}

TEST_F(FavoriteDialog, OnlyLogsThatTheOldFileCannotBeDeleted) {
    AddFavorite("a");
    CSettingManager::GetSettingManager()->LoadFavoriteSettingList();
    const MainLog log;
    const HANDLE held =
        CreateFileA(PathOf("a").c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_EQ(RunAsListed({Type(kName, "b"), Press(IDOK)}), IDOK);
    CloseHandle(held);
    EXPECT_EQ(Files(), (std::vector<std::string>{"a.pfk", "b.pfk"}));
    EXPECT_STREQ(chosen.data(), "b");
    EXPECT_TRUE(std::ranges::any_of(log.Messages(), [&](const std::string& message) {
        return message.find("DeleteFavorite() not deleted: " + PathOf("a")) != std::string::npos;
    }));
}

struct UnlistedFile {
    const char* name;
    std::string bytes;
};

class FavoriteDialogSpares : public FavoriteDialogTest, public testing::WithParamInterface<UnlistedFile> {
  protected:
    // Answers the refusal of the name "b".
    void RenameToIt(ModalDialog::Step leave) {
        AddFavorite("a", "first");
        AddFavorite("c");
        strcpy(chosen.data(), "a");
        CSettingManager::GetSettingManager()->LoadFavoriteSettingList();
        WriteBytes(PathOf("b"), GetParam().bytes);
        auto box = AnswerNextMessageBox();
        std::string kept;
        int row = -1;
        EXPECT_EQ(RunAsListed({Type(kName, "b"), Type(kComment, "second"), std::move(leave),
                               [&](HWND dialog) {
                                   kept = TextIn(dialog, kName);
                                   row = SelectedRowOf(dialog);
                               },
                               Press(IDCANCEL)}),
                  IDCANCEL);
        const MessageBoxSeen seen = box.get();
        EXPECT_EQ(seen.text, TakenMessage("b"));
        EXPECT_EQ(seen.caption, kWarning);
        EXPECT_EQ(kept, "b");
        EXPECT_EQ(row, 0);
        EXPECT_EQ(Files(), (std::vector<std::string>{"a.pfk", "b.pfk", "c.pfk"}));
        EXPECT_EQ(FileContents(PathOf("b")), GetParam().bytes);
        EXPECT_STREQ(ReadFavorite(PathOf("a")).Comment.data(), "first");
    }
};

TEST_P(FavoriteDialogSpares, TheFileOfTheNewNameAtOk) {
    RenameToIt(Press(IDOK));
}

TEST_P(FavoriteDialogSpares, TheFileOfTheNewNameWhenTheUserGoesToAnotherRow) {
    RenameToIt(Click(1));
}

std::string FavoriteOf(const std::string& iotVer) {
    return "<?xml version='1.0' encoding='UTF-8'?><Favorite><FileVer>2</FileVer><IotVer>" + iotVer +
           "</IotVer><CharCode>0</CharCode><Comment>c</Comment><PageSize>A4</PageSize></Favorite>";
}

INSTANTIATE_TEST_SUITE_P(Files, FavoriteDialogSpares,
                         testing::Values(UnlistedFile{"OfAnotherSheet", FavoriteOf("10")},
                                         UnlistedFile{"OfAnotherDevice", FavoriteOf("9")},
                                         UnlistedFile{"Damaged", FavoriteOf("10").substr(0, 100)}),
                         [](const auto& test) { return test.param.name; });

CFavoriteDlgEX& ObjectOf(HWND dialog) {
    return *static_cast<CFavoriteDlgEX*>(reinterpret_cast<CModalDlg*>(GetWindowLongPtrA(dialog, DWLP_USER)));
}

// It comes into being when the name has been found to be free.
TEST_F(FavoriteDialog, WritesOverNoFileUnderANewName) {
    AddFavorite("a", "first");
    EXPECT_EQ(Run({Type(kName, "b"), Type(kComment, "second"),
                   [&](HWND dialog) {
                       WriteBytes(PathOf("b"), "of another program");
                       ObjectOf(dialog).ApplyChange();
                   },
                   Press(IDCANCEL)}),
              IDCANCEL);
    EXPECT_EQ(FileContents(PathOf("b")), "of another program");
    EXPECT_STREQ(ReadFavorite(PathOf("a")).Comment.data(), "first");
    EXPECT_EQ(Listed(), std::vector<std::string>{"a"});
}

constexpr char kLongName[] = "a name with a short form";

// The name, without extension, by which the file system knows the favourite as well.
std::string ShortName(const std::string& path) {
    std::array<char, MAX_PATH> whole{};
    GetShortPathNameA(path.c_str(), whole.data(), static_cast<DWORD>(whole.size()));
    return std::filesystem::path(whole.data()).stem().string();
}

TEST_F(FavoriteDialog, RefusesTheShortNameOfItsOwnFile) {
    AddFavorite(kLongName, "first");
    const std::string shortName = ShortName(PathOf(kLongName));
    ASSERT_NE(shortName, kLongName);
    auto box = AnswerNextMessageBox();
    EXPECT_EQ(Run({Type(kName, shortName), Press(IDOK), Press(IDCANCEL)}), IDCANCEL);
    EXPECT_EQ(box.get().text, TakenMessage(shortName));
    EXPECT_EQ(Files(), std::vector<std::string>{std::string(kLongName) + ".pfk"});
    EXPECT_STREQ(ReadFavorite(PathOf(kLongName)).Comment.data(), "first");
}

// The file of the old name has vanished, and the new file gets that name for its short form.
TEST_F(FavoriteDialog, KeepsANewFileThatTheOldNameLeadsTo) {
    AddFavorite(kLongName);
    const std::string shortName = ShortName(PathOf(kLongName));
    ASSERT_NE(shortName, kLongName);
    DeleteFileA(PathOf(kLongName).c_str());
    AddFavorite(shortName, "first", 7);
    EXPECT_EQ(
        Run({Type(kName, kLongName), [&](HWND) { DeleteFileA(PathOf(shortName).c_str()); }, Press(IDOK)}),
        IDOK);
    EXPECT_EQ(Files(), std::vector<std::string>{std::string(kLongName) + ".pfk"});
    EXPECT_EQ(CopiesOf(ReadFavorite(PathOf(kLongName))), 7);
    EXPECT_STREQ(chosen.data(), kLongName);
}

// A device has the name in every directory.
TEST_F(FavoriteDialog, LosesNoFavoriteToTheNameOfADevice) {
    AddFavorite("a", "first", 7);
    auto box = AnswerNextMessageBox();
    EXPECT_EQ(Run({Type(kName, "NUL"), Press(IDOK), Press(IDCANCEL)}), IDCANCEL);
    EXPECT_EQ(box.get().text, TakenMessage("NUL"));
    EXPECT_EQ(Files(), std::vector<std::string>{"a.pfk"});
    EXPECT_EQ(CopiesOf(ReadFavorite(PathOf("a"))), 7);
}

} // namespace

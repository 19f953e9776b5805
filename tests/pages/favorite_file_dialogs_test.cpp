// Saving a favourite to a file, by the real file dialog and by its hook alone.
#include "pages/favorite_file_dialogs.h"
#include "settings/print_option_tag_access.h"
#include "tests/Common/short_memory.h"
#include "tests/pages/favorite_dialog_fixture.h"
#include "tests/pages/file_dialog_hook.h"
#include "tests/support/main_log.h"

#include <commdlg.h>
#include <dlgs.h>

#include <algorithm>
#include <cstring>

namespace {

using FavoriteToFile = FavoriteDialogTest;

TEST(NameInPath, IsWhatStandsBetweenDirectoryAndExtension) {
    struct Path {
        const char* path;
        const char* name;
    };
    for (const auto& [path, name] : {Path{"C:\\favorites\\name.pfk", "name"},
                                     {"C:\\favorites\\name", "name"},
                                     {"C:\\favor.ites\\name", "name"},
                                     {"C:/favorites/name.txt", "name"},
                                     {"\\\\server\\share\\name.pfk", "name"},
                                     {"name.pfk", "name"},
                                     {"C:name.pfk", "name"},
                                     {"C:\\v1.2.pfk", "v1.2"},
                                     {"C:\\.pfk", ""},
                                     {"C:\\表.pfk", "表"},
                                     {"C:\\ソ\\表示.pfk", "表示"},
                                     {"C:\\name:stream.pfk", "name:stream"},
                                     {"C:\\", ""},
                                     {"C:", ""},
                                     {"", ""}})
        EXPECT_EQ(NameInPath(path), name) << path;
}

// The names that the save dialog refuses, asked of the hook below a window that stands for the dialog.
class SaveHook : public FavoriteDialogTest {
  protected:
    HookedDialog::Answer Ask(std::string path, UINT code = CDN_FILEOK) {
        path.resize(1000);
        OPENFILENAMEA file{};
        file.lpstrFile = path.data();
        return m_window.Notify(OFNHookSaveProc, code, &file);
    }
    HookedDialog::Answer Notify(OPENFILENAMEA& file) {
        return m_window.Notify(OFNHookSaveProc, CDN_FILEOK, &file);
    }
    HWND Hook() const { return m_window.Hook(); }

  private:
    HookedDialog m_window{Sheet()};
};

class SaveHookRefuses : public SaveHook, public testing::WithParamInterface<RefusedFile> {};

TEST_P(SaveHookRefuses, TheName) {
    auto box = AnswerNextMessageBox();
    EXPECT_EQ(Ask(folder + "\\" + GetParam().file), HookedDialog::kStaysOpen);
    const MessageBoxSeen seen = box.get();
    EXPECT_EQ(seen.text, GetParam().message);
    EXPECT_EQ(seen.caption, kWarning);
    EXPECT_EQ(seen.owner, GetParent(Hook()));
}

INSTANTIATE_TEST_SUITE_P(
    Names, SaveHookRefuses,
    testing::Values(RefusedFile{".pfk", kForbidden}, RefusedFile{std::string(28, 'x') + ".pfk", kNameLimits},
                    // The length comes before the characters here.
                    RefusedFile{std::string(28, '*') + ".pfk", kNameLimits},
                    RefusedFile{std::string(28, 'x'), kNameLimits}, RefusedFile{"a*.pfk", kForbidden},
                    RefusedFile{"a:b.pfk", kForbidden}, RefusedFile{"a?.pfk", kForbidden},
                    RefusedFile{"\"a\".pfk", kForbidden}, RefusedFile{"<a>.pfk", kForbidden},
                    RefusedFile{"|.pfk", kForbidden}, RefusedFile{"標準.pfk", kStandardRefused},
                    RefusedFile{"標準.txt", kStandardRefused}, RefusedFile{"  .pfk", kNameLimits},
                    RefusedFile{"　.pfk", kNameLimits}));

TEST_F(SaveHook, RefusesAFileThatIsThere) {
    WriteBytes(Elsewhere("taken.pfk"), "a file");
    auto box = AnswerNextMessageBox();
    EXPECT_EQ(Ask(Elsewhere("TAKEN.pfk")), HookedDialog::kStaysOpen);
    EXPECT_EQ(box.get().text, TakenMessage("TAKEN"));
}

// Nobody knows then whether it may be written.
TEST_F(SaveHook, TakesNoFileThatCannotBeAskedAbout) {
    std::string path = Elsewhere("a name that is taken.pfk");
    WriteBytes(path, "a file");
    path.resize(1000);
    OPENFILENAMEA file{};
    file.lpstrFile = path.data();
    HookedDialog::Answer answer;
    {
        const ShortMemory memory(0);
        answer = Notify(file);
    }
    EXPECT_EQ(answer, HookedDialog::kStaysOpen);
}

TEST_F(SaveHook, TakesOtherNames) {
    WriteBytes(Elsewhere("taken.pfk"), "a file");
    for (const std::string& file :
         {std::string("name.pfk"), std::string(27, 'x') + ".pfk", std::string("表ソ.pfk"),
          std::string("標準2.pfk"), std::string("taken.txt"), std::string("v1.2.pfk"), std::string("name")})
        EXPECT_EQ(Ask(Elsewhere(file)), HookedDialog::kCloses) << file;
}

TEST_F(SaveHook, ActsWhenAFileIsChosenOnly) {
    for (const UINT code : {CDN_INITDONE, CDN_SELCHANGE, CDN_FOLDERCHANGE, CDN_TYPECHANGE, CDN_HELP})
        EXPECT_EQ(Ask(Elsewhere("*.pfk"), code), HookedDialog::kCloses);
    EXPECT_EQ(OFNHookSaveProc(Hook(), WM_INITDIALOG, 0, 0), 0u);
    EXPECT_EQ(OFNHookSaveProc(Hook(), WM_COMMAND, IDOK, 0), 0u);
}

std::string Asked(HWND dialog, UINT message) {
    std::array<char, 300> text{};
    SendMessageA(dialog, message, text.size(), reinterpret_cast<LPARAM>(text.data()));
    return text.data();
}

TEST_F(FavoriteToFile, OffersTheNameOnTheDesktop) {
    AddFavorite("表", "first");
    std::string offered, place, filter;
    Run({Press(kSave),
         [&](HWND dialog) {
             offered = Asked(dialog, CDM_GETSPEC);
             place = Asked(dialog, CDM_GETFOLDERPATH);
             filter = RowsOf(GetDlgItem(dialog, cmb1)).empty() ? "" : RowsOf(GetDlgItem(dialog, cmb1))[0];
             PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
         },
         Press(IDCANCEL)});
    EXPECT_EQ(offered, "表");
    EXPECT_EQ(place, FolderPath(CSIDL_DESKTOPDIRECTORY));
    EXPECT_EQ(filter, "*.pfk");
}

TEST_F(FavoriteToFile, TakesADotInTheNameForNoExtension) {
    AddFavorite("v1.2", "", 7);
    Run({Press(kSave), [&](HWND dialog) { Choose(Elsewhere(Asked(dialog, CDM_GETSPEC)))(dialog); },
         Press(IDCANCEL)});
    EXPECT_EQ(CopiesOf(ReadFavorite(Elsewhere("v1.2.pfk"))), 7);
}

TEST_F(FavoriteToFile, WritesTheFavoriteWithTheExtension) {
    AddFavorite("a", "コメント", 7);
    EXPECT_EQ(Run({Press(kSave), Choose(Elsewhere("exported")), Press(IDCANCEL)}), IDCANCEL);
    const CFavoriteSetting exported = ReadFavorite(Elsewhere("exported.pfk"));
    EXPECT_STREQ(exported.Comment.data(), "コメント");
    EXPECT_EQ(CopiesOf(exported), 7);
    EXPECT_EQ(exported.FileVer, 2u);
    EXPECT_EQ(exported.IotVer, 10u);
    EXPECT_EQ(Files(), std::vector<std::string>{"a.pfk"});
}

struct NamedFile {
    std::string typed;
    std::string written;
};

class FavoriteToFileNamed : public FavoriteDialogTest, public testing::WithParamInterface<NamedFile> {};

TEST_P(FavoriteToFileNamed, IsWrittenThere) {
    AddFavorite("a", "first", 7);
    Run({Press(kSave), Choose(Elsewhere(GetParam().typed)), Press(IDCANCEL)});
    EXPECT_EQ(CopiesOf(ReadFavorite(Elsewhere(GetParam().written))), 7);
}

INSTANTIATE_TEST_SUITE_P(Files, FavoriteToFileNamed,
                         testing::Values(NamedFile{"b", "b.pfk"}, NamedFile{"b.pfk", "b.pfk"},
                                         NamedFile{"表", "表.pfk"}, NamedFile{"表.pfk", "表.pfk"},
                                         NamedFile{"b.txt", "b.txt"}, NamedFile{"v1.2.pfk", "v1.2.pfk"},
                                         NamedFile{"a b", "a b.pfk"}, NamedFile{"b.PFK", "b.PFK"},
                                         NamedFile{std::string(27, 'x'), std::string(27, 'x') + ".pfk"}));

TEST_F(FavoriteToFile, StaysOpenOnANameThatIsRefused) {
    AddFavorite("a", "first", 7);
    WriteBytes(Elsewhere("taken.pfk"), "a file");
    struct Attempt {
        std::string file;
        std::string message;
    };
    const std::vector<Attempt> attempts{{"taken", TakenMessage("taken")},
                                        {"標準", kStandardRefused},
                                        {std::string(28, 'x'), kNameLimits},
                                        {"　", kNameLimits}};
    Steps steps{Press(kSave)};
    std::vector<std::future<MessageBoxSeen>> boxes;
    std::vector<HWND> dialogs;
    for (const Attempt& attempt : attempts)
        steps.push_back([&, file = Elsewhere(attempt.file)](HWND dialog) {
            boxes.push_back(AnswerNextMessageBox());
            dialogs.push_back(dialog);
            Choose(file)(dialog);
        });
    steps.push_back(Choose(Elsewhere("free")));
    steps.push_back(Press(IDCANCEL));
    Run(std::move(steps));
    ASSERT_EQ(boxes.size(), attempts.size());
    for (std::size_t at = 0; at < attempts.size(); ++at) {
        const MessageBoxSeen seen = boxes[at].get();
        EXPECT_EQ(seen.text, attempts[at].message);
        EXPECT_EQ(seen.caption, kWarning);
        EXPECT_EQ(seen.owner, dialogs[at]);
    }
    EXPECT_EQ(FileContents(Elsewhere("taken.pfk")), "a file");
    EXPECT_EQ(CopiesOf(ReadFavorite(Elsewhere("free.pfk"))), 7);
}

// The file's name is checked with the edits; what is written is the favourite as it is stored.
TEST_F(FavoriteToFile, WritesWhatIsStoredUnderTheNameThatIsTyped) {
    AddFavorite("a", "first");
    std::string offered, kept;
    EXPECT_EQ(Run({Type(kName, "renamed"), Type(kComment, "second"), Press(kSave),
                   [&](HWND dialog) {
                       offered = Asked(dialog, CDM_GETSPEC);
                       Choose(Elsewhere(offered))(dialog);
                   },
                   [&](HWND dialog) { kept = TextIn(dialog, kName) + "/" + TextIn(dialog, kComment); },
                   Press(IDCANCEL)}),
              IDCANCEL);
    EXPECT_EQ(offered, "renamed");
    EXPECT_STREQ(ReadFavorite(Elsewhere("renamed.pfk")).Comment.data(), "first");
    EXPECT_EQ(kept, "renamed/second");
    EXPECT_EQ(Files(), std::vector<std::string>{"a.pfk"});
}

TEST_F(FavoriteToFile, OpensNoFileDialogForEditsThatAreRefused) {
    AddFavorite("a");
    AddFavorite("b");
    struct Attempt {
        int control;
        std::string text;
        std::string message;
    };
    for (const auto& [control, text, message] :
         {Attempt{kName, "*", kForbidden}, Attempt{kName, "標準", kStandardRefused},
          Attempt{kName, " ", kNameLimits}, Attempt{kName, "b", TakenMessage("b")},
          Attempt{kComment, std::string(256, 'x'),
                  "コメントは255バイト(半角255/全角127文字)以内で指定してください。"}}) {
        auto box = AnswerNextMessageBox();
        std::string kept;
        EXPECT_EQ(Run({Type(control, text), Press(kSave),
                       [&, edit = control](HWND dialog) { kept = TextIn(dialog, edit); }, Press(IDCANCEL)}),
                  IDCANCEL);
        EXPECT_EQ(box.get().text, message);
        EXPECT_EQ(kept, text);
    }
}

TEST_F(FavoriteToFile, WritesNothingWhenTheFileDialogIsCancelled) {
    AddFavorite("a");
    EXPECT_EQ(
        Run({Press(kSave), [](HWND dialog) { PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0); }, Press(IDOK)}),
        IDOK);
    EXPECT_TRUE(std::filesystem::is_empty(folder));
}

TEST_F(FavoriteToFile, LeavesTheCurrentDirectory) {
    AddFavorite("a");
    const auto before = std::filesystem::current_path();
    Run({Press(kSave), Choose(Elsewhere("b")), Press(IDCANCEL)});
    EXPECT_EQ(std::filesystem::current_path(), before);
}

// Only another program puts one there.
TEST_F(FavoriteToFile, CopiesAFileOfTheExportsOwnExtension) {
    AddFavorite("a");
    WriteBytes(directory + "\\a.sfk", "of another program");
    Run({Press(kSave), Choose(Elsewhere("b")), Press(IDCANCEL)});
    EXPECT_EQ(FileContents(Elsewhere("b.pfk")), "of another program");
}

TEST_F(FavoriteToFile, WritesAFavoriteWhoseFileHasVanished) {
    AddFavorite("a", "first", 7);
    Run({[&](HWND) { DeleteFileA(PathOf("a").c_str()); }, Press(kSave), Choose(Elsewhere("b")),
         Press(IDCANCEL)});
    EXPECT_EQ(CopiesOf(ReadFavorite(Elsewhere("b.pfk"))), 7);
}

TEST_F(FavoriteToFile, OnlyLogsThatAFileCannotBeWritten) {
    AddFavorite("a");
    CSettingManager::GetSettingManager()->LoadFavoriteSettingList();
    const std::string gone = Elsewhere("gone");
    CreateDirectoryA(gone.c_str(), nullptr);
    MainLog log;
    bool wasOpen = false;
    EXPECT_EQ(
        RunAsListed({Press(kSave),
                     [&](HWND dialog) {
                         RemoveDirectoryA(gone.c_str());
                         Choose(gone + "\\b.pfk")(dialog);
                     },
                     [&](HWND dialog) { wasOpen = GetDlgItem(dialog, kList) != nullptr; }, Press(IDOK)}),
        IDOK);
    EXPECT_TRUE(wasOpen);
    EXPECT_FALSE(IsFile(gone + "\\b.pfk"));
    EXPECT_TRUE(std::ranges::any_of(log.Messages(), [&](const std::string& message) {
        return message.ends_with("WriteSelected() not written: " + gone + "\\b.pfk");
    }));
}

// It comes into being when the dialog has found that there is none.
TEST_F(FavoriteToFile, WritesOverNoFile) {
    AddFavorite("a");
    Run({Press(kSave),
         [&](HWND dialog) {
             CallWhenClosed(dialog, [&] { WriteBytes(Elsewhere("b.pfk"), "of another program"); });
             Choose(Elsewhere("b"))(dialog);
         },
         Press(IDCANCEL)});
    EXPECT_EQ(FileContents(Elsewhere("b.pfk")), "of another program");
}

// A device has the name in every directory.
TEST_F(FavoriteToFile, LosesNothingToTheNameOfADevice) {
    AddFavorite("a", "first", 7);
    auto box = AnswerNextMessageBox();
    Run({Press(kSave), Choose(Elsewhere("NUL")),
         [](HWND dialog) { PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0); }, Press(IDCANCEL)});
    EXPECT_EQ(box.get().text, TakenMessage("NUL"));
    EXPECT_EQ(Files(), std::vector<std::string>{"a.pfk"});
    EXPECT_EQ(CopiesOf(ReadFavorite(PathOf("a"))), 7);
    EXPECT_TRUE(std::filesystem::is_empty(folder));
}

TEST_F(FavoriteToFile, WritesNoCredentials) {
    AddFavorite("a");
    CSettingManager* const manager = CSettingManager::GetSettingManager();
    manager->LoadFavoriteSettingList();
    for (const char* tag : {"OAJUI", "OAJP", "OAJA"})
        StoreOption(tag, "my-secret", manager->Favorite(0).PrintOption());
    RunAsListed({Press(kSave), Choose(Elsewhere("b")), Type(kComment, "new"), Press(IDOK)});
    EXPECT_EQ(FileContents(Elsewhere("b.pfk")).find("my-secret"), std::string::npos);
    EXPECT_EQ(FileContents(PathOf("a")).find("my-secret"), std::string::npos);
}

TEST_F(FavoriteToFile, WritesNothingOnceItsSheetHasGone) {
    AddFavorite("a");
    EXPECT_EQ(Run({Press(kSave),
                   [&](HWND dialog) {
                       CSettingManager::Destroy();
                       EndSession();
                       Choose(Elsewhere("b"))(dialog);
                   },
                   Press(IDOK)}),
              IDCANCEL);
    EXPECT_TRUE(std::filesystem::is_empty(folder));
}

} // namespace

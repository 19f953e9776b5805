// The names of files that favourites are loaded from, by the real file dialog and by its hook alone.
#include "pages/favorite_file_dialogs.h"
#include "tests/Common/short_memory.h"
#include "tests/pages/favorite_dialog_fixture.h"
#include "tests/pages/file_dialog_hook.h"

#include <commdlg.h>

namespace {

const std::string kTooLong =
    "ファイル名が長すぎます。\nファイル名が26バイト以内のファイルを選択してください。";

class FileDialogOfLoad : public FavoriteDialogTest, public testing::WithParamInterface<RefusedFile> {};

TEST_P(FileDialogOfLoad, RefusesTheNameAndStaysOpen) {
    AddFavorite("taken", "its own");
    WriteFavorite(Elsewhere(GetParam().file), MakeFavorite("loaded"));
    auto box = AnswerNextMessageBox();
    HWND fileDialog = nullptr, still = nullptr;
    Run({Press(kLoad),
         [&](HWND dialog) {
             fileDialog = dialog;
             Choose(Elsewhere(GetParam().file))(dialog);
         },
         [&](HWND dialog) {
             still = dialog;
             PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
         },
         Press(IDOK)});
    const MessageBoxSeen seen = box.get();
    EXPECT_EQ(seen.text, GetParam().message);
    EXPECT_EQ(seen.caption, kWarning);
    EXPECT_EQ(seen.owner, fileDialog);
    EXPECT_EQ(still, fileDialog);
    EXPECT_EQ(Files(), std::vector<std::string>{"taken.pfk"});
    EXPECT_STREQ(ReadFavorite(PathOf("taken")).Comment.data(), "its own");
}

INSTANTIATE_TEST_SUITE_P(Names, FileDialogOfLoad,
                         testing::Values(RefusedFile{std::string(27, 'x') + ".pfk", kTooLong},
                                         RefusedFile{"表表表表表表表表表表表表表x.pfk", kTooLong},
                                         RefusedFile{"標準.pfk", kStandardRefused},
                                         RefusedFile{"taken.pfk", TakenMessage("taken")},
                                         RefusedFile{"TAKEN.pfk", TakenMessage("TAKEN")},
                                         RefusedFile{"taken.txt", TakenMessage("taken")}));

// The hook asks its parent, which gives it what no real file can be called.
class LoadHook : public FavoriteDialogTest {
  protected:
    LoadHook() {
        SetWindowLongPtrA(m_window.Dialog(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(FileDialogProc));
    }

    HookedDialog::Answer Ask(const std::string& path, UINT code = CDN_FILEOK) {
        s_path = path;
        return m_window.Notify(OFNHookLoadProc, code, nullptr);
    }
    HWND Hook() const { return m_window.Hook(); }

  private:
    static LRESULT CALLBACK FileDialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message != CDM_GETFILEPATH)
            return DefWindowProcA(window, message, wParam, lParam);
        lstrcpynA(reinterpret_cast<char*>(lParam), s_path.c_str(), static_cast<int>(wParam));
        return static_cast<LRESULT>(s_path.size() + 1);
    }

    inline static std::string s_path;
    HookedDialog m_window{Sheet()};
};

TEST_F(LoadHook, RefusesForbiddenCharactersBehindTheLength) {
    for (const auto& [file, message] :
         {RefusedFile{"a?.pfk", kForbidden}, RefusedFile{"<.pfk", kForbidden}, RefusedFile{"a:b", kForbidden},
          RefusedFile{std::string(27, '*'), kTooLong}, RefusedFile{std::string(250, 'x'), kTooLong}}) {
        auto box = AnswerNextMessageBox();
        EXPECT_EQ(Ask("C:\\" + file), HookedDialog::kStaysOpen) << file;
        const MessageBoxSeen seen = box.get();
        EXPECT_EQ(seen.text, message) << file;
        EXPECT_EQ(seen.owner, GetParent(Hook()));
    }
}

TEST_F(LoadHook, RefusesAFileWithoutANameAndOneOfBlanksAlone) {
    for (const char* file : {".pfk", "", " .pfk", "　.pfk", " 　 .pfk"}) {
        auto box = AnswerNextMessageBox();
        EXPECT_EQ(Ask(std::string("C:\\") + file), HookedDialog::kStaysOpen) << file;
        EXPECT_EQ(box.get().text, kNameLimits) << file;
    }
}

TEST_F(LoadHook, AsksForBlanksBehindEverythingElse) {
    AddFavorite("　");
    for (const auto& [file, message] :
         {RefusedFile{"　.pfk", TakenMessage("　")}, RefusedFile{std::string(27, ' ') + ".pfk", kTooLong}}) {
        auto box = AnswerNextMessageBox();
        EXPECT_EQ(Ask("C:\\" + file), HookedDialog::kStaysOpen) << file;
        EXPECT_EQ(box.get().text, message) << file;
    }
}

// Nobody knows then whether it may be read.
TEST_F(LoadHook, TakesNoFileThatCannotBeAskedAbout) {
    const std::string path = "C:\\name.pfk";
    HookedDialog::Answer answer;
    {
        const ShortMemory memory(0);
        answer = Ask(path);
    }
    EXPECT_EQ(answer, HookedDialog::kStaysOpen);
    EXPECT_EQ(Ask(path), HookedDialog::kCloses);
}

TEST_F(LoadHook, TakesOtherNames) {
    for (const char* path : {"C:\\name.pfk", "C:\\表ソ.pfk", "C:\\v1.2.pfk", "C:\\標準2.pfk", "C:\\ a.pfk"})
        EXPECT_EQ(Ask(path), HookedDialog::kCloses) << path;
}

TEST_F(LoadHook, ActsWhenAFileIsChosenOnly) {
    for (const UINT code : {CDN_INITDONE, CDN_SELCHANGE, CDN_FOLDERCHANGE, CDN_TYPECHANGE, CDN_HELP})
        EXPECT_EQ(Ask("C:\\*.pfk", code), HookedDialog::kCloses);
    EXPECT_EQ(OFNHookLoadProc(Hook(), WM_INITDIALOG, 0, 0), 0u);
}

} // namespace

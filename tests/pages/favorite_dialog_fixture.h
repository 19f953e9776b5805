// The favourites dialog above a page, with a favourite directory and a folder of the test's own.
#pragma once

#include "pages/FavoriteDlgEX.h"
#include "settings/FavoriteFileManager.h"
#include "settings/SettingManager.h"
#include "tests/pages/modal_dialog.h"
#include "tests/pages/page_fixture.h"
#include "tests/support/file_contents.h"
#include "tests/support/message_box.h"
#include "tests/support/traces.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

// Controls of the dialog.
inline constexpr int kList = 4008;
inline constexpr int kName = 1207;
inline constexpr int kComment = 1206;
inline constexpr int kLoad = 4006;
inline constexpr int kSave = 1214;

// What the user sees.
inline constexpr char kWarning[] = "警告";
inline constexpr char kNameLimits[] = "名前は1から27バイト(半角27/全角13文字)で指定してください。";
inline constexpr char kForbidden[] = "次の文字または名前は使用できません。\n\\/:*?\"<>|";
inline constexpr char kStandardRefused[] = "次の文字または名前は使用できません。\n標準";

inline std::string TakenMessage(const std::string& name) {
    return "「" + name + "」は既に存在します。\n別の名前を指定してください。";
}

// A file that a file dialog refuses.
struct RefusedFile {
    std::string file;
    std::string message;
};

class FavoriteDialogTest : public PageTest {
  protected:
    using Steps = std::vector<ModalDialog::Step>;

    FavoriteDialogTest();
    ~FavoriteDialogTest() override;

    // A favourite of the present format in the favourite directory.
    void AddFavorite(const std::string& name, const std::string& comment = "", int copies = 1) const;
    static CFavoriteSetting MakeFavorite(const std::string& comment, const std::string& pageSize = "A4",
                                         int copies = 1);
    static void WriteFavorite(const std::string& path, const CFavoriteSetting& favorite);
    static CFavoriteSetting ReadFavorite(const std::string& path);
    static int CopiesOf(const CFavoriteSetting& favorite);
    static void WriteBytes(const std::string& path, std::string_view bytes);

    // The path of a favourite's file, and of one in the test's own folder.
    std::string PathOf(const std::string& name) const { return directory + "\\" + name + ".pfk"; }
    std::string Elsewhere(const std::string& file) const { return folder + "\\" + file; }
    static bool IsFile(const std::string& path) {
        return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
    }
    // The files of the favourite directory, sorted.
    std::vector<std::string> Files() const;
    // The names in the manager's list.
    static std::vector<std::string> Listed();

    // Lists the directory and runs the dialog as the page's button does. Gives what it was ended with.
    INT_PTR Run(Steps steps);
    // The same without listing the directory.
    INT_PTR RunAsListed(Steps steps);

    // A step that presses a button of the dialog; what it opens stays for the next steps.
    static ModalDialog::Step Press(int controlId);
    // Moves the selection to the row as a click does.
    static ModalDialog::Step Click(int row);
    static ModalDialog::Step Type(int controlId, const std::string& text);
    // Names a file in a file dialog and accepts it.
    static ModalDialog::Step Choose(const std::string& file);

    std::string directory;
    std::string folder;
    HWND page = nullptr;
    // What the dialog is given, and gives back.
    std::array<char, 260> chosen{};

  private:
    Traces m_traces;
};

std::vector<std::string> RowsOfList(HWND dialog);
int SelectedRowOf(HWND dialog);
std::string TextIn(HWND dialog, int controlId);
bool IsEnabled(HWND dialog, int controlId);
// Calls once when the dialog is destroyed, which is before the function that runs it returns.
void CallWhenClosed(HWND dialog, std::function<void()> call);

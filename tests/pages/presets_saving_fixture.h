// Saving, overwriting and deleting favourites on the standard page, as a user at the dialogs does.
#pragma once

#include "settings/FavoriteFileManager.h"
#include "tests/pages/modal_dialog.h"
#include "tests/pages/presets_fixture.h"

#include <filesystem>
#include <string>
#include <string_view>

class SavingPresets : public PresetsTest {
  protected:
    static constexpr int kName = 1226;
    static constexpr int kComment = 1227;
    static constexpr char kOverwrite[] = "同じ名前のお気に入りが存在します。\n上書きしますか？";

    // Presses the button and fills the dialog in; gives what the dialog offered.
    struct Offer {
        std::string name;
        std::string comment;
    };
    Offer Save(const std::string& name, const std::string& comment = {}, int button = IDOK) {
        Offer offer;
        const ModalDialog user({[&](HWND dialog) {
            offer = {CaptionOf(dialog, kName), CaptionOf(dialog, kComment)};
            SetDlgItemTextA(dialog, kName, name.c_str());
            SetDlgItemTextA(dialog, kComment, comment.c_str());
            ClickButton(dialog, button);
        }});
        EXPECT_EQ(Send(kSave, BN_CLICKED), 1);
        return offer;
    }
    MessageBoxSeen SaveAndAnswer(const std::string& name, int answer, const std::string& comment = {}) {
        auto box = AnswerNextMessageBox(answer);
        Save(name, comment);
        return box.get();
    }
    MessageBoxSeen Delete(int answer) {
        auto box = AnswerNextMessageBox(answer);
        EXPECT_EQ(Send(kDelete, BN_CLICKED), 1);
        return box.get();
    }
    CFavoriteSetting Read(std::string_view name) const {
        CFavoriteSetting favorite;
        EXPECT_EQ(CFavoriteFileManager({}).LoadFavoriteFromPath(favorite, FileOf(name).c_str()), 1);
        return favorite;
    }
    bool IsThere(std::string_view name) const { return std::filesystem::exists(FileOf(name)); }
    static CFavoriteSetting& Listed(const char* name) { return *Manager().GetFavoriteSettingFromName(name); }
    // A favourite's file that cannot be written: a directory stands in its place.
    void BlockFile(std::string_view name) const {
        std::filesystem::remove(FileOf(name));
        std::filesystem::create_directories(FileOf(name) + "\\inside");
    }
};

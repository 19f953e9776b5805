// The dialog that shows the favourites, renames them and carries them to and from files.
#pragma once

#include "pages/ModalDlg.h"
#include "pages/favorite_names.h"

#include <windows.h>

#include <string>
#include <string_view>

class CFavoriteSetting;
class CSettingManager;
struct SessionBlock;

// `name` holds the name to begin with, and after IDOK that of the selected favourite. `page` is the standard
// page, whose document sizes a loaded favourite is compared with.
INT_PTR DoFavoriteDialog(SessionBlock* session, FavoriteName& name, HWND page);

// A row of the list is the favourite of that index in the manager's list.
//
// An edit changes its favourite when the row is left or the dialog is ended by OK; its text is checked then
// and is not limited while it is typed. Letters that differ in their case alone are no change.
class CFavoriteDlgEX final : public CModalDlg {
  public:
    CFavoriteDlgEX(SessionBlock* sessionBlock, FavoriteName& nameBuffer, HWND standardPage)
        : CModalDlg(sessionBlock), name(nameBuffer), page(standardPage) {}

    int OnInitDialog() override;
    int OnCommand(WORD notifyCode, WORD controlId, HWND control) override;

    // Lists the favourites and selects a row.
    void FillList(int select);
    // 1 if the edit, that of the name or of the comment, holds another text than the selected favourite.
    int IsChanged(int controlId);
    // 1 if the edit's text can't be taken; the user has been told then.
    int CheckValues(int controlId);
    // 1, and the user has been told, if the list has the name of the edit, or if the favourite directory has
    // a file for it that is not listed.
    int IsNameTaken();
    // Writes both edits into the selected favourite and saves it, under another name never over a file. If
    // that fails, the favourite stays what it was, as its file does.
    void ApplyChange();
    // Deletes the file of a favourite, if there is one.
    void DeleteFavorite(std::string_view favoriteName);

    FavoriteName& name;
    HWND page;
    int selected = -1;

  private:
    int OnButtonClick(WORD controlId);
    int OnSelChange();
    void OnOk();
    void OnSave();
    void OnLoad();

    // Null once the sheet below the dialog has gone, as it can behind anything modal.
    CSettingManager* Manager() const;
    // Null without a selected favourite.
    CFavoriteSetting* Selected() const;
    std::string EditText(int controlId) const;
    int RowCount() const;

    void SelectRow(int row);
    // Takes the row for the selected one and shows it; without rows nothing is left to edit.
    void ShowRow(int row);
    // Reads the favourite directory anew and goes to the favourite of this name, else to the row.
    void Relist(std::string_view favoriteName, int otherwise);

    bool IsEdited();
    // False, and the user has been told, if an edit's change can't be taken.
    bool EditsPass();
    void WriteSelected(const char* path);
    // True once the edits are saved in the selected favourite.
    bool SaveEdits(bool isRenamed);
    void TakeOver(const CFavoriteSetting& loaded);
    // What the user is to know of a loaded favourite's document size; empty if the page has it.
    std::string PageSizeWarning(const CFavoriteSetting& loaded) const;
};

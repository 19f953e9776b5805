// The frame of the property pages: routes a page's messages to operations and holds what the pages share.
//
// A page object lives for one message; its dialog procedure makes it anew each time. What lasts is in the
// controls, in the store, in the session pointer behind DWLP_USER and in process-wide statics, never in a
// member.
#pragma once

#include "Common/platform_files.h"

#include <windows.h>

#include <commctrl.h>
#include <prsht.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

class CProfileInfo;
struct SessionBlock;

// True for the session of the sheet that is open. A page that outlives its session does nothing.
bool IsLiveSession(const SessionBlock* session);

// The process-wide device profile, made when the module is loaded and ended with it.
CProfileInfo* ProcessProfile();

class CPSPageDlg {
  public:
    CPSPageDlg(HWND dialog, CProfileInfo* deviceProfile) : m_hwnd(dialog), profile(deviceProfile) {}

    virtual ~CPSPageDlg() = default;
    CPSPageDlg(const CPSPageDlg&) = delete;
    CPSPageDlg& operator=(const CPSPageDlg&) = delete;

    virtual int OnInitDialog(WPARAM focus, const PROPSHEETPAGEA* page);
    virtual int OnNotify(const NMHDR* header);
    virtual int OnCommand(WORD notifyCode, WORD controlId, HWND control) = 0;
    virtual int OnNotify_apply(int sheetStaysOpen) = 0;
    virtual int OnNotify_setActive() = 0;
    virtual int OnNotify_killActive() = 0;
    // Builds the controls from the store: from the Default bank, which is then made current, if `useDefault`
    // is set, else from the Current bank.
    virtual int Initialize(SessionBlock* session, int useDefault) = 0;
    virtual int OnDrawItem(int controlId, const DRAWITEMSTRUCT* item) = 0;
    virtual int OnClose();
    virtual int OnUserMessage(UINT message, WPARAM wParam, LPARAM lParam);

    // The entry of a dialog procedure. Messages 1124 to 1224 are a page's own. No exception leaves it; a
    // message that ends in one gives 0, like every message of a page whose session is gone.
    int DlgProc(UINT message, WPARAM wParam, LPARAM lParam);

    // Initializes the page with the defaults and has it painted anew. Returns 1.
    int OnDefault();

    // The label of a keyword, accelerator included.
    static int GetKeywordTranslation(int keyword, char* buffer, std::size_t bufferSize);
    static int GetKeywordOptionCount(int keyword);
    // Fills the list with option texts from the first on. For Punch the rows are those of the punch table,
    // which the first listing changes.
    static void GetKeywordOptionString(int keyword, std::span<std::string> list);

    // Fills the extended combo box that follows the label in tab order, and selects the row of the keyword's
    // value. Row i has image imageIndexes[i], if there is one.
    void InitComboBox(SessionBlock* session, int keyword, int labelId, int useDefault,
                      std::span<const int> imageIndexes = {});
    // Option texts beyond the three buttons have no place.
    void InitRadioButton(SessionBlock* session, int keyword, int groupId, const std::array<int, 3>& buttonIds,
                         int useDefault);

    // Marks for options that the device cannot do. `enabled` has 1 or 0 for each of `count` rows.
    static void LoadWarningImage();
    // Gives rows that the device cannot do the last image of the list. 1 if there was one. Neither the combo
    // box nor the fifth argument has a part in it.
    static int SetWarningIndex(HWND combo, int count, const int* enabled, int* imageIndexes, int,
                               HIMAGELIST imageList);
    // 0 if no row but the first can be chosen: the control is then to be hidden.
    static int IsAllWarning(const int* enabled, int count);
    // Sets the data word of each row that the device cannot do to 1.
    static void MarkDisabledOptions(SessionBlock* session, HWND combo, int keyword,
                                    std::span<const int> enabled);
    // 1 if the row that was just selected may stay. Else the row of the current value is back and the result
    // is 0; the caller then posts itself the control's CBN_SELCHANGE again.
    int IsSelectableOption(int controlId, int keyword, SessionBlock* session);
    // True for a row that MarkDisabledOptions has marked. The row of the current value may be one: to post
    // for it as IsSelectableOption asks would never end.
    static bool IsMarkedRow(HWND combo, int row);

    // Writes the directory of the device's data files, for the print server address in the store. 0 if it
    // can't be had, else 1.
    static int GetDriverResourcePath(PathBuffer& path);

    // When the sheet ends: ends the job property application and removes the data setting key, both only if
    // an instance of it runs on the machine.
    static void DeleteRegistryKey();
    static void ExitJobProperty();
    // 1 if one runs, else 0 after two seconds.
    static int JobPropertyProcessCheck();

    HWND m_hwnd;
    CProfileInfo* profile; // not owned

  protected:
    // The session that OnInitDialog stored.
    SessionBlock* Session() const;
    // Stores the page's session and returns it.
    SessionBlock* StoreSession(const PROPSHEETPAGEA* page) const;

    // From the Default bank if `useDefault` is set, else from the Current bank.
    static std::uint32_t ReadKeyword(int keyword, int useDefault);

    // Puts a keyword's label and a colon on a control; a keyword without a label leaves the template's
    // caption.
    void SetLabel(int labelId, int keyword);

    // Created once, by LoadWarningImage, and never destroyed.
    static HICON m_hIconWarning_16;
    static HICON m_hIconWarning_24;
    static HICON m_hIconWarning_32;
    static HIMAGELIST m_hImgWarningList_16;

    // What pages tell the sheet's result with; nothing evaluates it.
    static constexpr int kResultPage = 1002;

  private:
    int Route(UINT message, WPARAM wParam, LPARAM lParam);
};

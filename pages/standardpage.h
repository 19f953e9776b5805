// The page "基本", the first of the sheet: about twenty settings of a job and a picture of it.
//
// A change in a control goes at once into the store's Current bank; what depends on it is refreshed, and a
// combination that the device cannot do is refused or resolved with the user. Everything goes to the driver
// when the page is left.
#pragma once

#include "pages/finished_size.h"
#include "pages/pspage.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

INT_PTR CALLBACK StandardPageProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

class CFavoriteSetting;
enum class PageRowId;
struct PageRow;
struct StandardPageInit;

class CStandardPageDlg : public CPSPageDlg {
  public:
    using CPSPageDlg::CPSPageDlg;

    int OnInitDialog(WPARAM focus, const PROPSHEETPAGEA* page) override;
    int OnCommand(WORD notifyCode, WORD controlId, HWND control) override;
    int OnNotify_apply(int sheetStaysOpen) override;
    int OnNotify_setActive() override;
    int OnNotify_killActive() override;
    int Initialize(SessionBlock* session, int useDefault) override;
    int OnDrawItem(int controlId, const DRAWITEMSTRUCT* item) override;
    int OnClose() override;
    int OnUserMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

    // For each setting:
    // - InitX builds its control and shows its value, as UpdateX does.
    // - UpdateX shows the value of the Default bank, which then becomes the current one, if `useDefault` is
    //   set, else that of the Current bank.
    // - GetX tells the value by the control while this is the store's active page, else the Current bank's. A
    //   control that shows none or is missing gives kNoShownValue. GetPunch tells the row instead, 0 for
    //   none, whichever page is active.
    // - SetX shows a value and writes nothing. SetPunch shows the Current bank's pair.
    // A control that is missing makes them do nothing. Any number is a possible value; one without a row
    // selects none, but for a punch pair, which leaves the row as it is.
#define ZR_PAGE_ROW(name, transferName, setting, control, label, shows)                                      \
    void Init##name(SessionBlock* session, int useDefault);                                                  \
    void Update##name(SessionBlock* session, int useDefault);                                                \
    std::uint32_t Get##transferName();                                                                       \
    void Set##transferName(std::uint32_t value);
#include "pages/standard_page_rows.def"

    void InitPageSize(SessionBlock* session, int useDefault);
    void UpdatePageSize(SessionBlock* session, int useDefault);
    // Settings without a control on this page; they are only brought back to their default and logged.
    void UpdateSpotColorCorrect(SessionBlock* session, int useDefault);
    void UpdateTwoColorPressSimulation(SessionBlock* session, int useDefault);

    // Each writes what its control shows into the Current bank. Those with an int settle conflicts with other
    // settings and answer 1 only if there was none.
    void ApplyPageSize(SessionBlock* session);
    void ApplyFitSize(SessionBlock* session);
    void ApplyOnCenter(SessionBlock* session);
    void ApplyOrientation(int buttonId);
    void ApplyNUP(SessionBlock* session);
    void ApplyCopies(bool onKillFocus);
    void ApplySource(SessionBlock* session);
    void ApplyOutputTray(SessionBlock* session);
    void ApplyJog(SessionBlock* session);
    void ApplySort(SessionBlock* session);
    void ApplyPageOrder(SessionBlock* session);
    int ApplyColorModel(SessionBlock* session);
    int ApplyDuplex(SessionBlock* session);
    int ApplyStaple(SessionBlock* session);
    int ApplyPunch(SessionBlock* session);
    int ApplyFold(SessionBlock* session);
    // Sheet, paper and finished size follow.
    int ApplyOutputPaperSize(SessionBlock* session);

    // Brings the sheet, the paper and, for imposition jobs, the layout repeat and the finished size in step
    // with tag numbers of an output paper size, a sheet and a finished sheet. Needs `finishedSizes`.
    void UpdateFinishedSize(SessionBlock* session, std::int32_t tagOutputPaperSize, std::int32_t tagFixedForm,
                            std::int32_t tagFinishFixedForm);

    // The Current bank into the controls, and back.
    void LoadData();
    void SaveData();
    // Shows everything anew from the Current bank, the picture too.
    void UpdateControls(SessionBlock* session);

    // Buttons. OnConfig gives what the job property application's modal run gave, 1 for one that has ended
    // well; TakeOverFromApplication then shows what the application has left in the store.
    int OnConfig();
    void TakeOverFromApplication(SessionBlock* session);
    void OnMediaType();
    void OnMediaTypeBypass();

    // The favourites: the combo box's rows and the mark on them (pages/preset_combo.cpp) and its buttons
    // (pages/presets.cpp). Row 0 stands for the standard settings; behind the row of a preset that the
    // settings have been changed from stands a marked one, which is then the selected one.
    void InitPresetCombo();
    void UpdatePresetCombo();
    // The row of exactly this text, row 0 if there is none.
    void SelectPreset(const std::string& name);
    // Marks the selected preset if the settings differ from it; takes the mark away if they don't.
    void UpdateChangeItemPresetCombo();
    // The row before it is selected if it was itself, but for row 0.
    void RemoveMarkedRow();
    void RemoveUnselectedMarkedRow();
    void OnPresetSelChange();
    void OnSavePreset();
    void OnDeletePreset();
    void OnFavoriteExportImport();

    // The store's defaults and the constants of a reset, without a look at the controls.
    void RevertToDefault(SessionBlock* session);

    // The job property application (pages/job_property_*.cpp).
    //
    // Puts the print server's address into the store.
    void SetServerAddress(SessionBlock* session);
    // Reads the address that is kept with the printer, as other machines reach it: 1 if the spooler gave what
    // it has, which may be no text and then leaves `address` as it is, else 0.
    static int GetIpAddressFromRegstry(HANDLE printer, std::span<char, 128> address, const char* serverName);
    // Makes the setting manager, with the standard settings of the file beside the module.
    void CreatePrintOptionList(SessionBlock* session);
    // Starts the application in the background: 1, or 0 if it can't be started.
    int StartJobProperty(SessionBlock* session);
    // Shows the application's window and waits for its end; then the store holds what the application has
    // left. 0 if it can't be started. The settings are as they were then, and also after a 1 for an
    // application that can't be waited for.
    int DoModalPrintOptionUI();

    // The job name (pages/job_name.cpp). The dialog gives IDOK or what else ended it, and TakeOverJobName
    // shows the name after an IDOK.
    int DoModalJobName();
    void TakeOverJobName(SessionBlock* session, int dialogResult);
    void ShowJobName(SessionBlock* session);

    HIMAGELIST hImgColorModel = nullptr;
    HIMAGELIST hImgDuplex = nullptr;
    HIMAGELIST hImgStaple = nullptr;
    HIMAGELIST hImgFold = nullptr;

    // Filled when it is needed.
    FinishedSizes finishedSizes;

    // The value of the last form, which is the custom one.
    static int m_customPageSizeIndex;
    // The row that the custom form took when it was added; later rows may have moved it.
    static int customIndex;
    // The last row of the output sizes, which is the custom one.
    static int m_customOutputSizeIndex;

  private:
    // Opens the dialog of the custom size if the row is that one's, and shows or hides the button for it.
    // False if the session is gone behind it.
    bool EditCustomOutputSize(SessionBlock* session, int row, std::uint32_t priorOutputValue);

    // Brings the profile's records up to the data files of the print server. What they hold of a reading that
    // failed stays, and the page opens with it.
    void LoadDeviceDataFiles();

    // Only an unmarked favourite can be deleted.
    void EnableDeletePreset();
    std::string SelectedPreset() const;
    void TakeSelectedPreset();
    // Gives the favourite the form that has the name of its document size now.
    void FindPageSizeOf(CFavoriteSetting& favorite) const;
    int AskAboutPreset(unsigned question) const;
    // Hides what the page never shows. False if one of the controls that it cannot be without is missing.
    bool HideUnusedControls();
    void SetButtonCaptions();
    // False if the session is gone behind a dialog that one of them has opened.
    bool InitSettings(SessionBlock* session, int useDefault);
    // A job whose sheets differ in size settles paper and tray by itself.
    void EnableByMixedSizes();

    void InitRow(SessionBlock* session, const StandardPageInit& init, int useDefault);
    // A setting that has nothing to be built but its caption.
    void InitCaptioned(PageRowId id, int useDefault);
    bool ShowIfFitted(const PageRow& row, std::span<const int> fitted);
    // The images of a combo box's rows in the list that it then has; none if it has none.
    std::vector<int> AttachRowImages(const StandardPageInit& init, std::span<const int> fitted);

    bool HasControl(const PageRow& row) const;
    bool IsActivePage() const;
    void UpdateRow(const PageRow& row, int useDefault);
    void ShowRow(const PageRow& row, std::uint32_t value);
    void ShowOutputPaperSize(std::uint32_t value, int showCommand);
    static void FillNUP(HWND combo);
    void ShowNUP(std::uint32_t value);
    void ShowOrientation(std::uint32_t value);
    void UpdatePunchPair(const PageRow& row, int useDefault);
    static std::uint32_t UpdateUnshown(int keyword, int useDefault);
    std::uint32_t GetRow(const PageRow& row) const;
    void SetRow(const PageRow& row, std::uint32_t value);
    void SaveRow(const PageRow& row, std::uint32_t shown);
};

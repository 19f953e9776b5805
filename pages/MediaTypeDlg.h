// The dialogs for the kind of paper: one for the automatic trays, one for the bypass tray. They differ in
// their settings only.
//
// A dialog shows the Current bank and writes into it at OK alone; restoring the defaults changes controls.
#pragma once

#include "options/PrintOptionSetting.h"
#include "session/keyword.h"

#include <windows.h>

#include <cstdint>

class CProfileInfo;
struct SessionBlock;

// Value numbers of the named values that the dialogs' fields stand for.
namespace media_value {
enum MediaValue : int {
    PaperTypeCustomNumber = 335,
    MediaTypeSequence = 337,
    PaperTypeCustomNumberBypass = 338,
    MediaTypeSequenceBypass = 340,
};
} // namespace media_value

class CMediaTypeDlg {
  public:
    CMediaTypeDlg(SessionBlock* sessionBlock, CProfileInfo* deviceProfile, int dialogTemplate);
    virtual ~CMediaTypeDlg() = default;
    CMediaTypeDlg(const CMediaTypeDlg&) = delete;
    CMediaTypeDlg& operator=(const CMediaTypeDlg&) = delete;

    // Runs the dialog above the active window: IDOK, IDCANCEL, or 0 if there is no such template or the
    // session is not that of the open sheet.
    INT_PTR DoModal();

    // 0 if a control is missing that the dialog needs: what comes behind it is then left as the template has
    // it.
    virtual int OnInitDialog();
    virtual int OnCommand(WORD notifyCode, WORD controlId, HWND control);
    // Shows the Default bank.
    virtual int OnDefault();
    // Takes the dialog's values into the Current bank. 1 if nothing conflicts, else 0, and the dialog stays.
    virtual int ApplyValues();
    virtual int OnButtonClick(WORD controlId);
    virtual int OnSelChange(WORD controlId);
    virtual int OnEditChange(WORD controlId);

    // Fills the list of paper types and selects the current one. The names that a profile gives to custom
    // papers take the place of the built-in ones.
    void ListPaperTypes(const CProfileInfo* names);

    HWND m_hwnd = nullptr;
    SessionBlock* session;
    CProfileInfo* profile; // not owned
    int kwPaperType = keyword::PaperTypeD;
    int kwTabbed = keyword::MediaTypeTabbed;
    int kwWeight = keyword::MediaTypeWeight;
    int kwWeightValue = option_item::KW_MEDIATYPEWEIGHT2;
    int kwAutoTray = 0; // the keyword of the check box, 0 for none
    int kwPaperColor = keyword::PaperColor;
    int kwCoating = keyword::MediaTypeCoatingMaterial;
    int kwDrilled = keyword::MediaTypeDrilled;
    int kwGloss = keyword::MediaTypeGlossFine;
    int kwPreprinted = keyword::MediaTypePreprinted;
    int kwCustomNumber = media_value::PaperTypeCustomNumber;
    int kwSequence = media_value::MediaTypeSequence;
    int templateId;
    int customPaperCount = 20;
    int extraRows = 0; // further rows of the list of paper types

  protected:
    // Fills the combo box with the options of a keyword and selects the current one. 0 without the combo box.
    int InitOptions(int comboId, int keyword);
    // Takes over the selected row; without a selection the bank keeps what it has. 0 without the combo box.
    int ApplyOption(int comboId, int keyword);
    void Hide(int controlId);

  private:
    struct PriorValues {
        std::uint32_t paperType;
        std::uint32_t weight;
        std::uint32_t weightValue;
        std::uint32_t weightValueBypass;
    };

    static INT_PTR CALLBACK DialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
    int Open(HWND dialog);
    int RouteCommand(WPARAM wParam, LPARAM lParam);

    // Those with a result give 0 if a control that they need is missing.
    int ArrangeControls();
    int InitPaperType();
    int InitSequence();
    int InitPaperColor();
    void InitCoatingMaterial();
    void InitDrilled();
    void InitGlossFine();
    void InitPrePrinted();
    int SelectDefault(int comboId, int keyword);
    int SelectDefaultPaperType();

    void LogPaperValues() const;
    // Reads the profile of the store anew. 0 without one.
    int UpdateProfile();
    // A paper type without a row selects none.
    void SelectPaperType(std::uint32_t paperType);
    // The sequence controls are out of sight and depend on nothing.
    void OnPaperTypeShown() {}
    void MoveUp(int controlId);

    void UpdateMediaTypeSequence(int useDefault);
    void UpdatePaperTypeCustomNumber();
    void UpdateMediaTypeWeight(int useDefault);
    void UpdateMediaTypeWeightValue();
    int CheckWeightValue();
    void CheckSequence();

    void ApplyPaperType(int row);
    int ApplyWeight();
    int ApplySequence();
    int ApplyPaperProperties();
    int ResolveConflicts(const PriorValues& prior);
    PriorValues ReadPriorValues() const;
    void TakeBack(const PriorValues& prior);
};

// Template IDD_MEDIA_TYPE_AUTO_TRAY.
class CMediaTypeDlgAutoTrayPRMT : public CMediaTypeDlg {
  public:
    using CMediaTypeDlg::CMediaTypeDlg;
    ~CMediaTypeDlgAutoTrayPRMT() override = default;
};

// Template IDD_MEDIA_TYPE_BYPASS.
class CMediaTypeBypassTrayDlgPRMT : public CMediaTypeDlg {
  public:
    CMediaTypeBypassTrayDlgPRMT(SessionBlock* sessionBlock, CProfileInfo* deviceProfile, int dialogTemplate);
    ~CMediaTypeBypassTrayDlgPRMT() override = default;

    int OnInitDialog() override;
    int OnDefault() override;
    int ApplyValues() override;
    int OnButtonClick(WORD controlId) override;

  private:
    void InitManualFeedDuplex();
    void InitAutoTraySetting(int useDefault);
    // The bypass tray's own paper can be chosen only while it does not take the automatic trays' setting.
    void EnablePaperControls();
};

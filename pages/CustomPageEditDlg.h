// The dialog for the width and height of a custom paper, in inches, millimetres or points. What it stores is
// in 1/1000 mm.
#pragma once

#include "pages/BasicPopupDlg.h"
#include "pages/custom_page_size.h"

#include <cstdint>

class CCustomPageEditDlg : public CBasicPopupDlg {
  public:
    // `editId` is the page's button: IDC_EDIT_PAGE_SIZE for the document's size or IDC_EDIT_OUTPUT_PAPER_SIZE
    // for that of the output. `priorOutputValue` is the option of ChgPrintPaperSizeType before it became the
    // custom size; the width of a double-width sheet starts halved.
    CCustomPageEditDlg(WORD editId, SessionBlock* session);
    CCustomPageEditDlg(WORD editId, SessionBlock* session, std::uint32_t priorOutputValue);

    int OnInitDialog() override;
    // Enter presses OK where no button has the focus; Esc presses Cancel.
    int OnCommand(WORD notifyCode, WORD controlId, HWND control) override;

    WORD editId;
    // In thousandths of the unit, like the limits.
    std::uint32_t m_dCurrentWidth = 0;
    std::uint32_t m_dCurrentHeight = 0;
    std::uint32_t m_dCurrentWidthMax = 0;
    std::uint32_t m_dCurrentHeightMax = 0;
    std::uint32_t m_dCurrentWidthMin = 0;
    std::uint32_t m_dCurrentHeightMin = 0;
    int settingText = 0; // the edits' notifications do not come from the user
    int unit = page_unit::Millimeter;
    // Both hold what the edits would show, so that a change of unit and back shows the same.
    LengthByUnit widthByUnit{};
    LengthByUnit heightByUnit{};
    std::uint32_t fixedFormTag = 0; // of the prior output size, 0 for none

  private:
    enum class Side { Width, Height };
    // One side's share of the fields.
    struct SideFields {
        std::uint32_t& current;
        const std::uint32_t& min;
        const std::uint32_t& max;
        LengthByUnit& byUnit;
        int edit;
        int defaultKeyword; // of the output's size too
    };
    SideFields FieldsOf(Side side);

    void InitControl();
    void LoadStartingValues();
    void InitCustomWidth();
    void InitCustomHeight();
    void InitCustomLength(Side side);
    void InitPaperDirection();

    void UpdateMaxBorderValue(int ofUnit);
    void UpdateMaxBorderText(int ofUnit);
    void UpdateWidth(int useDefault);
    void UpdateHeight(int useDefault);
    void UpdateLength(Side side, int useDefault);
    void UpdatePaperDirection(int useDefault);
    void SelectDefaultDirection(HWND combo);
    void ShowByDirection(HWND combo);

    void ChangeUnit(int radioId);
    void StoreAllUnits(Side side, std::uint32_t value, int fromUnit);
    void ConvertUnit(int from, int to, Side side);
    // 1 if the length is within the limits; else 0 if this is only asked, or 1 with the nearest limit in its
    // place.
    int CheckRange(std::uint32_t value, int ofUnit, int isWidth, int reportOnly);
    void ClampBoth();

    std::uint32_t ReadEdit(Side side);
    void WriteEdit(Side side, const std::string& text);

    int Press(WORD buttonId);
    int ApplyValues();
    bool AskWhetherToKeep();
    void StoreValues(std::int32_t direction);
    int DirectionKeyword() const;

    std::uint32_t m_direction = 0; // as loaded
};

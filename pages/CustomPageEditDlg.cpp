#include "pages/CustomPageEditDlg.h"

#include "Common/ask_user.h"
#include "Common/log.h"
#include "Common/strings.h"
#include "pages/controls.h"
#include "pages/pspage.h"
#include "resources/resource.h"
#include "session/bank_values.h"
#include "session/datamanager.h"
#include "session/keyword.h"
#include "settings/InterchangeOptionTag.h"

namespace {

constexpr std::int32_t kShortEdgeFirst = 1; // tag of a paper direction

constexpr Caption kCaptions[]{
    {IDC_CUSTOM_SIZE_GROUP, IDS_CUSTOM_SIZE_GROUP},
    {IDC_CUSTOM_WIDTH_LABEL, IDS_CUSTOM_WIDTH, true},
    {IDC_CUSTOM_HEIGHT_LABEL, IDS_CUSTOM_HEIGHT, true},
    {IDC_CUSTOM_UNIT_GROUP, IDS_CUSTOM_UNIT_GROUP},
    {IDC_CUSTOM_INCH, IDS_CUSTOM_INCH},
    {IDC_CUSTOM_MILLIMETER, IDS_CUSTOM_MILLIMETER},
    {IDC_CUSTOM_POINT, IDS_CUSTOM_POINT},
    {IDC_CUSTOM_DIRECTION_LABEL, IDS_CUSTOM_DIRECTION, true},
    {IDC_CUSTOM_OK, IDS_CUSTOM_OK},
    {IDC_CUSTOM_CANCEL, IDS_CANCEL},
    {IDC_CUSTOM_DEFAULTS, IDS_CUSTOM_DEFAULTS},
};

constexpr int kFirstUnitRadio = IDC_CUSTOM_INCH;
constexpr int kLastUnitRadio = IDC_CUSTOM_POINT;
static_assert(kLastUnitRadio - kFirstUnitRadio + 1 == page_unit::Count);

// Sets a dialog's settingText while it lives.
class HeldEdits {
  public:
    explicit HeldEdits(int& settingText) : m_flag(settingText), m_before(settingText) { m_flag = 1; }
    ~HeldEdits() { m_flag = m_before; }
    HeldEdits(const HeldEdits&) = delete;
    HeldEdits& operator=(const HeldEdits&) = delete;

  private:
    int& m_flag;
    int m_before;
};

std::uint32_t TagOfOutputSize(std::uint32_t option) {
    std::int32_t tag = 0;
    GetTagNumberFromPreset(keyword::ChgPrintPaperSizeType, static_cast<int>(option), &tag);
    return static_cast<std::uint32_t>(tag);
}

} // namespace

CCustomPageEditDlg::CCustomPageEditDlg(WORD edit, SessionBlock* sessionBlock)
    : CBasicPopupDlg(sessionBlock, IDD_CUSTOM_PAGE), editId(edit) {}

CCustomPageEditDlg::CCustomPageEditDlg(WORD edit, SessionBlock* sessionBlock, std::uint32_t priorOutputValue)
    : CCustomPageEditDlg(edit, sessionBlock) {
    fixedFormTag = TagOfOutputSize(priorOutputValue);
}

CCustomPageEditDlg::SideFields CCustomPageEditDlg::FieldsOf(Side side) {
    if (side == Side::Width)
        return {m_dCurrentWidth, m_dCurrentWidthMin, m_dCurrentWidthMax,
                widthByUnit,     IDC_CUSTOM_WIDTH,   keyword::CustomPaperWidth};
    return {m_dCurrentHeight, m_dCurrentHeightMin, m_dCurrentHeightMax,
            heightByUnit,     IDC_CUSTOM_HEIGHT,   keyword::CustomPaperHeight};
}

int CCustomPageEditDlg::OnInitDialog() {
    ZR_LOG_ENTRY();
    InitControl();
    m_dCurrentWidthMax = m_dCurrentHeightMax = 1200000;
    m_dCurrentWidthMin = m_dCurrentHeightMin = 89000;
    LoadStartingValues();
    InitCustomWidth();
    InitCustomHeight();
    InitPaperDirection();
    UpdatePaperDirection(0);
    CheckRadioButton(m_hwnd, kFirstUnitRadio, kLastUnitRadio, kFirstUnitRadio + unit);
    UpdateMaxBorderValue(unit);
    return 1;
}

void CCustomPageEditDlg::InitControl() {
    ZR_LOG_ENTRY();
    SetWindowTextA(m_hwnd, LoadText(IDS_CUSTOM_TITLE).c_str());
    SetCaptions(m_hwnd, kCaptions);
    for (const int id : {IDC_CUSTOM_DIRECTION_LABEL, IDC_CUSTOM_DIRECTION})
        ShowWindow(GetDlgItem(m_hwnd, id), SW_HIDE);
}

int CCustomPageEditDlg::DirectionKeyword() const {
    return editId == IDC_EDIT_PAGE_SIZE ? keyword::CustomPaperDirection : keyword::CustomChgPaperDirection;
}

void CCustomPageEditDlg::LoadStartingValues() {
    PageSize size{};
    if (editId == IDC_EDIT_PAGE_SIZE) {
        size = {CurrentOf(keyword::CustomPaperWidth), CurrentOf(keyword::CustomPaperHeight)};
    } else {
        ExportedFunc_GetChgPrintPaperSizeWidth(&size.width);
        ExportedFunc_GetChgPrintPaperSizeLength(&size.height);
    }
    m_direction = CurrentOf(DirectionKeyword());
    if (IsDoubleWidthSheet(fixedFormTag))
        size = HalfOfDoubleWidthSheet(size, m_direction);
    m_dCurrentWidth = size.width;
    m_dCurrentHeight = size.height;
}

void CCustomPageEditDlg::InitCustomWidth() {
    InitCustomLength(Side::Width);
}

void CCustomPageEditDlg::InitCustomHeight() {
    InitCustomLength(Side::Height);
}

void CCustomPageEditDlg::InitCustomLength(Side side) {
    const SideFields fields = FieldsOf(side);
    ZR_LOG("%u default=%u\n", fields.current, DefaultOf(fields.defaultKeyword));
    WriteEdit(side, LengthText(fields.current));
    StoreAllUnits(side, fields.current, unit);
}

void CCustomPageEditDlg::InitPaperDirection() {
    ZR_LOG_ENTRY();
    const HWND combo = GetDlgItem(m_hwnd, IDC_CUSTOM_DIRECTION);
    if (!combo)
        return;
    FillWithOptions(combo, keyword::CustomPaperDirection);
    // A direction that has no row starts with the first.
    int row = 0;
    GetOptionIndexFromTagNumber(DirectionKeyword(), static_cast<std::int32_t>(m_direction), &row);
    SelectRow(combo, static_cast<std::uint32_t>(row));
}

void CCustomPageEditDlg::UpdateMaxBorderValue(int ofUnit) {
    const PageSizeLimits limits = PageSizeLimitsOf(ofUnit);
    m_dCurrentWidthMin = limits.widthMin;
    m_dCurrentHeightMin = limits.heightMin;
    m_dCurrentWidthMax = limits.widthMax;
    m_dCurrentHeightMax = limits.heightMax;
}

void CCustomPageEditDlg::UpdateMaxBorderText(int ofUnit) {
    const PageSizeLimits limits = PageSizeLimitsOf(ofUnit);
    SetCaption(m_hwnd, IDC_CUSTOM_WIDTH_LIMITS, LengthLimitsText(limits.widthMin, limits.widthMax));
    SetCaption(m_hwnd, IDC_CUSTOM_HEIGHT_LIMITS, LengthLimitsText(limits.heightMin, limits.heightMax));
}

std::uint32_t CCustomPageEditDlg::ReadEdit(Side side) {
    char text[kLengthTextCharacters + 1]{};
    GetDlgItemTextA(m_hwnd, FieldsOf(side).edit, text, sizeof text);
    return ThousandthsFromText(text);
}

void CCustomPageEditDlg::WriteEdit(Side side, const std::string& text) {
    const HeldEdits held(settingText);
    SetCaption(m_hwnd, FieldsOf(side).edit, text);
}

void CCustomPageEditDlg::StoreAllUnits(Side side, std::uint32_t value, int fromUnit) {
    FieldsOf(side).byUnit = LengthInAllUnits(value, fromUnit);
}

void CCustomPageEditDlg::ConvertUnit(int from, int to, Side side) {
    std::uint32_t& current = FieldsOf(side).current;
    const ConvertedLength converted = ConvertLength(current, from, to);
    WriteEdit(side, LengthText(converted.shown));
    current = converted.thousandths;
}

int CCustomPageEditDlg::CheckRange(std::uint32_t value, int ofUnit, int isWidth, int reportOnly) {
    const Side side = isWidth ? Side::Width : Side::Height;
    const SideFields fields = FieldsOf(side);
    if (IsInRange(value, fields.min, fields.max))
        return 1;
    const bool isBelow = value < fields.min;
    ZR_LOG("Mode%d\n", (isWidth ? 1 : 3) + (isBelow ? 0 : 1));
    if (reportOnly)
        return 0;
    fields.current = isBelow ? fields.min : fields.max;
    WriteEdit(side, LengthText(fields.current));
    StoreAllUnits(side, fields.current, ofUnit);
    return 1;
}

void CCustomPageEditDlg::ClampBoth() {
    CheckRange(m_dCurrentWidth, unit, 1, 0);
    CheckRange(m_dCurrentHeight, unit, 0, 0);
}

void CCustomPageEditDlg::ChangeUnit(int radioId) {
    ZR_LOG_ENTRY();
    const HWND radio = GetDlgItem(m_hwnd, radioId);
    const bool hasFocus = radio && GetFocus() == radio;
    CheckRadioButton(m_hwnd, kFirstUnitRadio, kLastUnitRadio, radioId);
    if (hasFocus)
        SetFocus(radio);

    ClampBoth();
    unit = radioId - kFirstUnitRadio;
    UpdateMaxBorderValue(unit);
    for (const Side side : {Side::Width, Side::Height}) {
        const SideFields fields = FieldsOf(side);
        const float shown = fields.byUnit[static_cast<std::size_t>(unit)];
        WriteEdit(side, LengthText(shown));
        fields.current = ThousandthsFromShown(shown);
    }
    UpdateMaxBorderText(unit);
}

void CCustomPageEditDlg::UpdateWidth(int useDefault) {
    ZR_LOG_ENTRY();
    UpdateLength(Side::Width, useDefault);
}

void CCustomPageEditDlg::UpdateHeight(int useDefault) {
    ZR_LOG_ENTRY();
    UpdateLength(Side::Height, useDefault);
}

void CCustomPageEditDlg::UpdateLength(Side side, int useDefault) {
    const SideFields fields = FieldsOf(side);
    if (useDefault) {
        fields.current = DefaultOf(fields.defaultKeyword);
        StoreAllUnits(side, fields.current, page_unit::Millimeter);
        ConvertUnit(page_unit::Millimeter, unit, side);
    } else {
        fields.current = ReadEdit(side);
        if (fields.current == 0)
            WriteEdit(side, "0.0");
    }
    UpdateMaxBorderValue(unit);
    UpdateMaxBorderText(unit);
    ClampBoth();
    if (!useDefault)
        StoreAllUnits(side, fields.current, unit);
}

void CCustomPageEditDlg::UpdatePaperDirection(int useDefault) {
    if (const HWND combo = GetDlgItem(m_hwnd, IDC_CUSTOM_DIRECTION)) {
        if (useDefault)
            SelectDefaultDirection(combo);
        else
            ShowByDirection(combo);
    }
    UpdateMaxBorderValue(unit);
    UpdateMaxBorderText(unit);
}

void CCustomPageEditDlg::SelectDefaultDirection(HWND combo) {
    // The default may be an option or, like what the dialog stores, a tag. One that is neither leaves the
    // row.
    const auto value = static_cast<std::int32_t>(DefaultOf(DirectionKeyword()));
    std::int32_t tag = value;
    GetTagNumberFromPreset(DirectionKeyword(), value, &tag);
    int row = 0;
    if (GetOptionIndexFromTagNumber(DirectionKeyword(), tag, &row))
        SelectRow(combo, static_cast<std::uint32_t>(row));
}

// The lengths are shown anew, not exchanged, where the paper does not lie as its direction says.
void CCustomPageEditDlg::ShowByDirection(HWND combo) {
    std::int32_t tag = 0;
    GetTagNumberFromPreset(DirectionKeyword(), SelectedRow(combo), &tag);
    const bool bShortEdgeFeed = tag == kShortEdgeFirst;
    ZR_LOG("bShortEdgeFeed=%d\n", bShortEdgeFeed);
    const bool liesOtherwise =
        bShortEdgeFeed ? m_dCurrentWidth > m_dCurrentHeight : m_dCurrentWidth < m_dCurrentHeight;
    if (!liesOtherwise)
        return;
    for (const Side side : {Side::Width, Side::Height}) {
        const std::uint32_t current = FieldsOf(side).current;
        WriteEdit(side, LengthText(current));
        StoreAllUnits(side, current, unit);
    }
}

int CCustomPageEditDlg::OnCommand(WORD notifyCode, WORD controlId, HWND) {
    if (notifyCode > 1 && notifyCode != EN_KILLFOCUS && notifyCode != EN_CHANGE)
        return 0;
    switch (controlId) {
    case IDC_CUSTOM_INCH:
    case IDC_CUSTOM_MILLIMETER:
    case IDC_CUSTOM_POINT: ChangeUnit(controlId); return 1;
    case IDC_CUSTOM_HEIGHT:
        if (notifyCode != EN_CHANGE && !settingText)
            UpdateHeight(0);
        return 1;
    case IDC_CUSTOM_WIDTH:
        if (notifyCode != EN_CHANGE && !settingText)
            UpdateWidth(0);
        return 1;
    case IDC_CUSTOM_DEFAULTS:
        UpdateWidth(1);
        UpdateHeight(1);
        UpdatePaperDirection(1);
        return 1;
    case IDC_CUSTOM_DIRECTION: UpdatePaperDirection(0); return 1;
    // The platform's numbers come for the keys where no button of the dialog takes them.
    case IDOK:
    case IDC_CUSTOM_OK: return Press(IDC_CUSTOM_OK);
    case IDCANCEL:
    case IDC_CUSTOM_CANCEL: return Press(IDC_CUSTOM_CANCEL);
    default: return 0;
    }
}

int CCustomPageEditDlg::Press(WORD buttonId) {
    if (buttonId == IDC_CUSTOM_CANCEL || ApplyValues())
        EndDialog(m_hwnd, buttonId);
    return 1;
}

int CCustomPageEditDlg::ApplyValues() {
    ZR_LOG_ENTRY();
    const HWND combo = GetDlgItem(m_hwnd, IDC_CUSTOM_DIRECTION);
    if (!combo) {
        WriteLog("%s() ctl == NULL\n", __func__);
        return 0;
    }
    auto direction = static_cast<std::int32_t>(m_direction);
    GetTagNumberFromPreset(DirectionKeyword(), SelectedRow(combo), &direction);
    const std::uint32_t width = ReadEdit(Side::Width);
    const std::uint32_t height = ReadEdit(Side::Height);
    const int isWidthAllowed = CheckRange(width, unit, 1, 1);
    const int isHeightAllowed = CheckRange(height, unit, 0, 1);
    if ((!isWidthAllowed || !isHeightAllowed) && !AskWhetherToKeep())
        return 0;
    if (!IsLiveSession(session))
        return 0;
    // As typed: an OK to the box changes nothing, whatever its text promises.
    m_dCurrentWidth = width;
    m_dCurrentHeight = height;
    ConvertUnit(unit, page_unit::Millimeter, Side::Width);
    ConvertUnit(unit, page_unit::Millimeter, Side::Height);
    StoreValues(direction);
    return 1;
}

bool CCustomPageEditDlg::AskWhetherToKeep() {
    // The box takes the focus from the edit, which must not be clamped behind it.
    const HeldEdits held(settingText);
    const int answer =
        AskUser(m_hwnd, LoadText(IDS_CUSTOM_SIZE_CONTRADICTS).c_str(),
                LoadText(IDS_CUSTOM_CONTRADICTS_TITLE).c_str(), AskButtons::OkCancel, AskIcon::Error);
    return answer == ask_answer::Ok;
}

void CCustomPageEditDlg::StoreValues(std::int32_t direction) {
    if (editId == IDC_EDIT_PAGE_SIZE) {
        ExportedFunc_SetCurrent(keyword::CustomPaperWidth, m_dCurrentWidth);
        ExportedFunc_SetCurrent(keyword::CustomPaperHeight, m_dCurrentHeight);
    } else {
        ExportedFunc_SetChgPrintPaperSizeWidth(m_dCurrentWidth);
        ExportedFunc_SetChgPrintPaperSizeLength(m_dCurrentHeight);
    }
    ExportedFunc_SetCurrent(DirectionKeyword(), static_cast<std::uint32_t>(direction));
}

#include "companions/jobproperty/setting_list.h"

#include "companions/jobproperty/folded_text.h"
#include "companions/jobproperty/messages.h"
#include "companions/jobproperty/window_colors.h"
#include "companions/jobproperty/window_controls.h"
#include "companions/jobproperty/window_resource.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace jobproperty {

namespace {

enum Column : int { MarkColumn, NameColumn, ValueColumn, SubjectColumn };

// Widths in dialog units; the value has what is left.
constexpr int kMarkWidth = 16;
constexpr int kNameWidth = 156;
constexpr int kNameWidthBesideSubjects = 148;
constexpr int kSubjectWidth = 74;

// Of LVFINDINFOA and LVFINDINFOW.
bool IsByText(const auto& wanted) {
    return (wanted.flags & (LVFI_STRING | LVFI_PARTIAL)) && wanted.psz;
}

} // namespace

SettingList::SettingList(HWND dialog, const EditedSettings& edited)
    : m_list(GetDlgItem(dialog, IDC_SETTINGS)), m_edited(edited), m_mark(Text(TextId::Mark)) {
    constexpr DWORD style = LVS_EX_FULLROWSELECT | LVS_EX_LABELTIP | LVS_EX_DOUBLEBUFFER;
    SendMessageA(m_list, LVM_SETEXTENDEDLISTVIEWSTYLE, style, style);
    // While it is empty it has no scroll bar, for which there is always room.
    RECT client{};
    GetClientRect(m_list, &client);
    m_width = client.right - GetSystemMetrics(SM_CXVSCROLL);
    ShowColumns(false);
}

void SettingList::AddColumn(int index, const std::string& title, int width) const {
    LVCOLUMNA column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
    column.cx = width;
    column.iSubItem = index;
    column.pszText = const_cast<char*>(title.c_str());
    SendMessageA(m_list, LVM_INSERTCOLUMNA, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&column));
}

void SettingList::ShowColumns(bool withSubjects) {
    m_hasSubjects = withSubjects;
    while (SendMessageA(m_list, LVM_DELETECOLUMN, 0, 0)) {
    }
    const HWND dialog = GetParent(m_list);
    const int mark = PixelsAcross(dialog, kMarkWidth);
    const int name = PixelsAcross(dialog, withSubjects ? kNameWidthBesideSubjects : kNameWidth);
    const int subject = withSubjects ? PixelsAcross(dialog, kSubjectWidth) : 0;
    const int rest = m_width - mark - name - subject;
    AddColumn(MarkColumn, "", mark);
    AddColumn(NameColumn, Text(TextId::SettingColumn), name);
    AddColumn(ValueColumn, Text(TextId::ValueColumn), rest);
    if (withSubjects)
        AddColumn(SubjectColumn, Text(TextId::SubjectColumn), subject);
}

void SettingList::ShowSubject(Subject subject) {
    std::vector<std::size_t> rows(m_edited.CountOf(subject));
    std::iota(rows.begin(), rows.end(), m_edited.FirstOf(subject));
    ShowRows(std::move(rows), false);
}

void SettingList::ShowFound(std::vector<std::size_t> found) {
    ShowRows(std::move(found), true);
}

void SettingList::ShowRows(std::vector<std::size_t> rows, bool withSubjects) {
    m_isFilling = true;
    SendMessageA(m_list, WM_SETREDRAW, FALSE, 0);
    if (withSubjects != m_hasSubjects)
        ShowColumns(withSubjects);
    m_rows = std::move(rows);
    SendMessageA(m_list, LVM_SETITEMCOUNT, m_rows.size(), 0);
    SendMessageA(m_list, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(m_list, nullptr, TRUE);
    if (!m_rows.empty())
        SelectRow(0);
    m_isFilling = false;
}

void SettingList::SelectRow(std::size_t row) {
    LVITEMA item{};
    item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    SendMessageA(m_list, LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&item));
    item.state = LVIS_SELECTED | LVIS_FOCUSED;
    SendMessageA(m_list, LVM_SETITEMSTATE, row, reinterpret_cast<LPARAM>(&item));
    SendMessageA(m_list, LVM_ENSUREVISIBLE, row, FALSE);
}

bool SettingList::SelectSetting(std::size_t setting) {
    const auto row = std::ranges::find(m_rows, setting);
    if (row == m_rows.end())
        return false;
    SelectRow(static_cast<std::size_t>(row - m_rows.begin()));
    return true;
}

std::optional<std::size_t> SettingList::SelectedSetting() const {
    const LRESULT row =
        SendMessageA(m_list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), MAKELPARAM(LVNI_SELECTED, 0));
    if (row < 0 || static_cast<std::size_t>(row) >= m_rows.size())
        return std::nullopt;
    return m_rows[static_cast<std::size_t>(row)];
}

void SettingList::Repaint() const {
    InvalidateRect(m_list, nullptr, FALSE);
}

std::string SettingList::TextOfCell(std::size_t row, int column) const {
    if (row >= m_rows.size())
        return {};
    const std::size_t setting = m_rows[row];
    const SettingInfo& info = m_edited.catalogue.Settings()[setting];
    switch (column) {
    case MarkColumn: return m_edited.IsMarked(setting) ? m_mark : std::string();
    case NameColumn: return info.label;
    case ValueColumn: return m_edited.Shown(setting);
    case SubjectColumn: return SubjectName(info.subject);
    default: return {};
    }
}

void SettingList::GiveText(NMLVDISPINFOA& info) {
    if (!(info.item.mask & LVIF_TEXT))
        return;
    m_given = TextOfCell(static_cast<std::size_t>(info.item.iItem), info.item.iSubItem);
    info.item.pszText = m_given.data();
}

// The next row whose name begins with what was typed, round the end of the list; -1 if there is none.
LRESULT SettingList::FindRow(const std::string& text, int first) const {
    const std::u16string beginning = FoldedText(text);
    const std::size_t start = first > 0 ? static_cast<std::size_t>(first) : 0;
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        const std::size_t row = (start + i) % m_rows.size();
        if (FoldedText(TextOfCell(row, NameColumn)).starts_with(beginning))
            return static_cast<LRESULT>(row);
    }
    return -1;
}

LRESULT SettingList::ColorOf(NMLVCUSTOMDRAW& draw) const {
    switch (draw.nmcd.dwDrawStage) {
    case CDDS_PREPAINT: return CDRF_NOTIFYITEMDRAW;
    case CDDS_ITEMPREPAINT: return CDRF_NOTIFYSUBITEMDRAW;
    case CDDS_ITEMPREPAINT | CDDS_SUBITEM: break;
    default: return CDRF_DODEFAULT;
    }
    const std::size_t row = draw.nmcd.dwItemSpec;
    draw.clrText = GetSysColor(COLOR_WINDOWTEXT);
    // The system's own grey of a selection without the keyboard is hardly to be seen.
    if (draw.nmcd.uItemState & CDIS_SELECTED && GetFocus() != m_list) {
        draw.clrTextBk = kChosenColor;
        draw.nmcd.uItemState &= ~static_cast<UINT>(CDIS_SELECTED);
    }
    if (draw.iSubItem == MarkColumn)
        draw.clrText = kMarkColor;
    if (draw.iSubItem == ValueColumn && row < m_rows.size() && m_edited.Draft(m_rows[row]))
        draw.clrText = kWrongColor;
    return CDRF_DODEFAULT;
}

bool SettingList::OnNotify(NMHDR& header, LRESULT& result) {
    switch (header.code) {
    case LVN_GETDISPINFOA: GiveText(reinterpret_cast<NMLVDISPINFOA&>(header)); return false;
    case NM_CUSTOMDRAW: result = ColorOf(reinterpret_cast<NMLVCUSTOMDRAW&>(header)); return false;
    case LVN_ODFINDITEMA: {
        const auto& wanted = reinterpret_cast<NMLVFINDITEMA&>(header);
        result = IsByText(wanted.lvfi) ? FindRow(wanted.lvfi.psz, wanted.iStart) : -1;
        return false;
    }
    // Wine sends this one whatever form the dialog has asked for.
    case LVN_ODFINDITEMW: {
        const auto& wanted = reinterpret_cast<NMLVFINDITEMW&>(header);
        result = IsByText(wanted.lvfi) ? FindRow(Narrow(wanted.lvfi.psz), wanted.iStart) : -1;
        return false;
    }
    case LVN_ITEMCHANGED:
        return !m_isFilling && (reinterpret_cast<NMLISTVIEW&>(header).uNewState & LVIS_SELECTED);
    default: return false;
    }
}

} // namespace jobproperty

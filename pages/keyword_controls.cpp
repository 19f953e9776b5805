// Filling controls from a keyword.
#include "Common/log.h"
#include "Common/strings.h"
#include "options/PrintOptionSetting.h"
#include "pages/controls.h"
#include "pages/pspage.h"
#include "pages/punch_rows.h"
#include "resources/resource.h"
#include "session/session.h"

#include <algorithm>
#include <vector>

namespace {

// Rows of the keyword's combo box. The number of options is asked by the keyword's name, which several rows
// of the keyword table may bear; the last of them counts.
int RowCount(SessionBlock* session, int keyword) {
    if (keyword == keyword::Punch)
        return static_cast<int>(PunchTable::kRowCount);
    if (keyword < 0 || keyword >= kKeywordCount)
        return 0;
    const char* name = kKeywordNames[static_cast<std::size_t>(keyword)];
    return CSession(session).DRVGetKeywordNumOptions(CSession::KeywordIdFromName(name));
}

} // namespace

int CPSPageDlg::GetKeywordTranslation(int keyword, char* buffer, std::size_t bufferSize) {
    return GetPrintOptionString(&keyword, buffer, bufferSize);
}

int CPSPageDlg::GetKeywordOptionCount(int keyword) {
    int count = 0;
    return GetPrintOptionStringList(&keyword, nullptr, 0, &count) ? count : 0;
}

void CPSPageDlg::GetKeywordOptionString(int keyword, std::span<std::string> list) {
    ZR_LOG_ENTRY();
    if (keyword == keyword::Punch) {
        for (std::size_t row = 0; row < list.size(); ++row)
            list[row] = ProcessPunchTable().TakeRowText(row);
        return;
    }
    for (std::size_t row = 0; row < list.size(); ++row) {
        std::array<char, 256> text;
        int option = static_cast<int>(row);
        if (GetPrintOptionStringList(&keyword, text.data(), text.size(), &option))
            list[row] = text.data();
    }
}

void SetItemLabel(HWND dialog, int controlId, int item) {
    std::array<char, 64> label;
    if (GetPrintOptionString(&item, label.data(), label.size()) && label[0])
        SetCaption(dialog, controlId, label.data() + LoadText(IDS_COLON));
}

int FillWithOptions(HWND combo, int keyword) {
    const int count = CPSPageDlg::GetKeywordOptionCount(keyword);
    std::vector<std::string> rows(static_cast<std::size_t>(count));
    CPSPageDlg::GetKeywordOptionString(keyword, rows);
    ClearRows(combo);
    for (const std::string& row : rows)
        SendMessageA(combo, CB_INSERTSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(row.c_str()));
    return count;
}

void CPSPageDlg::SetLabel(int labelId, int keyword) {
    SetItemLabel(m_hwnd, labelId, keyword);
}

void CPSPageDlg::InitComboBox(SessionBlock* session, int keyword, int labelId, int useDefault,
                              std::span<const int> imageIndexes) {
    ZR_LOG_ENTRY();
    SetLabel(labelId, keyword);
    std::vector<std::string> rows(static_cast<std::size_t>(RowCount(session, keyword)));
    GetKeywordOptionString(keyword, rows);

    // The combo box goes by its place, not by a number.
    const HWND label = GetDlgItem(m_hwnd, labelId);
    const HWND combo = label ? GetWindow(label, GW_HWNDNEXT) : nullptr;
    if (!combo)
        return;
    ClearRows(combo);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (i < imageIndexes.size())
            AppendRow(combo, rows[i], imageIndexes[i]);
        else
            AppendRow(combo, rows[i]);
    }
    SelectRow(combo, ReadKeyword(keyword, useDefault));
}

void CPSPageDlg::InitRadioButton(SessionBlock* session, int keyword, int groupId,
                                 const std::array<int, 3>& buttonIds, int useDefault) {
    ZR_LOG_ENTRY();
    std::array<char, 64> label;
    if (GetKeywordTranslation(keyword, label.data(), label.size()))
        SetCaption(m_hwnd, groupId, label.data());

    // One row more than the driver counts, since the rotated orientation is an option of ours only.
    std::vector<std::string> rows(
        static_cast<std::size_t>(CSession(session).DRVGetKeywordNumOptions(keyword)) + 1);
    GetKeywordOptionString(keyword, rows);
    for (std::size_t i = std::min(rows.size(), buttonIds.size()); i-- > 0;) {
        SetCaption(m_hwnd, buttonIds[i], rows[i]);
        CheckDlgButton(m_hwnd, buttonIds[i], BST_UNCHECKED);
    }
    const std::uint32_t value = ReadKeyword(keyword, useDefault);
    if (value < buttonIds.size())
        CheckDlgButton(m_hwnd, buttonIds[value], BST_CHECKED);
}

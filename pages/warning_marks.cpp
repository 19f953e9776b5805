// Marks on options that the device cannot do.
#include "Common/log.h"
#include "Common/strings.h"
#include "pages/controls.h"
#include "pages/pspage.h"
#include "pages/punch_rows.h"
#include "pages/warning_rows.h"
#include "resources/resource.h"
#include "session/datamanager.h"
#include "session/session.h"

#include <algorithm>

namespace {

// The data word of a row that the device cannot do.
constexpr LRESULT kNotSelectable = 1;

constexpr int kStapleRows = 32;

HICON LoadSharedIcon(int id, int size) {
    return static_cast<HICON>(LoadImageA(static_cast<HINSTANCE>(StringModule()), MAKEINTRESOURCEA(id),
                                         IMAGE_ICON, size, size, LR_SHARED));
}

std::span<const int> Rows(const int* enabled, int count) {
    return enabled && count > 0 ? std::span(enabled, static_cast<std::size_t>(count))
                                : std::span<const int>{};
}

int MarkedRowCount(SessionBlock* session, int keyword) {
    switch (keyword) {
    case keyword::Punch: return PunchTable::kRowCount;
    case keyword::StapleMode: return kStapleRows;
    default: return CSession(session).DRVGetKeywordNumOptions(keyword);
    }
}

} // namespace

HICON CPSPageDlg::m_hIconWarning_16 = nullptr;
HICON CPSPageDlg::m_hIconWarning_24 = nullptr;
HICON CPSPageDlg::m_hIconWarning_32 = nullptr;
HIMAGELIST CPSPageDlg::m_hImgWarningList_16 = nullptr;

void CPSPageDlg::LoadWarningImage() {
    ZR_LOG_ENTRY();
    if (m_hIconWarning_16)
        return;
    m_hIconWarning_16 = LoadSharedIcon(IDI_NOT_FITTED_SMALL, 16);
    m_hIconWarning_24 = LoadSharedIcon(IDI_NOT_FITTED, 24);
    m_hIconWarning_32 = LoadSharedIcon(IDI_NOT_FITTED, 32);
    if (!m_hIconWarning_16) {
        ZR_LOG("no icon %d\n", IDI_NOT_FITTED_SMALL);
        return;
    }
    m_hImgWarningList_16 = ImageList_Create(16, 16, ILC_COLOR32 | ILC_MASK, 1, 1);
    if (!m_hImgWarningList_16) {
        WriteLog("%s() m_hImgWarningList_16==NULL\n", __func__);
        return;
    }
    ImageList_ReplaceIcon(m_hImgWarningList_16, -1, m_hIconWarning_16);
}

int CPSPageDlg::SetWarningIndex(HWND, int count, const int* enabled, int* imageIndexes, int,
                                HIMAGELIST imageList) {
    ZR_LOG_ENTRY();
    if (!imageList) {
        WriteLog("%s() OrgImgList=NULL\n", __func__);
        return 0;
    }
    const std::span rows = Rows(enabled, count);
    if (rows.empty() || !imageIndexes)
        return 0;
    return MarkWarningRows(rows, {imageIndexes, rows.size()}, ImageList_GetImageCount(imageList));
}

int CPSPageDlg::IsAllWarning(const int* enabled, int count) {
    ZR_LOG_ENTRY();
    if (!enabled) {
        ZR_LOG("error outputconfig = %d\n", 0);
        return 0;
    }
    return HasSelectableRow(Rows(enabled, count));
}

void CPSPageDlg::MarkDisabledOptions(SessionBlock* session, HWND combo, int keyword,
                                     std::span<const int> enabled) {
    ZR_LOG_ENTRY();
    if (!combo)
        return;
    const auto count = static_cast<std::size_t>(MarkedRowCount(session, keyword));
    for (std::size_t row = 0; row < std::min(count, enabled.size()); ++row) {
        if (enabled[row] == 0)
            SendMessageA(combo, CB_SETITEMDATA, row, kNotSelectable);
    }
}

bool CPSPageDlg::IsMarkedRow(HWND combo, int row) {
    return row >= 0 && SendMessageA(combo, CB_GETITEMDATA, static_cast<WPARAM>(row), 0) == kNotSelectable;
}

int CPSPageDlg::IsSelectableOption(int controlId, int keyword, SessionBlock*) {
    ZR_LOG_ENTRY();
    const HWND combo = GetDlgItem(m_hwnd, controlId);
    if (!combo)
        return 1;
    if (!IsMarkedRow(combo, SelectedRow(combo)))
        return 1;
    const std::uint32_t current = ReadKeyword(keyword, 0);
    SelectRow(combo, current);
    ExportedFunc_SetCurrent(keyword, current);
    return 0;
}

// The output paper size of the standard page, and what follows from it.
#include "Common/log.h"
#include "pages/CustomPageEditDlg.h"
#include "pages/controls.h"
#include "pages/finished_size.h"
#include "pages/live_restrictions.h"
#include "pages/standardpage.h"
#include "resources/resource.h"
#include "session/bank_values.h"
#include "session/datamanager.h"
#include "session/keyword.h"
#include "settings/InterchangeOptionTag.h"

namespace {

std::int32_t TagOfCurrent(int keyword) {
    std::int32_t tag = 0;
    GetTagNumberFromPreset(keyword, static_cast<int>(CurrentOf(keyword)), &tag);
    return tag;
}

ImpositionSettings ReadImpositionSettings() {
    ImpositionSettings settings{};
    settings.mode = CurrentOf(keyword::ImpositionMode);
    settings.customMode = CurrentOf(keyword::ImpositionCustomMode);
    ExportedFunc_GetLayoutRepeatX(&settings.repeat.x);
    ExportedFunc_GetLayoutRepeatY(&settings.repeat.y);
    settings.repeat.sheetDirection = CurrentOf(keyword::SheetDirection);
    settings.finishSheetDirection = CurrentOf(keyword::FinishSheetDirection);
    ExportedFunc_GetChgPrintPaperSizeWidth(&settings.customWidthMicrons);
    ExportedFunc_GetChgPrintPaperSizeLength(&settings.customLengthMicrons);
    return settings;
}

void SetOption(int keyword, std::optional<int> option) {
    if (option)
        ExportedFunc_SetCurrent(keyword, static_cast<std::uint32_t>(*option));
}

void Write(const SheetChange& sheet) {
    SetOption(keyword::FixedForm, sheet.fixedForm);
    ExportedFunc_SetSheetSizeHeight(sheet.sheetHeight);
    ExportedFunc_SetSheetSizeWidth(sheet.sheetWidth);
    ExportedFunc_SetChgPrintPaperSizeLength(sheet.paperLengthMicrons);
    ExportedFunc_SetChgPrintPaperSizeWidth(sheet.paperWidthMicrons);
    SetOption(keyword::FinishFixedForm, sheet.finishFixedForm);
}

void Write(const FinishedSizeChanges& changes) {
    if (changes.sheet)
        Write(*changes.sheet);
    if (changes.repeat) {
        ExportedFunc_SetLayoutRepeatX(changes.repeat->x);
        ExportedFunc_SetLayoutRepeatY(changes.repeat->y);
        ExportedFunc_SetCurrent(keyword::SheetDirection, changes.repeat->sheetDirection);
    }
    if (changes.finished) {
        ExportedFunc_SetFinishedSizeHeight(changes.finished->height);
        ExportedFunc_SetFinishedSizeWidth(changes.finished->width);
    }
}

// Only ImpositionMode gives way to an output paper size.
void EndImposition(int keyword) {
    if (keyword != keyword::ImpositionMode && keyword != keyword::ImpositionCustomMode)
        return;
    ExportedFunc_SetCurrent(keyword::ImpositionMode, DefaultOf(keyword::ImpositionMode));
}

} // namespace

int CStandardPageDlg::m_customOutputSizeIndex = -1;

void CStandardPageDlg::InitOutputPaperSize(SessionBlock* session, int useDefault) {
    ZR_LOG_ENTRY();
    constexpr int kKeyword = keyword::ChgPrintPaperSizeType;
    SetLabel(IDC_OUTPUT_PAPER_SIZE_LABEL, kKeyword);
    const HWND combo = GetDlgItem(m_hwnd, IDC_OUTPUT_PAPER_SIZE);
    if (!combo)
        return;
    m_customOutputSizeIndex = FillWithOptions(combo, kKeyword) - 1;
    const std::uint32_t value = ReadKeyword(kKeyword, useDefault);
    SelectRow(combo, value);
    if (useDefault)
        ExportedFunc_SetCurrent(kKeyword, value);
    UpdateOutputPaperSize(session, useDefault);
    if (useDefault)
        ApplyOutputPaperSize(session);
}

int CStandardPageDlg::ApplyOutputPaperSize(SessionBlock* session) {
    ZR_LOG_ENTRY();
    constexpr int kKeyword = keyword::ChgPrintPaperSizeType;
    const int row = SelectedRow(GetDlgItem(m_hwnd, IDC_OUTPUT_PAPER_SIZE));
    if (row < 0)
        return 0;
    const std::uint32_t prior = ReadKeyword(kKeyword, 0);
    ExportedFunc_SetCurrent(kKeyword, static_cast<std::uint32_t>(row));
    const auto takeBack = [&] {
        ExportedFunc_SetCurrent(kKeyword, prior);
        UpdateOutputPaperSize(session, 0);
    };
    const RestrictionOutcome outcome = ResolveRestrictionsOfSheet(
        m_hwnd, session, {restriction_group::ChgPrintPaperSizeType, __func__}, {EndImposition, takeBack});
    if (outcome.end == RestrictionEnd::Failed || outcome.refused || !IsLiveSession(session))
        return outcome.Result();

    if (!EditCustomOutputSize(session, row, prior))
        return outcome.Result();
    const std::int32_t tagOutputPaperSize = TagOfCurrent(kKeyword);
    // The sheet is the output paper itself.
    const std::int32_t tagFixedForm = TagOfCurrent(kKeyword);
    const std::int32_t tagFinishFixedForm = TagOfCurrent(keyword::FinishFixedForm);
    ZR_LOG("tagOutputPaperSize=%d tagFixedForm=%d tagFinishFixedForm=%d\n", tagOutputPaperSize, tagFixedForm,
           tagFinishFixedForm);
    finishedSizes = PaperSizes();
    UpdateFinishedSize(session, tagOutputPaperSize, tagFixedForm, tagFinishFixedForm);
    return outcome.Result();
}

bool CStandardPageDlg::EditCustomOutputSize(SessionBlock* session, int row, std::uint32_t prior) {
    const HWND button = GetDlgItem(m_hwnd, IDC_EDIT_OUTPUT_PAPER_SIZE);
    if (row != m_customOutputSizeIndex) {
        ShowWindow(button, SW_HIDE);
        return true;
    }
    CCustomPageEditDlg(IDC_EDIT_OUTPUT_PAPER_SIZE, session, prior).DoModal();
    // The sheet may have been closed behind the dialog.
    if (!IsLiveSession(session))
        return false;
    ShowWindow(button, SW_SHOW);
    return true;
}

void CStandardPageDlg::UpdateFinishedSize(SessionBlock*, std::int32_t tagOutputPaperSize,
                                          std::int32_t tagFixedForm, std::int32_t tagFinishFixedForm) {
    ZR_LOG_ENTRY();
    Write(FollowPaperSize(finishedSizes, {tagOutputPaperSize, tagFixedForm, tagFinishFixedForm},
                          ReadImpositionSettings()));
}

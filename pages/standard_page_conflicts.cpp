// From the standard page's controls into the Current bank, for the settings that can conflict with others.
//
// The value is written first; the checks then see the settings as they would be, and the other setting gives
// way or the own one goes back.
#include "Common/log.h"
#include "pages/controls.h"
#include "pages/giving_way.h"
#include "pages/live_restrictions.h"
#include "pages/punch_rows.h"
#include "pages/standardpage.h"
#include "resources/resource.h"
#include "session/bank_values.h"
#include "session/datamanager.h"
#include "session/keyword.h"

#include <functional>

namespace {

// The option of NUP that needs both sides of the sheet. It and DuplexMode follow each other before anything
// is checked.
constexpr int kBooklet = 6;

using UpdateFunction = void (CStandardPageDlg::*)(SessionBlock*, int);

// The control that shows a setting which has given way. What other settings have is on no control here.
UpdateFunction UpdateOf(int keyword) {
    switch (keyword) {
    case keyword::SpotColorCorrection: return &CStandardPageDlg::UpdateSpotColorCorrect;
    case keyword::TwoColorPressSimulation: return &CStandardPageDlg::UpdateTwoColorPressSimulation;
    case keyword::StapleMode: return &CStandardPageDlg::UpdateStaple;
    case keyword::Punch: return &CStandardPageDlg::UpdatePunch;
    case keyword::Fold: return &CStandardPageDlg::UpdateFold;
    default: return nullptr;
    }
}

int SettleConflicts(CStandardPageDlg& page, SessionBlock* session, const RestrictionCaller& caller,
                    const std::function<void()>& takeBack) {
    const RestrictionAnswers answers{
        [&](int keyword) {
            const GaveWay gaveWay = GiveWayTo(caller.group, keyword);
            if (gaveWay == GaveWay::Own)
                takeBack();
            else if (const UpdateFunction update = UpdateOf(keyword); update && gaveWay == GaveWay::Other)
                (page.*update)(session, 0);
        },
        takeBack,
    };
    return ResolveRestrictionsOfSheet(page.m_hwnd, session, caller, answers).Result();
}

// A setting whose value is the selected row of one combo box.
struct RowSetting {
    int group;
    int keyword;
    int controlId;
    UpdateFunction update;
    const char* function;
};

// Nothing happens without a selection: the bank then holds a value that has no row. `pair` runs once the row
// has been written.
template <typename Pair>
int ApplySelectedRow(CStandardPageDlg& page, SessionBlock* session, const RowSetting& setting, Pair pair) {
    const int row = SelectedRow(GetDlgItem(page.m_hwnd, setting.controlId));
    if (row < 0)
        return 0;
    const std::uint32_t prior = CurrentOf(setting.keyword);
    ExportedFunc_SetCurrent(setting.keyword, static_cast<std::uint32_t>(row));
    pair(row);
    return SettleConflicts(page, session, {setting.group, setting.function}, [&] {
        ExportedFunc_SetCurrent(setting.keyword, prior);
        (page.*setting.update)(session, 0);
    });
}

int ApplySelectedRow(CStandardPageDlg& page, SessionBlock* session, const RowSetting& setting) {
    return ApplySelectedRow(page, session, setting, [](int) {});
}

} // namespace

int CStandardPageDlg::ApplyColorModel(SessionBlock* session) {
    ZR_LOG_ENTRY();
    return ApplySelectedRow(*this, session,
                            {restriction_group::ColorMode, keyword::ColorMode, IDC_COLOR_MODEL,
                             &CStandardPageDlg::UpdateColorModel, __func__});
}

int CStandardPageDlg::ApplyDuplex(SessionBlock* session) {
    ZR_LOG_ENTRY();
    const auto leaveBooklet = [&](int row) {
        if (row != 0 || CurrentOf(keyword::NUP) != kBooklet)
            return;
        ExportedFunc_SetCurrent(keyword::NUP, 1);
        UpdateNUP(session, 0);
    };
    const int result = ApplySelectedRow(*this, session,
                                        {restriction_group::DuplexMode, keyword::DuplexMode, IDC_DUPLEX,
                                         &CStandardPageDlg::UpdateDuplex, __func__},
                                        leaveBooklet);
    // Of this page's settings only this one has MixSizePrint give way.
    if (result == 0 && IsLiveSession(session))
        EnableByMixedSizes();
    return result;
}

void CStandardPageDlg::ApplyNUP(SessionBlock* session) {
    ZR_LOG_ENTRY();
    const int row = SelectedRow(GetDlgItem(m_hwnd, IDC_NUP));
    if (row < 0)
        return;
    ExportedFunc_SetCurrent(keyword::NUP, static_cast<std::uint32_t>(row));
    if (row == kBooklet && CurrentOf(keyword::DuplexMode) == 0) {
        ExportedFunc_SetCurrent(keyword::DuplexMode, 1);
        UpdateDuplex(session, 0);
    }
}

int CStandardPageDlg::ApplyStaple(SessionBlock* session) {
    ZR_LOG_ENTRY();
    return ApplySelectedRow(*this, session,
                            {restriction_group::StapleMode, keyword::StapleMode, IDC_STAPLE,
                             &CStandardPageDlg::UpdateStaple, __func__});
}

int CStandardPageDlg::ApplyPunch(SessionBlock* session) {
    ZR_LOG_ENTRY();
    const auto row = static_cast<std::size_t>(SelectedRow(GetDlgItem(m_hwnd, IDC_PUNCH)));
    if (row >= PunchTable::kRowCount)
        return 0;
    const std::uint32_t priorPunch = CurrentOf(keyword::Punch);
    const std::uint32_t priorHoles = CurrentOf(keyword::PunchHoles);
    const PunchRow& chosen = ProcessPunchTable().Rows()[row];
    ExportedFunc_SetCurrent(keyword::Punch, static_cast<std::uint32_t>(chosen.punch));
    ExportedFunc_SetCurrent(keyword::PunchHoles, static_cast<std::uint32_t>(chosen.holes));
    return SettleConflicts(*this, session, {restriction_group::Punch, __func__}, [&] {
        ExportedFunc_SetCurrent(keyword::Punch, priorPunch);
        ExportedFunc_SetCurrent(keyword::PunchHoles, priorHoles);
        UpdatePunch(session, 0);
    });
}

int CStandardPageDlg::ApplyFold(SessionBlock* session) {
    ZR_LOG_ENTRY();
    return ApplySelectedRow(
        *this, session,
        {restriction_group::Fold, keyword::Fold, IDC_FOLD, &CStandardPageDlg::UpdateFold, __func__});
}

#include "pages/standardpage.h"

#include "Common/ProfileInfo.h"
#include "Common/data_directories.h"
#include "Common/log.h"
#include "Common/strings.h"
#include "pages/SettingPreview.h"
#include "pages/controls.h"
#include "pages/own_changes.h"
#include "resources/resource.h"
#include "session/datamanager.h"
#include "session/keyword.h"
#include "session/session.h"

#include <exception>

namespace {

// What an application asks the page with whether it is there.
constexpr UINT kFirstUserMessage = WM_USER + 100;

constexpr Caption kButtonCaptions[] = {
    {IDC_SAVE_PRESET, IDS_SAVE_PRESET},
    {IDC_DELETE_PRESET, IDS_DELETE_PRESET},
    {IDC_JOB_NAME_BUTTON, IDS_JOB_NAME_BUTTON},
    {IDC_EDIT_PAGE_SIZE, IDS_EDIT_PAGE_SIZE},
    {IDC_EDIT_OUTPUT_PAPER_SIZE, IDS_EDIT_OUTPUT_PAPER_SIZE},
    {IDC_MEDIA_TYPE_BYPASS, IDS_MEDIA_TYPE_BYPASS},
    {IDC_MEDIA_TYPE, IDS_MEDIA_TYPE},
    {IDC_CONFIG, IDS_CONFIG},
    {IDC_STANDARD_DEFAULTS, IDS_RESTORE_DEFAULTS},
    {IDC_FAVORITE_EXPORT_IMPORT, IDS_FAVORITE_EXPORT_IMPORT},
};

} // namespace

INT_PTR CALLBACK StandardPageProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return CStandardPageDlg(dialog, ProcessProfile()).DlgProc(message, wParam, lParam);
}

int CStandardPageDlg::OnInitDialog(WPARAM, const PROPSHEETPAGEA* page) {
    ZR_LOG_ENTRY();
    ZR_LOG("language=%s\n", LoadText(IDS_LANGUAGE).c_str());
    SessionBlock* session = StoreSession(page);
    CreateToolTip(m_hwnd);
    CreatePrintOptionList(session);
    CreateDataDirectories();
    InitPresetCombo();
    Initialize(session, 0);
    return StartJobProperty(session);
}

int CStandardPageDlg::Initialize(SessionBlock* session, int useDefault) {
    ZR_LOG_ENTRY();
    SetServerAddress(session);
    LoadDeviceDataFiles();
    EnableDeletePreset();
    if (!HideUnusedControls())
        return 0;
    SetButtonCaptions();
    if (!InitSettings(session, useDefault))
        return 0;
    EnableByMixedSizes();
    if (useDefault)
        RevertToDefault(session);
    ShowJobName(session);
    return 1;
}

void CStandardPageDlg::LoadDeviceDataFiles() {
    ZR_LOG_ENTRY();
    try {
        PathBuffer directory{};
        if (profile && GetDriverResourcePath(directory))
            profile->LoadDeviceDataFiles(directory.data());
    } catch (const std::exception& error) {
        ZR_LOG("%s\n", error.what());
    }
}

bool CStandardPageDlg::HideUnusedControls() {
    const HWND bypass = GetDlgItem(m_hwnd, IDC_MEDIA_TYPE_BYPASS);
    const HWND rotated = GetDlgItem(m_hwnd, IDC_ORIENTATION_ROTATED);
    const HWND hidden = GetDlgItem(m_hwnd, IDC_STANDARD_HIDDEN);
    if (!bypass || !rotated || !hidden)
        return false;
    ShowWindow(bypass, SW_HIDE);
    EnableWindow(rotated, FALSE);
    ShowWindow(hidden, SW_HIDE);
    return true;
}

void CStandardPageDlg::SetButtonCaptions() {
    for (const Caption& caption : kButtonCaptions) {
        // The buttons behind the first one that is missing keep the template's captions.
        if (!GetDlgItem(m_hwnd, caption.control))
            return;
        SetCaption(m_hwnd, caption.control, LoadText(caption.text));
    }
}

bool CStandardPageDlg::InitSettings(SessionBlock* session, int useDefault) {
    InitPageSize(session, useDefault);
    // A default may conflict with another setting or be the custom size; the sheet can go behind what then
    // asks.
    InitOutputPaperSize(session, useDefault);
    if (!IsLiveSession(session))
        return false;
    InitOrientation(session, useDefault);
    InitColorModel(session, useDefault);
    InitDuplex(session, useDefault);
    InitNUP(session, useDefault);
    InitCopies(session, useDefault);
    InitOnCenter(session, useDefault);
    InitFitSize(session, useDefault);
    InitPresetCombo();
    LoadWarningImage();
    InitSource(session, useDefault);
    InitOutputTray(session, useDefault);
    InitJog(session, useDefault);
    InitSort(session, useDefault);
    InitStaple(session, useDefault);
    InitPunch(session, useDefault);
    InitFold(session, useDefault);
    InitPageOrder(session, useDefault);
    return true;
}

void CStandardPageDlg::EnableByMixedSizes() {
    const bool isOneSize = ReadKeyword(keyword::MixSizePrint, 0) == 0;
    for (const int control : {IDC_OUTPUT_PAPER_SIZE, IDC_FIT_SIZE, IDC_ON_CENTER, IDC_SOURCE})
        EnableWindow(GetDlgItem(m_hwnd, control), isOneSize);
}

void CStandardPageDlg::UpdateControls(SessionBlock* session) {
    ZR_LOG_ENTRY();
    UpdatePageSize(session, 0);
    UpdateOutputPaperSize(session, 0);
    UpdateFitSize(session, 0);
    UpdateOnCenter(session, 0);
    UpdateDuplex(session, 0);
    UpdateColorModel(session, 0);
    UpdateNUP(session, 0);
    UpdateStaple(session, 0);
    UpdatePunch(session, 0);
    UpdateFold(session, 0);
    UpdateOrientation(session, 0);
    UpdateCopies(session, 0);
    UpdateSource(session, 0);
    UpdateOutputTray(session, 0);
    UpdateJog(session, 0);
    UpdateSort(session, 0);
    UpdatePageOrder(session, 0);
    UpdatePreview(m_hwnd, 0);
    UpdateChangeItemPresetCombo();
}

int CStandardPageDlg::OnNotify_setActive() {
    ZR_LOG_ENTRY();
    ExportedFunc_SetActive(m_hwnd);
    UpdateControls(Session());
    UpdateChangeItemPresetCombo();
    return 1;
}

int CStandardPageDlg::OnNotify_killActive() {
    ZR_LOG_ENTRY();
    CSession(Session()).ApplyAll();
    return 1;
}

int CStandardPageDlg::OnNotify_apply(int) {
    ZR_LOG_ENTRY();
    CSession(Session()).NotifyApplied(kResultPage);
    return 1;
}

int CStandardPageDlg::OnDrawItem(int controlId, const DRAWITEMSTRUCT* item) {
    if (controlId != IDC_PREVIEW || !item)
        return 0;
    DrawPreview(item->hwndItem, item->hDC);
    return 1;
}

int CStandardPageDlg::OnClose() {
    // The image lists are the process's, not this object's.
    ZR_LOG_ENTRY();
    return 1;
}

int CStandardPageDlg::OnUserMessage(UINT message, WPARAM, LPARAM) {
    ZR_LOG_ENTRY();
    return message == kFirstUserMessage ? 0 : 1;
}

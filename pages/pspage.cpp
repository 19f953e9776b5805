#include "pages/pspage.h"

#include "Common/ProfileInfo.h"
#include "Common/data_directories.h"
#include "Common/log.h"
#include "Common/text.h"
#include "pages/message_guard.h"
#include "session/bank_values.h"
#include "session/datamanager.h"
#include "session/session.h"

namespace {

CProfileInfo processProfile;

constexpr UINT kFirstUserMessage = WM_USER + 100;
constexpr UINT kLastUserMessage = WM_USER + 200;

bool IsUserMessage(UINT message) {
    return message >= kFirstUserMessage && message <= kLastUserMessage;
}

bool IsPageMessage(UINT message) {
    switch (message) {
    case WM_CLOSE:
    case WM_DRAWITEM:
    case WM_NOTIFY:
    case WM_INITDIALOG:
    case WM_COMMAND: return true;
    default: return IsUserMessage(message);
    }
}

} // namespace

bool IsLiveSession(const SessionBlock* session) {
    return session && session == CSessionAccessor::Instance()->GetSession();
}

CProfileInfo* ProcessProfile() {
    return &processProfile;
}

int CPSPageDlg::DlgProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (!IsPageMessage(message))
        return 0;
    return GuardMessage(message, [&] { return Route(message, wParam, lParam); });
}

int CPSPageDlg::Route(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        const auto* page = reinterpret_cast<const PROPSHEETPAGEA*>(lParam);
        ZR_LOG("WM_INITDIALOG\n");
        return page && IsLiveSession(reinterpret_cast<const SessionBlock*>(page->lParam))
                   ? OnInitDialog(wParam, page)
                   : 0;
    }
    if (!IsLiveSession(Session()))
        return 0;
    switch (message) {
    case WM_CLOSE: ZR_LOG("WM_CLOSE\n"); return OnClose();
    case WM_DRAWITEM:
        ZR_LOG("WM_DRAWITEM\n");
        return OnDrawItem(static_cast<int>(wParam), reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
    case WM_NOTIFY: return lParam ? OnNotify(reinterpret_cast<const NMHDR*>(lParam)) : 0;
    case WM_COMMAND:
        ZR_LOG("WM_COMMAND\n");
        return OnCommand(HIWORD(wParam), LOWORD(wParam), reinterpret_cast<HWND>(lParam));
    default: ZR_LOG("WM_%d\n", static_cast<int>(message)); return OnUserMessage(message, wParam, lParam);
    }
}

int CPSPageDlg::OnInitDialog(WPARAM, const PROPSHEETPAGEA* page) {
    ZR_LOG_ENTRY();
    SessionBlock* session = StoreSession(page);
    LoadWarningImage();
    return Initialize(session, 0);
}

int CPSPageDlg::OnNotify(const NMHDR* header) {
    switch (header->code) {
    case PSN_SETACTIVE: ZR_LOG("PSN_SETACTIVE\n"); return OnNotify_setActive();
    case PSN_KILLACTIVE: ZR_LOG("PSN_KILLACTIVE\n"); return OnNotify_killActive();
    case PSN_APPLY: {
        ZR_LOG("PSN_APPLY\n");
        const LPARAM closes = reinterpret_cast<const PSHNOTIFY*>(header)->lParam;
        const int result = OnNotify_apply(closes == 0 ? 1 : 0);
        WriteLog("%s %d行目 %s isApply=%d\n", __FILE__, __LINE__, __func__, static_cast<int>(closes));
        if (closes != 0)
            DeleteRegistryKey();
        return result;
    }
    case PSN_RESET:
        ZR_LOG("PSN_RESET\n");
        DeleteRegistryKey();
        return 0;
    default: return 0;
    }
}

int CPSPageDlg::OnClose() {
    ZR_LOG_ENTRY();
    return 1;
}

int CPSPageDlg::OnUserMessage(UINT, WPARAM, LPARAM) {
    ZR_LOG_ENTRY();
    return 1;
}

int CPSPageDlg::OnDefault() {
    ZR_LOG_ENTRY();
    Initialize(Session(), 1);
    InvalidateRect(m_hwnd, nullptr, FALSE);
    return 1;
}

int CPSPageDlg::GetDriverResourcePath(PathBuffer& path) {
    std::array<char, 260> serverAddress{};
    ExportedFunc_GetServerAddress(serverAddress.data());
    return GetDeviceDataDirectory(path, FieldText(serverAddress));
}

SessionBlock* CPSPageDlg::Session() const {
    return reinterpret_cast<SessionBlock*>(GetWindowLongPtrA(m_hwnd, DWLP_USER));
}

SessionBlock* CPSPageDlg::StoreSession(const PROPSHEETPAGEA* page) const {
    SetWindowLongPtrA(m_hwnd, DWLP_USER, page->lParam);
    return Session();
}

std::uint32_t CPSPageDlg::ReadKeyword(int keyword, int useDefault) {
    return useDefault ? DefaultOf(keyword) : CurrentOf(keyword);
}

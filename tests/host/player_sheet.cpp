#include "tests/host/player_sheet.h"

#include "tests/host/driverhost_sheet.h"
#include "tests/support/own_folder.h"

#include <array>

#include <commctrl.h>
#include <prsht.h>

Seen g_seen;

namespace {

constexpr UINT kBusyMessage = WM_APP;
constexpr UINT kOpenMessage = WM_APP + 1;
constexpr UINT_PTR kFocusTimer = 1;
ULONGLONG g_busyUntil = 0;

// The pages talk to the ANSI side of the platform, as the driver's do.
void FillCombos(HWND page) {
    for (const char* text : {"A4", "B5", "はがき"}) {
        COMBOBOXEXITEMA item{};
        item.mask = CBEIF_TEXT;
        item.iItem = -1;
        item.pszText = const_cast<char*>(text);
        SendDlgItemMessageA(page, IDC_EXTENDED, CBEM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item));
        SendDlgItemMessageA(page, IDC_COMBO, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
    }
    SendDlgItemMessageA(page, IDC_EXTENDED, CB_SETCURSEL, 0, 0);
}

void Ask(HWND page) {
    g_seen.answers.push_back(MessageBoxA(page, "続けますか?\n二行目", "質問", MB_YESNO));
}

INT_PTR CALLBACK EndAtCancel(HWND dialog, UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_COMMAND && LOWORD(wParam) == IDCANCEL)
        EndDialog(dialog, IDCANCEL);
    return FALSE;
}

// The thread has something else to do when the dialog is made, so that it is shown later.
void OpenBusily(HWND page) {
    g_busyUntil = GetTickCount64() + 300;
    PostMessageA(page, kBusyMessage, 0, 0);
    DialogBoxParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDD_PROGRAM), page, EndAtCancel, 0);
}

void StayBusy(HWND page) {
    if (GetTickCount64() < g_busyUntil)
        PostMessageA(page, kBusyMessage, 0, 0);
}

// No control has the keyboard for a while, as when a window manager takes it from one window to the next.
void TakeFocusAwayForAWhile(HWND page) {
    SetFocus(nullptr);
    SetTimer(page, kFocusTimer, 300, nullptr);
}

void GiveFocusBack(HWND page) {
    KillTimer(page, kFocusTimer);
    SetFocus(GetDlgItem(page, IDC_EDIT));
}

void FillList(HWND page) {
    for (const char* text : {"一", "二", "三"})
        SendDlgItemMessageA(page, IDC_LIST, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
}

void NoteListRow(HWND page) {
    std::array<char, 16> text{};
    SendDlgItemMessageA(page, IDC_LIST, LB_GETTEXT,
                        static_cast<WPARAM>(SendDlgItemMessageA(page, IDC_LIST, LB_GETCURSEL, 0, 0)),
                        reinterpret_cast<LPARAM>(text.data()));
    g_seen.listed.emplace_back(text.data());
}

// The sheet's thread answers nothing until the program ends.
void RunOtherProgram() {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    std::wstring file = (OwnFolder() / L"driverhost_other_program.exe").wstring();
    if (!CreateProcessW(file.c_str(), nullptr, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                        &process))
        return;
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD status = 0;
    GetExitCodeProcess(process.hProcess, &status);
    g_seen.ended.push_back(status);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
}

void OnCommand(HWND page, int id, int code) {
    if (id == IDC_EXTENDED)
        g_seen.comboCodes.push_back(code);
    if (id == IDC_COMBO && code == CBN_SELCHANGE)
        SendMessageA(GetParent(page), PSM_CHANGED, reinterpret_cast<WPARAM>(page), 0);
    if (id == IDC_EDIT && code == EN_CHANGE)
        ++g_seen.edits;
    if ((id == IDC_ASK || id == IDC_DOUBTFUL) && code == BN_CLICKED)
        Ask(page);
    if (id == IDC_LATER && code == BN_CLICKED)
        PostMessageA(page, WM_COMMAND, MAKEWPARAM(IDC_ASK, BN_CLICKED), 0);
    if (id == IDC_BUSY && code == BN_CLICKED)
        PostMessageA(page, kOpenMessage, 0, 0);
    if (id == IDC_NO_FOCUS && code == BN_CLICKED)
        TakeFocusAwayForAWhile(page);
    if (id == IDC_HANG && code == BN_CLICKED)
        Sleep(1500);
    if (id == IDC_LIST && code == LBN_SELCHANGE)
        NoteListRow(page);
    if (id == IDC_START && code == BN_CLICKED)
        RunOtherProgram();
}

LRESULT OnNotify(HWND page, const NMHDR& header) {
    if (header.code != static_cast<UINT>(PSN_APPLY))
        return 0;
    if (IsDlgButtonChecked(page, IDC_REFUSE))
        return PSNRET_INVALID_NOCHANGEPAGE;
    ++g_seen.applied;
    return PSNRET_NOERROR;
}

INT_PTR CALLBACK PageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG:
        if (GetDlgItem(page, IDC_EXTENDED))
            FillCombos(page);
        if (GetDlgItem(page, IDC_LIST))
            FillList(page);
        return TRUE;
    case kBusyMessage: StayBusy(page); return TRUE;
    case kOpenMessage: OpenBusily(page); return TRUE;
    case WM_TIMER: GiveFocusBack(page); return TRUE;
    case WM_COMMAND: OnCommand(page, LOWORD(wParam), HIWORD(wParam)); return TRUE;
    case WM_NOTIFY:
        SetWindowLongPtrA(page, DWLP_MSGRESULT, OnNotify(page, *reinterpret_cast<const NMHDR*>(lParam)));
        return TRUE;
    default: return FALSE;
    }
}

} // namespace

void OpenSheet() {
    ++g_seen.opened;
    std::array<PROPSHEETPAGEA, 2> pages{};
    for (std::size_t i = 0; i < pages.size(); ++i) {
        pages[i].dwSize = sizeof pages[i];
        pages[i].hInstance = GetModuleHandleA(nullptr);
        pages[i].pszTemplate = MAKEINTRESOURCEA(i == 0 ? IDD_FIRST : IDD_SECOND);
        pages[i].pfnDlgProc = PageProc;
    }
    PROPSHEETHEADERA header{};
    header.dwSize = sizeof header;
    header.dwFlags = PSH_PROPSHEETPAGE;
    header.hInstance = GetModuleHandleA(nullptr);
    header.pszCaption = "Test";
    header.nPages = static_cast<UINT>(pages.size());
    header.ppsp = pages.data();
    PropertySheetA(&header);
}

// A program that the player's sheet starts and waits for. What was typed is its exit status.
#include "tests/host/driverhost_sheet.h"

#include <initializer_list>

#include <windows.h>

namespace {

INT_PTR CALLBACK InnerProc(HWND, UINT message, WPARAM, LPARAM) {
    return message == WM_INITDIALOG;
}

HWND inner;

void OnInit(HWND dialog) {
    inner = CreateDialogA(nullptr, MAKEINTRESOURCEA(IDC_PROGRAM_INNER), dialog, InnerProc);
    SetWindowPos(inner, nullptr, 10, 80, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    for (const char* text : {"縦", "横"})
        SendDlgItemMessageA(dialog, IDC_PROGRAM_COMBO, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
}

INT_PTR CALLBACK Proc(HWND dialog, UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_INITDIALOG)
        OnInit(dialog);
    if (message == WM_COMMAND && LOWORD(wParam) == IDC_PROGRAM_ASK)
        MessageBoxA(dialog, "本当に?", "質問", MB_YESNO);
    if (message == WM_COMMAND && LOWORD(wParam) == IDOK)
        EndDialog(dialog, static_cast<INT_PTR>(GetDlgItemInt(inner, IDC_PROGRAM_TEXT, nullptr, FALSE)));
    if (message == WM_COMMAND && LOWORD(wParam) == IDCANCEL)
        EndDialog(dialog, 0);
    return message == WM_INITDIALOG;
}

} // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    return static_cast<int>(DialogBoxParamA(nullptr, MAKEINTRESOURCEA(IDD_PROGRAM), nullptr, Proc, 0));
}

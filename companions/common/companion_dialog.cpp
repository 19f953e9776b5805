#include "companions/common/companion_dialog.h"

#include "Common/log.h"
#include "Common/strings.h"
#include "companions/common/messages.h"
#include "pages/message_guard.h"

#include <algorithm>

namespace {

constexpr UINT kPosted = WM_APP;

// What the dialog was ended with; DialogBoxParam keeps 0 and -1 for a dialog that can't be made.
constexpr INT_PTR kNothingStored = 1;
constexpr INT_PTR kSomethingStored = 2;

LONG Within(LONG place, LONG size, LONG low, LONG high) {
    return std::max(low, std::min(place, high - size));
}

// In the middle of the owner, but not beyond the edge of its screen.
void Center(HWND dialog) {
    const HWND owner = GetWindow(dialog, GW_OWNER);
    MONITORINFO screen{};
    screen.cbSize = sizeof screen;
    GetMonitorInfoA(MonitorFromWindow(owner ? owner : dialog, MONITOR_DEFAULTTOPRIMARY), &screen);
    RECT around = screen.rcWork;
    if (owner && !IsIconic(owner))
        GetWindowRect(owner, &around);
    RECT own{};
    GetWindowRect(dialog, &own);
    const LONG width = own.right - own.left;
    const LONG height = own.bottom - own.top;
    SetWindowPos(
        dialog, nullptr,
        Within((around.left + around.right - width) / 2, width, screen.rcWork.left, screen.rcWork.right),
        Within((around.top + around.bottom - height) / 2, height, screen.rcWork.top, screen.rcWork.bottom), 0,
        0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

} // namespace

// The wide call makes edits that hold UTF-16, and so what the ANSI code page lacks.
bool CompanionDialog::Run(int dialogTemplate) {
    const INT_PTR ended =
        DialogBoxParamW(static_cast<HINSTANCE>(StringModule()), MAKEINTRESOURCEW(dialogTemplate),
                        GetActiveWindow(), Procedure, reinterpret_cast<LPARAM>(this));
    if (ended == 0 || ended == -1)
        ZR_LOG("DialogBoxParam=%ld %lu\n", static_cast<long>(ended), GetLastError());
    return ended == kSomethingStored;
}

INT_PTR CALLBACK CompanionDialog::Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(dialog, DWLP_USER, lParam);
        reinterpret_cast<CompanionDialog*>(lParam)->m_dialog = dialog;
    }
    auto* object = reinterpret_cast<CompanionDialog*>(GetWindowLongPtrW(dialog, DWLP_USER));
    return object ? GuardMessage(message, [&] { return object->OnMessage(message, wParam); }) : 0;
}

INT_PTR CompanionDialog::OnMessage(UINT message, WPARAM wParam) {
    switch (message) {
    case WM_INITDIALOG:
        Center(m_dialog);
        MoveFocus(OnInit());
        m_isFilled = true;
        return FALSE; // the focus has been set
    case WM_COMMAND:
        switch (LOWORD(wParam)) {
        case IDOK: OnOk(); break;
        case IDCANCEL: EndDialog(m_dialog, kNothingStored); break;
        default:
            if (m_isFilled)
                OnCommand(LOWORD(wParam), HIWORD(wParam));
        }
        return TRUE;
    case WM_DESTROY: OnEnd(); return FALSE;
    case kPosted: OnPosted(); return TRUE;
    default: return FALSE;
    }
}

void CompanionDialog::OnOk() {
    // Half filled, the dialog would store what it does not show.
    const Stored stored = m_isFilled ? Store() : Stored::Nothing;
    if (stored != Stored::Refused)
        EndDialog(m_dialog, stored == Stored::Something ? kSomethingStored : kNothingStored);
}

void CompanionDialog::MoveFocus(int controlId) {
    SendMessageA(m_dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Control(controlId)), TRUE);
}

void CompanionDialog::Post() {
    PostMessageA(m_dialog, kPosted, 0, 0);
}

void CompanionDialog::Tell(const std::string& text, AskIcon icon) {
    std::string title(static_cast<std::size_t>(GetWindowTextLengthA(m_dialog)) + 1, '\0');
    title.resize(
        static_cast<std::size_t>(GetWindowTextA(m_dialog, title.data(), static_cast<int>(title.size()))));
    AskUser(m_dialog, text.c_str(), title.c_str(), AskButtons::Ok, icon);
}

CompanionDialog::Stored CompanionDialog::TellNotStored(DWORD status) {
    Tell(NotStoredText(status), AskIcon::Error);
    return Stored::Refused;
}

CompanionDialog::Stored CompanionDialog::Refuse(int controlId, const std::string& text) {
    Tell(text, AskIcon::Warning);
    MoveFocus(controlId);
    return Stored::Refused;
}

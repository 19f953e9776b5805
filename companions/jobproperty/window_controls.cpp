#include "companions/jobproperty/window_controls.h"

namespace jobproperty {

namespace {

// A control holds UTF-16 whatever calls made it, and a user can type or paste any character.
std::wstring WideTextOf(HWND control) {
    // The length may be more than the text has, never less.
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(control)) + 1, L'\0');
    text.resize(
        static_cast<std::size_t>(GetWindowTextW(control, text.data(), static_cast<int>(text.size()))));
    return text;
}

std::wstring Wide(std::string_view text) {
    std::wstring wide(text.size(), L'\0'); // no code page gives a byte more than one unit
    wide.resize(static_cast<std::size_t>(MultiByteToWideChar(
        CP_ACP, 0, text.data(), static_cast<int>(text.size()), wide.data(), static_cast<int>(wide.size()))));
    return wide;
}

} // namespace

std::string Narrow(std::wstring_view wide) {
    constexpr std::size_t kMostBytes = 4; // of a unit, in any code page
    // UTF-8 has every character and takes no flag.
    const DWORD flags = GetACP() == CP_UTF8 ? 0 : WC_NO_BEST_FIT_CHARS;
    std::string text(wide.size() * kMostBytes, '\0');
    text.resize(static_cast<std::size_t>(
        WideCharToMultiByte(CP_ACP, flags, wide.data(), static_cast<int>(wide.size()), text.data(),
                            static_cast<int>(text.size()), nullptr, nullptr)));
    return text;
}

std::string TextOf(HWND control) {
    return Narrow(WideTextOf(control));
}

std::optional<std::string> ExactTextOf(HWND control) {
    const std::wstring shown = WideTextOf(control);
    std::string text = Narrow(shown);
    if (Wide(text) != shown)
        return std::nullopt;
    return text;
}

void SetText(HWND control, const std::string& text) {
    if (TextOf(control) != text)
        SetWindowTextA(control, text.c_str());
}

void EnableControl(HWND dialog, int controlId, bool isEnabled) {
    const HWND control = GetDlgItem(dialog, controlId);
    // A disabled control would keep the keyboard.
    if (!isEnabled && GetFocus() == control)
        SendMessageA(dialog, WM_NEXTDLGCTL, 0, FALSE);
    EnableWindow(control, isEnabled);
}

void ShowControl(HWND dialog, int controlId, bool isShown) {
    ShowWindow(GetDlgItem(dialog, controlId), isShown ? SW_SHOW : SW_HIDE);
}

void MoveFocus(HWND dialog, int controlId) {
    SendMessageA(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(GetDlgItem(dialog, controlId)), TRUE);
}

int PixelsAcross(HWND dialog, int units) {
    RECT units_across{0, 0, units, 0};
    MapDialogRect(dialog, &units_across);
    return units_across.right;
}

} // namespace jobproperty

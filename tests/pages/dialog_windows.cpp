#include "tests/pages/dialog_windows.h"

#include <array>
#include <cctype>

#include <commctrl.h>

std::vector<HWND> ControlsOf(HWND dialog) {
    std::vector<HWND> controls;
    for (HWND control = GetWindow(dialog, GW_CHILD); control; control = GetWindow(control, GW_HWNDNEXT))
        controls.push_back(control);
    return controls;
}

std::string ClassOf(HWND window) {
    std::array<char, 64> name{};
    GetClassNameA(window, name.data(), static_cast<int>(name.size()));
    return name.data();
}

bool IsOfClass(HWND window, const char* name) {
    return lstrcmpiA(ClassOf(window).c_str(), name) == 0;
}

std::string TextOf(HWND window) {
    std::array<char, 256> text{};
    GetWindowTextA(window, text.data(), static_cast<int>(text.size()));
    return text.data();
}

std::string NameOf(HWND control) {
    return control ? std::to_string(GetDlgCtrlID(control)) + " " + ClassOf(control) : "nothing";
}

bool IsShown(HWND control) {
    return GetWindowLongPtrA(control, GWL_STYLE) & WS_VISIBLE;
}

namespace {

bool IsButtonOfType(HWND control, LONG_PTR type) {
    return IsOfClass(control, WC_BUTTONA) && (GetWindowLongPtrA(control, GWL_STYLE) & BS_TYPEMASK) == type;
}

} // namespace

bool IsGroupBox(HWND control) {
    return IsButtonOfType(control, BS_GROUPBOX);
}

bool IsRadioButton(HWND control) {
    return IsButtonOfType(control, BS_AUTORADIOBUTTON);
}

bool IsButtonWithMark(HWND control) {
    return IsRadioButton(control) || IsButtonOfType(control, BS_AUTOCHECKBOX);
}

RECT PlaceOf(HWND control) {
    RECT place{};
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, GetParent(control), reinterpret_cast<POINT*>(&place), 2);
    return place;
}

SIZE SizeOfText(HWND control, const std::string& text) {
    const HDC dc = GetDC(control);
    const HGDIOBJ before = SelectObject(dc, reinterpret_cast<HFONT>(SendMessageA(control, WM_GETFONT, 0, 0)));
    RECT box{};
    DrawTextA(dc, text.c_str(), -1, &box, DT_CALCRECT | DT_SINGLELINE);
    SelectObject(dc, before);
    ReleaseDC(control, dc);
    return {box.right, box.bottom};
}

char AcceleratorOf(const std::string& text) {
    const std::size_t mark = text.find('&');
    if (mark == std::string::npos || mark + 1 == text.size())
        return 0;
    return static_cast<char>(std::toupper(static_cast<unsigned char>(text[mark + 1])));
}

// What tests of dialogs with edits ask of them, and do to them.
#pragma once

#include "tests/support/repeated.h"

#include <windows.h>

#include <string>
#include <utility>
#include <vector>

// Start and end, in characters.
using Selection = std::pair<DWORD, DWORD>;

inline Selection SelectionOf(HWND dialog, int edit) {
    Selection selection{};
    SendDlgItemMessageA(dialog, edit, EM_GETSEL, reinterpret_cast<WPARAM>(&selection.first),
                        reinterpret_cast<LPARAM>(&selection.second));
    return selection;
}

inline std::string WindowText(HWND window) {
    std::string text(static_cast<std::size_t>(GetWindowTextLengthA(window)) + 1, '\0');
    text.resize(static_cast<std::size_t>(GetWindowTextA(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

inline void SetText(HWND dialog, int edit, const std::string& text) {
    SetDlgItemTextA(dialog, edit, text.c_str());
}

// Wide characters, without an end mark.
inline DWORD CharactersOf(const std::string& text) {
    return static_cast<DWORD>(
        MultiByteToWideChar(CP_ACP, 0, text.data(), static_cast<int>(text.size()), nullptr, 0));
}

// Where Tab leads, from the first control until it is back there.
inline std::vector<int> TabOrder(HWND dialog) {
    std::vector<int> order;
    const HWND first = GetNextDlgTabItem(dialog, nullptr, FALSE);
    HWND control = first;
    do {
        order.push_back(GetDlgCtrlID(control));
        control = GetNextDlgTabItem(dialog, control, FALSE);
    } while (control && control != first && order.size() < 100);
    return order;
}

// Puts the text into the clipboard and pastes it, as Ctrl+V does.
inline void Paste(HWND dialog, int edit, const std::string& text) {
    const HWND control = GetDlgItem(dialog, edit);
    if (!OpenClipboard(dialog))
        return;
    EmptyClipboard();
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, text.size() + 1);
    auto* bytes = static_cast<char*>(GlobalLock(memory));
    text.copy(bytes, text.size());
    bytes[text.size()] = '\0';
    GlobalUnlock(memory);
    SetClipboardData(CF_TEXT, memory);
    CloseClipboard();
    SendMessageA(control, WM_PASTE, 0, 0);
}

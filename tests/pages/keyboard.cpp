#include "tests/pages/keyboard.h"

#include "tests/pages/dialog_windows.h"

#include <gtest/gtest.h>

#include <algorithm>

#include <commctrl.h>

namespace {

void FocusFirst(HWND dialog) {
    SetFocus(GetNextDlgTabItem(dialog, nullptr, FALSE));
}

std::string Letters(const std::map<char, Ids>& users) {
    std::string letters;
    for (const auto& [letter, ids] : users)
        letters += letter;
    return letters;
}

// The texts of a dialog by control, without the frames that nothing names.
std::map<int, std::string> TextsOf(HWND dialog) {
    std::map<int, std::string> texts;
    for (const HWND control : ControlsOf(dialog)) {
        if (IsOfClass(control, WC_STATICA) || IsOfClass(control, WC_BUTTONA))
            texts[GetDlgCtrlID(control)] = TextOf(control);
    }
    return texts;
}

INT_PTR CALLBACK NoProcedure(HWND, UINT, WPARAM, LPARAM) {
    return FALSE;
}

} // namespace

void Press(HWND dialog, WPARAM key, bool alt) {
    const HWND focus = GetFocus();
    MSG message{};
    message.hwnd = focus ? focus : dialog;
    message.message = alt ? WM_SYSCHAR : WM_KEYDOWN;
    message.wParam = key;
    message.lParam = alt ? 1 << 29 : 1;
    if (!IsDialogMessageA(dialog, &message))
        DispatchMessageA(&message);
}

int FocusedControl(HWND dialog) {
    HWND focus = GetFocus();
    while (focus && GetParent(focus) != dialog)
        focus = GetParent(focus);
    return focus ? GetDlgCtrlID(focus) : 0;
}

Ids WalkByTab(HWND dialog) {
    FocusFirst(dialog);
    Ids walked{FocusedControl(dialog)};
    for (int step = 0; step < 100; ++step) {
        Press(dialog, VK_TAB);
        const int reached = FocusedControl(dialog);
        if (reached == walked.front())
            break;
        walked.push_back(reached);
    }
    return walked;
}

Ids Workable(HWND dialog) {
    Ids ids;
    for (const HWND control : ControlsOf(dialog)) {
        const bool worked =
            !IsOfClass(control, WC_STATICA) && !IsGroupBox(control) && !IsOfClass(control, UPDOWN_CLASSA);
        const bool reached =
            !IsRadioButton(control) || SendMessageA(control, BM_GETCHECK, 0, 0) == BST_CHECKED;
        if (worked && reached && IsShown(control) && IsWindowEnabled(control))
            ids.push_back(GetDlgCtrlID(control));
    }
    std::ranges::sort(ids);
    return ids;
}

Ids Sorted(Ids ids) {
    std::ranges::sort(ids);
    return ids;
}

std::map<char, Ids> Accelerators(HWND dialog) {
    std::map<char, Ids> users;
    for (const HWND control : ControlsOf(dialog)) {
        if (const char letter = AcceleratorOf(TextOf(control)); letter && IsShown(control))
            users[letter].push_back(GetDlgCtrlID(control));
    }
    return users;
}

void ExpectEachLetterOnce(const std::map<char, Ids>& users) {
    for (const auto& [letter, ids] : users)
        EXPECT_EQ(ids.size(), 1u) << letter << " of " << ids.front() << " and " << ids.back();
}

void ExpectLettersOnce(const std::map<char, Ids>& users, const std::string& letters) {
    EXPECT_EQ(Letters(users), letters);
    ExpectEachLetterOnce(users);
}

void ExpectTextsOfTemplate(HWND dialog, int id) {
    const HWND plain = CreateDialogParamA(nullptr, MAKEINTRESOURCEA(id), GetParent(dialog), NoProcedure, 0);
    EXPECT_EQ(TextsOf(dialog), TextsOf(plain)) << id;
    DestroyWindow(plain);
}

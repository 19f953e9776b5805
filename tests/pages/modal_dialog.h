// Works a modal dialog of the test's own process as a user does, on the thread that runs it.
#pragma once

#include "pages/controls.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

class ModalDialog {
  public:
    using Step = std::function<void(HWND dialog)>;

    // For the next dialog that is no message box: each step runs once what the one before has posted is done.
    // A dialog that no step has ended is ended with kLeftOpen, which fails the test; so do steps that are
    // left over.
    explicit ModalDialog(std::vector<Step> steps) : m_steps(std::move(steps)) {
        s_current = this;
        m_timer = SetTimer(nullptr, 0, USER_TIMER_MINIMUM, OnTimer);
    }
    ~ModalDialog() {
        KillTimer(nullptr, m_timer);
        s_current = nullptr;
        if (m_next < m_steps.size())
            ADD_FAILURE() << (m_wasOpen ? "the dialog closed early" : "the dialog did not open");
    }
    ModalDialog(const ModalDialog&) = delete;
    ModalDialog& operator=(const ModalDialog&) = delete;

    bool WasOpen() const { return m_wasOpen; }

    static constexpr INT_PTR kLeftOpen = 99;

  private:
    static constexpr int kMostIdleTicks = 50;

    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) {
        if (s_current)
            s_current->Tick();
    }

    static BOOL CALLBACK FindDialog(HWND window, LPARAM found) {
        constexpr int kMessageBoxText = 0xFFFF;
        char className[16] = {};
        GetClassNameA(window, className, sizeof className);
        if (std::string(className) != "#32770" || !IsWindowVisible(window) ||
            GetDlgItem(window, kMessageBoxText))
            return TRUE;
        *reinterpret_cast<HWND*>(found) = window;
        return FALSE;
    }

    void Tick() {
        HWND dialog = nullptr;
        EnumThreadWindows(GetCurrentThreadId(), FindDialog, reinterpret_cast<LPARAM>(&dialog));
        // A message box above the dialog runs timers as well.
        if (!dialog || m_isBusy || !IsWindowEnabled(dialog))
            return;
        m_wasOpen = true;
        m_isBusy = true;
        if (m_next < m_steps.size()) {
            m_steps[m_next++](dialog);
        } else if (++m_idleTicks > kMostIdleTicks) {
            ADD_FAILURE() << "the dialog was left open";
            EndDialog(dialog, kLeftOpen);
        }
        m_isBusy = false;
    }

    inline static ModalDialog* s_current = nullptr;

    std::vector<Step> m_steps;
    std::size_t m_next = 0;
    int m_idleTicks = 0;
    bool m_isBusy = false;
    bool m_wasOpen = false;
    UINT_PTR m_timer = 0;
};

// Runs the dialog with these steps; gives what it was ended with.
template <class Dialog>
INT_PTR RunModal(Dialog& dialog, std::vector<ModalDialog::Step> steps) {
    const ModalDialog user(std::move(steps));
    return dialog.DoModal();
}

// As a user does with the mouse, the focus included.
inline void ClickButton(HWND dialog, int controlId) {
    SendMessageA(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(GetDlgItem(dialog, controlId)), TRUE);
    SendMessageA(GetDlgItem(dialog, controlId), BM_CLICK, 0, 0);
}

inline void MoveFocus(HWND dialog, int controlId) {
    SendMessageA(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(GetDlgItem(dialog, controlId)), TRUE);
}

// Goes to the edit and puts the text in place of what it holds, as an input method does: no single byte
// message types a double-byte character.
inline void TypeInto(HWND dialog, int controlId, const std::string& text) {
    MoveFocus(dialog, controlId);
    SendDlgItemMessageA(dialog, controlId, EM_SETSEL, 0, -1);
    SendDlgItemMessageA(dialog, controlId, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
}

// Comes to the focused control through the dialog's own message loop.
inline void PressKey(WORD key) {
    PostMessageA(GetFocus(), WM_KEYDOWN, key, 1);
    PostMessageA(GetFocus(), WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
}

// The window that a hook of a file dialog stands behind, below one that stands for the dialog.
#pragma once

#include <windows.h>

#include <commdlg.h>

#include <utility>

class HookedDialog {
  public:
    // What the hook returned, and its window's DWLP_MSGRESULT.
    using Answer = std::pair<UINT_PTR, LONG_PTR>;
    static constexpr Answer kStaysOpen{1, -1};
    static constexpr Answer kCloses{0, 0};

    explicit HookedDialog(HWND owner)
        : m_dialog(CreateWindowA("Static", "", WS_POPUP, 0, 0, 10, 10, owner, nullptr, nullptr, nullptr)) {
        constexpr struct {
            DLGTEMPLATE header;
            WORD menuClassTitle[4];
        } kEmpty{{WS_CHILD, 0, 0, 0, 0, 10, 10}, {}};
        m_hook = CreateDialogIndirectParamA(nullptr, &kEmpty.header, m_dialog, NoProcedure, 0);
    }
    ~HookedDialog() { DestroyWindow(m_dialog); }
    HookedDialog(const HookedDialog&) = delete;
    HookedDialog& operator=(const HookedDialog&) = delete;

    HWND Dialog() const { return m_dialog; }
    HWND Hook() const { return m_hook; }

    Answer Notify(LPOFNHOOKPROC hook, UINT code, OPENFILENAMEA* file) const {
        OFNOTIFYA notification{};
        notification.hdr.code = code;
        notification.lpOFN = file;
        SetWindowLongPtrA(m_hook, DWLP_MSGRESULT, 0);
        const UINT_PTR answer = hook(m_hook, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification));
        return {answer, GetWindowLongPtrA(m_hook, DWLP_MSGRESULT)};
    }

  private:
    static INT_PTR CALLBACK NoProcedure(HWND, UINT, WPARAM, LPARAM) { return FALSE; }

    HWND m_dialog;
    HWND m_hook;
};

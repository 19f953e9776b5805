// The window of the real program, driven from the test's process by messages, as a user at the screen would.
#pragma once

#include "companions/jobproperty/window_resource.h"
#include "tests/companions/jobproperty/application_process.h"

#include <windows.h>

#include <cstddef>
#include <string>
#include <vector>

// A visible dialog of the process: the property window has a list of settings, a message box has a text
// instead.
HWND AwaitDialog(const Application& application, bool isMessageBox);

// Some subjects, by their place in the list.
inline constexpr int kFinishing = 3;
inline constexpr int kColor = 8;
inline constexpr int kSecurity = 15;

struct SettingRow {
    bool isMarked;
    std::string name;
    std::string value;
    std::string subject; // "" outside a search
    bool operator==(const SettingRow&) const = default;
};

class PropertyWindow {
  public:
    // Starts the program and waits for its window.
    explicit PropertyWindow(const std::string& words);

    const Application& Process() const { return m_application; }
    HWND Window() const { return m_window; }
    HWND Control(int controlId) const { return GetDlgItem(m_window, controlId); }
    std::string Text(int controlId) const;
    bool IsShown(int controlId) const;
    bool IsEnabled(int controlId) const { return IsWindowEnabled(Control(controlId)) != FALSE; }
    HWND Focus() const;

    std::vector<std::string> Subjects() const; // a marked one with "●" in front
    int SelectedSubject() const;
    void SelectSubject(int subject) const;

    std::vector<SettingRow> Rows() const;
    int SelectedRow() const;
    // With the mouse.
    void ClickRow(int row) const;
    void ClickBelowRows() const;
    // Finds the setting by its keyword, and selects it with the search box.
    void GoTo(const std::string& keyword) const;

    void Search(const std::string& text) const;
    std::vector<std::string> Choices() const;
    void Choose(const std::string& text) const;
    // Goes to the field and types in place of what it holds.
    void Type(int controlId, const std::string& text) const;
    void TypeMore(int controlId, const std::string& text) const;
    // Of any character, also of those that the code page lacks.
    void TypeMore(int controlId, const std::wstring& text) const;
    void Press(int button) const; // without waiting for what it does
    void PressKey(WORD key) const;
    void MoveFocus(int controlId) const;

    // The text of the next message box, which is answered with the button.
    std::string AnswerBox(int button = IDOK) const;
    int ExitCodeAfter(int button) const;

  private:
    std::string CellText(int row, int column) const;
    RECT PlaceOf(int row) const;
    void Click(LONG x, LONG y) const;

    Application m_application;
    HWND m_window;
};

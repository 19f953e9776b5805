// Working on controls as a user does, and reading what they show. All of it runs on the thread of the
// windows, unless they belong to another process.
//
// The acting functions return "" or why a user could not do it. A change is followed by the notifications
// that the same change by mouse sends.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include <windows.h>

namespace driverhost {

// The control with this id: in the dialog in front, which for a sheet means on its current page or among its
// own buttons, or in a dialog inside that one. Null if there is none.
HWND FindControl(HWND front, int id);

// True for combo boxes and lists.
bool HasRows(HWND control);
std::string ChooseRow(HWND control, int row);
std::string ChooseText(HWND control, const std::wstring& text);
std::string Click(HWND button);
std::string Check(HWND button, bool on);
// Into an edit field, also that of a combo box.
std::string TypeText(HWND control, const std::wstring& text);
// By its virtual code, to the control of the dialog that has the focus. The dialog's own loop deals with it.
std::string PressKey(HWND dialog, std::uint32_t key);

// Pages go by the title on their tab.
std::string GoToPage(HWND sheet, const std::wstring& title);
std::wstring CurrentPage(HWND sheet);

int RowCount(HWND control);
int SelectedRow(HWND control);
std::wstring RowText(HWND control, int row);
// The control with the keyboard focus of the window's thread, whosever that is; null while the window manager
// gives it to no window of the thread.
HWND FocusOf(HWND window);
// It or a part of it, such as the edit field of a combo box, has the focus.
bool HasFocus(HWND control);
bool IsChecked(HWND button);
// The text that the control shows: of a combo box or a list that of the selected row.
std::wstring ShownText(HWND control);

} // namespace driverhost

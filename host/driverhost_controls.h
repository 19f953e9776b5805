// Working on controls as a user does, and reading what they show. All of it runs on the thread of the
// windows.
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
// own buttons. Null if there is none.
HWND FindControl(HWND front, int id);

bool IsCombo(HWND control);
std::string ChooseRow(HWND combo, int row);
std::string ChooseText(HWND combo, const std::wstring& text);
std::string Click(HWND button);
std::string Check(HWND button, bool on);
std::string TypeText(HWND edit, const std::wstring& text);
// By its virtual code, to the control of the dialog that has the focus. The dialog's own loop deals with it.
std::string PressKey(HWND dialog, std::uint32_t key);

// Pages go by the title on their tab.
std::string GoToPage(HWND sheet, const std::wstring& title);
std::wstring CurrentPage(HWND sheet);

int SelectedRow(HWND combo);
bool IsChecked(HWND button);
// The text that the control shows: of a combo box that of the selected row.
std::wstring ShownText(HWND control);

} // namespace driverhost

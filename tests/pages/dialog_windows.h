// What tests ask of the controls of a dialog.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

// The controls of the dialog itself, in tab order.
std::vector<HWND> ControlsOf(HWND dialog);

std::string ClassOf(HWND window);
bool IsOfClass(HWND window, const char* name);
std::string TextOf(HWND window);
// For messages: "1300 ComboBoxEx32".
std::string NameOf(HWND control);

// Whether the control itself is to be seen, even if its dialog is not.
bool IsShown(HWND control);
bool IsGroupBox(HWND control);
bool IsRadioButton(HWND control);
bool IsButtonWithMark(HWND control); // a check box or a radio button

// In pixels of the dialog.
RECT PlaceOf(HWND control);
// In pixels of the control's own font, "&" taken for what it means to a label.
SIZE SizeOfText(HWND control, const std::string& text);

// The letter of "(&S)", in upper case; 0 for a text without one.
char AcceleratorOf(const std::string& text);

// What the property window's parts do with its controls.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

namespace jobproperty {

// In the ANSI code page. What the page lacks is '?', never a character that looks alike.
std::string Narrow(std::wstring_view wide);

// The whole text of a control, narrowed.
std::string TextOf(HWND control);
// Nothing if the page lacks one of the characters.
std::optional<std::string> ExactTextOf(HWND control);
// Leaves a control that shows the text already alone, so that it does not flicker.
void SetText(HWND control, const std::string& text);

void EnableControl(HWND dialog, int controlId, bool isEnabled);
void ShowControl(HWND dialog, int controlId, bool isShown);
// With its text selected, as a dialog's own keyboard does it.
void MoveFocus(HWND dialog, int controlId);

// A length in dialog units across, in pixels.
int PixelsAcross(HWND dialog, int units);

} // namespace jobproperty

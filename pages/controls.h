// What the pages do with controls. A control that is missing makes each of these do nothing.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

// Registers the common controls that the dialog templates name. To be called before a template is used.
void RegisterPageControls();

void SetCaption(HWND dialog, int controlId, const std::string& text);
// The caption or edit text of a control, at most 1023 bytes.
std::string ControlText(HWND control);

void ClearRows(HWND combo);
// Append a row to an extended combo box, with an image of its list in the second form.
void AppendRow(HWND comboEx, const std::string& text);
void AppendRow(HWND comboEx, const std::string& text, int image);
// "" for a row that is not there.
std::string RowText(HWND combo, int row);

// Selects the row of a setting's value, its low 16 bits; no row if the combo box has none for it.
void SelectRow(HWND combo, std::uint32_t value);
// The selected row, -1 for none.
int SelectedRow(HWND combo);

// Tells the sheet that the page's settings have changed, so that they can be applied.
void NotifyPageChanged(HWND page);

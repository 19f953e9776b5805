// What the pages do with controls. A control that is missing makes each of these do nothing.
#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <span>
#include <string>

// Registers the common controls that the dialog templates name. To be called before a template is used.
void RegisterPageControls();

void SetCaption(HWND dialog, int controlId, const std::string& text);
// The caption that a control has in the string table, with a colon behind it if it labels another control.
struct Caption {
    int control;
    unsigned text;
    bool isLabel = false;
};
void SetCaptions(HWND dialog, std::span<const Caption> captions);
// Puts the label of a keyword or an option_item, and a colon, on a control. An item without a label leaves
// the template's caption.
void SetItemLabel(HWND dialog, int controlId, int item);
// The caption or edit text of a control, at most 1023 bytes.
std::string ControlText(HWND control);

void ClearRows(HWND combo);
// Gives a plain combo box a keyword's options for its rows; returns their number.
int FillWithOptions(HWND combo, int keyword);
// Append a row to an extended combo box, with an image of its list in the second form.
void AppendRow(HWND comboEx, const std::string& text);
void AppendRow(HWND comboEx, const std::string& text, int image);
// Appends a row whose data word is a number of its own.
void AppendNumberedRow(HWND comboEx, const std::string& text, int number);
// Inserts a row with an image of the list and a data word of its own; the rows from `row` on move down.
void InsertNumberedRow(HWND comboEx, int row, const std::string& text, int image, int number);
// Takes a row away; whatever other row is selected stays so.
void RemoveRow(HWND combo, int row);
// "" for a row that is not there.
std::string RowText(HWND combo, int row);

struct NumberedRow {
    std::string text; // at most 1023 bytes
    int number = 0;

    bool operator==(const NumberedRow&) const = default;
};
// A row of an extended combo box with its data word; nothing for a row that is not there. The box answers
// from its own list, where RowText and the data word alone are questions to the combo box within it, which
// take far longer.
std::optional<NumberedRow> NumberedRowAt(HWND comboEx, int row);

// Selects the row of a setting's value, its low 16 bits; no row if the combo box has none for it.
void SelectRow(HWND combo, std::uint32_t value);
// The selected row, -1 for none.
int SelectedRow(HWND combo);
// Selects the row with this data word; no row if there is none.
void SelectNumber(HWND combo, std::uint32_t number);
// The data word of the selected row, -1 for none.
int SelectedNumber(HWND combo);

// Tells the sheet that the page's settings have changed, so that they can be applied.
void NotifyPageChanged(HWND page);

#include "pages/controls.h"

#include "Common/strings.h"
#include "resources/resource.h"

#include <commctrl.h>
#include <prsht.h>

#include <array>

namespace {

constexpr int kAtEnd = -1;

void InsertRow(HWND comboEx, COMBOBOXEXITEMA& item, const std::string& text, int row = kAtEnd) {
    item.mask |= CBEIF_TEXT;
    item.iItem = row;
    item.pszText = const_cast<char*>(text.c_str());
    SendMessageA(comboEx, CBEM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item));
}

} // namespace

void RegisterPageControls() {
    const INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_WIN95_CLASSES | ICC_USEREX_CLASSES};
    InitCommonControlsEx(&controls);
}

void SetCaption(HWND dialog, int controlId, const std::string& text) {
    SetDlgItemTextA(dialog, controlId, text.c_str());
}

void SetCaptions(HWND dialog, std::span<const Caption> captions) {
    for (const auto& [control, text, isLabel] : captions)
        SetCaption(dialog, control, LoadText(text) + (isLabel ? LoadText(IDS_COLON) : ""));
}

std::string ControlText(HWND control) {
    std::array<char, 1024> text{};
    const int length = GetWindowTextA(control, text.data(), static_cast<int>(text.size()));
    return {text.data(), static_cast<std::size_t>(length)};
}

void ClearRows(HWND combo) {
    SendMessageA(combo, CB_RESETCONTENT, 0, 0);
}

void AppendRow(HWND comboEx, const std::string& text) {
    COMBOBOXEXITEMA item{};
    InsertRow(comboEx, item, text);
}

void AppendRow(HWND comboEx, const std::string& text, int image) {
    COMBOBOXEXITEMA item{};
    item.mask = CBEIF_IMAGE | CBEIF_SELECTEDIMAGE;
    item.iImage = image;
    item.iSelectedImage = image;
    InsertRow(comboEx, item, text);
}

void AppendNumberedRow(HWND comboEx, const std::string& text, int number) {
    COMBOBOXEXITEMA item{};
    item.mask = CBEIF_LPARAM;
    item.lParam = number;
    InsertRow(comboEx, item, text);
}

void InsertNumberedRow(HWND comboEx, int row, const std::string& text, int image, int number) {
    COMBOBOXEXITEMA item{};
    item.mask = CBEIF_IMAGE | CBEIF_SELECTEDIMAGE | CBEIF_LPARAM;
    item.iImage = image;
    item.iSelectedImage = image;
    item.lParam = number;
    InsertRow(comboEx, item, text, row);
}

void RemoveRow(HWND combo, int row) {
    const int selected = SelectedRow(combo);
    SendMessageA(combo, CB_DELETESTRING, static_cast<WPARAM>(row), 0);
    // Not every combo box moves its selection along with the rows.
    if (row < selected)
        SelectRow(combo, static_cast<std::uint32_t>(selected - 1));
}

std::string RowText(HWND combo, int row) {
    // The row is checked here, since an extended combo box does not report a bad one reliably.
    const LRESULT count = SendMessageA(combo, CB_GETCOUNT, 0, 0);
    if (row < 0 || row >= count)
        return {};
    const LRESULT length = SendMessageA(combo, CB_GETLBTEXTLEN, static_cast<WPARAM>(row), 0);
    if (length <= 0)
        return {};
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    const LRESULT copied =
        SendMessageA(combo, CB_GETLBTEXT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(text.data()));
    text.resize(copied > 0 && copied < length ? static_cast<std::size_t>(copied)
                                              : static_cast<std::size_t>(length));
    return text;
}

std::optional<NumberedRow> NumberedRowAt(HWND comboEx, int row) {
    // A row below 0 is the edit field.
    if (row < 0)
        return std::nullopt;
    std::array<char, 1024> text{};
    COMBOBOXEXITEMA item{};
    item.mask = CBEIF_TEXT | CBEIF_LPARAM;
    item.iItem = row;
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    if (!SendMessageA(comboEx, CBEM_GETITEMA, 0, reinterpret_cast<LPARAM>(&item)))
        return std::nullopt;
    return NumberedRow{item.pszText, static_cast<int>(item.lParam)};
}

void SelectRow(HWND combo, std::uint32_t value) {
    // A combo box paints itself even for the row that it shows.
    const int shown = SelectedRow(combo);
    if (shown == LOWORD(value))
        return;
    // -1 is sent outright for a value without a row: not every combo box clears its selection on a bad index.
    const LRESULT count = SendMessageA(combo, CB_GETCOUNT, 0, 0);
    const int row = LOWORD(value) < count ? LOWORD(value) : -1;
    if (row != shown)
        SendMessageA(combo, CB_SETCURSEL, static_cast<WPARAM>(row), 0);
}

int SelectedRow(HWND combo) {
    return combo ? static_cast<int>(SendMessageA(combo, CB_GETCURSEL, 0, 0)) : -1;
}

void SelectNumber(HWND combo, std::uint32_t number) {
    int row = static_cast<int>(SendMessageA(combo, CB_GETCOUNT, 0, 0)) - 1;
    while (row >= 0 && static_cast<std::uint32_t>(
                           SendMessageA(combo, CB_GETITEMDATA, static_cast<WPARAM>(row), 0)) != number)
        --row;
    // -1 is sent for a number without a row.
    SendMessageA(combo, CB_SETCURSEL, static_cast<WPARAM>(row), 0);
}

int SelectedNumber(HWND combo) {
    const int row = SelectedRow(combo);
    return row < 0 ? -1 : static_cast<int>(SendMessageA(combo, CB_GETITEMDATA, static_cast<WPARAM>(row), 0));
}

void NotifyPageChanged(HWND page) {
    SendMessageA(GetParent(page), PSM_CHANGED, reinterpret_cast<WPARAM>(page), 0);
}

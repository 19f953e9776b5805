// The settings of the standard page that a control each shows, as data.
#pragma once

#include <cstdint>

// How a control shows the values of its setting.
enum class PageRowKind {
    Row,             // the value is the selected row
    RowKeptInBank,   // the same; that the defaults are shown does not change the bank
    OutputPaperSize, // the same; the last row has a button of its own
    NUP,             // the same, in rows that the first showing makes
    Check,           // checked for any value but 0
    Orientation,     // one of three buttons
    Copies,          // the position of a spin control
    Punch,           // a row stands for the values of two settings
};

struct PageRow {
    PageRowKind shows;
    int keyword;
    int control;
    int label;
};

enum class PageRowId {
#define ZR_PAGE_ROW(name, transferName, setting, control, label, shows) name,
#include "pages/standard_page_rows.def"
};

const PageRow& RowOf(PageRowId id);

// What the spin control of the copies reaches.
inline constexpr int kLeastCopies = 1;
inline constexpr int kMostCopies = 9999;

// What stands for a value where a control shows none.
inline constexpr std::uint32_t kNoShownValue = 0xFFFFFFFF;

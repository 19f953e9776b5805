#pragma once

#include <windows.h>

namespace jobproperty {

inline constexpr COLORREF kMarkColor = RGB(0x1F, 0x5F, 0xBF);
inline constexpr COLORREF kChosenColor = RGB(0xD4, 0xE4, 0xF7);
inline constexpr COLORREF kWrongColor = RGB(0xC0, 0x00, 0x00);
inline constexpr COLORREF kQuietColor = RGB(0x60, 0x60, 0x60);

} // namespace jobproperty

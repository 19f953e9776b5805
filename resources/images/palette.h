// The colours of all bitmaps. Nothing else is painted on one, so that they look like one set. Icons, which
// have an alpha channel, have shades of their own.
#pragma once

#include <cstdint>

// 0xRRGGBB. Magenta is none of them: it stands for transparent in a bitmap.
enum class Ink : std::uint32_t {
    Paper = 0xFFFFFF,
    Shade = 0xE1E5EA,  // paper that lies behind, or turns away
    Pale = 0xC3C9D0,   // frames, and the lightest grey of contents
    Middle = 0x939BA5, // text
    Edge = 0x59636F,   // the edge of paper, headings
    Hole = 0x2A3038,
    Action = 0x0B5CB8, // what the option does: staples, bindings, arrows
    Sky = 0xA8D8F5,
    Hill = 0x3FA34D,
    Sun = 0xF7B500,
    Title = 0xC8322B,
    Text = 0x5B8DC9,
};
inline constexpr std::uint32_t kTransparent = 0xFF00FF;

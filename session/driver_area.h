// The custom page that the driver keeps in its own private area, behind the public DEVMODEW. Nothing else of
// that area is used, and none of it if it is too small to hold the page.
#pragma once

#include "session/session.h"

#include <cstdint>
#include <optional>

// The area has a custom page from this version of the driver's DEVMODE up.
inline constexpr WORD kFirstVersionWithCustomPage = 0x501;

// Lengths in thousandths of a millimetre.
struct CustomPage {
    std::uint32_t width;
    std::uint32_t height;
    std::uint16_t direction;
};

std::optional<CustomPage> ReadCustomPage(const SessionBlock& block);
void WriteCustomPage(SessionBlock& block, const CustomPage& page);

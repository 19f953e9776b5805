// The fields of the private DEVMODE block as data, in offset order.
#pragma once

#include "oemps/devmode.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace devmode {

enum class FieldKind : std::uint8_t {
    NumberU32,
    NumberI32,
    NumberU64,
    Text,
    SpareNumbers, // reserved words of 32 bits
    SpareTexts,   // reserved texts
    Unused,       // bytes that no operation touches
};

// How a value moves between the record and the store; private_devmode.def tells what each means.
enum class Travel : std::uint8_t {
    None,
    Header,
    Stays,
    Routed,
    Direct,
    Twice,
    Paper,
    Both,
    StoreOnly,
    FrontCover
};

enum class Control : bool { Kept, Stripped };

// One row of private_devmode.def.
struct FieldDescriptor {
    std::uint16_t offset;
    FieldKind kind;
    std::uint16_t width;   // bytes of one element
    std::uint16_t count;   // elements, 1 but for reserved ones
    std::string_view name; // empty where reserved or unused
    std::uint64_t number;  // default of a number
    std::string_view text; // default of a text
    std::uint16_t cleared; // bytes that a fresh record clears in each text without a default
    int route;             // 0 without one
    Travel travel;
    Control control; // what a merge does to control characters

    constexpr std::size_t End() const { return offset + std::size_t{width} * count; }
    constexpr bool IsText() const { return kind == FieldKind::Text || kind == FieldKind::SpareTexts; }
    constexpr bool IsNumber() const { return !IsText() && kind != FieldKind::Unused; }
};

inline constexpr auto kFields = std::to_array<FieldDescriptor>({
#define ZR_NUMBER(offset, type, name, value, route, travel)                                                  \
    {offset, FieldKind::Number##type, sizeof(type), 1, #name, value, {}, 0,                                  \
     route,  Travel::travel,          Control::Kept},
#define ZR_TEXT(offset, name, width, value, travel, control)                                                 \
    {offset, FieldKind::Text, width, 1, #name, 0, value, 1, 0, Travel::travel, Control::control},
#define ZR_SPARE_NUMBERS(offset, count, value)                                                               \
    {offset, FieldKind::SpareNumbers, sizeof(U32), count, {}, value, {}, 0, 0, Travel::None, Control::Kept},
#define ZR_SPARE_TEXTS(offset, count, width, cleared, control)                                               \
    {offset, FieldKind::SpareTexts, width, count, {}, 0, {}, cleared, 0, Travel::None, Control::control},
#define ZR_UNUSED(offset, bytes)                                                                             \
    {offset, FieldKind::Unused, bytes, 1, {}, 0, {}, 0, 0, Travel::None, Control::Kept},
#include "oemps/private_devmode.def"
});

} // namespace devmode

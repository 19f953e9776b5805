// What a store holds: four banks of numbers by keyword, and one slot per named value.
#pragma once

#include "session/keyword.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

enum class Bank : std::uint8_t { Current, Default, Favorite, Preview };
inline constexpr std::size_t kBankCount = 4;

// The slots. A text slot is as wide as its row says, always terminated, and zero behind its text.
struct NamedValues {
#define ZR_U32(name) std::uint32_t name = 0;
#define ZR_I32(name) std::int32_t name = 0;
#define ZR_U64(name) std::uint64_t name = 0;
#define ZR_TEXT_VALUE(name, width) std::array<char, width> name{};
#define ZR_U32_SET_ONLY(name) ZR_U32(name)
#define ZR_TEXT_SET_ONLY(name, width) ZR_TEXT_VALUE(name, width)
#include "session/named_values.def"
};

// The named values in the order of the table; the number is an index into kValueRows.
enum class NamedValue : std::uint16_t {
#define ZR_NAMED_VALUE(name, type) name,
#include "session/named_values.def"
    Count
};
inline constexpr std::size_t kNamedValueCount = static_cast<std::size_t>(NamedValue::Count);
static_assert(kNamedValueCount == 116 + 80 + 36 + 5 + 5);

enum class ValueType : std::uint8_t { U32, I32, U64, Text };

struct ValueRow {
    const char* name;
    ValueType type;
    std::size_t offset; // of the slot in NamedValues
    std::size_t size;   // of the slot in bytes
};

inline constexpr std::array<ValueRow, kNamedValueCount> kValueRows{{
#define ZR_NAMED_VALUE(name, type)                                                                           \
    {#name, ValueType::type, offsetof(NamedValues, name), sizeof(NamedValues::name)},
#include "session/named_values.def"
}};

inline constexpr std::size_t kMaxValueSize = [] {
    std::size_t size = 0;
    for (const ValueRow& row : kValueRows)
        size = row.size > size ? row.size : size;
    return size;
}();

struct StoredValues {
    std::array<std::array<std::uint32_t, kKeywordCount>, kBankCount> banks{};
    NamedValues named;
};

inline std::span<std::byte> SlotOf(NamedValues& values, const ValueRow& row) {
    return std::as_writable_bytes(std::span(&values, 1)).subspan(row.offset, row.size);
}

// The fields of a print option set as data, and finding them by tag and by value number.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace ddb {

inline constexpr std::size_t kRecordSize = 22120;
inline constexpr std::size_t kJobInfoSize = 2352;
inline constexpr std::size_t kExSize = 44;

enum class Block : std::uint8_t { Record, JobInfo, Ex };

constexpr std::size_t SizeOf(Block block) {
    return block == Block::Record ? kRecordSize : block == Block::JobInfo ? kJobInfoSize : kExSize;
}

enum class FieldType : std::uint8_t {
    I32,
    U32,
    I64,
    Fixed100, // an I32: a decimal number times 100
    Fixed10,  // an I32: a decimal number times 10
    Text,     // NUL-terminated, in the process's ANSI code page
};

constexpr std::uint16_t WidthOf(FieldType numberType) {
    return numberType == FieldType::I64 ? 8 : 4;
}

// A named row of print_option.def.
struct FieldDescriptor {
    std::string_view name;
    std::string_view tag; // empty without one
    std::int16_t number;  // a KeywordId or a value number
    Block block;
    FieldType type;
    std::uint16_t offset; // in its block
    std::uint16_t width;  // in bytes, of a text with its NUL
    std::uint16_t flag;   // offset of the byte that every write of a text sets to 1, 0 without one
    std::int64_t start;   // of a number; texts start empty

    constexpr std::size_t End() const { return std::size_t{offset} + width; }
    constexpr bool IsText() const { return type == FieldType::Text; }
};

// An unnamed 32-bit field that is only started and copied.
struct CarriedField {
    Block block;
    std::uint16_t offset;
    std::int32_t start;
};

// The position of a field in kFields.
enum class FieldId : std::uint16_t {
#define ZR_NUMBER(offset, name, tag, number, type, start) name,
#define ZR_TEXT(offset, name, tag, number, width, flag) name,
#define ZR_JOB_INFO_TEXT(offset, name, tag, number, width) name,
#define ZR_EX_NUMBER(offset, name, tag, number, start) name,
#include "settings/print_option.def"
    Count
};

// By block, then by offset.
inline constexpr auto kFields = std::to_array<FieldDescriptor>({
#define ZR_NUMBER(offset, name, tag, number, type, start)                                                    \
    {#name, tag, number, Block::Record, FieldType::type, offset, WidthOf(FieldType::type), 0, start},
#define ZR_TEXT(offset, name, tag, number, width, flag)                                                      \
    {#name, tag, number, Block::Record, FieldType::Text, offset, width, flag, 0},
#define ZR_JOB_INFO_TEXT(offset, name, tag, number, width)                                                   \
    {#name, tag, number, Block::JobInfo, FieldType::Text, offset, width, 0, 0},
#define ZR_EX_NUMBER(offset, name, tag, number, start)                                                       \
    {#name, tag, number, Block::Ex, FieldType::I32, offset, WidthOf(FieldType::I32), 0, start},
#include "settings/print_option.def"
});
static_assert(kFields.size() == static_cast<std::size_t>(FieldId::Count));

inline constexpr auto kCarriedFields = std::to_array<CarriedField>({
#define ZR_CARRIED(block, offset, start) {Block::block, offset, start},
#include "settings/print_option.def"
});

constexpr const FieldDescriptor& FieldAt(FieldId id) {
    return kFields[static_cast<std::size_t>(id)];
}

// The field with exactly this tag, null if there is none; no field is found by an empty tag.
const FieldDescriptor* FindFieldByTag(std::string_view tag);

// The field of a KeywordId or value number, null if none has it; any int is a possible number.
const FieldDescriptor* FindFieldByValueNumber(int number);

} // namespace ddb

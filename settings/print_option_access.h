// Reading and writing the fields of a print option set.
#pragma once

#include "settings/Ddb_PrintOption.h"

#include <concepts>
#include <span>
#include <string>
#include <string_view>

namespace ddb {

// `block` holds the bytes of the field's block. A field that does not lie in it whole, is of another width or
// is no number or text as asked reads as 0 or "" and is not written, which gives false. I32 and U32 are the
// same bits and may stand for one another; a fixed number is read and written as the integer that it is
// scaled to.
std::int32_t GetI32(std::span<const std::uint8_t> block, const FieldDescriptor& field);
std::uint32_t GetU32(std::span<const std::uint8_t> block, const FieldDescriptor& field);
std::int64_t GetI64(std::span<const std::uint8_t> block, const FieldDescriptor& field);
bool SetI32(std::span<std::uint8_t> block, const FieldDescriptor& field, std::int32_t value);
bool SetU32(std::span<std::uint8_t> block, const FieldDescriptor& field, std::uint32_t value);
bool SetI64(std::span<std::uint8_t> block, const FieldDescriptor& field, std::int64_t value);

// The text up to its NUL, or the whole field if a loaded image has none in it.
std::string GetText(std::span<const std::uint8_t> block, const FieldDescriptor& field);

// Copies the text up to its first NUL, cut on a character boundary, fills the rest of the field with 0, so
// that equal texts have equal bytes, and sets the field's flag to 1 if it has one. `text` may not lie in the
// block.
bool SetText(std::span<std::uint8_t> block, const FieldDescriptor& field, std::string_view text);

// The same on a whole set; a block that its class does not have is an empty one.
template <std::derived_from<CPrintOptionBase> Option>
std::int32_t GetI32(const Option& option, const FieldDescriptor& field) {
    return GetI32(option.Bytes(field.block), field);
}
template <std::derived_from<CPrintOptionBase> Option>
std::uint32_t GetU32(const Option& option, const FieldDescriptor& field) {
    return GetU32(option.Bytes(field.block), field);
}
template <std::derived_from<CPrintOptionBase> Option>
std::int64_t GetI64(const Option& option, const FieldDescriptor& field) {
    return GetI64(option.Bytes(field.block), field);
}
template <std::derived_from<CPrintOptionBase> Option>
std::string GetText(const Option& option, const FieldDescriptor& field) {
    return GetText(option.Bytes(field.block), field);
}
template <std::derived_from<CPrintOptionBase> Option>
bool SetI32(Option& option, const FieldDescriptor& field, std::int32_t value) {
    return SetI32(option.Bytes(field.block), field, value);
}
template <std::derived_from<CPrintOptionBase> Option>
bool SetU32(Option& option, const FieldDescriptor& field, std::uint32_t value) {
    return SetU32(option.Bytes(field.block), field, value);
}
template <std::derived_from<CPrintOptionBase> Option>
bool SetI64(Option& option, const FieldDescriptor& field, std::int64_t value) {
    return SetI64(option.Bytes(field.block), field, value);
}
template <std::derived_from<CPrintOptionBase> Option>
bool SetText(Option& option, const FieldDescriptor& field, std::string_view text) {
    return SetText(option.Bytes(field.block), field, text);
}

} // namespace ddb

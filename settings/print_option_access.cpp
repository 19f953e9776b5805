#include "settings/print_option_access.h"

#include "Common/text.h"

#include <algorithm>
#include <cstring>

namespace ddb {
namespace {

bool IsNumberIn(std::size_t blockSize, const FieldDescriptor& field, std::size_t width) {
    return !field.IsText() && field.width == width && field.End() <= blockSize;
}

bool IsTextIn(std::size_t blockSize, const FieldDescriptor& field) {
    return field.IsText() && field.width > 0 && field.End() <= blockSize && field.flag < blockSize;
}

template <class Number>
Number Get(std::span<const std::uint8_t> block, const FieldDescriptor& field) {
    Number number = 0;
    if (IsNumberIn(block.size(), field, sizeof number))
        std::memcpy(&number, block.data() + field.offset, sizeof number);
    return number;
}

template <class Number>
bool Set(std::span<std::uint8_t> block, const FieldDescriptor& field, Number number) {
    if (!IsNumberIn(block.size(), field, sizeof number))
        return false;
    std::memcpy(block.data() + field.offset, &number, sizeof number);
    return true;
}

} // namespace

std::int32_t GetI32(std::span<const std::uint8_t> block, const FieldDescriptor& field) {
    return Get<std::int32_t>(block, field);
}

std::uint32_t GetU32(std::span<const std::uint8_t> block, const FieldDescriptor& field) {
    return Get<std::uint32_t>(block, field);
}

std::int64_t GetI64(std::span<const std::uint8_t> block, const FieldDescriptor& field) {
    return Get<std::int64_t>(block, field);
}

bool SetI32(std::span<std::uint8_t> block, const FieldDescriptor& field, std::int32_t value) {
    return Set(block, field, value);
}

bool SetU32(std::span<std::uint8_t> block, const FieldDescriptor& field, std::uint32_t value) {
    return Set(block, field, value);
}

bool SetI64(std::span<std::uint8_t> block, const FieldDescriptor& field, std::int64_t value) {
    return Set(block, field, value);
}

std::string GetText(std::span<const std::uint8_t> block, const FieldDescriptor& field) {
    if (!IsTextIn(block.size(), field))
        return {};
    const auto bytes = block.subspan(field.offset, field.width);
    return {bytes.begin(), std::ranges::find(bytes, 0)};
}

bool SetText(std::span<std::uint8_t> block, const FieldDescriptor& field, std::string_view text) {
    if (!IsTextIn(block.size(), field))
        return false;
    text = text.substr(0, text.find('\0'));
    const auto bytes = block.subspan(field.offset, field.width);
    const auto end = std::copy_n(text.begin(), CutLength(text, bytes.size() - 1), bytes.begin());
    std::fill(end, bytes.end(), std::uint8_t{0});
    if (field.flag)
        block[field.flag] = 1;
    return true;
}

} // namespace ddb

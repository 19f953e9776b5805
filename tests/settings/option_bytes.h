// The bytes of print option sets and of their fields, independently of the code's own access.
#pragma once

#include "settings/Ddb_PrintOption.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <span>
#include <string>
#include <string_view>
#include <vector>

inline constexpr ddb::Block kAllBlocks[] = {ddb::Block::Record, ddb::Block::JobInfo, ddb::Block::Ex};

// The three blocks in a row.
inline std::vector<std::uint8_t> AllBytesOf(const ddb::CPrintOptionEx& option) {
    std::vector<std::uint8_t> all;
    for (const ddb::Block block : kAllBlocks)
        std::ranges::copy(option.Bytes(block), std::back_inserter(all));
    return all;
}

inline std::uint64_t LittleEndianIn(std::span<const std::uint8_t> field) {
    std::uint64_t number = 0;
    for (std::size_t i = 0; i < field.size(); ++i)
        number |= std::uint64_t{field[i]} << (8 * i);
    return number;
}

inline void PutLittleEndian(std::span<std::uint8_t> field, std::uint64_t number) {
    for (std::size_t i = 0; i < field.size(); ++i)
        field[i] = static_cast<std::uint8_t>(number >> (8 * i) & 0xFF);
}

// Up to the first NUL.
inline std::string TextIn(std::span<const std::uint8_t> field) {
    return {field.begin(), std::ranges::find(field, 0)};
}

// What fits before a NUL, and 0 behind it.
inline void PutTextInto(std::span<std::uint8_t> field, std::string_view text) {
    std::ranges::fill(field, std::uint8_t{0});
    std::ranges::copy(text.substr(0, field.size() - 1), field.begin());
}

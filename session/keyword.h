// The keywords: the 327 print settings that the driver's items may be bound to.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

// Index into the keyword table, and the key of the store's banks. Unscoped, since a KeywordId is a plain
// number wherever it is stored, and value numbers from 328 up extend it.
namespace keyword {
enum KeywordId : int {
#define ZR_KEYWORD(name) name,
#include "session/keywords.def"
    Count
};
} // namespace keyword
using keyword::KeywordId;

inline constexpr int kKeywordCount = keyword::Count;
static_assert(kKeywordCount == 327);

// The names by KeywordId, NUL-terminated.
inline constexpr std::array<const char*, kKeywordCount> kKeywordNames{
#define ZR_KEYWORD(name) #name,
#include "session/keywords.def"
};

// The index of the keyword with exactly this name, -1 if the table has none.
int FindKeyword(std::string_view name);

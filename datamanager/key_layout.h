// The layout of the data setting key, by which another process reads and writes every value by its name. It
// is told in docs/data-setting-key.md.
#pragma once

#include "datamanager/values.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

// The subkeys: one per bank, in the order of Bank, and one for the named values.
enum class Section : std::uint8_t { Current, Default, Favorite, Preview, Values };
inline constexpr std::array<const char*, kBankCount + 1> kSectionNames{"Current", "Default", "Favorite",
                                                                       "Preview", "Values"};

constexpr Section SectionOf(Bank bank) {
    return static_cast<Section>(bank);
}
constexpr const char* NameOf(Section section) {
    return kSectionNames[static_cast<std::size_t>(section)];
}

// The values of the key itself, all of them REG_DWORD.
inline constexpr const char* kKeywordCountName = "KeywordCount";
inline constexpr const char* kGenerationName = "Generation";
inline constexpr const char* kProcessIdName = "ProcessId";

// The registry's type numbers: REG_SZ, REG_DWORD, REG_QWORD.
enum class KeyValueType : std::uint32_t { Text = 1, Number = 4, LongNumber = 11 };

KeyValueType KeyTypeOf(ValueType type);

// Where one value stands: in the key, and as a slot of the store.
struct KeyEntry {
    Section section;
    const char* name;
    KeyValueType type;
    std::span<std::byte> slot;

    // What of a slot's content goes into the key: of a text no more than its NUL.
    std::span<const std::byte> DataOf(std::span<const std::byte> content) const;
};

// Every value that may stand in the key has a place: the banks' keywords first, then the named values.
using Place = std::size_t;
inline constexpr Place kPlaceCount = kBankCount * kKeywordCount + kNamedValueCount;
// The keyword must be one of the table.
constexpr Place PlaceOf(Bank bank, int keyword) {
    return static_cast<Place>(bank) * kKeywordCount + static_cast<Place>(keyword);
}
constexpr Place PlaceOf(NamedValue value) {
    return kBankCount * kKeywordCount + static_cast<Place>(value);
}
KeyEntry EntryAt(StoredValues& values, Place place);

// Makes all values of a section as if they were never set.
void Clear(StoredValues& values, Section section);

enum class Taken { Yes, UnknownName, WrongForm };

// Puts one value as it stands in the key into its slot. Nothing is believed of it: a number must have its
// type and exact size, a text its type, and is cut to its slot on a character boundary. What is not taken
// changes nothing.
Taken TakeKeyValue(StoredValues& values, Section section, std::string_view name, std::uint32_t type,
                   std::span<const std::byte> data);

// The store's named values behind one interface, and finding them by value number.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

// The widest named text in bytes with its NUL.
inline constexpr std::size_t kWidestStoreText = 1024;
using StoreText = std::array<char, kWidestStoreText>;

// A named value's operations; those of the other kind are null, and so is the getter of one that is only set.
// A number passes as 64 bits whatever the width of its slot, which takes the low ones.
struct StoreValue {
    std::string_view name; // as in named_values.def
    std::int64_t (*getNumber)() = nullptr;
    void (*setNumber)(std::int64_t) = nullptr;
    void (*getText)(StoreText&) = nullptr;
    void (*setText)(const char*) = nullptr;

    constexpr bool IsText() const { return setText != nullptr; }
    constexpr bool HasGetter() const { return getNumber || getText; }
};

// All of them, in the order of named_values.def.
std::span<const StoreValue> StoreValues();

// The named value that moves under a value number, 328 to 517 and 543 to 562; null for any other int.
const StoreValue* FindStoreValue(int number);

// How each keyword moves between a setting object's record and the banks of the store.
#pragma once

#include <cstdint>

enum class KeywordMove : std::uint8_t {
    None,
    AsIs,
    Converted, // a tag number in the record is an option index in the bank
};

// By the operation of CCurrentSetting that moves it.
struct KeywordMoves {
    KeywordMove printOptionFromSession;
    KeywordMove favoriteFromSession;
    KeywordMove currentToSession;
    KeywordMove sessionToCurrent;
};

// The row of keyword_transfer.def; any int is a possible keyword, and one outside the table does not move.
const KeywordMoves& MovesOf(int keyword);

// The value on the other side. Where the keyword has no such option, the value itself is handed on. A bank
// holds the low 16 bits of it, which may be the option index of another tag number on the way back.
std::uint32_t TagNumberOrSame(int keyword, std::uint32_t optionIndex);
std::uint32_t OptionIndexOrSame(int keyword, std::uint32_t tagNumber);

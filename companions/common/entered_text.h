// What may stand in a text that a user entered.
#pragma once

#include <cstddef>
#include <string_view>

enum class TextFault { None, Missing, TooLong, ControlCharacter };

struct TextRule {
    std::size_t mostBytes; // in the ANSI code page, without the NUL
    bool isRequired = false;
};

// The first fault in the order of TextFault. A text of blanks alone is missing.
TextFault FaultOf(std::string_view text, const TextRule& rule);

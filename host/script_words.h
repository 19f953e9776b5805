// The lines of a script and the words of a line.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace script {

struct Word {
    std::string text;
    bool quoted = false;
};

// Throws the message, as a std::string; Parse adds the line.
[[noreturn]] void FailLine(std::string message);

// Takes the first line off the text; its end is no part of it.
std::string_view TakeLine(std::string_view& text);

// The words before the comment. Fails for a line that is not UTF-8 or has a control character.
std::vector<Word> Words(std::string_view line);

} // namespace script

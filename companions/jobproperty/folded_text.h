// Text as it is searched: letters in one case, all forms of a character alike.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace jobproperty {

// One unit for each character of a text in code page 932: its code, with small letters for capitals, the
// ASCII character for its full-width form, and full-width for half-width kana, voiced where a mark follows.
std::u16string FoldedText(std::string_view text);

// The folded text's words, which blanks, tabs and line ends part.
std::vector<std::u16string> FoldedWords(std::string_view text);

} // namespace jobproperty

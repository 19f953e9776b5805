#include "companions/common/entered_text.h"

#include <algorithm>

namespace {

// No byte of a double-byte character is one.
bool IsControlCharacter(char character) {
    constexpr unsigned char kDelete = 0x7F;
    const auto byte = static_cast<unsigned char>(character);
    return byte < ' ' || byte == kDelete;
}

} // namespace

TextFault FaultOf(std::string_view text, const TextRule& rule) {
    if (rule.isRequired && text.find_first_not_of(' ') == std::string_view::npos)
        return TextFault::Missing;
    if (text.size() > rule.mostBytes)
        return TextFault::TooLong;
    return std::ranges::any_of(text, IsControlCharacter) ? TextFault::ControlCharacter : TextFault::None;
}

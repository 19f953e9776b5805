#include "Common/text.h"

#include <algorithm>
#include <cstring>

std::size_t CutLength(std::string_view text, std::size_t limit) {
    if (text.size() <= limit)
        return text.size();
    std::size_t end = 0;
    while (end < limit) {
        const std::size_t width = IsLeadByte(static_cast<unsigned char>(text[end])) ? 2 : 1;
        if (end + width > limit)
            break;
        end += width;
    }
    return end;
}

std::size_t CopyText(std::span<char> field, std::string_view text) {
    if (field.empty())
        return 0;
    const std::size_t length = CutLength(text, field.size() - 1);
    std::copy_n(text.data(), length, field.data());
    field[length] = '\0';
    return length;
}

std::size_t FillText(std::span<char> field, std::string_view text) {
    const std::size_t length = CopyText(field, text);
    std::ranges::fill(field.subspan(length), '\0');
    return length;
}

std::string_view FieldText(std::span<const char> field) {
    const void* end = field.empty() ? nullptr : std::memchr(field.data(), 0, field.size());
    return {field.data(),
            end ? static_cast<std::size_t>(static_cast<const char*>(end) - field.data()) : field.size()};
}

std::size_t FindLastCharacter(std::string_view text, char character) {
    std::size_t found = std::string_view::npos;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (IsLeadByte(static_cast<unsigned char>(text[at])))
            ++at;
        else if (text[at] == character)
            found = at;
    }
    return found;
}

#include "settings/ansi_text.h"

#include "Common/text.h"
#include "settings/xml_safety.h"

#include <algorithm>
#include <limits>

namespace {

// The text without a first byte at its end whose second byte is missing.
std::string_view WholeCharacters(std::string_view text) {
    std::size_t end = 0;
    while (end < text.size()) {
        const std::size_t width = IsLeadByte(static_cast<unsigned char>(text[end])) ? 2 : 1;
        if (end + width > text.size())
            break;
        end += width;
    }
    return text.substr(0, end);
}

bool IsAscii(wchar_t unit) {
    return unit < 0x80;
}

constexpr UINT kGb18030 = 54936;

// Of such a page the conversion takes no flags.
bool HasEveryCharacter(UINT page) {
    return page == CP_UTF8 || page == kGb18030;
}

// Without the second unit of each pair, which would become a default character of its own.
std::wstring OneUnitEach(std::wstring_view text) {
    std::wstring units;
    units.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        units += text[at];
        if (at + 1 < text.size() && IS_SURROGATE_PAIR(text[at], text[at + 1]))
            ++at;
    }
    return units;
}

void AppendConverted(std::string& ansi, std::wstring_view text, DWORD flags) {
    constexpr std::size_t kMostBytes = 4; // of a character, in any code page
    const std::size_t before = ansi.size();
    ansi.resize(before + text.size() * kMostBytes);
    const int written =
        WideCharToMultiByte(CP_ACP, flags, text.data(), static_cast<int>(text.size()), ansi.data() + before,
                            static_cast<int>(ansi.size() - before), nullptr, nullptr);
    ansi.resize(before + static_cast<std::size_t>(written));
}

} // namespace

UniqueBStr WrittenBStr(std::string_view ansi) {
    if (ansi.size() > static_cast<std::size_t>(std::numeric_limits<int>::max()))
        return nullptr;
    const std::string_view whole = WholeCharacters(ansi);
    // No code page has more UTF-16 units than bytes for a text.
    std::wstring wide(whole.size(), L'\0');
    const int length = MultiByteToWideChar(CP_ACP, 0, whole.data(), static_cast<int>(whole.size()),
                                           wide.data(), static_cast<int>(wide.size()));
    wide.resize(static_cast<std::size_t>(length));
    std::erase_if(wide, [](wchar_t unit) { return !IsWritten(unit); });
    return UniqueBStr(SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size())));
}

void AppendAnsi(std::string& ansi, const OLECHAR* text, UINT length) {
    const std::wstring_view wide(text, length);
    if (std::ranges::all_of(wide, IsAscii))
        ansi.append(wide.begin(), wide.end());
    else if (HasEveryCharacter(GetACP()))
        AppendConverted(ansi, wide, 0);
    else // A character that only looks alike would make one name of another, and a backslash of a yen sign.
        AppendConverted(ansi, OneUnitEach(wide), WC_NO_BEST_FIT_CHARS);
}

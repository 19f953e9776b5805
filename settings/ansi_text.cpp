#include "settings/ansi_text.h"

#include "Common/text.h"
#include "settings/xml_safety.h"

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
    constexpr std::size_t kMostBytes = 4; // of a character, in any code page
    const std::size_t before = ansi.size();
    ansi.resize(before + length * kMostBytes);
    const int written = WideCharToMultiByte(CP_ACP, 0, text, static_cast<int>(length), ansi.data() + before,
                                            static_cast<int>(ansi.size() - before), nullptr, nullptr);
    ansi.resize(before + static_cast<std::size_t>(written));
}

#include "settings/cp932.h"

#include "Common/text.h"
#include "settings/xml_safety.h"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <exception>
#include <memory>
#include <stdexcept>
#include <utility>

namespace {

constexpr char16_t kUnknownPair = 0x30FB;
constexpr std::uint16_t kUnknownCharacter = '?';

class Converter {
  public:
    Converter(const char* to, const char* from) : m_handle(iconv_open(to, from)) {
        if (reinterpret_cast<std::intptr_t>(m_handle) == -1)
            throw std::runtime_error("iconv has no code page 932");
    }
    ~Converter() { iconv_close(m_handle); }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    // The bytes written, 0 if the character has no counterpart.
    std::size_t Convert(std::string_view character, std::array<char, 4>& out) {
        std::string input(character);
        char* from = input.data();
        std::size_t fromLeft = input.size();
        char* to = out.data();
        std::size_t toLeft = out.size();
        iconv(m_handle, nullptr, nullptr, nullptr, nullptr);
        const bool isDone = iconv(m_handle, &from, &fromLeft, &to, &toLeft) == 0 && fromLeft == 0;
        return isDone ? out.size() - toLeft : 0;
    }

  private:
    iconv_t m_handle;
};

// Both directions of the page, each character asked of iconv once. A character is its one byte, or its first
// byte times 256 plus its second. 0 stands for "none".
class Page {
  public:
    // Null if the platform can't tell the page.
    static const Page* Get() {
        static const std::unique_ptr<const Page> page = Made();
        return page.get();
    }

    Page() {
        for (unsigned byte = 1; byte < 256; ++byte) {
            if (!IsLeadByte(static_cast<unsigned char>(byte)))
                Add(byte);
            else
                for (unsigned second = 0x40; second < 256; ++second)
                    Add(byte * 256 + second);
        }
    }

    char16_t Unicode(std::uint16_t character) const { return m_unicode[character]; }
    std::uint16_t Character(std::uint32_t unicode) const {
        const std::uint16_t found = unicode < m_characters.size() ? m_characters[unicode] : 0;
        return found ? found : kUnknownCharacter;
    }

  private:
    static std::unique_ptr<const Page> Made() {
        try {
            return std::make_unique<const Page>();
        } catch (const std::exception&) {
            return nullptr;
        }
    }

    void Add(unsigned character) {
        std::string bytes;
        if (character > 255)
            bytes += static_cast<char>(character / 256);
        bytes += static_cast<char>(character % 256);
        std::array<char, 4> out{};
        if (m_toUnicode.Convert(bytes, out) != 2)
            return;
        const auto unit = static_cast<char16_t>(Byte(out[0]) + Byte(out[1]) * 256);
        m_unicode[character] = unit;
        // Some characters stand at several places of the page; iconv knows the one they come back to.
        std::array<char, 4> back{};
        const std::size_t size = m_fromUnicode.Convert({out.data(), 2}, back);
        if (size != 0)
            m_characters[unit] =
                static_cast<std::uint16_t>(size == 2 ? Byte(back[0]) * 256 + Byte(back[1]) : Byte(back[0]));
    }
    static unsigned Byte(char byte) { return static_cast<unsigned char>(byte); }

    Converter m_toUnicode{"UTF-16LE", "CP932"};
    Converter m_fromUnicode{"CP932", "UTF-16LE"};
    std::array<char16_t, 65536> m_unicode{};
    std::array<std::uint16_t, 65536> m_characters{};
};

void AppendUtf8(std::string& utf8, char16_t unit) {
    if (unit < 0x80) {
        utf8 += static_cast<char>(unit);
        return;
    }
    if (unit < 0x800) {
        utf8 += static_cast<char>(0xC0 | unit >> 6);
    } else {
        utf8 += static_cast<char>(0xE0 | unit >> 12);
        utf8 += static_cast<char>(0x80 | (unit >> 6 & 0x3F));
    }
    utf8 += static_cast<char>(0x80 | (unit & 0x3F));
}

// Takes the first code point from the text.
std::uint32_t TakeCodePoint(std::string_view& utf8) {
    const auto lead = static_cast<unsigned char>(utf8.front());
    const std::size_t width = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    std::uint32_t codePoint = width == 1 ? lead : lead & (0x7Fu >> width);
    for (std::size_t at = 1; at < width && at < utf8.size(); ++at)
        codePoint = codePoint << 6 | (static_cast<unsigned char>(utf8[at]) & 0x3Fu);
    utf8.remove_prefix(std::min(width, utf8.size()));
    return codePoint;
}

} // namespace

bool PrepareCp932() {
    return Page::Get() != nullptr;
}

std::string WrittenUtf8(std::string_view cp932) {
    const Page& page = *Page::Get();
    std::string utf8;
    for (std::size_t at = 0; at < cp932.size(); ++at) {
        const auto byte = static_cast<unsigned char>(cp932[at]);
        char16_t unit = page.Unicode(byte);
        if (IsLeadByte(byte)) {
            if (++at == cp932.size())
                break;
            const auto second = static_cast<unsigned char>(cp932[at]);
            unit = page.Unicode(static_cast<std::uint16_t>(byte * 256 + second));
            if (unit == 0)
                unit = kUnknownPair;
        }
        if (IsWritten(unit))
            AppendUtf8(utf8, unit);
    }
    return utf8;
}

void AppendCp932(std::string& cp932, std::string_view utf8) {
    const Page& page = *Page::Get();
    while (!utf8.empty()) {
        const std::uint32_t codePoint = TakeCodePoint(utf8);
        // Line ends and tabs of a file are characters of its texts.
        const std::uint16_t character =
            codePoint < 0x80 ? static_cast<std::uint16_t>(codePoint) : page.Character(codePoint);
        if (character > 255)
            cp932 += static_cast<char>(character / 256);
        cp932 += static_cast<char>(character % 256);
    }
}

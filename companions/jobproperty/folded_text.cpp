#include "companions/jobproperty/folded_text.h"

#include "Common/text.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace jobproperty {
namespace {

constexpr char16_t Code(char lead, char second) {
    return static_cast<char16_t>(static_cast<unsigned char>(lead) << 8 | static_cast<unsigned char>(second));
}

// The codes of a literal that has double-byte characters only.
template <std::size_t Size>
constexpr auto Codes(const char (&text)[Size]) {
    static_assert(Size % 2 == 1);
    std::array<char16_t, Size / 2> codes{};
    for (std::size_t i = 0; i < codes.size(); ++i)
        codes[i] = Code(text[2 * i], text[2 * i + 1]);
    return codes;
}

// The full-width forms of 0x20 to 0x7E.
constexpr auto kWideAscii = Codes("　！”＃＄％＆’（）＊＋，－．／０１２３４５６７８９：；＜＝＞？"
                                  "＠ＡＢＣＤＥＦＧＨＩＪＫＬＭＮＯＰＱＲＳＴＵＶＷＸＹＺ［￥］＾＿"
                                  "｀ａｂｃｄｅｆｇｈｉｊｋｌｍｎｏｐｑｒｓｔｕｖｗｘｙｚ｛｜｝～");
static_assert(kWideAscii.size() == 0x7F - 0x20);

// The full-width forms of 0xA1 to 0xDF.
constexpr auto kWideKana = Codes("。「」、・ヲァィゥェォャュョッーアイウエオカキクケコサシスセソ"
                                 "タチツテトナニヌネノハヒフヘホマミムメモヤユヨラリルレロワン゛゜");
static_assert(kWideKana.size() == 0xE0 - 0xA1);

constexpr auto kVoiced = Codes("カキクケコサシスセソタチツテトハヒフヘホ");
constexpr auto kHalfVoiced = Codes("ハヒフヘホ");
constexpr char16_t kU = Codes("ウ")[0];
constexpr char16_t kVu = Codes("ヴ")[0];

constexpr unsigned char kHalfVoicedMark = 0xDF;
constexpr unsigned char kVoicedMark = 0xDE;

template <std::size_t Count>
constexpr bool Contains(const std::array<char16_t, Count>& codes, char16_t code) {
    return std::ranges::find(codes, code) != codes.end();
}

// The kana with a half-width mark behind it, 0 if the two stay apart. The page has them one behind the other.
constexpr char16_t Joined(char16_t kana, unsigned char mark) {
    if (mark == kVoicedMark && kana == kU)
        return kVu;
    if (mark == kVoicedMark && Contains(kVoiced, kana))
        return static_cast<char16_t>(kana + 1);
    if (mark == kHalfVoicedMark && Contains(kHalfVoiced, kana))
        return static_cast<char16_t>(kana + 2);
    return 0;
}

constexpr char16_t SmallLetter(char16_t code) {
    return code >= 'A' && code <= 'Z' ? static_cast<char16_t>(code + ('a' - 'A')) : code;
}

char16_t FoldedPair(char lead, char second) {
    const char16_t code = Code(lead, second);
    const auto wide = std::ranges::find(kWideAscii, code);
    return wide == kWideAscii.end() ? code : static_cast<char16_t>(0x20 + (wide - kWideAscii.begin()));
}

bool IsHalfWidthKana(unsigned char byte) {
    return byte >= 0xA1 && byte <= 0xDF;
}

} // namespace

std::u16string FoldedText(std::string_view text) {
    std::u16string folded;
    folded.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        const auto byte = static_cast<unsigned char>(text[at]);
        if (IsLeadByte(byte) && at + 1 < text.size()) {
            folded += SmallLetter(FoldedPair(text[at], text[at + 1]));
            ++at;
        } else if (IsHalfWidthKana(byte)) {
            const char16_t kana = kWideKana[byte - 0xA1u];
            const char16_t joined =
                at + 1 < text.size() ? Joined(kana, static_cast<unsigned char>(text[at + 1])) : u'\0';
            folded += joined ? joined : kana;
            at += joined ? 1 : 0;
        } else {
            folded += SmallLetter(byte);
        }
    }
    return folded;
}

std::vector<std::u16string> FoldedWords(std::string_view text) {
    std::vector<std::u16string> words;
    std::u16string word;
    for (const char16_t code : FoldedText(text) + u' ') {
        if (std::u16string_view(u" \t\r\n").find(code) == std::u16string_view::npos) {
            word += code;
        } else if (!word.empty()) {
            words.push_back(std::move(word));
            word.clear();
        }
    }
    return words;
}

} // namespace jobproperty

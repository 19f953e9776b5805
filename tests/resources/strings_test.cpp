#include "Common/strings.h"
#include "tests/support/ansi_text.h"

#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <map>
#include <string>
#include <string_view>

#if defined(_WIN32)
#include <windows.h>
#endif

namespace {

std::string Unescape(std::string_view text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\\' && i + 1 < text.size())
            plain += text[++i] == 'n' ? '\n' : text[i];
        else
            plain += text[i];
    }
    return plain;
}

// strings.tsv: number, status and text of each row, below a line of headings.
std::map<unsigned, std::string> ListedStrings() {
    std::map<unsigned, std::string> strings;
    std::ifstream file(ZR_TEST_DATA_DIR "/strings.tsv", std::ios::binary);
    std::string line;
    std::getline(file, line);
    while (std::getline(file, line)) {
        const std::size_t first = line.find('\t');
        const std::size_t second = line.find('\t', first + 1);
        if (second != std::string::npos)
            strings[static_cast<unsigned>(std::stoul(line))] = AnsiText(Unescape(line.substr(second + 1)));
    }
    return strings;
}

const std::map<unsigned, std::string> kOwnStrings{
    {24000, "左"},       {24001, "右"},       {24002, "上"},     {24003, "下"},
    {24004, "2穴"},      {24005, "3穴"},      {24006, "4穴"},    {24007, "長辺とじ"},
    {24008, "短辺とじ"}, {24009, "天地同じ"}, {24010, "天地逆"},
};

TEST(Strings, HoldEveryListedTextUnderItsNumber) {
    const auto strings = ListedStrings();
    ASSERT_EQ(strings.size(), 191u);
    for (const auto& [number, text] : strings)
        EXPECT_EQ(LoadText(number), text) << number;
}

TEST(Strings, HoldTheTextsOfOptionListsFrom24000Up) {
    for (const auto& [number, text] : kOwnStrings)
        EXPECT_EQ(LoadText(number), text) << number;
}

TEST(Strings, HaveNothingUnderAnyOtherNumber) {
    const auto strings = ListedStrings();
    for (unsigned number = 0; number <= 0xFFFF; ++number) {
        if (!strings.contains(number) && !kOwnStrings.contains(number)) {
            ASSERT_EQ(LoadText(number), "") << number;
        }
    }
}

TEST(Strings, TellALineBreakAndAQuotationMark) {
    EXPECT_EQ(LoadText(2132), "\"%s-%s\"と\"%s-%s\"を同時に指定できません。\n\nジョブプロパティ画面より"
                              "\"%s\"を\"%s\"に設定してください。");
}

TEST(LoadText, CutsOnACharacterBoundary) {
    std::array<char, 6> buffer;
    EXPECT_EQ(LoadText(2500, buffer), 4u); // 詳細設定 has eight bytes
    EXPECT_STREQ(buffer.data(), "詳細");
}

TEST(LoadText, GivesAnEmptyTextForANumberThatIsNotThere) {
    std::array<char, 8> buffer{'x', 'x'};
    EXPECT_EQ(LoadText(2501, buffer), 0u);
    EXPECT_STREQ(buffer.data(), "");
}

TEST(LoadText, WritesNothingIntoAnEmptyBuffer) {
    char byte = 'x';
    EXPECT_EQ(LoadText(2500, std::span(&byte, 0)), 0u);
    EXPECT_EQ(byte, 'x');
}

#if defined(_WIN32)
TEST(StringModule, IsWhereTextsComeFrom) {
    SetStringModule(GetModuleHandleA("kernel32.dll"));
    EXPECT_NE(LoadText(2500), "詳細設定");
    SetStringModule(GetModuleHandleA(nullptr));
    EXPECT_EQ(LoadText(2500), "詳細設定");
    SetStringModule(nullptr);
    EXPECT_EQ(LoadText(2500), "詳細設定");
}
#endif

} // namespace

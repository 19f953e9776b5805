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

struct ListedString {
    std::string status;
    std::string text;
};

// strings.tsv: number, status and text of each row, below a line of headings. A "given" text must stand as it
// is; a "proposed" one may be bettered.
std::map<unsigned, ListedString> ListedStrings() {
    std::map<unsigned, ListedString> strings;
    std::ifstream file(ZR_TEST_DATA_DIR "/strings.tsv", std::ios::binary);
    std::string line;
    std::getline(file, line);
    while (std::getline(file, line)) {
        const std::size_t first = line.find('\t');
        const std::size_t second = line.find('\t', first + 1);
        if (second != std::string::npos)
            strings[static_cast<unsigned>(std::stoul(line))] = {line.substr(first + 1, second - first - 1),
                                                                AnsiText(Unescape(line.substr(second + 1)))};
    }
    return strings;
}

// What stands in place of a proposed text.
const std::map<unsigned, std::string> kBetterTexts{
    {6015, "ファイル名が長すぎます。\nファイル名が26バイト以内のファイルを選択してください。"},
    {15022, "読み込み/保存(&W)..."},
    {20044, "自動取得する(&A)"},
    {20045, "ジョブ名を入力する(&E)"},
};

// The texts of option lists that have no listed number; options_test knows each of them.
constexpr unsigned kFirstOwn = 24000;
constexpr unsigned kLastOwn = 24266;
// The texts of the job property application.
constexpr unsigned kFirstOfApplication = 24300;
constexpr unsigned kLastOfApplication = 24329;

bool HasAnOwnNumber(unsigned number) {
    return (number >= kFirstOwn && number <= kLastOwn) ||
           (number >= kFirstOfApplication && number <= kLastOfApplication);
}

TEST(Strings, HoldEveryListedTextUnderItsNumber) {
    const auto strings = ListedStrings();
    ASSERT_EQ(strings.size(), 191u);
    for (const auto& [number, listed] : strings) {
        const auto better = kBetterTexts.find(number);
        EXPECT_EQ(LoadText(number), better == kBetterTexts.end() ? listed.text : better->second) << number;
    }
}

TEST(Strings, DepartOnlyFromProposedTexts) {
    const auto strings = ListedStrings();
    for (const auto& [number, text] : kBetterTexts) {
        ASSERT_TRUE(strings.contains(number)) << number;
        EXPECT_EQ(strings.at(number).status, "proposed") << number;
    }
}

TEST(Strings, HoldTheTextsOfOptionListsFrom24000UpWithoutAGap) {
    for (unsigned number = kFirstOwn; number <= kLastOwn; ++number)
        EXPECT_NE(LoadText(number), "") << number;
}

TEST(Strings, HoldTheTextsOfTheJobPropertyApplicationWithoutAGap) {
    for (unsigned number = kFirstOfApplication; number <= kLastOfApplication; ++number)
        EXPECT_NE(LoadText(number), "") << number;
}

TEST(Strings, HaveNothingUnderAnyOtherNumber) {
    const auto strings = ListedStrings();
    for (unsigned number = 0; number <= 0xFFFF; ++number) {
        if (!strings.contains(number) && !HasAnOwnNumber(number)) {
            ASSERT_EQ(LoadText(number), "") << number;
        }
    }
}

TEST(Strings, HaveNo23000ForStapleFreeBinding) {
    EXPECT_EQ(LoadText(23000), "");
}

TEST(Strings, HoldTheTextOfMixedSizesOnce) {
    for (unsigned number = 0; number <= 0xFFFF; ++number) {
        if (number != 10343) {
            ASSERT_NE(LoadText(number), "(サイズ混在)") << number;
        }
    }
}

TEST(Strings, HoldTheSquareMetreAsOneCharacterOfTheCodePage) {
    EXPECT_EQ(LoadText(24192), "52-63 g/\x87\x75");
}

TEST(Strings, KeepABlankAtTheirEnd) {
    EXPECT_EQ(LoadText(24017), "B5(182x257mm) LEF ");
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

// The two string tables, row by row: what the English one must share with the Japanese one.
#include "option_text_numbers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <map>
#include <regex>
#include <string>
#include <utility>
#include <vector>

namespace {

using Rows = std::map<unsigned, std::string>;

const Rows kJapanese{
#define ZR_STRING(number, text) {number, text},
#define ZR_SHARED_STRING(number, text)
#include "resources/strings.def"
#undef ZR_STRING
};

const Rows kShared{
#define ZR_STRING(number, text)
#define ZR_SHARED_STRING(number, text) {number, text},
#include "resources/strings.def"
#undef ZR_STRING
};

#define ZR_STRING(number, text) std::pair<unsigned, const char*>{number, text},
constexpr std::array kEnglishRows{
#include "resources/strings_enu.def"
};
#undef ZR_STRING

const Rows kEnglish(kEnglishRows.begin(), kEnglishRows.end());

// The whole table of a language.
Rows With(const Rows& shared, Rows rows) {
    rows.insert(shared.begin(), shared.end());
    return rows;
}
const Rows kAllJapanese = With(kShared, kJapanese);
const Rows kAllEnglish = With(kShared, kEnglish);

std::string TextOf(const Rows& rows, unsigned number) {
    const auto row = rows.find(number);
    return row == rows.end() ? "" : row->second;
}

// Each match, one after the other.
std::string Matches(const std::string& text, const char* pattern) {
    const std::regex wanted(pattern);
    std::string all;
    for (auto at = std::sregex_iterator(text.begin(), text.end(), wanted); at != std::sregex_iterator(); ++at)
        all += at->str();
    return all;
}

void ExpectSameMatches(const char* pattern) {
    for (const auto& [number, japanese] : kJapanese)
        EXPECT_EQ(Matches(TextOf(kEnglish, number), pattern), Matches(japanese, pattern)) << number;
}

const std::map<std::string, unsigned> kTagTexts{
#define ZR_OPTION_TAG(tag, text) {#tag, text},
#include "options/option_tags.def"
};

struct Label {
    std::string item;
    unsigned text;
    std::string suffix;
};

const std::vector<Label> kLabels{
#define ZR_TEXT_LABEL(item, text, suffix) {#item, text, suffix},
#define ZR_TAG_LABEL(item, tag, suffix) {#item, kTagTexts.at(#tag), suffix},
#include "options/option_labels.def"
};

} // namespace

TEST(EnglishTexts, StandForEachRowThatIsNotTheSameInEveryLanguage) {
    std::vector<unsigned> japanese;
    for (const auto& row : kJapanese)
        japanese.push_back(row.first);
    std::vector<unsigned> english;
    for (const auto& row : kEnglishRows)
        english.push_back(row.first);
    EXPECT_EQ(english, japanese);
}

// What the code looks up in the system, compares or puts into files and command lines, and texts without
// words.
TEST(EnglishTexts, ShareWhatIsNoText) {
    const Rows named{
        {76, "_def"},
        {2103, ""},
        {2121, ":"},
        {3156, "KV Print Server"},
        {6007, ".sfk"},
        {6026, "Zephra\\KP Controller"},
        {10040, "600x600dpi"},
        {10041, "1200x1200dpi"},
        {14200, "SYSTEM\\ControlSet001\\Control\\Print\\Monitors\\Standard TCP/IP Port\\Ports\\"},
        {14201, "HostName"},
        {14203, "IPAddress"},
        {16000, ".pfk"},
        {16001, "*.pfk"},
        {20035, "(2-255)"},
        {20129, "OK"},
        {20131, "(89.0, 320.0)"},
        {20132, "(98.0, 1200.0)"},
        {20700, "\\System32\\spool\\drivers\\ZR_ORKPN01_300_PDF_JPN_x64"},
        {20702, "\\System32\\spool\\drivers\\ZR_ORKPN01_300_PDF_JPN_x86"},
        {20708, "C:\\Windows\\System32\\spool\\drivers\\ZR_ORKPN01_300_PDF_JPN_x86\\"
                "PrinterDriverApplication.exe "},
        {20709, "C:\\Windows\\System32\\spool\\drivers\\ZR_ORKPN01_300_PDF_JPN_x64\\"
                "PrinterDriverApplication.exe "},
        {20710, "C:\\Windows\\System32\\spool\\drivers\\ZR_ORKPN01_300_PS_JPN_x86\\"
                "PrinterDriverApplication.exe "},
        {20711, "C:\\Windows\\System32\\spool\\drivers\\ZR_ORKPN01_300_PS_JPN_x64\\"
                "PrinterDriverApplication.exe "},
        {20712, "ZRPDS31J"},
        {24222, "MediaCustom"},
    };
    for (const auto& [number, text] : named)
        EXPECT_EQ(TextOf(kShared, number), text) << number;
    // All others are paper sizes in figures.
    const std::regex size(R"re((SRA3|[AB]\d|[\d.]+ ?x ?[\d.]+(mm)?"?)(x2|\([\dx]+mm\))?( [LS]EF ?)?)re");
    for (const auto& [number, text] : kShared) {
        if (!named.contains(number)) {
            EXPECT_TRUE(std::regex_match(text, size)) << number << " " << text;
        }
    }
}

TEST(EnglishTexts, ArePrintableAsciiWithLineBreaks) {
    for (const auto& [number, text] : kAllEnglish) {
        for (const char byte : text)
            EXPECT_TRUE((byte >= ' ' && byte <= '~') || byte == '\n') << number << " " << text;
    }
}

TEST(EnglishTexts, AreNotEmpty) {
    for (const auto& [number, text] : kEnglish)
        EXPECT_NE(text, "") << number;
}

TEST(EnglishTexts, HaveThePlaceholdersOfTheJapaneseOnesInTheirOrder) {
    ExpectSameMatches("%.");
}

TEST(EnglishTexts, HaveTheLineBreaksOfTheJapaneseOnes) {
    ExpectSameMatches("\n+");
    for (const auto& [number, japanese] : kJapanese)
        EXPECT_EQ(kEnglish.at(number).ends_with('\n'), japanese.ends_with('\n')) << number;
}

TEST(EnglishTexts, HaveTheAcceleratorsOfTheJapaneseOnes) {
    ExpectSameMatches("\\(&.\\)(\\.\\.\\.)?");
    for (const auto& [number, text] : kEnglish)
        EXPECT_EQ(text.find('&') == std::string::npos, Matches(text, "\\(&.\\)").empty()) << number;
}

TEST(EnglishTexts, HaveTheFiguresOfTheJapaneseOnesInAPaperSize) {
    for (const unsigned number : kOptionTexts.at("ChgPrintPaperSizeType"))
        EXPECT_EQ(Matches(TextOf(kAllEnglish, number), "\\([\\dx]+mm\\)"),
                  Matches(TextOf(kAllJapanese, number), "\\([\\dx]+mm\\)"))
            << number;
}

TEST(EnglishTexts, AreTheSameForTheSameJapaneseText) {
    std::map<std::string, std::string> known;
    for (const auto& [number, japanese] : kJapanese) {
        const auto [row, isNew] = known.emplace(japanese, TextOf(kEnglish, number));
        EXPECT_EQ(row->second, TextOf(kEnglish, number)) << number;
    }
}

TEST(EnglishTexts, OfOneListAreDistinctWhereTheJapaneseOnesAre) {
    ASSERT_GT(kOptionTexts.size(), 20u);
    for (const auto& [item, numbers] : kOptionTexts) {
        std::map<std::string, std::string> japaneseOf;
        for (const unsigned number : numbers) {
            const std::string japanese = TextOf(kAllJapanese, number);
            const auto [row, isNew] = japaneseOf.emplace(TextOf(kAllEnglish, number), japanese);
            EXPECT_EQ(row->second, japanese) << item << " " << number;
        }
    }
}

TEST(EnglishTexts, FitIntoTheBufferOfALookUp) {
    for (const auto& [number, text] : kAllEnglish)
        EXPECT_LE(text.size(), 259u) << number;
}

TEST(EnglishTexts, FitWithTheirSuffixIntoTheBufferOfALabel) {
    for (const Label& label : kLabels)
        EXPECT_LE(TextOf(kAllEnglish, label.text).size() + label.suffix.size(), 63u) << label.item;
}

TEST(EnglishTexts, FitIntoTheMessageOfAConflict) {
    constexpr std::size_t kArgumentLength = 63;
    constexpr std::size_t kMessageLength = 511;
    std::size_t longestName = 0;
    for (const Label& label : kLabels)
        longestName = std::max(longestName, TextOf(kAllEnglish, label.text).size());
    std::size_t longestValue = 0;
    for (const auto& [item, numbers] : kOptionTexts) {
        for (const unsigned number : numbers)
            longestValue = std::max(longestValue, TextOf(kAllEnglish, number).size());
    }
    EXPECT_LE(longestName, kArgumentLength);
    EXPECT_LE(longestValue, kArgumentLength);
    EXPECT_LE(kEnglish.at(2130).size() + 3 * longestName + 4 * longestValue, kMessageLength);
    EXPECT_LE(kEnglish.at(2132).size() + 3 * longestName + 3 * longestValue, kMessageLength);
}

TEST(EnglishTexts, FitIntoTheTitleOfAConflict) {
    EXPECT_LE(kAllEnglish.at(3156).size(), 19u);
}

TEST(EnglishTexts, OfAPunchPlaceAndOfHolesStandBesideEachOther) {
    EXPECT_EQ(kEnglish.at(24000) + kEnglish.at(24004), "Left 2 Holes");
    EXPECT_EQ(kEnglish.at(24004) + kEnglish.at(10343), "2 Holes (Mixed Sizes) ");
    EXPECT_EQ(kEnglish.at(10343) + kEnglish.at(24004), " (Mixed Sizes) 2 Holes");
}

// Option 13 of the punch is found by this text, so no other option may have it.
TEST(EnglishTexts, HaveTheTextOfMixedSizesOnce) {
    const std::string mixed = kEnglish.at(10343);
    EXPECT_EQ(std::ranges::count_if(kAllEnglish, [&](const auto& row) { return row.second == mixed; }), 1);
}

// The row of a changed favourite is told by the mark that it begins with.
TEST(EnglishTexts, HaveAMarkOfChangedFavouritesThatNoNameCanHold) {
    EXPECT_EQ(kEnglish.at(6019).front(), '<');
    EXPECT_EQ(kEnglish.at(6019).back(), '>');
}

TEST(EnglishTexts, HaveANameOfTheStandardSettingsThatAFavouriteCouldHave) {
    EXPECT_LE(kEnglish.at(6020).size(), 27u);
    EXPECT_EQ(kEnglish.at(6020).find_first_of("\\/:*?\"<>|"), std::string::npos);
}

// The name that the stock driver gives the form in English.
TEST(EnglishTexts, NameTheCustomFormAsTheStockDriverDoes) {
    EXPECT_EQ(kEnglish.at(15140), "PostScript Custom Page Size");
    EXPECT_EQ(kEnglish.at(15141), "PostScript Custom Page Size");
}

TEST(EnglishTexts, NameTheirLanguage) {
    EXPECT_EQ(kJapanese.at(20300), "Japanese");
    EXPECT_EQ(kEnglish.at(20300), "English");
}

// The stock driver's tree of options shows the English side of the device description, the pages that of the
// string table: a user meets both, so what has one Japanese text has one English text.
#include "x100_description.h"

#include "tests/support/ansi_text.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

namespace {

using namespace x100_description;

// The English texts of the description, by the Japanese one in the code page of the string table.
const std::map<std::string, std::set<std::string>>& DescriptionWords() {
    static const auto words = [] {
        std::map<std::string, std::set<std::string>> result;
        for (const Feature& feature : Features()) {
            result[AnsiText(feature.japanese)].insert(feature.english);
            for (const Option& option : feature.options)
                result[AnsiText(option.japanese)].insert(option.english);
        }
        return result;
    }();
    return words;
}

// Rows that have words of their own.
const std::map<unsigned, std::string> kOwnWords{
    // Of another thing that has the same Japanese text: the standard favourite, and a button.
    {6020, "Default"},
    {20112, "Save"},
    // The description's words need more room than the label has.
    {10890, "Output Tray"},
    // The description uses the name that its format has for them, or a shorter one than reads well alone.
    {10000, "Document Size"},
    {10002, "Print at Center of Paper"},
    {10959, "Paper Type-Weight"},
    {24233, "1 Staple at Top Left"},
    {24234, "1 Staple at Top Right"},
    {24235, "1 Staple at Bottom Left"},
    {24236, "1 Staple at Bottom Right"},
    {24241, "Saddle Stitch"},
    {24250, "Saddle Stitch (Print Inside)"},
    {24251, "Saddle Stitch (Print Outside)"},
    // With the blanks that part them from the holes.
    {10343, " (Mixed Sizes) "},
    {24000, "Left "},
    {24001, "Right "},
    {24002, "Top "},
    {24003, "Bottom "},
};

const std::map<unsigned, std::string> kJapanese{
#define ZR_STRING(number, text) {number, text},
#define ZR_SHARED_STRING(number, text)
#include "resources/strings.def"
#undef ZR_STRING
};

const std::map<unsigned, std::string> kEnglish{
#define ZR_STRING(number, text) {number, text},
#include "resources/strings_enu.def"
#undef ZR_STRING
};

// Those of the page have their measures in them, those of the description have none.
bool IsSheet(const std::string& text) {
    return text.ends_with(" LEF") || text.ends_with(" SEF");
}

} // namespace

TEST(EnglishTexts, AreThoseOfTheDeviceDescriptionButForWordsOfTheirOwn) {
    int compared = 0;
    for (const auto& [number, japanese] : kJapanese) {
        const auto words = DescriptionWords().find(japanese);
        if (words == DescriptionWords().end() || IsSheet(japanese))
            continue;
        ++compared;
        const std::string& english = kEnglish.at(number);
        if (const auto own = kOwnWords.find(number); own != kOwnWords.end()) {
            EXPECT_EQ(english, own->second) << number;
            EXPECT_FALSE(words->second.contains(english)) << number << " has no words of its own";
        } else {
            EXPECT_TRUE(words->second.contains(english)) << number << " " << english;
        }
    }
    EXPECT_GT(compared, 150);
}

#include "settings/InterchangeOptionTag.h"

#include "Common/log_recorder.h"

#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <vector>

namespace {

using Lines = std::vector<std::string>;

template <typename Call>
Lines LinesOf(Call call) {
    const log_backend::Recorder log;
    call();
    EXPECT_TRUE(log.record.empty());
    return log.main;
}

Lines LinesOfTagNumber(int number, int optionIndex) {
    std::int32_t tag = 0;
    return LinesOf([&] { GetTagNumberFromPreset(number, optionIndex, &tag); });
}

Lines LinesOfOptionIndex(int number, std::int32_t tag) {
    int index = 0;
    return LinesOf([&] { GetOptionIndexFromTagNumber(number, tag, &index); });
}

// Each expected line without the source file and line number in front.
void ExpectLines(const Lines& lines, const Lines& expected) {
    ASSERT_EQ(lines.size(), expected.size());
    const std::regex place("^[^ ]*tag_arrays\\.cpp [0-9]+\x8D\x73\x96\xDA "); // "行目" in CP932
    for (std::size_t i = 0; i < lines.size(); ++i) {
        std::smatch match;
        ASSERT_TRUE(std::regex_search(lines[i], match, place)) << lines[i];
        EXPECT_EQ(match.suffix().str(), expected[i]);
    }
}

const std::string kOutputPaperSize = "GetTagIndexArrayFromKeyword KW_OUTPUTPAPERSIZE\n";

TEST(TagLog, NamesTheOutputPaperSizeWhenItsArrayIsAsked) {
    const std::int32_t* array = nullptr;
    int count = 0;
    ExpectLines(LinesOf([&] { GetTagIndexArrayFromKeyword(12, &array, &count); }), {kOutputPaperSize});
}

TEST(TagLog, IsSilentWhenAnyOtherArrayIsAsked) {
    const std::int32_t* array = nullptr;
    int count = 0;
    for (int number = -1; number <= 570; ++number) {
        if (number == 12)
            continue;
        ExpectLines(LinesOf([&] { GetTagIndexArrayFromKeyword(number, &array, &count); }), {});
    }
}

TEST(TagLog, IsSilentForConversionsThatSucceed) {
    ExpectLines(LinesOfTagNumber(4, 7), {});
    ExpectLines(LinesOfOptionIndex(4, 25), {});
}

TEST(TagLog, HasALineForAnOptionThatIsNotThere) {
    ExpectLines(LinesOfTagNumber(4, 8), {"GetTagNumberFromPreset Error KW=4\n"});
    ExpectLines(LinesOfTagNumber(-5, -1), {"GetTagNumberFromPreset Error KW=-5\n"});
}

TEST(TagLog, HasALineWithParenthesesForATagThatNoOptionHas) {
    ExpectLines(LinesOfOptionIndex(4, 6),
                {"GetOptionIndexFromTagNumber() return:FALSE keywordID=4 optionKeywordTag=6\n"});
    ExpectLines(LinesOfOptionIndex(999, -2),
                {"GetOptionIndexFromTagNumber() return:FALSE keywordID=999 optionKeywordTag=-2\n"});
}

TEST(TagLog, NamesTheOutputPaperSizeInFrontOfAnError) {
    ExpectLines(LinesOfTagNumber(12, 50), {kOutputPaperSize, "GetTagNumberFromPreset Error KW=12\n"});
    ExpectLines(LinesOfOptionIndex(12, 5000),
                {kOutputPaperSize,
                 "GetOptionIndexFromTagNumber() return:FALSE keywordID=12 optionKeywordTag=5000\n"});
    ExpectLines(LinesOfTagNumber(12, 49), {kOutputPaperSize});
}

TEST(TagLog, IsSilentForTagsAndNamesThatTheTableLacks) {
    std::string text;
    std::string description;
    ExpectLines(LinesOf([&] {
                    CTagTable().GetTagInfo("NoTag", &text, &description);
                    CTagTable().GetTagFromLongName("NoName", &text);
                }),
                {});
}

} // namespace

#include "host/ppd.h"

#include "tests/support/file_contents.h"
#include "tests/support/utf8_text.h"

#include <gtest/gtest.h>

#include <string>

namespace {

ppd::PpdFile MustParse(const std::string& text) {
    auto result = ppd::Parse(text);
    if (auto* error = std::get_if<ppd::PpdError>(&result)) {
        ADD_FAILURE() << "line " << error->line << ": " << error->message;
        return {};
    }
    return std::get<ppd::PpdFile>(std::move(result));
}

ppd::PpdError MustRefuse(const std::string& text) {
    auto result = ppd::Parse(text);
    if (auto* error = std::get_if<ppd::PpdError>(&result))
        return *error;
    ADD_FAILURE() << "accepted";
    return {};
}

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

std::string ReplacedAll(std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
        text.replace(at, from.size(), to);
    return text;
}

// A whole description but for more statements at its end.
std::string With(const std::string& statements) {
    return SmallPpd() + statements + "\n";
}

TEST(Ppd, ReadsWhoMadeThePrinter) {
    ppd::PpdFile file = MustParse(SmallPpd());
    EXPECT_EQ(file.manufacturer, "Zephra");
    EXPECT_EQ(file.modelName, "Zephra Small");
    EXPECT_EQ(file.nickName, "Zephra Small Tester");
    EXPECT_EQ(file.pcFileName, "SMALL.PPD");
    EXPECT_TRUE(file.colorDevice);
}

TEST(Ppd, KeepsFeaturesInFileOrder) {
    ppd::PpdFile file = MustParse(SmallPpd());
    std::vector<std::string> keywords;
    for (const ppd::Feature& feature : file.features)
        keywords.push_back(feature.keyword);
    EXPECT_EQ(keywords,
              (std::vector<std::string>{"PageSize", "PageRegion", "InputSlot", "MediaType", "Resolution",
                                        "StapleMode", "Fold", "MirroredImage", "SecPrint"}));
}

TEST(Ppd, ReadsAFeatureWithItsTextsGroupAndDefault) {
    ppd::PpdFile file = MustParse(SmallPpd());
    const ppd::Feature& feature = file.features.at(file.FindFeature("StapleMode").value());
    EXPECT_EQ(feature.text, "Staple");
    EXPECT_EQ(feature.japanese, Utf8(u8"ホチキス"));
    EXPECT_EQ(feature.group, "FinishingGroup");
    EXPECT_EQ(feature.kind, ppd::FeatureKind::PickOne);
    EXPECT_FALSE(feature.jcl);
    EXPECT_EQ(feature.defaultOption, 0u);
    ASSERT_EQ(feature.options.size(), 3u);
    EXPECT_EQ(feature.options[1].keyword, "TopLeft");
    EXPECT_EQ(feature.options[1].text, "Top Left");
    EXPECT_EQ(feature.options[1].japanese, Utf8(u8"左上"));
}

TEST(Ppd, LeavesAMissingJapaneseTextEmpty) {
    ppd::PpdFile file = MustParse(SmallPpd());
    const ppd::Feature& feature = file.features.at(file.FindFeature("StapleMode").value());
    EXPECT_EQ(feature.options.at(2).keyword, "TopRight");
    EXPECT_EQ(feature.options.at(2).japanese, "");
}

TEST(Ppd, TakesTheKeywordWhereThereIsNoText) {
    ppd::PpdFile file = MustParse(Replaced(SmallPpd(), "*Fold Half/Half:", "*Fold Half:"));
    EXPECT_EQ(file.features.at(file.FindFeature("Fold").value()).options.at(1).text, "Half");
}

TEST(Ppd, KnowsTheDefaultThatIsNotTheFirstOption) {
    ppd::PpdFile file = MustParse(SmallPpd());
    EXPECT_EQ(file.features.at(file.FindFeature("PageSize").value()).defaultOption, 1u);
    EXPECT_EQ(file.features.at(file.FindFeature("MirroredImage").value()).defaultOption, 1u);
}

TEST(Ppd, ReadsBooleanAndJclFeatures) {
    ppd::PpdFile file = MustParse(SmallPpd());
    EXPECT_EQ(file.features.at(file.FindFeature("MirroredImage").value()).kind, ppd::FeatureKind::Boolean);
    const ppd::Feature& jcl = file.features.at(file.FindFeature("SecPrint").value());
    EXPECT_TRUE(jcl.jcl);
    EXPECT_EQ(jcl.group, "");
}

TEST(Ppd, GivesEachPaperItsDimensionAndArea) {
    ppd::PpdFile file = MustParse(SmallPpd());
    ASSERT_EQ(file.papers.size(), 4u);
    EXPECT_DOUBLE_EQ(file.papers[3].width, 297.64);
    EXPECT_DOUBLE_EQ(file.papers[3].height, 666.14);
    EXPECT_DOUBLE_EQ(file.papers[1].left, 12);
    EXPECT_DOUBLE_EQ(file.papers[1].top, 830);
}

TEST(Ppd, ReadsTheLimitsOfTheCustomPage) {
    ppd::PpdFile file = MustParse(SmallPpd());
    ASSERT_TRUE(file.customPage);
    EXPECT_DOUBLE_EQ(file.customPage->minWidth, 252.28);
    EXPECT_DOUBLE_EQ(file.customPage->maxWidth, 907.09);
    EXPECT_DOUBLE_EQ(file.customPage->minHeight, 277.80);
    EXPECT_DOUBLE_EQ(file.customPage->maxHeight, 3401.57);
    EXPECT_EQ(file.customPage->text, "PostScript Custom Page Size");
    EXPECT_EQ(file.customPage->japanese, Utf8(u8"PostScript カスタム ページ サイズ"));
}

TEST(Ppd, ReadsConstraintsAlsoWithoutOptions) {
    ppd::PpdFile file = MustParse(With("*UIConstraints: *StapleMode *Fold"));
    ASSERT_EQ(file.constraints.size(), 3u);
    EXPECT_EQ(file.constraints[0].feature, "StapleMode");
    EXPECT_EQ(file.constraints[0].option, "TopLeft");
    EXPECT_EQ(file.constraints[0].otherFeature, "Fold");
    EXPECT_EQ(file.constraints[0].otherOption, "Half");
    EXPECT_EQ(file.constraints[2].option, "");
    EXPECT_EQ(file.constraints[2].otherOption, "");
}

TEST(Ppd, EndsLinesAtCarriageReturnLineFeedOrBoth) {
    for (const char* end : {"\r", "\r\n"}) {
        ppd::PpdFile file = MustParse(ReplacedAll(SmallPpd(), "\n", end));
        EXPECT_EQ(file.features.size(), 9u);
    }
}

TEST(Ppd, CountsLinesAlikeWhateverEndsThem) {
    std::string broken = Replaced(SmallPpd(), "*CloseUI: *Fold", "*CloseUI: *Punch");
    std::size_t line = MustRefuse(broken).line;
    EXPECT_EQ(line, 82u);
    EXPECT_EQ(MustRefuse(ReplacedAll(broken, "\n", "\r\n")).line, line);
}

TEST(Ppd, DecodesHexadecimalPartsOfATranslation) {
    ppd::PpdFile file = MustParse(Replaced(SmallPpd(), "*Fold Half/Half:", "*Fold Half/H<61 E3 81 82>lf:"));
    EXPECT_EQ(file.features.at(file.FindFeature("Fold").value()).options.at(1).text, Utf8(u8"Haあlf"));
}

TEST(Ppd, KeepsASlashInsideATranslation) {
    ppd::PpdFile file = MustParse(Replaced(SmallPpd(), "*Fold Half/Half:", "*Fold Half/Half/Half:"));
    EXPECT_EQ(file.features.at(file.FindFeature("Fold").value()).options.at(1).text, "Half/Half");
}

TEST(Ppd, PassesOverTextsOfWhatItDoesNotKnow) {
    EXPECT_EQ(MustParse(With("*ja.Nothing Here/\xE3\x81\x82: \"\"\n*Unknown Thing/x: \"y\"")).features.size(),
              9u);
}

TEST(Ppd, DiffersInChecksumWithEachByte) {
    EXPECT_NE(MustParse(SmallPpd()).checksum, MustParse(With("*% x")).checksum);
}

TEST(Ppd, RefusesAnEmptyFile) {
    EXPECT_EQ(MustRefuse("").message, "The file is empty.");
}

TEST(Ppd, RefusesAFileOfAnotherKind) {
    EXPECT_EQ(MustRefuse("%!PS-Adobe-3.0\n").line, 1u);
    EXPECT_EQ(MustRefuse("*PPD-Adobe: \"3.0\"\n").line, 1u);
}

TEST(Ppd, RefusesAFileBeyondTheSizeLimit) {
    std::string text = SmallPpd();
    text.append(ppd::kMaxFileSize, '\n');
    EXPECT_EQ(MustRefuse(text).message, "The file is too large.");
}

TEST(Ppd, RefusesControlCharactersAndTellsTheLine) {
    std::string text = "*PPD-Adobe: \"4.3\"\n*% a\n";
    EXPECT_EQ(MustRefuse(text + std::string("*X: \"\0\"\n", 8)).line, 3u);
    EXPECT_EQ(MustRefuse(text + "*X: \"\x1B\"\n").message, "The line holds a control character.");
}

TEST(Ppd, RefusesTextThatIsNotUtf8) {
    for (const char* bad : {"\x80", "\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xE3\x81", "\x82\xA0"})
        EXPECT_EQ(MustRefuse(With(std::string("*X/") + bad + ": \"\"")).message,
                  "The line is not valid UTF-8.");
}

TEST(Ppd, RefusesAnUnterminatedValueAndTellsWhereItBegan) {
    ppd::PpdError error = MustRefuse("*PPD-Adobe: \"4.3\"\n*JobPatchFile 1: \"abc\ndef\n");
    EXPECT_EQ(error.message, "The quoted value is not ended.");
    EXPECT_EQ(error.line, 2u);
}

TEST(Ppd, RefusesAValueOfSeveralLinesWithoutEnd) {
    EXPECT_EQ(MustRefuse(Replaced(SmallPpd(), "*End\n", "")).message,
              "A value of several lines is not followed by *End.");
}

TEST(Ppd, RefusesALineThatIsNoStatement) {
    EXPECT_EQ(MustRefuse(With("stray")).message, "The line does not begin with an asterisk.");
}

TEST(Ppd, RefusesTextBehindAQuotedValue) {
    EXPECT_EQ(MustRefuse(With("*X: \"a\" b")).message, "The quoted value is followed by other text.");
}

TEST(Ppd, RefusesIncludedFiles) {
    EXPECT_EQ(MustRefuse(With("*Include: \"other.ppd\"")).message, "Included files are not supported.");
}

TEST(Ppd, RefusesAFeatureDescribedTwice) {
    EXPECT_EQ(MustRefuse(With("*OpenUI *Fold/Fold: PickOne")).message,
              "The feature \"Fold\" is described twice.");
}

TEST(Ppd, RefusesAnOptionDescribedTwice) {
    EXPECT_EQ(MustRefuse(Replaced(SmallPpd(), "*Fold Half/Half: \"\"", "*Fold Half: \"\"\n*Fold Half: \"\""))
                  .message,
              "The option \"Half\" of \"Fold\" is described twice.");
}

TEST(Ppd, RefusesAMissingDefault) {
    EXPECT_EQ(MustRefuse(Replaced(SmallPpd(), "*DefaultFold: None\n", "")).message,
              "The feature \"Fold\" has no default.");
}

TEST(Ppd, TakesTheFirstOptionWhereTheDefaultsKeywordWouldBeTooLong) {
    std::string keyword(34, 'K');
    std::string feature = "*OpenUI *" + keyword + ": PickOne\n*" + keyword + " A: \"\"\n*" + keyword +
                          " B: \"\"\n*CloseUI: *" + keyword;
    EXPECT_EQ(MustParse(With(feature)).features.back().defaultOption, 0u);
    EXPECT_NE(MustRefuse(With(ReplacedAll(feature, keyword, keyword.substr(1)))).message, "");
}

TEST(Ppd, RefusesADefaultThatIsNoOption) {
    ppd::PpdError error = MustRefuse(Replaced(SmallPpd(), "*DefaultFold: None", "*DefaultFold: none"));
    EXPECT_EQ(error.message, "The default of \"Fold\" is not one of its options.");
    EXPECT_EQ(error.line, 79u);
}

TEST(Ppd, RefusesTwoDifferentDefaults) {
    EXPECT_EQ(MustRefuse(With("*DefaultFold: Half")).message, "The default of \"Fold\" is given twice.");
    EXPECT_EQ(MustParse(With("*DefaultFold: None")).features.size(), 9u);
}

TEST(Ppd, RefusesAFeatureWithoutOptions) {
    EXPECT_EQ(MustRefuse(With("*OpenUI *Punch: PickOne\n*DefaultPunch: None\n*CloseUI: *Punch")).message,
              "The feature \"Punch\" has no options.");
}

TEST(Ppd, RefusesAnOptionOutsideItsFeature) {
    EXPECT_EQ(MustRefuse(With("*Fold Other: \"\"")).message,
              "An option of \"Fold\" stands outside its feature.");
}

TEST(Ppd, RefusesNestedAndUnclosedFeatures) {
    EXPECT_EQ(MustRefuse(Replaced(SmallPpd(), "*CloseUI: *Fold\n", "")).message,
              "A feature begins inside another.");
    EXPECT_EQ(MustRefuse(With("*OpenUI *Punch: PickOne\n*Punch None: \"\"\n*DefaultPunch: None")).message,
              "A feature is not closed.");
}

TEST(Ppd, RefusesGroupsThatDoNotMatch) {
    EXPECT_NE(MustRefuse(With("*CloseGroup: BasicGroup")).message, "");
    EXPECT_EQ(MustRefuse(With("*OpenGroup: Late")).message, "The group \"Late\" is not closed.");
}

TEST(Ppd, RefusesAnUnknownFeatureType) {
    EXPECT_EQ(MustRefuse(With("*OpenUI *Punch: PickSome")).message,
              "The feature \"Punch\" has an unknown type.");
}

TEST(Ppd, RefusesABooleanWithAThirdOption) {
    EXPECT_NE(MustRefuse(Replaced(SmallPpd(), "*MirroredImage True/Yes", "*MirroredImage Maybe/Yes")).message,
              "");
}

TEST(Ppd, RefusesMoreFeaturesThanItsLimit) {
    std::string text = SmallPpd();
    for (int i = 0; i < 4096; ++i) {
        std::string name = "F" + std::to_string(i);
        text += "*OpenUI *" + name + ": PickOne\n*" + name + " A: \"\"\n*Default" + name +
                ": A\n*CloseUI: *" + name + "\n";
    }
    EXPECT_EQ(MustRefuse(text).message, "The file has too many features.");
}

TEST(Ppd, RefusesMoreOptionsThanItsLimitAndTakesAsMany) {
    std::string text = SmallPpd() + "*OpenUI *Many: PickOne\n*DefaultMany: O0\n";
    for (int i = 0; i < 4096; ++i)
        text += "*Many O" + std::to_string(i) + ": \"\"\n";
    EXPECT_EQ(MustParse(text + "*CloseUI: *Many\n").features.back().options.size(), 4096u);
    EXPECT_EQ(MustRefuse(text + "*Many More: \"\"\n*CloseUI: *Many\n").message,
              "The feature \"Many\" has too many options.");
}

TEST(Ppd, RefusesAPaperWithoutDimensionOrArea) {
    EXPECT_EQ(MustRefuse(Replaced(SmallPpd(), "*PaperDimension A3: \"842 1191\"\n", "")).message,
              "The paper \"A3\" has no dimension or no imageable area.");
    EXPECT_NE(MustRefuse(Replaced(SmallPpd(), "*ImageableArea A3: \"12 12 830 1179\"\n", "")).message, "");
}

TEST(Ppd, RefusesNumbersThatAreNone) {
    for (const char* bad :
         {"595", "595 842 1", "nan 842", "inf 842", "1e300 842", "-595 842", "0 842", "a b"}) {
        std::string text = Replaced(SmallPpd(), "*PaperDimension A4: \"595 842\"",
                                    std::string("*PaperDimension A4: \"") + bad + "\"");
        EXPECT_NE(MustRefuse(text).message, "") << bad;
    }
}

TEST(Ppd, RefusesLimitsOfTheCustomPageThatAreOutOfOrder) {
    EXPECT_EQ(MustRefuse(Replaced(SmallPpd(), "252.28 907.09", "907.09 252.28")).message,
              "The limits of the custom page's width are out of order.");
}

TEST(Ppd, RefusesACustomPageWithoutLimits) {
    EXPECT_EQ(
        MustRefuse(Replaced(SmallPpd(), "*ParamCustomPageSize Height/Height: 2 points 277.80 3401.57\n", ""))
            .message,
        "The custom page has no limits of width and height.");
}

TEST(Ppd, RefusesAConstraintOnWhatIsNotThere) {
    EXPECT_EQ(MustRefuse(With("*UIConstraints: *Fold Half *Punch On")).message,
              "A constraint names a feature or option that the file does not have.");
    EXPECT_NE(MustRefuse(With("*UIConstraints: *Fold Twice *StapleMode None")).message, "");
}

TEST(Ppd, RefusesATextBeyondItsLimit) {
    std::string text(256, 'x');
    EXPECT_NE(MustRefuse(Replaced(SmallPpd(), "*Fold Half/Half:", "*Fold Half/" + text + ":")).message, "");
    text.pop_back();
    MustParse(Replaced(SmallPpd(), "*Fold Half/Half:", "*Fold Half/" + text + ":"));
}

TEST(Ppd, RefusesMalformedHexadecimalParts) {
    for (const char* bad : {"<6", "<6>", "<6G>", "<FF>", "<0A>"})
        EXPECT_NE(MustRefuse(Replaced(SmallPpd(), "*Fold Half/Half:", std::string("*Fold Half/") + bad + ":"))
                      .message,
                  "")
            << bad;
}

// Every prefix of a description is either refused or, after the last statement that matters, whole.
TEST(Ppd, SurvivesBeingCutAnywhere) {
    std::string text = SmallPpd();
    for (std::size_t length = 0; length < text.size(); ++length)
        ppd::Parse(std::string_view(text).substr(0, length));
}

TEST(Ppd, ReadsTheDescriptionOfTheX100) {
    ppd::PpdFile file = MustParse(FileContents(ZR_RESOURCES_DIR "/x100.ppd"));
    EXPECT_EQ(file.nickName, "Zephra Orvane X100");
    EXPECT_GT(file.features.size(), 300u);
    EXPECT_EQ(file.papers.size(), file.features.at(file.FindFeature("PageSize").value()).options.size());
}

TEST(Ppd, TellsFaultsInAsciiWhateverTheFileHolds) {
    auto result = ppd::Parse("*PPD-Adobe: \"4.3\"\n*OpenUI *\xE7\x94\xA8: Nothing\n");
    const auto* error = std::get_if<ppd::PpdError>(&result);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->message, "The feature \"???\" has an unknown type.");
}

} // namespace

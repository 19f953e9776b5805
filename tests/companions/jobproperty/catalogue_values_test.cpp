// What the settings can be: options with the values that the key has, ranges, limits.
#include "session/keyword.h"
#include "settings/InterchangeOptionTag.h"
#include "tests/companions/jobproperty/x100_catalogue.h"
#include "tests/settings/value_check_listing.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <sstream>

namespace jobproperty {
namespace {

TEST(CatalogueChoices, OfTheTrayAreTagNumbers) {
    EXPECT_EQ(ChoicesOf("Tray"), (Choices{{0, "自動選択"},
                                          {1, "トレイ1"},
                                          {2, "トレイ2"},
                                          {3, "トレイ3"},
                                          {4, "トレイ4"},
                                          {5, "手差しトレイ"},
                                          {7, "トレイ6"},
                                          {25, "メディア"}}));
}

TEST(CatalogueChoices, OfStapleAreTagNumbers) {
    const Choices choices = ChoicesOf("StapleMode");
    ASSERT_EQ(choices.size(), 22u);
    EXPECT_EQ(choices[0], (Choices::value_type{0, "しない"}));
    EXPECT_EQ(choices[1], (Choices::value_type{1, "左上１ヵ所"}));
    EXPECT_EQ(choices[5], (Choices::value_type{36, "1ヵ所（サイズ混在）"}));
    EXPECT_EQ(choices[11], (Choices::value_type{30, "中とじ(内側に印字)"}));
    EXPECT_EQ(choices[13], (Choices::value_type{9, "中とじ"}));
    EXPECT_EQ(choices[21], (Choices::value_type{17, "右4ヵ所"}));
}

TEST(CatalogueChoices, OfDuplexAreTagNumbers) {
    EXPECT_EQ(ChoicesOf("DuplexMode"),
              (Choices{{0, "しない"}, {1, "長辺とじ"}, {2, "短辺とじ"}, {3, "天地同じ"}, {4, "天地逆"}}));
}

TEST(CatalogueChoices, OfTheOutputTrayAreTagNumbers) {
    EXPECT_EQ(ChoicesOf("OutputTray"), (Choices{{2, "自動選択"},
                                                {17, "インナー排出トレイ"},
                                                {18, "サイドトレイ"},
                                                {15, "フィニッシャー排出トレイ"},
                                                {14, "フィニッシャートレイ"}}));
}

TEST(CatalogueChoices, OfThePaperSizeAreTheDriversFormsWithTheCustomPageLast) {
    const Choices choices = ChoicesOf("PageSize");
    ASSERT_EQ(choices.size(), 39u);
    EXPECT_EQ(choices[0], (Choices::value_type{0, "SRA3(320x450mm)"}));
    EXPECT_EQ(choices[2], (Choices::value_type{2, "A4(210x297mm)"}));
    EXPECT_EQ(choices[38], (Choices::value_type{38, "PostScript カスタム ページ サイズ"}));
}

// The plug-in's list is that of its buttons, which begins with the last of the stored values.
TEST(CatalogueChoices, OfTheOrientationAreInTheOrderOfTheStoredValues) {
    EXPECT_EQ(ChoicesOf("PageOrientation"), (Choices{{0, "たて原稿"}, {1, "よこ原稿"}, {2, "横置きに回転"}}));
}

// A record's number of these is the option index itself, whatever tags they have.
TEST(CatalogueChoices, OfWhatIsNotConvertedAreOptionIndices) {
    EXPECT_EQ(ChoicesOf("NUP"), (Choices{{0, "Nアップしない"},
                                         {1, "2アップ"},
                                         {2, "4アップ"},
                                         {3, "6アップ"},
                                         {4, "9アップ"},
                                         {5, "16アップ"}}));
    EXPECT_EQ(ChoicesOf("Collate"), (Choices{{0, "しない"}, {1, "する"}}));
    EXPECT_EQ(ChoicesOf("GradationArea"), (Choices{{0, "すべて"}, {1, "画像のみ"}}));
    EXPECT_EQ(ChoicesOf("StkPaperSizeType"), (Choices{{0, "定形サイズ"}, {1, "カスタムサイズ"}}));
}

TEST(CatalogueChoices, OfThePaperTypeAreTagNumbersOfTheRecord) {
    const Choices choices = ChoicesOf("PaperTypeD");
    ASSERT_EQ(choices.size(), 59u);
    EXPECT_EQ(choices[1], (Choices::value_type{99, "上質紙"}));
    EXPECT_EQ(choices[22], (Choices::value_type{9, "ユーザー用紙1"}));
    EXPECT_EQ(ChoicesOf("PaperTypeBypass"), choices);
}

TEST(CatalogueChoices, HaveTheDescriptionsNameWhereTheListHasNoText) {
    EXPECT_EQ(ChoicesOf("MediaTypeWeight").back(), (Choices::value_type{255, "設定なし"}));
    EXPECT_EQ(ChoicesOf("PunchHoles").front(), (Choices::value_type{0, "設定なし"}));
    EXPECT_EQ(ChoicesOf("MediaTypeCoatingMaterial"),
              (Choices{{0, "Uncoated"}, {1, "Coated"}, {2, "Matte Coated"}, {3, "Cast Coated"}}));
}

TEST(CatalogueChoices, HaveTheDescriptionsNamesWhereThereIsNoList) {
    EXPECT_EQ(ChoicesOf("SpoolOption"), (Choices{{0, "すぐにプリント"}, {1, "保留"}, {2, "処理して保留"}}));
    EXPECT_EQ(ChoicesOf("MixSizeFirstPageSize"), (Choices{{1, "A3(297x420mm) SEF"},
                                                          {2, "A4(210x297mm) LEF"},
                                                          {5, "B4(257x364mm) SEF"},
                                                          {6, "B5(182x257mm) LEF"},
                                                          {12, "8.5x11\"(レター) LEF"},
                                                          {16, "11x17\" SEF"}}));
    EXPECT_EQ(ChoicesOf("MixSizeFirstPageOrientation"), (Choices{{1, "たて"}, {2, "よこ"}}));
}

TEST(CatalogueChoices, OfNamedSwitchesAreNoAndYes) {
    for (const char* name : {"UsePdlRgbRenderingIntent", "UsePdlCmykRenderingIntent", "BlendingColorSpace",
                             "TopAndTailTrimSameCutSize", "CmykKReset", "ConvertCmyk", "RgbSkinImprovement",
                             "ShadowTonePriority", "JobPropSheetPrint", "IndividualGraphicsScreen", "Crease",
                             "TopAndTailTrim", "ColorOutlineEmphasis", "CmykK100Reset"})
        EXPECT_EQ(ChoicesOf(name), (Choices{{0, "しない"}, {1, "する"}})) << name;
}

TEST(CatalogueChoices, OfNamedEnumerations) {
    EXPECT_EQ(ChoicesOf("SamplePrintMode"), (Choices{{0, "しない"}, {1, "部全体"}, {2, "シート数ごと"}}));
    EXPECT_EQ(ChoicesOf("SpecificJobName"), (Choices{{0, "自動取得"}, {1, "ジョブ名を入力する"}}));
    EXPECT_EQ(ChoicesOf("StapleMechanism"), (Choices{{0, "針あり"}, {1, "針なし"}}));
    EXPECT_EQ(ChoicesOf("CoverPageTray"), (Choices{{27, "指定なし"},
                                                   {0, "自動選択"},
                                                   {1, "トレイ1"},
                                                   {2, "トレイ2"},
                                                   {3, "トレイ3"},
                                                   {4, "トレイ4"},
                                                   {5, "手差しトレイ"},
                                                   {7, "トレイ6"},
                                                   {20, "トレイ20"},
                                                   {25, "メディア"}}));
}

// Its values are tag numbers, too.
TEST(CatalogueChoices, OfTheCoverPagesMediaTypeAreCalledAsThoseOfAllOtherMedia) {
    EXPECT_EQ(ChoicesOf("CoverPageStkType"), (Choices{{1, "用紙カタログから選択"}, {2, "用紙の属性を指定"}}));
    for (const char* name : {"StkType", "SeparatorsStkType", "BlankPapersFrontStkType", "BackCoverStkType"})
        EXPECT_EQ(ChoicesOf(name),
                  (Choices{{0, "トレイを指定"}, {1, "用紙カタログから選択"}, {2, "用紙の属性を指定"}}))
            << name;
}

TEST(CatalogueChoices, OfGlossAreInTheLanguageOfAllOthers) {
    for (const char* name : {"MediaTypeGlossFine", "MediaTypeGlossFineBypass", "MediaTypeTabbed"})
        EXPECT_EQ(ChoicesOf(name), (Choices{{0, "オフ"}, {1, "オン"}})) << name;
}

TEST(CatalogueChoices, OfTheCoverPageTrayAreItsTags) {
    const std::int32_t* tags = nullptr;
    int count = 0;
    GetTagIndexArrayFromKeyword(550, &tags, &count);
    std::vector<std::int64_t> expected(tags, tags + count);
    std::vector<std::int64_t> values;
    for (const auto& [value, text] : ChoicesOf("CoverPageTray"))
        values.push_back(value);
    std::ranges::sort(expected);
    std::ranges::sort(values);
    EXPECT_EQ(values, expected);
}

TEST(CatalogueNumbers, HaveTheRangesOfTheValueChecks) {
    EXPECT_GT(kListedRanges.size(), 45u);
    for (const ListedRange& check : kListedRanges) {
        const SettingInfo& setting = InfoOf(check.name);
        if (setting.kind != SettingKind::Number)
            continue;
        // The standard settings say 2 of it.
        const bool isWidened = check.name == "JobMarkNumOfSheets";
        EXPECT_EQ(setting.least, isWidened ? 2 : check.min) << check.name;
        EXPECT_EQ(setting.most, check.max) << check.name;
    }
}

TEST(CatalogueNumbers, HaveRanges) {
    const auto expectRange = [](const char* name, std::int64_t least, std::int64_t most, const char* unit) {
        const SettingInfo& setting = InfoOf(name);
        EXPECT_EQ(setting.kind, SettingKind::Number) << name;
        EXPECT_EQ(setting.least, least) << name;
        EXPECT_EQ(setting.most, most) << name;
        EXPECT_EQ(setting.unit, unit) << name;
    };
    expectRange("Copies", 1, 9999, "");
    expectRange("Scale", 1, 1000, "%");
    expectRange("Magnification", 100, 10000, "%");
    expectRange("CustomPaperWidth", 89000, 320000, "mm");
    expectRange("CustomPaperHeight", 98000, 1200000, "mm");
    expectRange("ChgPrintPaperSizeWidth", 89000, 320000, "mm");
    expectRange("ChgPrintPaperSizeLength", 98000, 1200000, "mm");
    expectRange("CreasePosition1", 6803, 367597, "mm");
    expectRange("PaginationDistanceX", 0, 680315, "mm");
    expectRange("FormPositionWidth", -680315, 680315, "mm");
    expectRange("MemoFontSize", 1, 99, "pt");
    expectRange("HairLineWarningPoint", 1, 1000, "pt");
    expectRange("InkWarningAmount", 1, 400, "%");
    expectRange("AutoJobStartSpecifiedHour", 0, 23, "時");
    expectRange("AutoJobStartSpecifiedMinute", 0, 59, "分");
    expectRange("AutoJobStartElapsedDays", 0, 999, "日");
    expectRange("MediaTypeWeightValue", 52, 400, "g/㎡");
    expectRange("MediaTypeWeightValueBypass", 52, 400, "g/㎡");
}

TEST(CatalogueNumbers, OfTheCustomPageAreItsLimitsInTheDescription) {
    ASSERT_TRUE(X100().customPage);
    const auto microns = [](double points) { return points * 25400 / 72; };
    EXPECT_NEAR(microns(X100().customPage->minWidth), InfoOf("CustomPaperWidth").least, 5);
    EXPECT_NEAR(microns(X100().customPage->maxWidth), InfoOf("CustomPaperWidth").most, 5);
    EXPECT_NEAR(microns(X100().customPage->minHeight), InfoOf("CustomPaperHeight").least, 5);
    EXPECT_NEAR(microns(X100().customPage->maxHeight), InfoOf("CustomPaperHeight").most, 5);
}

TEST(CatalogueNumbers, AreNoEmptyRanges) {
    for (const SettingInfo& setting : X100Catalogue().Settings()) {
        if (setting.kind == SettingKind::Number) {
            EXPECT_LT(setting.least, setting.most) << setting.name;
            EXPECT_LE(setting.most, 0x7FFFFFFF) << setting.name;
        }
    }
}

TEST(CatalogueTexts, HaveTheNarrowestWidthLessTheNulForALimit) {
    EXPECT_EQ(InfoOf("JobName").limit, 511u);
    EXPECT_EQ(InfoOf("MemoCommentContent").limit, 63u);
    EXPECT_EQ(InfoOf("UserComment").limit, 63u);
    EXPECT_EQ(InfoOf("SPages").limit, 1023u);
    EXPECT_EQ(InfoOf("FolderName").limit, 32u);
    EXPECT_EQ(InfoOf("CustomMemoFile").limit, 99u);
    // The store has room for more of it than the record.
    EXPECT_EQ(InfoOf("Tags").limit, 255u);
}

std::vector<std::string> Cells(const std::string& line) {
    std::vector<std::string> cells;
    std::istringstream stream(line);
    for (std::string cell; std::getline(stream, cell, '\t');)
        cells.push_back(cell);
    return cells;
}

// The widths of texts in a record's listing, by name.
std::map<std::string, std::size_t> ListedWidths() {
    std::map<std::string, std::size_t> widths;
    std::ifstream file(ZR_TEST_DATA_DIR "/record.tsv", std::ios::binary);
    for (std::string line; std::getline(file, line);)
        if (const auto cells = Cells(line); cells.size() > 5 && cells[4] == "text")
            widths[cells[1]] = static_cast<std::size_t>(std::stoul(cells[5]));
    return widths;
}

TEST(CatalogueTexts, FitTheStoreAndTheRecord) {
    const auto record = ListedWidths();
    EXPECT_GT(record.size(), 70u);
    std::size_t texts = 0;
    const auto expectLimit = [&](const char* name, std::size_t storeWidth) {
        if (X100Catalogue().Find(name) == Catalogue::npos)
            return;
        const std::string inRecord = std::string_view(name) == "CustomMemoFile" ? "UserDefineMemoFile"
                                     : std::string_view(name) == "FolderName"   ? "Folder"
                                                                                : name;
        const auto listed = record.find(inRecord);
        const std::size_t width = listed == record.end() ? storeWidth : std::min(storeWidth, listed->second);
        EXPECT_EQ(InfoOf(name).limit, width - 1) << name;
        EXPECT_TRUE(InfoOf(name).kind == SettingKind::Text || InfoOf(name).kind == SettingKind::Password);
        ++texts;
    };
#define ZR_TEXT_VALUE(name, width) expectLimit(#name, width);
#define ZR_TEXT_SET_ONLY(name, width) expectLimit(#name, width);
#include "session/named_values.def"
    const auto shown = X100Catalogue().Settings();
    EXPECT_EQ(static_cast<std::ptrdiff_t>(texts),
              std::ranges::count_if(shown, [](const SettingInfo& setting) { return setting.limit > 0; }));
}

TEST(CatalogueTexts, AreHiddenWhereTheyArePasswords) {
    std::vector<std::string> passwords;
    for (const SettingInfo& setting : X100Catalogue().Settings())
        if (setting.kind == SettingKind::Password)
            passwords.push_back(setting.name);
    EXPECT_EQ(passwords, (std::vector<std::string>{"SecPrintPassword", "RscPassword"}));
}

// Of a device that has a few of the features only.
TEST(CatalogueOfAnotherDevice, LeavesOutKeywordsThatNobodyHasOptionsFor) {
    const ppd::PpdFile device = ParsedDevice(ZR_TEST_DATA_DIR "/small.ppd");
    const Catalogue catalogue(device);
    EXPECT_EQ(catalogue.Find("SpoolOption"), Catalogue::npos);
    EXPECT_NE(catalogue.Find("StapleMode"), Catalogue::npos);
    EXPECT_NE(catalogue.Find("JobName"), Catalogue::npos);
    for (const SettingInfo& setting : catalogue.Settings()) {
        EXPECT_NE(setting.label, "") << setting.name;
        EXPECT_EQ(setting.kind == SettingKind::Choice, !setting.choices.empty()) << setting.name;
    }
    const JobSettings settings(catalogue, device);
    for (std::size_t setting = 0; setting < catalogue.Settings().size(); ++setting)
        EXPECT_TRUE(IsAllowed(catalogue.Settings()[setting], settings.Default(setting)))
            << catalogue.Settings()[setting].name;
}

TEST(CatalogueOfAnotherDevice, HasNoMoreOptionsThanTheDeviceAndNamesThoseThatTheListLacks) {
    ppd::PpdFile device = X100();
    auto& duplex = device.features[*device.FindFeature("DuplexMode")].options;
    duplex.resize(2);
    auto& punch = device.features[*device.FindFeature("Punch")].options;
    punch.push_back({"Sixth", "Sixth", "六番"});
    const Catalogue catalogue(device);
    EXPECT_EQ(catalogue.Settings()[catalogue.Find("DuplexMode")].choices.size(), 2u);
    const SettingInfo& info = catalogue.Settings()[catalogue.Find("Punch")];
    ASSERT_EQ(info.choices.size(), 7u);
    EXPECT_EQ(info.choices[6].value, 6);
}

} // namespace
} // namespace jobproperty

#include "Common/text.h"
#include "session/keyword.h"
#include "tests/companions/jobproperty/x100_catalogue.h"

#include <algorithm>
#include <map>
#include <set>

namespace jobproperty {
namespace {

// What is not shown, as settings.def has it.
const std::set<std::string>& NotShown() {
    static const std::set<std::string> names{
#define ZR_NOT_SHOWN(name, reason) #name,
#include "companions/jobproperty/settings.def"
    };
    return names;
}

// All values of the data setting key.
std::set<std::string> KeyNames() {
    std::set<std::string> names(kKeywordNames.begin(), kKeywordNames.end());
#define ZR_NAMED_VALUE(name, type) names.insert(#name);
#include "session/named_values.def"
    return names;
}

std::vector<std::string> ShownNames() {
    std::vector<std::string> names;
    for (const SettingInfo& setting : X100Catalogue().Settings())
        names.push_back(setting.name);
    return names;
}

TEST(Catalogue, ShowsEveryValueOfTheKeyOnceOrSaysWhyNot) {
    std::vector<std::string> names = ShownNames();
    EXPECT_EQ(names.size(), 533u);
    names.insert(names.end(), NotShown().begin(), NotShown().end());
    const std::set<std::string> different(names.begin(), names.end());
    EXPECT_EQ(different.size(), names.size()) << "a name stands twice";
    EXPECT_EQ(different, KeyNames());
}

TEST(Catalogue, LeavesOutWhatIsNoSettingOfAJob) {
    EXPECT_EQ(NotShown(), (std::set<std::string>{"CustomPaperDirection",
                                                 "CustomChgPaperDirection",
                                                 "Profile",
                                                 "ServerAddress",
                                                 "AdvancedPrinterFeatures",
                                                 "JobInfoUserName",
                                                 "JobInfoAccount",
                                                 "UseIcCard",
                                                 "FavoriteName",
                                                 "FrontCoverStkName",
                                                 "JobRscSetName",
                                                 "AuthJobUserId",
                                                 "AuthJobPassword",
                                                 "AuthJobAccount",
                                                 "GraphicsTreatmentBase",
                                                 "GraphicsTreatmentMode",
                                                 "CmykColorCorrectionSystem",
                                                 "RgbSkinImprovementArea",
                                                 "MinimumLineWidthBase",
                                                 "FinishBoxType",
                                                 "SplitPaperType",
                                                 "AutoJobStartSpecifiedDayAndTimeForDriver",
                                                 "CpsiVersion",
                                                 "AppeVersion",
                                                 "RipImageResolutionX",
                                                 "RipImageResolutionY",
                                                 "RipImageBitDepth",
                                                 "DeviceImageResolutionX",
                                                 "DeviceImageResolutionY",
                                                 "DeviceImageBitDepth",
                                                 "ScreeningFamily",
                                                 "ScreeningType",
                                                 "VirtualPageSize",
                                                 "MaxNumberOfFascicle",
                                                 "ImpositionOtherStkSequence",
                                                 "ImpositionOtherStkWeight"}));
}

TEST(Catalogue, GivesEverySettingALabelThatItsSubjectHasOnce) {
    std::set<std::pair<Subject, std::string>> labels;
    for (const SettingInfo& setting : X100Catalogue().Settings()) {
        EXPECT_NE(setting.label, "") << setting.name;
        EXPECT_TRUE(labels.emplace(setting.subject, setting.label).second) << setting.name;
        EXPECT_EQ(setting.label.find("(&"), std::string::npos) << setting.name;
    }
}

TEST(Catalogue, GivesEveryChoiceDifferentValuesWithTexts) {
    for (const SettingInfo& setting : X100Catalogue().Settings()) {
        EXPECT_EQ(setting.kind == SettingKind::Choice, !setting.choices.empty()) << setting.name;
        std::set<std::int64_t> values;
        for (const Choice& choice : setting.choices) {
            EXPECT_TRUE(values.insert(choice.value).second) << setting.name << ' ' << choice.value;
            EXPECT_NE(choice.text, "") << setting.name << ' ' << choice.value;
            EXPECT_EQ(choice.text.find("(&"), std::string::npos) << setting.name;
        }
    }
}

TEST(Catalogue, GivesNoTwoOptionsOfASettingOneText) {
    for (const SettingInfo& setting : X100Catalogue().Settings()) {
        std::set<std::string> texts;
        for (const Choice& choice : setting.choices)
            EXPECT_TRUE(texts.insert(choice.text).second) << setting.name << ' ' << choice.text;
    }
}

// A text that is cut on its way would end within a character, one that the page lacks would have become '?'.
bool IsWhole(std::string_view text) {
    std::size_t at = 0;
    while (at < text.size())
        at += IsLeadByte(static_cast<unsigned char>(text[at])) ? 2 : 1;
    return at == text.size() && text.find('?') == text.npos;
}

TEST(Catalogue, HasOnlyTextsOfWholeCharacters) {
    for (const SettingInfo& setting : X100Catalogue().Settings()) {
        EXPECT_TRUE(IsWhole(setting.label)) << setting.name;
        for (const Choice& choice : setting.choices)
            EXPECT_TRUE(IsWhole(choice.text)) << setting.name << ' ' << choice.text;
    }
}

TEST(Catalogue, NamesTheSubjects) {
    const std::vector<std::string> names{
        "用紙",          "用紙の種類",        "レイアウト/面付け", "仕上げ",     "表紙/合紙",
        "ページ番号",    "フォーム/スタンプ", "メモ/マーク",       "カラー",     "画像と文字",
        "スクリーン",    "クリア/特色",       "ジョブの開始",      "ジョブ情報", "警告",
        "セキュリティー"};
    ASSERT_EQ(names.size(), static_cast<std::size_t>(Subject::Count));
    for (std::size_t subject = 0; subject < names.size(); ++subject)
        EXPECT_EQ(SubjectName(static_cast<Subject>(subject)), names[subject]);
    EXPECT_EQ(SubjectName(Subject::Count), "");
}

TEST(Catalogue, HasSettingsInEverySubjectAndNoneBeyond) {
    std::size_t count = 0;
    for (int subject = 0; subject < static_cast<int>(Subject::Count); ++subject) {
        const auto settings = X100Catalogue().Of(static_cast<Subject>(subject));
        EXPECT_FALSE(settings.empty()) << subject;
        for (const SettingInfo& setting : settings)
            EXPECT_EQ(static_cast<int>(setting.subject), subject);
        count += settings.size();
    }
    EXPECT_EQ(count, X100Catalogue().Settings().size());
    EXPECT_TRUE(X100Catalogue().Of(Subject::Count).empty());
}

TEST(Catalogue, PutsASwitchInFrontOfItsDetails) {
    const std::pair<const char*, const char*> pairs[]{{"AutoJobStart", "AutoJobStartType"},
                                                      {"WaterMark", "WaterMarkName"},
                                                      {"Punch", "PunchHoles"},
                                                      {"Crease", "CreasePosition1"},
                                                      {"MemoComment", "MemoCommentContent"},
                                                      {"SecPrint", "SecPrintPassword"},
                                                      {"MixSizePrint", "MixSizeRotation"}};
    for (const auto& [master, detail] : pairs)
        EXPECT_LT(PositionOf(master), PositionOf(detail)) << detail;
}

TEST(Catalogue, FindsEverySettingByItsNameOnly) {
    const auto settings = X100Catalogue().Settings();
    for (std::size_t position = 0; position < settings.size(); ++position)
        EXPECT_EQ(X100Catalogue().Find(settings[position].name), position);
    for (const char* name : {"", "tray", "Tray ", "Profile", "NoSuchSetting", "StapleMode\n"})
        EXPECT_EQ(X100Catalogue().Find(name), Catalogue::npos) << name;
}

// All numbers that the key has settings under: none twice, and those without one are the two of the job name.
TEST(Catalogue, NumbersTheSettings) {
    std::set<int> numbers;
    std::set<std::string> without;
    for (const SettingInfo& setting : X100Catalogue().Settings()) {
        if (setting.number < 0)
            without.insert(setting.name);
        else
            EXPECT_TRUE(numbers.insert(setting.number).second) << setting.name;
        EXPECT_EQ(setting.isKeyword, setting.number >= 0 && setting.number < kKeywordCount) << setting.name;
    }
    EXPECT_EQ(without, (std::set<std::string>{"JobName", "SpecificJobName"}));
    EXPECT_EQ(InfoOf("Tray").number, 4);
    EXPECT_EQ(InfoOf("CustomMemoFile").number, 349);
    EXPECT_EQ(InfoOf("FolderName").number, 553);
    EXPECT_EQ(InfoOf("StapleMechanism").number, 562);
}

TEST(Catalogue, TellsWhichNumbersTheKeyHoldsWithASign) {
    EXPECT_TRUE(InfoOf("FormPositionWidth").isSigned);
    EXPECT_TRUE(InfoOf("CmykKReset").isSigned);
    EXPECT_FALSE(InfoOf("Magnification").isSigned);
    EXPECT_FALSE(InfoOf("CustomPaperWidth").isSigned);
    for (const SettingInfo& setting : X100Catalogue().Settings())
        EXPECT_TRUE(setting.isSigned || setting.least >= 0) << setting.name;
}

TEST(CatalogueLabels, AreThoseOfThePlugInWhereItHasThem) {
    EXPECT_EQ(InfoOf("Tray").label, "用紙トレイ");
    EXPECT_EQ(InfoOf("StapleMode").label, "ホチキス");
    EXPECT_EQ(InfoOf("DuplexMode").label, "両面印刷");
    EXPECT_EQ(InfoOf("Copies").label, "部数");
    EXPECT_EQ(InfoOf("PageOrder").label, "最終ページからプリントする");
    EXPECT_EQ(InfoOf("JobName").label, "ジョブ名");
    EXPECT_EQ(InfoOf("SpecificJobName").label, "ジョブ名の指定");
}

TEST(CatalogueLabels, AreElseThoseOfTheTag) {
    EXPECT_EQ(InfoOf("MemoCommentContent").label, "メモ-コメント内容");
    EXPECT_EQ(InfoOf("SeparatorsTray").label, "合紙-用紙トレイ");
    EXPECT_EQ(InfoOf("CustomMemoFile").label, "ユーザー定義メモ-ファイル");
    EXPECT_EQ(InfoOf("FolderName").label, "フォルダー");
    EXPECT_EQ(InfoOf("ImpositionCustomMode").label, "面付け設定-カスタムモード");
}

TEST(CatalogueLabels, AreThoseOfATagWithoutAField) {
    EXPECT_EQ(InfoOf("JobMark").label, "ジョブマーク");
    EXPECT_EQ(InfoOf("BleedSize").label, "塗り足し-サイズ");
    EXPECT_EQ(InfoOf("ChgPrintPaperSizeName").label, "出力用紙サイズ-サイズ名");
}

TEST(CatalogueLabels, AreElseThoseOfTheDeviceDescription) {
    EXPECT_EQ(InfoOf("ImpositionOutputRange").label, "面付け-出力範囲");
    EXPECT_EQ(InfoOf("NupBorderPrint").label, "Nアップ枠線プリント");
    EXPECT_EQ(InfoOf("BackSideColorModel").label, "うら面カラーモード");
}

TEST(CatalogueLabels, OfTheCustomPageAreInTheLanguageOfItsOption) {
    EXPECT_EQ(InfoOf("CustomPaperWidth").label, "PostScript カスタム ページ サイズ-幅");
    EXPECT_EQ(InfoOf("CustomPaperHeight").label, "PostScript カスタム ページ サイズ-高さ");
    EXPECT_EQ(ChoicesOf("PageSize").back().second, "PostScript カスタム ページ サイズ");
}

TEST(CatalogueLabels, TellTheJobsMagnificationAndTheDriversApart) {
    EXPECT_EQ(InfoOf("FittenToPaper").label, "拡大/縮小");
    EXPECT_EQ(InfoOf("Magnification").label, "倍率(拡大/縮小)");
    EXPECT_EQ(InfoOf("Scale").label, "倍率を指定する(プリンタードライバー)");
}

TEST(CatalogueLabels, TellTheBypassTrayAndTheDocumentApart) {
    EXPECT_EQ(InfoOf("PaperTypeBypass").label, "用紙種類(手差し設定)");
    EXPECT_EQ(InfoOf("MediaTypeWeightValueBypass").label, "用紙種類-坪量の値(手差し設定)");
    EXPECT_EQ(InfoOf("MediaTypeTabbedBypass").label, "用紙種類-タブ紙(手差し設定)");
    EXPECT_EQ(InfoOf("PageOrientation").label, "原稿の向き");
    EXPECT_EQ(InfoOf("DocumentOrientation").label, "原稿の向き(文書の内容)");
}

} // namespace
} // namespace jobproperty

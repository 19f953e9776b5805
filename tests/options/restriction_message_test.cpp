#include "options/restriction_message.h"

#include "Common/text.h"
#include "options/restriction.h"
#include "session/keyword.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace {

std::int32_t NoDefault(int) {
    return 0;
}

RestrictionMessage Compose(const RestrictionValues& values, int group,
                           std::int32_t (*defaultOf)(int keyword) = NoDefault) {
    return ComposeRestrictionMessage(values, FindRestrictionConflict(values, group).value(), defaultOf);
}

// Words a conflict that the tables do not hold.
RestrictionMessage ComposeFor(const RestrictionValues& values, int other, int own,
                              std::int32_t (*defaultOf)(int keyword) = NoDefault) {
    const auto rows = RestrictionRows();
    const RestrictionRow* row = &rows[static_cast<std::size_t>(other)];
    return ComposeRestrictionMessage(
        values,
        {row->kind, std::uint32_t{1} << other, row, own < 0 ? nullptr : &rows[static_cast<std::size_t>(own)]},
        defaultOf);
}

template <std::size_t Size>
std::string Text(const std::array<char, Size>& field) {
    return std::string(FieldText(field));
}

TEST(RestrictionMessage, OffersToChangeThePunchForAFold) {
    const RestrictionMessage message = Compose({.Punch = 1, .PunchHoles = 1, .Fold = 1}, 0);
    EXPECT_EQ(message.id, RestrictionMessageId::OfferChange);
    EXPECT_EQ(Text(message.text),
              "\"パンチ-左2穴\"と\"紙折り-二つ折り(内側に印字)\"を同時に指定できません。\n"
              "\"パンチ-左2穴\"をしないに変更しますか？");
    EXPECT_EQ(Text(message.title), "KV Print Server");
    EXPECT_EQ(message.buttons, AskButtons::OkCancel);
}

TEST(RestrictionMessage, OffersToChangeTheStapleForAPunch) {
    const RestrictionMessage message = Compose({.Punch = 2, .PunchHoles = 3, .StapleMode = 1}, 1);
    EXPECT_EQ(Text(message.text), "\"ホチキス-左上１ヵ所\"と\"パンチ-右4穴\"を同時に指定できません。\n"
                                  "\"ホチキス-左上１ヵ所\"をしないに変更しますか？");
}

TEST(RestrictionMessage, OffersToChangeTheFoldForAStaple) {
    const RestrictionMessage message = Compose({.StapleMode = 11, .Fold = 5}, 2);
    EXPECT_EQ(Text(message.text),
              "\"紙折り-Z折り (左とじ/上とじ)\"と\"ホチキス-中とじ(内側に印字)\"を同時に指定できません。\n"
              "\"紙折り-Z折り (左とじ/上とじ)\"をしないに変更しますか？");
}

TEST(RestrictionMessage, SpeaksOfTheStapleWhenStapleAndPunchAreInTheWayOfAFold) {
    const RestrictionMessage message = Compose({.Punch = 1, .PunchHoles = 1, .StapleMode = 1, .Fold = 1}, 0);
    EXPECT_EQ(Text(message.nameOther), "ホチキス");
    EXPECT_EQ(Text(message.valueOther), "左上１ヵ所");
}

TEST(RestrictionMessage, OnlyTellsToSwitchMixSizePrintOnForAMixedSizeStaple) {
    const RestrictionMessage message = Compose({.StapleMode = 5}, 2);
    EXPECT_EQ(message.id, RestrictionMessageId::TellChange);
    EXPECT_EQ(Text(message.text), "\"サイズ混在原稿をプリントする-オフ\"と\"ホチキス-1ヵ所（サイズ混在）\"を"
                                  "同時に指定できません。\n\nジョブプロパティ画面より"
                                  "\"サイズ混在原稿をプリントする\"を\"オン\"に設定してください。");
    EXPECT_EQ(Text(message.title), "KV Print Server");
    EXPECT_EQ(message.buttons, AskButtons::Ok);
}

TEST(RestrictionMessage, OnlyTellsToSwitchMixSizePrintOffForAnyOtherStaple) {
    const RestrictionMessage message = Compose({.StapleMode = 6, .MixSizePrint = 1}, 2);
    EXPECT_EQ(message.id, RestrictionMessageId::TellChange);
    EXPECT_EQ(Text(message.text), "\"サイズ混在原稿をプリントする-オン\"と\"ホチキス-上２ヵ所\"を"
                                  "同時に指定できません。\n\nジョブプロパティ画面より"
                                  "\"サイズ混在原稿をプリントする\"を\"オフ\"に設定してください。");
    EXPECT_EQ(message.buttons, AskButtons::Ok);
}

TEST(RestrictionMessage, OffersOption0OfTheSpotColorCorrectionWhateverItsDefault) {
    const RestrictionMessage message = Compose({.SpotColorCorrection = 1}, 6, [](int) { return 1; });
    EXPECT_EQ(Text(message.text),
              "\"特色補正を行う-オン\"と\"カラーモード-グレースケール\"を同時に指定できません。\n"
              "\"特色補正を行う-オン\"をオフに変更しますか？");
}

TEST(RestrictionMessage, OffersTheDefaultOfTheTwoColorSimulation) {
    const RestrictionMessage message = Compose({.TwoColorPressSimulation = 1}, 6, [](int id) {
        return id == keyword::TwoColorPressSimulation ? 1 : 0;
    });
    EXPECT_EQ(Text(message.text),
              "\"２色印刷シミュレーションを有効にする-オン\"と\"カラーモード-グレースケール\"を"
              "同時に指定できません。\n\"２色印刷シミュレーションを有効にする-オン\"を"
              "オンに変更しますか？");
}

TEST(RestrictionMessage, OffersTheFirstImpositionModeInPlaceOfTheCustomMode) {
    const RestrictionMessage message =
        Compose({.ImpositionMode = 2, .ImpositionCustomMode = 1}, 11, [](int) { return 1; });
    EXPECT_EQ(Text(message.text),
              "\"面付け設定-まとめて1枚\"と\"出力用紙サイズ-原稿サイズと同じ\"を"
              "同時に指定できません。\n\"面付け設定-まとめて1枚\"を使用しないに変更しますか？");
}

TEST(RestrictionMessage, OffersTheDefaultOfTheOtherKeyword) {
    const RestrictionMessage message =
        Compose({.StapleMode = 11, .Fold = 5}, 2, [](int id) { return id == keyword::Fold ? 10 : 0; });
    EXPECT_EQ(Text(message.changeTo), "外三折り(外側に印字)");
}

TEST(RestrictionMessage, OffersAPunchWithoutItsHoles) {
    const RestrictionMessage message = Compose({.Punch = 1, .PunchHoles = 2, .Fold = 1}, 0,
                                               [](int id) { return id == keyword::Punch ? 3 : 1; });
    EXPECT_EQ(Text(message.valueOther), "左3穴");
    EXPECT_EQ(Text(message.changeTo), "上");
}

TEST(RestrictionMessage, AppendsNothingToAPunchWithHolesOption0) {
    const RestrictionMessage message = Compose({.Punch = 2, .PunchHoles = 0, .StapleMode = 1}, 1);
    EXPECT_EQ(Text(message.valueOwn), "右");
}

TEST(RestrictionMessage, HasEmptyTextsForAPunchWithoutHolesThatIsInTheWay) {
    const RestrictionMessage message = Compose({.Punch = 2, .PunchHoles = 0, .StapleMode = 1}, 2);
    EXPECT_EQ(message.id, RestrictionMessageId::OfferChange);
    EXPECT_EQ(Text(message.text), "\"-\"と\"ホチキス-左上１ヵ所\"を同時に指定できません。\n"
                                  "\"-\"をに変更しますか？");
    EXPECT_EQ(message.buttons, AskButtons::OkCancel);
}

TEST(RestrictionMessage, NamesTheCallersSettingThoughItTakesNoPart) {
    const RestrictionMessage message = Compose({.Punch = 1, .PunchHoles = 1, .DuplexMode = 2, .Fold = 1}, 3);
    EXPECT_EQ(Text(message.text), "\"パンチ-左2穴\"と\"両面印刷-短辺とじ\"を同時に指定できません。\n"
                                  "\"パンチ-左2穴\"をしないに変更しますか？");
}

TEST(RestrictionMessage, TellsTheRealValueOfTheDuplexMode) {
    const RestrictionMessage message = ComposeFor({.DuplexMode = 4, .PaperTypeD = 5}, 3, 4);
    EXPECT_EQ(Text(message.valueOther), "天地逆");
    EXPECT_EQ(Text(message.text), "\"両面印刷-天地逆\"と\"用紙種類-OHPフィルム\"を同時に指定できません。\n"
                                  "\"両面印刷-天地逆\"をしないに変更しますか？");
}

TEST(RestrictionMessage, PutsNothingInFrontOfTheBypassPaperType) {
    const RestrictionMessage other = ComposeFor({.DuplexMode = 1, .PaperTypeBypass = 7}, 5, 3);
    EXPECT_EQ(Text(other.text), "\"用紙種類-厚紙1\"と\"両面印刷-長辺とじ\"を同時に指定できません。\n"
                                "\"用紙種類-厚紙1\"を普通紙に変更しますか？");
    const RestrictionMessage own = ComposeFor({.DuplexMode = 1, .PaperTypeBypass = 7}, 3, 5);
    EXPECT_EQ(Text(own.nameOwn), "用紙種類");
    EXPECT_EQ(Text(own.valueOwn), "厚紙1");
}

TEST(RestrictionMessage, HasNoOwnPairForACallerWithoutARow) {
    const RestrictionMessage message = Compose({.Punch = 1, .PunchHoles = 1, .Fold = 1}, -1);
    EXPECT_EQ(Text(message.text), "\"パンチ-左2穴\"と\"-\"を同時に指定できません。\n"
                                  "\"パンチ-左2穴\"をしないに変更しますか？");
}

TEST(RestrictionMessage, LeavesAnOptionOutsideItsListEmpty) {
    const RestrictionMessage message = ComposeFor({.StapleMode = 0x7FFFFFFF, .Fold = 11}, 2, 0);
    EXPECT_EQ(Text(message.text), "\"ホチキス-\"と\"紙折り-\"を同時に指定できません。\n"
                                  "\"ホチキス-\"をしないに変更しますか？");
}

// The tag numbers that the six rules look at.
bool OnlyTells(const RestrictionValues& values, int own) {
    const RestrictionMessage message = ComposeFor(values, values.MixSizePrint > 0 ? 10 : 9, own);
    const bool tells = message.id == RestrictionMessageId::TellChange;
    EXPECT_EQ(message.buttons, tells ? AskButtons::Ok : AskButtons::OkCancel);
    return tells;
}

TEST(TellRules, WithTheMixOnTellForAStapleWithATagFrom1To35) {
    for (int staple = 0; staple < 22; ++staple) {
        const bool tagIn1To35 = staple != 0 && staple != 5 && staple != 10; // 0, 36, 37
        EXPECT_EQ(OnlyTells({.StapleMode = staple, .MixSizePrint = 1}, 2), tagIn1To35) << staple;
    }
}

TEST(TellRules, WithTheMixOnTellForAPunchWithATagFrom1To12) {
    for (int punch = 0; punch < 6; ++punch)
        EXPECT_EQ(OnlyTells({.Punch = punch, .MixSizePrint = 1}, 1), punch >= 1 && punch <= 4) << punch;
}

TEST(TellRules, WithTheMixOnTellForEveryFold) {
    for (const int fold : {-1, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 0x7FFFFFFF})
        EXPECT_TRUE(OnlyTells({.Fold = fold, .MixSizePrint = 1}, 0)) << fold;
}

TEST(TellRules, WithTheMixOffTellForAStapleWithATagFrom36Up) {
    for (int staple = 0; staple < 22; ++staple)
        EXPECT_EQ(OnlyTells({.StapleMode = staple}, 2), staple == 5 || staple == 10) << staple;
}

TEST(TellRules, WithTheMixOffTellForEveryPunch) {
    for (const int punch : {-1, 0, 1, 2, 3, 4, 5, 6, 0x7FFFFFFF})
        EXPECT_TRUE(OnlyTells({.Punch = punch}, 1)) << punch;
}

TEST(TellRules, WithTheMixOffTellForAFoldWithTag12) {
    for (int fold = 0; fold < 11; ++fold)
        EXPECT_EQ(OnlyTells({.Fold = fold}, 0), fold == 6) << fold;
}

// Each rule over the tag numbers on both sides of its limits, most of which no option has.
std::vector<std::int32_t> TagsThatTell(bool mixSizePrintOn, int ownKeyword) {
    std::vector<std::int32_t> tags;
    for (const std::int32_t tag : {-1, 0, 1, 2, 11, 12, 13, 14, 15, 16, 17, 34, 35, 36, 37, 1000})
        if (MixSizePrintMessage(mixSizePrintOn, ownKeyword, tag) == RestrictionMessageId::TellChange)
            tags.push_back(tag);
    return tags;
}
const std::vector<std::int32_t> kAllTags{-1, 0, 1, 2, 11, 12, 13, 14, 15, 16, 17, 34, 35, 36, 37, 1000};

TEST(TellRules, WithTheMixOnHoldForTheseTags) {
    EXPECT_EQ(TagsThatTell(true, keyword::StapleMode),
              (std::vector{1, 2, 11, 12, 13, 14, 15, 16, 17, 34, 35}));
    EXPECT_EQ(TagsThatTell(true, keyword::Punch), (std::vector{1, 2, 11, 12, 16, 17, 34, 35, 36, 37, 1000}));
    EXPECT_EQ(TagsThatTell(true, keyword::Fold), kAllTags);
}

TEST(TellRules, WithTheMixOffHoldForTheseTags) {
    EXPECT_EQ(TagsThatTell(false, keyword::StapleMode), (std::vector{36, 37, 1000}));
    EXPECT_EQ(TagsThatTell(false, keyword::Punch), kAllTags);
    EXPECT_EQ(TagsThatTell(false, keyword::Fold), std::vector{12});
}

TEST(TellRules, HoldForNoTagOfAnotherKeyword) {
    for (const bool on : {false, true})
        for (const int own :
             std::array<int, 4>{-1, keyword::PunchHoles, keyword::DuplexMode, keyword::MixSizePrint})
            EXPECT_EQ(TagsThatTell(on, own), std::vector<std::int32_t>{}) << on << " " << own;
}

TEST(TellRules, TellNoOtherCaller) {
    for (const int mix : {0, 1})
        for (const int own : {-1, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13})
            EXPECT_FALSE(OnlyTells({.StapleMode = 1, .Fold = 6, .MixSizePrint = mix}, own))
                << mix << " " << own;
}

TEST(TellRules, TakeAnOptionWithoutATagForTag0) {
    for (const int option : {-1, 22, 0x7FFFFFFF}) {
        EXPECT_FALSE(OnlyTells({.StapleMode = option, .MixSizePrint = 1}, 2)) << option;
        EXPECT_FALSE(OnlyTells({.StapleMode = option}, 2)) << option;
        EXPECT_FALSE(OnlyTells({.Punch = option, .MixSizePrint = 1}, 1)) << option;
        EXPECT_FALSE(OnlyTells({.Fold = option}, 0)) << option;
    }
}

TEST(RestrictionMessage, KeepsMessage2130ForAnotherRowThanMixSizePrint) {
    EXPECT_EQ(ComposeFor({.StapleMode = 1, .Fold = 1, .MixSizePrint = 1}, 2, 0).id,
              RestrictionMessageId::OfferChange);
}

TEST(RestrictionMessage, OffersToSwitchTheMixOffOrOnToACallerWithoutAFinisher) {
    EXPECT_EQ(
        Text(ComposeFor({.StapleMode = 1, .MixSizePrint = 1}, 10, 6).text),
        "\"サイズ混在原稿をプリントする-オン\"と\"カラーモード-グレースケール\"を同時に指定できません。\n"
        "\"サイズ混在原稿をプリントする-オン\"をオフに変更しますか？");
    EXPECT_EQ(
        Text(ComposeFor({.StapleMode = 5}, 9, 6).text),
        "\"サイズ混在原稿をプリントする-オフ\"と\"カラーモード-グレースケール\"を同時に指定できません。\n"
        "\"サイズ混在原稿をプリントする-オフ\"をオンに変更しますか？");
}

std::string Fill(std::string_view format, std::vector<std::string_view> texts) {
    return FillPlaceholders(format, texts);
}

TEST(FillPlaceholders, TakesTheTextsInTurn) {
    EXPECT_EQ(Fill("%s-%s", {"a", "b"}), "a-b");
    EXPECT_EQ(Fill("", {"a"}), "");
    EXPECT_EQ(Fill("%s%s", {"%s", "b"}), "%sb") << "a text is no format";
}

TEST(FillPlaceholders, SurvivesATranslationThatAsksForOtherThings) {
    EXPECT_EQ(Fill("%s %s %s", {"a", "b"}), "a b %s");
    EXPECT_EQ(Fill("%n%d%08x%*s%", {"a"}), "%n%d%08x%*s%");
    EXPECT_EQ(Fill("%1$s %s", {"a"}), "%1$s a");
    EXPECT_EQ(Fill("none", {"a", "b"}), "none");
}

} // namespace

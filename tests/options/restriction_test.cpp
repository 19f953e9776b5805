// The check as the pages call it, with the store behind it and a scripted user in front.
#include "options/restriction.h"

#include "Common/ask_user_recorder.h"
#include "Common/log_recorder.h"
#include "options/restriction_values.h"
#include "session/datamanager.h"
#include "session/keyword.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace {

using Settings = std::vector<std::pair<int, std::uint32_t>>;

void Set(const Settings& settings) {
    for (const auto& [id, value] : settings)
        ExportedFunc_SetCurrent(id, value);
}

class Restriction : public testing::Test {
  protected:
    Restriction() { ExportedFunc_InitializeDataManager(); }

    int Check(int group) {
        return CheckRestriction(&m_owner, nullptr, group, &result, &keywordInWay, &asked);
    }
    void* Owner() { return &m_owner; }

    int result = -1;
    int keywordInWay = -1;
    int asked = 0;

  private:
    int m_owner = 0;
};

TEST_F(Restriction, LeavesAllThreeAloneWithAllSettingsAtZero) {
    ScriptedUser user({ask_answer::Ok});
    result = 11;
    keywordInWay = 12;
    for (const int value : {0, 13}) {
        asked = value;
        EXPECT_EQ(Check(0), 0);
        EXPECT_EQ(result, 11);
        EXPECT_EQ(keywordInWay, 12);
        EXPECT_EQ(asked, value);
    }
    EXPECT_TRUE(user.questions.empty());
}

TEST_F(Restriction, AsksOnceInTheOwnersContext) {
    ScriptedUser user({ask_answer::Ok});
    Set({{keyword::Fold, 1}, {keyword::Punch, 1}, {keyword::PunchHoles, 1}});
    EXPECT_EQ(Check(0), 1);
    EXPECT_EQ(result, 1);
    EXPECT_EQ(keywordInWay, keyword::Punch);
    EXPECT_EQ(asked, 1);
    ASSERT_EQ(user.questions.size(), 1u);
    EXPECT_EQ(user.questions[0].owner, Owner());
    EXPECT_EQ(user.questions[0].title, "KV Print Server");
    EXPECT_EQ(user.questions[0].text,
              "\"パンチ-左2穴\"と\"紙折り-二つ折り(内側に印字)\"を同時に指定できません。\n"
              "\"パンチ-左2穴\"をしないに変更しますか？");
    EXPECT_EQ(user.questions[0].buttons, AskButtons::OkCancel);
}

TEST_F(Restriction, StoresTheAnswerAsItCame) {
    Set({{keyword::SpotColorCorrection, 1}});
    for (const int answer : {0, 1, 2, 7, -1}) {
        ScriptedUser user({answer});
        asked = 0;
        EXPECT_EQ(Check(6), 1) << answer;
        EXPECT_EQ(result, answer);
        EXPECT_EQ(asked, 1) << answer;
    }
}

TEST_F(Restriction, AnswersForTheUserOnceAsked) {
    ScriptedUser user({ask_answer::Cancel});
    Set({{keyword::ColorMode, 0}, {keyword::SpotColorCorrection, 1}});
    for (const int value : {1, 2, -5}) {
        asked = value;
        result = -1;
        EXPECT_EQ(Check(6), 1);
        EXPECT_EQ(result, 1);
        EXPECT_EQ(asked, value);
        EXPECT_EQ(keywordInWay, keyword::SpotColorCorrection);
    }
    EXPECT_TRUE(user.questions.empty());
}

TEST_F(Restriction, ReportsThePunchOnTheNextCallWhenStapleAndPunchAreInTheWayOfAFold) {
    ScriptedUser user({ask_answer::Ok});
    Set({{keyword::Fold, 1}, {keyword::StapleMode, 1}, {keyword::Punch, 1}, {keyword::PunchHoles, 1}});
    EXPECT_EQ(Check(0), 1);
    EXPECT_EQ(keywordInWay, keyword::StapleMode);
    EXPECT_EQ(user.questions.size(), 1u);

    ExportedFunc_SetCurrent(keyword::StapleMode, 0);
    EXPECT_EQ(Check(0), 1);
    EXPECT_EQ(keywordInWay, keyword::Punch);
    EXPECT_EQ(result, 1);
    EXPECT_EQ(user.questions.size(), 1u);
}

TEST_F(Restriction, ShowsABoxWithOnlyOkForAMixedSizeStaple) {
    ScriptedUser user({ask_answer::Ok});
    Set({{keyword::StapleMode, 5}});
    EXPECT_EQ(Check(2), 1);
    EXPECT_EQ(keywordInWay, keyword::MixSizePrint);
    ASSERT_EQ(user.questions.size(), 1u);
    EXPECT_EQ(user.questions[0].buttons, AskButtons::Ok);
    EXPECT_EQ(user.questions[0].text,
              "\"サイズ混在原稿をプリントする-オフ\"と\"ホチキス-1ヵ所（サイズ混在）\"を"
              "同時に指定できません。\n\nジョブプロパティ画面より"
              "\"サイズ混在原稿をプリントする\"を\"オン\"に設定してください。");
}

TEST_F(Restriction, LooksUpTheTagsOfAllThreeFinishersWhoeverAsksAboutMixSizePrint) {
    ScriptedUser user({ask_answer::Ok});
    Set({{keyword::StapleMode, 5}, {keyword::Punch, 0x7FFFFFFF}, {keyword::Fold, 0x7FFFFFFF}});
    for (const int group : {2, 6}) {
        log_backend::Recorder log;
        asked = 0;
        EXPECT_EQ(Check(group), 1);
        EXPECT_EQ(keywordInWay, keyword::MixSizePrint);
        std::vector<std::string> ends;
        for (const std::string& line : log.main)
            if (const auto place = line.find("Error KW="); place != std::string::npos)
                ends.push_back(line.substr(place));
        EXPECT_EQ(ends, (std::vector<std::string>{"Error KW=112\n", "Error KW=114\n"})) << group;
    }
}

TEST_F(Restriction, OffersTheDefaultFromTheStore) {
    ScriptedUser user({ask_answer::Ok});
    Set({{keyword::StapleMode, 11}, {keyword::Fold, 5}});
    ExportedFunc_SetDefault(keyword::Fold, 3);
    Check(2);
    ASSERT_EQ(user.questions.size(), 1u);
    EXPECT_EQ(user.questions[0].text,
              "\"紙折り-Z折り (左とじ/上とじ)\"と\"ホチキス-中とじ(内側に印字)\"を同時に指定できません。\n"
              "\"紙折り-Z折り (左とじ/上とじ)\"を二つ折りに変更しますか？");
}

TEST_F(Restriction, LeavesTheKeywordAloneIfNoOtherSettingTakesPart) {
    ScriptedUser user({ask_answer::Ok});
    Set({{keyword::StapleMode, 1}, {keyword::Punch, 2}, {keyword::PunchHoles, 0}});
    keywordInWay = 77;
    EXPECT_EQ(Check(2), 1);
    EXPECT_EQ(keywordInWay, 77);
    ASSERT_EQ(user.questions.size(), 1u);
    EXPECT_EQ(user.questions[0].text,
              "\"-\"と\"ホチキス-左上１ヵ所\"を同時に指定できません。\n\"-\"をに変更しますか？");
}

TEST_F(Restriction, ReportsAnOldConflictElsewhereToAnyCaller) {
    ScriptedUser user({ask_answer::Ok});
    Set({{keyword::Fold, 1}, {keyword::Punch, 1}, {keyword::PunchHoles, 1}});
    for (int group = 3; group < 14; ++group) {
        EXPECT_EQ(Check(group), 1) << group;
        EXPECT_EQ(keywordInWay, keyword::Punch) << group;
    }
}

TEST_F(Restriction, TakesAnyGroupAndAnyValue) {
    ScriptedUser user({ask_answer::Ok});
    for (const int group : {-0x7FFFFFFF - 1, -1, 14, 0x7FFFFFFF}) {
        for (const std::uint32_t value : {0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu, 22u, 100u}) {
            for (const int id : {keyword::Punch, keyword::PunchHoles, keyword::StapleMode, keyword::Fold,
                                 keyword::MixSizePrint, keyword::ColorMode, keyword::SpotColorCorrection,
                                 keyword::ChgPrintPaperSizeType, keyword::ImpositionMode})
                ExportedFunc_SetCurrent(id, value);
            asked = 0;
            const int found = Check(group);
            EXPECT_TRUE(found == 0 || found == 1);
        }
    }
}

TEST_F(Restriction, ReadsTheBypassPaperOnlyIfItHasOneOfItsOwn) {
    Set({{keyword::PaperTypeBypass, 7}, {keyword::MediaTypeWeightBypass, 3}});
    EXPECT_EQ(ReadRestrictionValues().PaperTypeBypass, 7);
    EXPECT_EQ(ReadRestrictionValues().MediaTypeWeightBypass, 3);
    for (const std::uint32_t on : {1u, 2u, 0xFFFFFFFFu}) {
        ExportedFunc_SetCurrent(keyword::AutoTraySettingToBypass, on);
        EXPECT_EQ(ReadRestrictionValues().PaperTypeBypass, 0);
        EXPECT_EQ(ReadRestrictionValues().MediaTypeWeightBypass, 0);
    }
}

TEST_F(Restriction, ReadsEverySettingFromTheCurrentBank) {
    const std::array<int, 17> items{112, 113, 111, 104, 15,  336, 138, 194, 199,
                                    114, 307, 12,  134, 135, 24,  25,  26};
    std::uint32_t value = 100;
    for (const int item : items) {
        ExportedFunc_SetCurrent(item, item == 24 ? 0 : ++value);
        ExportedFunc_SetDefault(item, 999);
    }
    const RestrictionValues expected{.Punch = 101,
                                     .PunchHoles = 102,
                                     .StapleMode = 103,
                                     .DuplexMode = 104,
                                     .PaperTypeD = 105,
                                     .KW_MEDIATYPEWEIGHT2 = 106,
                                     .ColorMode = 107,
                                     .SpotColorCorrection = 108,
                                     .TwoColorPressSimulation = 109,
                                     .Fold = 110,
                                     .MixSizePrint = 111,
                                     .ChgPrintPaperSizeType = 112,
                                     .ImpositionMode = 113,
                                     .ImpositionCustomMode = 114,
                                     .AutoTraySettingToBypass = 0,
                                     .PaperTypeBypass = 115,
                                     .MediaTypeWeightBypass = 116};
    EXPECT_EQ(ReadRestrictionValues(), expected);
}

TEST_F(Restriction, ReadsTheWeightOfNormalPaperFromTheBankAndNotFromTheNamedValue) {
    ExportedFunc_SetMediaTypeWeightValue(64);
    EXPECT_EQ(ReadRestrictionValues().KW_MEDIATYPEWEIGHT2, 0);
}

TEST_F(Restriction, TakesANumberAboveTheSignedRangeForANegativeOne) {
    ExportedFunc_SetCurrent(keyword::Fold, 0xFFFFFFFF);
    EXPECT_EQ(ReadRestrictionValues().Fold, -1);
}

} // namespace

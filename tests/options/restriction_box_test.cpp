// The question as a box on the screen.
#include "options/restriction.h"
#include "session/datamanager.h"
#include "session/keyword.h"
#include "tests/support/message_box.h"

#include <gtest/gtest.h>

namespace {

class RestrictionBox : public testing::Test {
  protected:
    RestrictionBox()
        : owner(CreateWindowA("Static", "owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 200, 100, nullptr,
                              nullptr, nullptr, nullptr)) {
        ExportedFunc_InitializeDataManager();
    }
    ~RestrictionBox() override { DestroyWindow(owner); }

    void SetUp() override { ASSERT_TRUE(owner); }

    int Check(int group) { return CheckRestriction(owner, nullptr, group, &result, &keywordInWay, &asked); }

    static HICON ExclamationMark() { return LoadIconA(nullptr, IDI_EXCLAMATION); }

    HWND owner;

    int result = -1;
    int keywordInWay = -1;
    int asked = 0;
};

TEST_F(RestrictionBox, OffersAChangeWithOkAndCancel) {
    ExportedFunc_SetCurrent(keyword::Fold, 1);
    ExportedFunc_SetCurrent(keyword::Punch, 1);
    ExportedFunc_SetCurrent(keyword::PunchHoles, 1);
    for (const int answer : {IDOK, IDCANCEL}) {
        asked = 0;
        auto box = AnswerNextMessageBox(answer);
        EXPECT_EQ(Check(0), 1);
        const MessageBoxSeen seen = box.get();
        EXPECT_EQ(seen.caption, "KV Print Server");
        EXPECT_EQ(seen.text, "\"パンチ-左2穴\"と\"紙折り-二つ折り(内側に印字)\"を同時に指定できません。\n"
                             "\"パンチ-左2穴\"をしないに変更しますか？");
        EXPECT_TRUE(seen.canCancel);
        EXPECT_EQ(seen.icon, ExclamationMark());
        EXPECT_EQ(seen.owner, owner);
        EXPECT_EQ(result, answer);
        EXPECT_EQ(keywordInWay, keyword::Punch);
        EXPECT_EQ(asked, 1);
    }
}

TEST_F(RestrictionBox, TellsWithOkOnlyWhatThePagesCannotSet) {
    ExportedFunc_SetCurrent(keyword::StapleMode, 5);
    auto box = AnswerNextMessageBox(IDOK);
    EXPECT_EQ(Check(2), 1);
    const MessageBoxSeen seen = box.get();
    EXPECT_EQ(seen.text, "\"サイズ混在原稿をプリントする-オフ\"と\"ホチキス-1ヵ所（サイズ混在）\"を"
                         "同時に指定できません。\n\nジョブプロパティ画面より"
                         "\"サイズ混在原稿をプリントする\"を\"オン\"に設定してください。");
    EXPECT_FALSE(seen.canCancel);
    EXPECT_EQ(seen.icon, ExclamationMark());
    EXPECT_EQ(seen.owner, owner);
    EXPECT_EQ(result, 1);
}

} // namespace

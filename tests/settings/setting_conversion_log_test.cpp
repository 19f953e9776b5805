// Most tag numbers equal their option index, so a conversion shows itself where it fails: in the log.
#include "Common/log_recorder.h"
#include "tests/settings/setting_fixture.h"
#include "tests/settings/setting_keyword_lists.h"

#include <string>

namespace {

// No setting has an option or a tag of this value.
constexpr std::uint32_t kNoOption = 30000;

bool Tells(const log_backend::Recorder& log, const std::string& text) {
    for (const std::string& line : log.main)
        if (line.ends_with(text))
            return true;
    return false;
}

class SettingConversions : public SettingTest {
  protected:
    SettingConversions() {
        for (int keyword = 0; keyword <= 326; ++keyword) {
            SetBank(StoreBank::Current, keyword, kNoOption);
            if (PlaceOf(keyword))
                PutFieldNumber(setting, keyword, kNoOption);
        }
    }

    // The keywords for which `move` asks for a tag number, and for an option index.
    template <class Move>
    void ExpectAsked(const Keywords& forTagNumber, const Keywords& forOptionIndex, Move move) {
        Keywords tagNumbers;
        Keywords optionIndices;
        for (int keyword = 0; keyword <= 326; ++keyword) {
            const log_backend::Recorder log;
            EXPECT_EQ(move(keyword), 1) << keyword;
            const std::string number = std::to_string(keyword);
            if (Tells(log, " Error KW=" + number + "\n"))
                tagNumbers.insert(keyword);
            if (Tells(log, "return:FALSE keywordID=" + number + " optionKeywordTag=30000\n"))
                optionIndices.insert(keyword);
        }
        EXPECT_EQ(tagNumbers, forTagNumber);
        EXPECT_EQ(optionIndices, forOptionIndex);
    }

    CCurrentSetting setting;
};

TEST_F(SettingConversions, AskForTheTagNumbersOf187KeywordsOnTheWayIntoTheRecord) {
    ExpectAsked(kConverted, {},
                [&](int n) { return setting.PrintOptionFromSession(n, TransferDirection::FromBank); });
}

TEST_F(SettingConversions, AskForTheOptionIndicesOfTheSameKeywordsOnTheWayToTheBank) {
    ExpectAsked({}, kConverted,
                [&](int n) { return setting.PrintOptionFromSession(n, TransferDirection::ToBank); });
}

TEST_F(SettingConversions, OfAFavoriteAskFor3And5And24And115And234TooAndNotFor6And318) {
    ExpectAsked({}, kConvertedForAFavorite, [&](int n) { return setting.FavoriteFromSession(n); });
}

TEST_F(SettingConversions, AreNoneInCurrentToSession) {
    ExpectAsked({}, {}, [&](int n) { return setting.CurrentToSession(n); });
}

TEST_F(SettingConversions, AreNoneInSessionToCurrent) {
    ExpectAsked({}, {}, [&](int n) { return setting.SessionToCurrent(n); });
}

TEST_F(SettingConversions, TakeNupOutThroughAFavoriteOnly) {
    const auto fails = [&](auto move) {
        const log_backend::Recorder log;
        move();
        return Tells(log, "return:FALSE keywordID=3 optionKeywordTag=30000\n");
    };
    EXPECT_TRUE(fails([&] { setting.SaveFavoriteToSession(); }));
    EXPECT_FALSE(fails([&] { setting.SaveToSession(); }));
}

} // namespace

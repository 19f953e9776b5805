// Which operations of the store the named values' transfers call where the store itself could not tell: its
// store records the calls, in place of the real one.
#include "settings/named_values_guard.h"
#include "settings/setting_info.h"
#include "tests/session/recording_store.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using recording_store::Call;
using Calls = std::vector<Call>;

class SettingStoreCalls : public testing::Test {
  protected:
    SettingStoreCalls() { recording_store::Calls().clear(); }

    static Calls CallsOf(auto move) {
        recording_store::Calls().clear();
        move();
        return recording_store::Calls();
    }
    static std::ptrdiff_t CountOf(const Calls& calls, const std::string& operation) {
        return std::ranges::count(calls, operation, &Call::operation);
    }

    CCurrentSetting current;
    CDefaultSetting standard;
};

TEST_F(SettingStoreCalls, SetTheFrontCoversStockNameAndNeverGetIt) {
    const auto set = Calls{{"SetFrontCoverStkName", ""}};
    EXPECT_EQ(CallsOf([&] { current.NamedValueFromSession(502, TransferDirection::ToBank); }), set);
    EXPECT_EQ(CallsOf([&] { current.NamedValueToSession(502); }), set);
    EXPECT_TRUE(CallsOf([&] { current.NamedValueFromSession(502, TransferDirection::FromBank); }).empty());
}

TEST_F(SettingStoreCalls, OfTheStandardSettingsLeaveTheFrontCoversStockNameAlone) {
    EXPECT_TRUE(CallsOf([&] { standard.NamedValueFromSession(502, TransferDirection::ToBank); }).empty());
    EXPECT_EQ(CountOf(CallsOf([&] { standard.SaveToSession(); }), "SetFrontCoverStkName"), 0);
}

TEST_F(SettingStoreCalls, OfTheStandardSettingsTurnTheIcCardOffWithTheUsersName) {
    EXPECT_EQ(CallsOf([&] { standard.NamedValueFromSession(389, TransferDirection::ToBank); }),
              (Calls{{"SetAuthJobUserId", ""}, {"SetUseIcCard", "0"}}));
    EXPECT_EQ(CountOf(CallsOf([&] { standard.SaveToSession(); }), "SetUseIcCard"), 1);
}

TEST_F(SettingStoreCalls, OfTheCurrentSettingKnowNothingOfTheIcCard) {
    EXPECT_EQ(CountOf(CallsOf([&] {
                          current.SaveToSession();
                          current.SaveFavoriteToSession();
                      }),
                      "SetUseIcCard"),
              0);
}

TEST_F(SettingStoreCalls, OfTheStandardSettingsAskTheStoreForNoNamedValue) {
    const Calls calls = CallsOf([&] { standard.CreateSettingInfo(); });
    EXPECT_EQ(CountOf(calls, "GetDefault"), 325);
    EXPECT_EQ(calls.size(), 325u);
}

TEST_F(SettingStoreCalls, AreOneForEachNamedValueThatMoves) {
    EXPECT_EQ(CallsOf([&] { current.CreateSettingInfo(); }).size(), 325u + 209);
    EXPECT_EQ(CallsOf([&] { current.SaveToSession(); }).size(), 325u + 210);
    EXPECT_EQ(CallsOf([&] { current.SaveFavoriteToSession(); }).size(), 324u + 210);
    EXPECT_EQ(CallsOf([&] { current.AllCurrentToSession(); }).size(), 321u);
    EXPECT_EQ(CallsOf([&] { current.AllSessionToCurrent(); }).size(), 325u + 209);
}

TEST_F(SettingStoreCalls, OfAGuardGetEveryValueThatHasAGetterAndSetEachBackOnce) {
    Calls gets;
    Calls sets;
#define ZR_NAMED_VALUE(name, type)                                                                           \
    gets.push_back({"Get" #name, ""});                                                                       \
    sets.push_back({"Set" #name, std::string_view(#type) == "Text" ? "" : "0"});
#define ZR_U32_SET_ONLY(name)
#define ZR_TEXT_SET_ONLY(name, width)
#include "session/named_values.def"
    Calls calls = CallsOf([&] { const NamedValuesGuard guard; });
    EXPECT_EQ(Calls(calls.begin(), calls.begin() + static_cast<std::ptrdiff_t>(gets.size())), gets);
    EXPECT_EQ(Calls(calls.begin() + static_cast<std::ptrdiff_t>(gets.size()), calls.end()), sets);
}

} // namespace

// The store without a data setting key: its banks and how a text is kept.
#include "datamanager/store.h"

#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <string>

namespace {

constexpr std::array kBanks{Bank::Current, Bank::Default, Bank::Favorite, Bank::Preview};

TEST(Store, ReadsValuesThatWereNeverSetAsZeroOrEmpty) {
    ValueStore store;
    for (const Bank bank : kBanks)
        for (int keyword = 0; keyword < 327; ++keyword)
            EXPECT_EQ(store.Get(bank, keyword), 0u);
    EXPECT_EQ(store.Named().BleedSize, 0u);
    EXPECT_EQ(store.Named().BackMargin, 0);
    EXPECT_EQ(store.Named().AutoJobStartSpecifiedDayAndTimeForDriver, 0u);
    EXPECT_STREQ(store.Named().ServerAddress.data(), "");
    EXPECT_EQ(store.active, nullptr);
}

TEST(Store, KeepsFourBanksApart) {
    ValueStore store;
    for (int keyword = 0; keyword < 327; ++keyword)
        for (const Bank bank : kBanks)
            store.Set(bank, keyword, static_cast<std::uint32_t>(1000 * static_cast<int>(bank) + keyword + 1));
    for (int keyword = 0; keyword < 327; ++keyword) {
        EXPECT_EQ(store.Get(Bank::Current, keyword), static_cast<std::uint32_t>(keyword + 1));
        EXPECT_EQ(store.Get(Bank::Default, keyword), static_cast<std::uint32_t>(keyword + 1001));
        EXPECT_EQ(store.Get(Bank::Favorite, keyword), static_cast<std::uint32_t>(keyword + 2001));
        EXPECT_EQ(store.Get(Bank::Preview, keyword), static_cast<std::uint32_t>(keyword + 3001));
    }
}

TEST(Store, KeepsAllBitsOfABankValue) {
    ValueStore store;
    store.Set(Bank::Current, 326, 0xFFFFFFFF);
    EXPECT_EQ(store.Get(Bank::Current, 326), 0xFFFFFFFFu);
}

TEST(Store, TakesAnyIntAsKeywordWithoutEffectOnTheTable) {
    ValueStore store;
    for (const int keyword : {327, 512, 513, -1, INT_MIN, INT_MAX}) {
        EXPECT_EQ(store.Get(Bank::Current, keyword), 0u) << keyword;
        store.Set(Bank::Current, keyword, 7);
        EXPECT_EQ(store.Get(Bank::Current, keyword), 7u) << keyword;
        EXPECT_EQ(store.Get(Bank::Preview, keyword), 0u) << keyword;
    }
    for (int keyword = 0; keyword < 327; ++keyword)
        EXPECT_EQ(store.Get(Bank::Current, keyword), 0u);
}

TEST(Store, OverwritesAKeywordOutsideTheTable) {
    ValueStore store;
    store.Set(Bank::Current, 512, 1);
    store.Set(Bank::Current, 512, 2);
    EXPECT_EQ(store.Get(Bank::Current, 512), 2u);
}

TEST(Store, ForgetsKeywordsOutsideTheTableBeyondSixtyFour) {
    ValueStore store;
    for (int keyword = 1000; keyword < 1100; ++keyword)
        store.Set(Bank::Current, keyword, 5);
    EXPECT_EQ(store.Get(Bank::Current, 1063), 5u);
    EXPECT_EQ(store.Get(Bank::Current, 1064), 0u);
}

TEST(Store, KeepsATextAsLongAsItsFieldUnchanged) {
    ValueStore store;
    const std::string text(99, 'f');
    store.SetText(NamedValue::FormName, text.c_str());
    EXPECT_EQ(store.Named().FormName.data(), text);
}

TEST(Store, CutsALongerTextToItsField) {
    ValueStore store;
    store.SetText(NamedValue::FormName, std::string(100, 'f').c_str());
    EXPECT_EQ(store.Named().FormName.data(), std::string(99, 'f'));
    store.SetText(NamedValue::FormName, std::string(5000, 'g').c_str());
    EXPECT_EQ(store.Named().FormName.data(), std::string(99, 'g'));
}

TEST(Store, CutsATextOnACharacterBoundary) {
    ValueStore store;
    // A field of 100 bytes takes 99: forty-nine characters of two bytes, and half of the fiftieth.
    std::string text;
    for (int i = 0; i < 50; ++i)
        text += "\x83\x5C"; // second byte is a backslash's
    store.SetText(NamedValue::FormName, text.c_str());
    EXPECT_EQ(store.Named().FormName.data(), text.substr(0, 98));

    store.SetText(NamedValue::FormName, ("a" + text).c_str());
    EXPECT_EQ(store.Named().FormName.data(), "a" + text.substr(0, 98));
}

TEST(Store, LeavesNothingOfALongerTextBehindAShorterOne) {
    ValueStore store;
    store.SetText(NamedValue::SecPrintPassword, "a long secret");
    store.SetText(NamedValue::SecPrintPassword, "short");
    const auto& slot = store.Named().SecPrintPassword;
    EXPECT_EQ(std::string(slot.data(), slot.size()), "short" + std::string(slot.size() - 5, '\0'));
}

TEST(Store, ForgetsEverythingOnReset) {
    ValueStore store;
    store.Set(Bank::Default, 104, 1);
    store.Set(Bank::Current, 512, 1);
    store.SetNumber(NamedValue::BackMargin, std::int32_t{-5});
    store.SetText(NamedValue::JobName, "job");
    store.active = &store;
    store.Reset();
    EXPECT_EQ(store.Get(Bank::Default, 104), 0u);
    EXPECT_EQ(store.Get(Bank::Current, 512), 0u);
    EXPECT_EQ(store.Named().BackMargin, 0);
    EXPECT_STREQ(store.Named().JobName.data(), "");
    EXPECT_EQ(store.active, nullptr);
}

} // namespace

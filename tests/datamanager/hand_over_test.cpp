// The store with a data setting key: what it writes there, and how it takes over what another process wrote.
#include "tests/datamanager/hand_over_fixture.h"

namespace {

TEST_F(HandOver, WritesEveryChangeAtOnceUnderItsName) {
    store.Set(Bank::Current, 104, 2);
    store.Set(Bank::Favorite, 0, 9);
    store.SetNumber(NamedValue::BackMargin, std::int32_t{-1});
    EXPECT_EQ(key.Number(Section::Current, "DuplexMode"), 2u);
    EXPECT_EQ(key.Number(Section::Favorite, "PageSize"), 9u);
    EXPECT_EQ(key.Number(Section::Values, "BackMargin"), 0xFFFFFFFFu);
    EXPECT_EQ(key.values.size(), 3u);
}

TEST_F(HandOver, WritesATextWithItsNulAndNoMore) {
    store.SetText(NamedValue::JobName, "job");
    const auto& [type, bytes] = key.values.at({Section::Values, "JobName"});
    EXPECT_EQ(type, 1u);
    EXPECT_EQ(bytes, std::string("job\0", 4));
}

TEST_F(HandOver, WritesTheOneLongNumberWithEightBytes) {
    store.SetNumber(NamedValue::AutoJobStartSpecifiedDayAndTimeForDriver, std::uint64_t{0x0102030405060708});
    const auto& [type, bytes] = key.values.at({Section::Values, "AutoJobStartSpecifiedDayAndTimeForDriver"});
    EXPECT_EQ(type, 11u);
    EXPECT_EQ(bytes, "\x08\x07\x06\x05\x04\x03\x02\x01");
}

TEST_F(HandOver, WritesTheValuesThatHaveNoGetter) {
    store.SetNumber(NamedValue::UseIcCard, std::uint32_t{1});
    store.SetText(NamedValue::FavoriteName, std::string(28, 'n').c_str());
    store.SetText(NamedValue::FrontCoverStkName, "stock");
    EXPECT_EQ(key.Number(Section::Values, "UseIcCard"), 1u);
    EXPECT_EQ(key.values.at({Section::Values, "FavoriteName"}).second, std::string(27, 'n') + '\0');
    EXPECT_EQ(key.values.at({Section::Values, "FrontCoverStkName"}).second, std::string("stock\0", 6));
}

TEST_F(HandOver, DoesNotWriteAValueThatReadsTheSameAnyway) {
    store.Set(Bank::Current, 104, 0);
    store.SetText(NamedValue::JobName, "");
    EXPECT_EQ(key.writes, 0);
    store.Set(Bank::Current, 104, 2);
    store.Set(Bank::Current, 104, 2);
    EXPECT_EQ(key.writes, 1);
    store.Set(Bank::Current, 104, 0);
    EXPECT_EQ(key.Number(Section::Current, "DuplexMode"), 0u);
}

TEST_F(HandOver, DoesNotWriteAKeywordOutsideTheTable) {
    store.Set(Bank::Current, 512, 2);
    EXPECT_EQ(key.writes, 0);
}

TEST_F(HandOver, DoesNotReadTheKeyWhileNothingIsHandedOver) {
    key.PutNumber(Section::Current, "DuplexMode", 7);
    for (int i = 0; i < 1000; ++i)
        EXPECT_EQ(store.Get(Bank::Current, 104), 0u);
    EXPECT_EQ(key.reads, 0);
}

TEST_F(HandOver, TakesOverEverythingInOneReading) {
    key.PutNumber(Section::Current, "DuplexMode", 7);
    key.PutNumber(Section::Preview, "RepeatExceptionPage", 8);
    key.PutNumber(Section::Values, "BleedSize", 9);
    key.PutText("JobName", "from outside");
    key.handedOver = true;
    EXPECT_STREQ(store.Named().JobName.data(), "from outside");
    EXPECT_EQ(store.Get(Bank::Current, 104), 7u);
    EXPECT_EQ(store.Get(Bank::Preview, 326), 8u);
    EXPECT_EQ(store.Named().BleedSize, 9u);
    EXPECT_EQ(key.reads, 1);
}

TEST_F(HandOver, ReadsAValueThatVanishedAsNeverSet) {
    store.Set(Bank::Current, 104, 2);
    store.SetText(NamedValue::JobName, "job");
    key.values.clear();
    key.handedOver = true;
    EXPECT_EQ(store.Get(Bank::Current, 104), 0u);
    EXPECT_STREQ(store.Named().JobName.data(), "");
}

TEST_F(HandOver, KeepsTheWindowAndTheKeywordsOutsideTheTable) {
    store.Set(Bank::Current, 512, 3);
    store.active = &store;
    key.handedOver = true;
    EXPECT_EQ(store.Get(Bank::Current, 104), 0u);
    EXPECT_EQ(store.Get(Bank::Current, 512), 3u);
    EXPECT_EQ(store.active, &store);
}

TEST_F(HandOver, TakesOverBeforeASetterDecidesWhetherToWrite) {
    store.Set(Bank::Current, 104, 2);
    key.PutNumber(Section::Current, "DuplexMode", 7);
    key.handedOver = true;
    // The store's own last value is 2, but 7 stands in the key by now.
    store.Set(Bank::Current, 104, 2);
    EXPECT_EQ(key.Number(Section::Current, "DuplexMode"), 2u);
    EXPECT_EQ(store.Get(Bank::Current, 104), 2u);
}

TEST_F(HandOver, LetsTheLaterOfTwoWritersWin) {
    key.PutNumber(Section::Current, "DuplexMode", 7);
    key.PutNumber(Section::Current, "PageSize", 7);
    key.handedOver = true;
    store.Set(Bank::Current, 104, 3);
    EXPECT_EQ(store.Get(Bank::Current, 104), 3u);
    EXPECT_EQ(store.Get(Bank::Current, 0), 7u);
}

TEST_F(HandOver, KeepsTheValuesWhenTheKeyIsGone) {
    store.Set(Bank::Current, 104, 2);
    key.values.clear();
    key.gone = true;
    key.handedOver = true;
    EXPECT_EQ(store.Get(Bank::Current, 104), 2u);
    EXPECT_EQ(store.KeyName(), "");
}

TEST_F(HandOver, StopsWritingToAKeyThatIsGone) {
    key.gone = true;
    store.Set(Bank::Current, 104, 2);
    store.Set(Bank::Current, 104, 3);
    EXPECT_EQ(store.Get(Bank::Current, 104), 3u);
    EXPECT_EQ(key.writes, 1);
    EXPECT_EQ(store.KeyName(), "");
}

TEST_F(HandOver, LetsTheKeyGoOnReset) {
    EXPECT_EQ(store.KeyName(), "a key");
    store.Reset();
    EXPECT_EQ(store.KeyName(), "");
    store.Set(Bank::Current, 104, 2);
    EXPECT_EQ(key.writes, 0);
}

TEST_F(HandOver, IsNotMissedByASetterThatRepeatsTheStoresOwnValue) {
    store.Set(Bank::Current, 104, 2);
    key.PutNumber(Section::Current, "DuplexMode", 7);
    key.PutNumber(Section::Current, "PageSize", 7);
    key.handedOver = true;
    store.Set(Bank::Current, 104, 2);
    EXPECT_EQ(key.Number(Section::Current, "DuplexMode"), 2u);
    EXPECT_EQ(store.Get(Bank::Current, 104), 2u);
    EXPECT_EQ(store.Get(Bank::Current, 0), 7u);
}

TEST_F(HandOver, ThatASetterHasSeenIsTakenByTheNextGetter) {
    store.Set(Bank::Current, 104, 2);
    key.PutNumber(Section::Current, "PageSize", 7);
    key.handedOver = true;
    store.Set(Bank::Current, 104, 2);
    key.isDue = false;
    EXPECT_EQ(store.Get(Bank::Current, 0), 7u);
}

TEST_F(HandOver, IsNotAskedForByASetterOfTheSameValueMoreOftenThanTheKeyAllows) {
    store.Set(Bank::Current, 104, 2);
    key.isDue = false;
    key.questions = 0;
    for (int i = 0; i < 1000; ++i)
        store.Set(Bank::Current, 104, 2);
    EXPECT_EQ(key.questions, 0);
    store.Set(Bank::Current, 104, 3);
    EXPECT_EQ(key.questions, 1);
}

// Within the 100 microseconds the same value again is no later write than the program's.
TEST_F(HandOver, ArrivesOverTheSameValueThatIsSetAgainAtOnce) {
    store.Set(Bank::Current, 104, 2);
    key.isDue = false;
    key.PutNumber(Section::Current, "DuplexMode", 7);
    key.handedOver = true;
    store.Set(Bank::Current, 104, 2);
    key.isDue = true;
    EXPECT_EQ(store.Get(Bank::Current, 104), 7u);
}

TEST_F(HandOver, IsNotAskedForByGettersMoreOftenThanTheKeyAllows) {
    key.isDue = false;
    key.questions = 0;
    for (int i = 0; i < 1000; ++i)
        store.Get(Bank::Current, 104);
    EXPECT_EQ(key.questions, 0);
}

TEST_F(HandOver, IsWatchedForAgainBeforeItIsRead) {
    key.duringReading = [this] {
        EXPECT_EQ(key.watches, 2);
        key.duringReading = nullptr;
        key.PutNumber(Section::Current, "DuplexMode", 8);
        key.handedOver = true;
    };
    key.PutNumber(Section::Current, "DuplexMode", 7);
    key.handedOver = true;
    store.Get(Bank::Current, 104);
    EXPECT_EQ(store.Get(Bank::Current, 104), 8u);
    EXPECT_EQ(key.reads, 2);
}

class BeforeTheNameIsOut : public testing::Test {
  protected:
    BeforeTheNameIsOut() { store.Attach(std::make_unique<KeyInMemory>(key)); }

    KeyContent key;
    ValueStore store;
};

TEST_F(BeforeTheNameIsOut, NothingIsWrittenAndNothingAsked) {
    store.Set(Bank::Current, 104, 2);
    store.SetText(NamedValue::SecPrintPassword, "secret");
    key.handedOver = true;
    EXPECT_EQ(store.Get(Bank::Current, 104), 2u);
    EXPECT_EQ(store.KeyName(), "a key");
    EXPECT_EQ(key.writes, 0);
    EXPECT_EQ(key.questions, 0);
    EXPECT_EQ(key.watches, 0);
}

TEST_F(BeforeTheNameIsOut, EverythingSetStandsInTheKeyWhenTheNameIsGiven) {
    store.Set(Bank::Current, 104, 2);
    store.SetText(NamedValue::SecPrintPassword, "secret");
    EXPECT_EQ(store.HandOutKeyName(), "a key");
    EXPECT_EQ(key.Number(Section::Current, "DuplexMode"), 2u);
    EXPECT_EQ(key.values.at({Section::Values, "SecPrintPassword"}).second, std::string("secret\0", 7));
    EXPECT_EQ(key.values.size(), 2u);
    EXPECT_EQ(key.watches, 1);
}

TEST_F(BeforeTheNameIsOut, AKeyThatIsGoneGivesNoName) {
    store.Set(Bank::Current, 104, 2);
    key.gone = true;
    EXPECT_EQ(store.HandOutKeyName(), "");
    EXPECT_EQ(store.Get(Bank::Current, 104), 2u);
}

TEST_F(BeforeTheNameIsOut, AnotherKeyStartsAgainInSilence) {
    store.HandOutKeyName();
    KeyContent second;
    store.Attach(std::make_unique<KeyInMemory>(second));
    store.Set(Bank::Current, 104, 2);
    EXPECT_EQ(second.writes, 0);
}

TEST(HandOverStart, WritesWhatWasSetBeforeTheKeyWasThere) {
    ValueStore store;
    store.Set(Bank::Default, 104, 2);
    store.SetText(NamedValue::JobName, "job");
    KeyContent key;
    store.Attach(std::make_unique<KeyInMemory>(key));
    store.HandOutKeyName();
    EXPECT_EQ(key.Number(Section::Default, "DuplexMode"), 2u);
    EXPECT_EQ(key.values.at({Section::Values, "JobName"}).second, std::string("job\0", 4));
    EXPECT_EQ(key.values.size(), 2u);
}

} // namespace

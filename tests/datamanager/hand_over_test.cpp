// The store with a data setting key: what it writes there, and how it takes over what another process wrote.
#include "datamanager/store.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <map>
#include <new>
#include <string>
#include <utility>

namespace {

struct KeyContent {
    std::map<std::pair<Section, std::string>, std::pair<std::uint32_t, std::string>> values;
    int writes = 0;
    int reads = 0; // of all sections
    int watches = 0;
    int questions = 0; // of the system, by getters and setters
    int postponed = 0;
    std::uint32_t changes = 0; // of any section
    bool handedOver = false;
    bool isDue = true; // false as it is within 100 microseconds of a getter's question
    bool gone = false;
    KeyResult watching = KeyResult::Done;
    KeyResult reading = KeyResult::Done;
    KeyResult writing = KeyResult::Done;
    bool isOutOfMemory = false;
    std::function<void()> duringReading; // between the values, once each reading of a section
    std::function<std::string(std::string_view)> image = [](std::string_view text) {
        return std::string(text);
    };

    void PutNumber(Section section, const std::string& name, std::uint32_t value) {
        values[{section, name}] = {4, std::string(reinterpret_cast<const char*>(&value), sizeof value)};
    }
    void PutText(const std::string& name, const std::string& bytes) {
        values[{Section::Values, name}] = {1, bytes};
    }
    std::uint32_t Number(Section section, const std::string& name) const {
        const auto& [type, bytes] = values.at({section, name});
        std::uint32_t value = 0;
        EXPECT_EQ(type, 4u);
        EXPECT_EQ(bytes.size(), sizeof value);
        std::memcpy(&value, bytes.data(), std::min(bytes.size(), sizeof value));
        return value;
    }
};

class KeyInMemory : public SettingKey {
  public:
    explicit KeyInMemory(KeyContent& content) : m_content(content) {}

    const std::string& Name() const override { return m_name; }
    bool IsDue() override { return m_content.isDue; }
    void Postpone() override { ++m_content.postponed; }
    KeyResult Watch() override {
        ++m_content.watches;
        return m_content.gone ? KeyResult::Gone : m_content.watching;
    }
    bool IsSignalled() override {
        ++m_content.questions;
        return std::exchange(m_content.handedOver, false);
    }
    KeyResult GetMark(Section, SectionMark& mark) override {
        mark = {0, m_content.changes};
        return m_content.gone ? KeyResult::Gone : KeyResult::Done;
    }
    // By index, as a registry is read: a value that is removed meanwhile shifts those behind it.
    KeyResult Read(Section section, const Visitor& visitor) override {
        if (m_content.isOutOfMemory)
            throw std::bad_alloc();
        if (section == Section::Current)
            ++m_content.reads;
        for (std::size_t index = 0;; ++index) {
            const auto value = std::ranges::find_if(m_content.values, [&, left = index](auto& each) mutable {
                return each.first.first == section && left-- == 0;
            });
            if (value == m_content.values.end())
                break;
            visitor(value->first.second, value->second.first, std::as_bytes(std::span(value->second.second)));
            if (index == 0 && m_content.duringReading)
                m_content.duringReading();
        }
        return m_content.gone ? KeyResult::Gone : m_content.reading;
    }
    KeyResult Write(Section section, const char* name, KeyValueType type,
                    std::span<const std::byte> data) override {
        ++m_content.writes;
        if (m_content.gone)
            return KeyResult::Gone;
        if (m_content.writing == KeyResult::Done)
            m_content.values[{section, name}] = {static_cast<std::uint32_t>(type),
                                                 {reinterpret_cast<const char*>(data.data()), data.size()}};
        return m_content.writing;
    }
    std::string ImageOf(std::string_view text) const override { return m_content.image(text); }

  private:
    KeyContent& m_content;
    std::string m_name = "a key";
};

class HandOver : public testing::Test {
  protected:
    HandOver() {
        store.Attach(std::make_unique<KeyInMemory>(key));
        store.HandOutKeyName();
    }

    KeyContent key;
    ValueStore store;
};

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

// Another process hands over while a getter has just asked.
TEST_F(HandOver, IsNotMissedByASetterThatRepeatsTheStoresOwnValue) {
    store.Set(Bank::Current, 104, 2);
    key.isDue = false;
    key.PutNumber(Section::Current, "DuplexMode", 7);
    key.PutNumber(Section::Current, "PageSize", 7);
    key.handedOver = true;
    store.Set(Bank::Current, 104, 2);
    EXPECT_EQ(key.Number(Section::Current, "DuplexMode"), 2u);
    key.isDue = true;
    EXPECT_EQ(store.Get(Bank::Current, 104), 2u);
    EXPECT_EQ(store.Get(Bank::Current, 0), 7u);
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

TEST_F(HandOver, DoesNotLoseAValueThatStandsBehindOneRemovedDuringTheReading) {
    store.Set(Bank::Current, 104, 2);
    key.PutNumber(Section::Current, "A", 1);
    key.duringReading = [this] {
        key.duringReading = nullptr;
        key.values.erase({Section::Current, "A"});
        ++key.changes;
    };
    key.handedOver = true;
    EXPECT_EQ(store.Get(Bank::Current, 104), 2u);
}

TEST_F(HandOver, TakesNothingThatOnlyStoodThereInAnEarlierReading) {
    key.PutNumber(Section::Current, "DuplexMode", 7);
    key.PutNumber(Section::Current, "PageSize", 7);
    key.duringReading = [this] {
        key.duringReading = nullptr;
        key.values.erase({Section::Current, "DuplexMode"});
        ++key.changes;
    };
    key.handedOver = true;
    EXPECT_EQ(store.Get(Bank::Current, 104), 0u);
    EXPECT_EQ(store.Get(Bank::Current, 0), 7u);
}

TEST_F(HandOver, WaitsUntilTheKeyStaysStill) {
    store.Set(Bank::Current, 104, 2);
    key.PutNumber(Section::Current, "DuplexMode", 7);
    key.duringReading = [this] { ++key.changes; };
    key.handedOver = true;
    EXPECT_EQ(store.Get(Bank::Current, 104), 2u);
    EXPECT_EQ(key.reads, 4);
    EXPECT_EQ(key.postponed, 1);
    key.duringReading = nullptr;
    EXPECT_EQ(store.Get(Bank::Current, 104), 7u);
    EXPECT_EQ(store.Get(Bank::Current, 104), 7u);
    EXPECT_EQ(key.reads, 5);
}

TEST_F(HandOver, KeepsTheValuesAndTheKeyWhenAReadingFailsHalfWay) {
    store.Set(Bank::Current, 104, 2);
    store.SetText(NamedValue::JobName, "job");
    key.PutNumber(Section::Current, "DuplexMode", 7);
    key.reading = KeyResult::Failed;
    key.handedOver = true;
    EXPECT_EQ(store.Get(Bank::Current, 104), 2u);
    EXPECT_STREQ(store.Named().JobName.data(), "job");
    EXPECT_EQ(store.KeyName(), "a key");
    key.reading = KeyResult::Done;
    EXPECT_EQ(store.Get(Bank::Current, 104), 7u);
}

TEST_F(HandOver, IsTakenOverLaterWhenThereIsNoMemory) {
    key.PutNumber(Section::Current, "DuplexMode", 7);
    key.isOutOfMemory = true;
    key.handedOver = true;
    EXPECT_EQ(store.Get(Bank::Current, 104), 0u);
    key.isOutOfMemory = false;
    EXPECT_EQ(store.Get(Bank::Current, 104), 7u);
}

TEST_F(HandOver, IsWrittenOverByASetterEvenIfItCouldNotBeRead) {
    store.Set(Bank::Current, 104, 2);
    key.PutNumber(Section::Current, "DuplexMode", 7);
    key.reading = KeyResult::Failed;
    key.handedOver = true;
    store.Get(Bank::Current, 104);
    store.Set(Bank::Current, 104, 2);
    EXPECT_EQ(key.Number(Section::Current, "DuplexMode"), 2u);
}

TEST_F(HandOver, IsSeenAfterTheKeyCouldNotBeWatchedForAWhile) {
    key.watching = KeyResult::Failed;
    key.handedOver = true;
    EXPECT_EQ(store.Get(Bank::Current, 104), 0u); // the event is used up, and no other comes
    key.PutNumber(Section::Current, "DuplexMode", 7);
    EXPECT_EQ(store.Get(Bank::Current, 104), 0u);
    key.watching = KeyResult::Done;
    EXPECT_EQ(store.Get(Bank::Current, 104), 7u);
    EXPECT_EQ(store.Get(Bank::Current, 104), 7u);
    EXPECT_EQ(key.reads, 2) << "not read again while it is watched and nothing is handed over";
}

TEST_F(HandOver, DoesNotRevertAValueThatCouldNotBeWritten) {
    store.Set(Bank::Current, 104, 2);
    key.writing = KeyResult::Failed;
    store.Set(Bank::Current, 104, 3);
    EXPECT_EQ(key.Number(Section::Current, "DuplexMode"), 2u);
    key.writing = KeyResult::Done;
    key.PutNumber(Section::Current, "PageSize", 7);
    key.handedOver = true;
    EXPECT_EQ(store.Get(Bank::Current, 104), 3u);
    EXPECT_EQ(store.Get(Bank::Current, 0), 7u);
    EXPECT_EQ(key.Number(Section::Current, "DuplexMode"), 3u);
}

TEST_F(HandOver, DoesNotRevertAValueThatStillCannotBeWritten) {
    store.Set(Bank::Current, 104, 2);
    key.writing = KeyResult::Failed;
    store.Set(Bank::Current, 104, 3);
    key.PutNumber(Section::Current, "PageSize", 7);
    key.handedOver = true;
    EXPECT_EQ(store.Get(Bank::Current, 0), 7u);
    EXPECT_EQ(store.Get(Bank::Current, 104), 3u);
}

TEST_F(HandOver, WritesAgainWhatFailedWhenTheNameIsAskedForAgain) {
    key.writing = KeyResult::Failed;
    store.Set(Bank::Current, 104, 3);
    key.writing = KeyResult::Done;
    store.HandOutKeyName();
    EXPECT_EQ(key.Number(Section::Current, "DuplexMode"), 3u);
}

TEST_F(HandOver, WritesAgainWhatFailedWhenTheSameValueIsSetAgain) {
    key.writing = KeyResult::Failed;
    store.Set(Bank::Current, 104, 3);
    key.writing = KeyResult::Done;
    store.Set(Bank::Current, 104, 3);
    EXPECT_EQ(key.Number(Section::Current, "DuplexMode"), 3u);
}

TEST_F(HandOver, KeepsATextWhoseImageTheKeyStillHolds) {
    key.image = [](std::string_view text) { return text == "abc\x81" ? "abc" : std::string(text); };
    store.SetText(NamedValue::JobName, "abc\x81");
    key.PutText("JobName", std::string("abc\0", 4));
    key.handedOver = true;
    EXPECT_STREQ(store.Named().JobName.data(), "abc\x81");
    key.PutText("JobName", std::string("abcd\0", 5));
    key.handedOver = true;
    EXPECT_STREQ(store.Named().JobName.data(), "abcd");
}

TEST_F(HandOver, KeepsATextWhoseImageIsWiderThanItsField) {
    const std::string text(99, '\x80');
    key.image = [](std::string_view own) {
        return own.starts_with('\x80') ? std::string(2 * own.size(), '?') : std::string(own);
    };
    store.SetText(NamedValue::FormName, text.c_str());
    key.PutText("FormName", std::string(198, '?') + '\0');
    key.handedOver = true;
    EXPECT_EQ(store.Named().FormName.data(), text);
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

// A hand-over while the key changes, or where it cannot be read, watched or written.
#include "tests/datamanager/hand_over_fixture.h"

namespace {

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

} // namespace

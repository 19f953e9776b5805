#include "Common/device_records.h"

#include "tests/Common/memory_source.h"
#include "tests/Common/plain_records.h"
#include "tests/Common/short_memory.h"

#include <gtest/gtest.h>

#include <new>
#include <string>

using namespace std::string_literals;

namespace {

using Plain = PlainRecords;

void Read(DeviceRecordMap& records, std::string_view text) {
    MemorySource source(text);
    TextLines lines(source);
    records.AddLines(lines);
}

Plain RecordsOf(std::string_view text) {
    DeviceRecordMap records;
    Read(records, text);
    return PlainOf(records);
}

// "?0?1?2..." up to about the size; each key has a further value, the rest.
std::string LineOfMarks(std::size_t size) {
    std::string line;
    line.reserve(size + 16);
    for (std::size_t i = 0; line.size() < size; ++i)
        line += "?" + std::to_string(i);
    return line;
}

} // namespace

TEST(DeviceRecords, AreTheFieldsOfALine) {
    EXPECT_EQ(RecordsOf("?doublePunch?True|?zFold?True\n"),
              (Plain{{0, {{"doublePunch", "True"}, {"zFold", "True"}}}}));
}

TEST(DeviceRecords, AreNumberedByTheLinesBeforeThem) {
    EXPECT_EQ(RecordsOf("?Number?4\n?Number?7\n"), (Plain{{0, {{"Number", "4"}}}, {1, {{"Number", "7"}}}}));
}

TEST(DeviceRecords, HaveAnIndexLessForABlankLine) {
    EXPECT_EQ(RecordsOf("\n?a?1\r\n\r\n\n?b?2"), (Plain{{1, {{"a", "1"}}}, {4, {{"b", "2"}}}}));
}

TEST(DeviceRecords, AreNotMadeForALineWithoutPairs) {
    EXPECT_EQ(RecordsOf("no pair|none\n|||\n"), Plain{});
}

TEST(DeviceRecords, IgnoreTextInFrontOfAFieldsFirstMark) {
    EXPECT_EQ(RecordsOf("front?a?1|more ?b?2"), (Plain{{0, {{"a", "1"}, {"b", "2"}}}}));
}

TEST(DeviceRecords, KeepTheFirstValueOfAKeyInALine) {
    EXPECT_EQ(RecordsOf("?a?1|?a?2"), (Plain{{0, {{"a", "1"}}}}));
}

TEST(DeviceRecords, KeepKeysOfEachLineApart) {
    EXPECT_EQ(RecordsOf("?a?1\n?a?2"), (Plain{{0, {{"a", "1"}}}, {1, {{"a", "2"}}}}));
}

TEST(DeviceRecords, HaveAFurtherPairForFurtherMarksAndTheRestAsValue) {
    EXPECT_EQ(RecordsOf("?a?b?c?d"), (Plain{{0, {{"a", "b?c?d"}, {"c", "d"}}}}));
    EXPECT_EQ(RecordsOf("?a?b?c"), (Plain{{0, {{"a", "b?c"}, {"c", "c"}}}}));
}

TEST(DeviceRecords, TakeAKeyWithoutASecondMarkForItsOwnValue) {
    EXPECT_EQ(RecordsOf("x?a"), (Plain{{0, {{"a", "a"}}}}));
}

TEST(DeviceRecords, MayHaveEmptyKeysAndValues) {
    EXPECT_EQ(RecordsOf("?"), (Plain{{0, {{"", ""}}}}));
    EXPECT_EQ(RecordsOf("?a?"), (Plain{{0, {{"a", ""}}}}));
    EXPECT_EQ(RecordsOf("??v"), (Plain{{0, {{"", "v"}}}}));
    EXPECT_EQ(RecordsOf("????"), (Plain{{0, {{"", "??"}}}}));
}

TEST(DeviceRecords, KeepKeysThatNoQueryKnows) {
    EXPECT_EQ(RecordsOf("?SerialNumber?ab 12"), (Plain{{0, {{"SerialNumber", "ab 12"}}}}));
}

TEST(DeviceRecords, AreOrderedByteByByte) {
    DeviceRecordMap records;
    records.AddLine(0, "?b?1|?\xFF?2|?B?3|?ab?4|?\x01?5");
    std::string keys;
    for (const auto& [key, value] : records.All().at(0))
        keys += std::string(key) + " ";
    EXPECT_EQ(keys, "\x01 B ab b \xFF ");
}

TEST(DeviceRecords, MayHoldNul) {
    EXPECT_EQ(RecordsOf("?a\0b?c\0|?a\0?d"s), (Plain{{0, {{"a\0b"s, "c\0"s}, {"a\0"s, "d"}}}}));
}

TEST(DeviceRecords, KeepACarriageReturnInFrontOfABar) {
    EXPECT_EQ(RecordsOf("?a?1\r|?b?2\r\r\n"), (Plain{{0, {{"a", "1\r"}, {"b", "2\r"}}}}));
}

TEST(DeviceRecords, KeepOldValuesWhenReadAgainAndTakeWhatIsNew) {
    DeviceRecordMap records;
    Read(records, "?a?1\n");
    Read(records, "?a?2|?b?3\n?c?4\n");
    EXPECT_EQ(PlainOf(records), (Plain{{0, {{"a", "1"}, {"b", "3"}}}, {1, {{"c", "4"}}}}));
    Read(records, "");
    EXPECT_EQ(PlainOf(records), (Plain{{0, {{"a", "1"}, {"b", "3"}}}, {1, {{"c", "4"}}}}));
}

TEST(DeviceRecords, TakeNoFurtherRoomWhenTheSameFileIsReadAgain) {
    const std::string text = LineOfMarks(10000) + "|?a?1\n?b?2\n";
    DeviceRecordMap records;
    Read(records, text);
    const std::size_t size = records.TextSize();
    for (int i = 0; i < 10; ++i)
        Read(records, text);
    EXPECT_EQ(records.TextSize(), size);
}

TEST(DeviceRecords, TakeRoomOnlyFromALinesFirstNewKeyOn) {
    DeviceRecordMap records;
    records.AddLine(0, "?old?" + std::string(1000, 'x'));
    const std::size_t size = records.TextSize();
    records.AddLine(0, "?old?" + std::string(1000, 'y') + "|?old?z?new?1|?more?2|?old?3");
    EXPECT_EQ(records.TextSize(), size + std::string("new?1|?more?2|?old?3").size());
    EXPECT_EQ(PlainOf(records), (Plain{{0, {{"old", std::string(1000, 'x')}, {"new", "1"}, {"more", "2"}}}}));
}

TEST(DeviceRecords, OfALineShareOneText) {
    DeviceRecordMap records;
    records.AddLine(0, "front?a?1|?b?2?c?|?d");
    const auto& record = records.All().at(0);
    EXPECT_EQ(records.TextSize(), std::string("a?1|?b?2?c?|?d").size());
    EXPECT_EQ(record.at("b").data() - record.at("a").data(), 5);
    EXPECT_EQ(record.at("d").data() - record.at("b").data(), 6);
}

TEST(DeviceRecords, StayWholeWhenMemoryEndsInAnAssignment) {
    DeviceRecordMap from;
    Read(from, "?a?" + std::string(100, 'f') + "\n?b?" + std::string(100, 'g') + "\n?c?1\n");
    bool isAssigned = false;
    for (std::size_t allocations = 0; !isAssigned; ++allocations) {
        DeviceRecordMap to;
        Read(to, "?x?" + std::string(100, 'y') + "\n?z?2");
        try {
            const ShortMemory memory(allocations);
            to = from;
            isAssigned = true;
        } catch (const std::bad_alloc&) {
            EXPECT_EQ(PlainOf(to), (Plain{{0, {{"x", std::string(100, 'y')}}}, {1, {{"z", "2"}}}}));
        }
        if (isAssigned) {
            EXPECT_EQ(PlainOf(to), PlainOf(from));
            EXPECT_GT(allocations, 3u) << "memory has ended in none";
        }
    }
}

TEST(DeviceRecords, KeepWhatWasReadWhenMemoryEndsAndTakeTheRestLater) {
    const Plain whole{{0, {{"a", std::string(100, 'f')}, {"b", "2"}}}, {1, {{"c", "1"}}}};
    const std::string text = "?a?" + std::string(100, 'f') + "|?b?2\n?c?1\n";
    int ends = 0;
    for (bool isRead = false; !isRead; ++ends) {
        DeviceRecordMap records;
        try {
            const ShortMemory memory(static_cast<std::size_t>(ends));
            Read(records, text);
            isRead = true;
        } catch (const std::bad_alloc&) {
            for (const auto& [index, record] : PlainOf(records))
                for (const auto& [key, value] : record)
                    EXPECT_EQ(value, whole.at(index).at(key));
        }
        Read(records, text);
        EXPECT_EQ(PlainOf(records), whole);
    }
    EXPECT_GT(ends, 5);
}

TEST(DeviceRecords, OutliveTheTextTheyWereReadFromAndTheMapTheyWereCopiedFrom) {
    DeviceRecordMap copy;
    {
        DeviceRecordMap records;
        records.AddLine(5, std::string("?a?") + std::string(100, 'v'));
        copy = records;
        records.AddLine(5, "?b?later");
    }
    EXPECT_EQ(PlainOf(copy), (Plain{{5, {{"a", std::string(100, 'v')}}}}));
}

// Each value of such a line is all the rest of it; as texts of their own they would be tens of gigabytes.
TEST(DeviceRecords, OfALineOfAMegabyteTakeNoMoreRoomThanTheFile) {
    const std::string line = LineOfMarks(1 << 20);
    DeviceRecordMap records;
    records.AddLine(0, line);
    EXPECT_GT(records.All().at(0).size(), 70000u);
    EXPECT_LE(records.TextSize(), line.size());
    EXPECT_EQ(records.All().at(0).at("0"), std::string_view(line).substr(3));

    const DeviceRecordMap copy = records;
    EXPECT_EQ(copy.TextSize(), records.TextSize());
    EXPECT_EQ(copy.All().at(0).at("0").data(), records.All().at(0).at("0").data()) << "copies share the text";
}

TEST(DeviceRecords, OfALineOfAMegabyteOfMarksIsOnePair) {
    DeviceRecordMap records;
    records.AddLine(0, std::string(1 << 20, '?'));
    EXPECT_EQ(records.All().at(0).size(), 1u);
    EXPECT_EQ(records.All().at(0).at("").size(), (1u << 20) - 2);
}

TEST(DeviceRecords, AreReadByTheThousands) {
    std::string text;
    for (int i = 0; i < 5000; ++i)
        text += "?Number?" + std::to_string(i) + "\n";
    const Plain records = RecordsOf(text);
    ASSERT_EQ(records.size(), 5000u);
    EXPECT_EQ(records.at(4999).at("Number"), "4999");
}

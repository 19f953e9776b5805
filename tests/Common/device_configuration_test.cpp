// The six queries over records written by hand.
#include "Common/ProfileInfo.h"

#include <gtest/gtest.h>

#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using Query = int (*)(int*, int, const DeviceRecordMap&);

struct NamedQuery {
    const char* name;
    Query query;
    bool needsCount;
};

constexpr NamedQuery kQueries[] = {
    {"tray", CProfileInfo::GetTrayConfig, false},  {"output", CProfileInfo::GetOutputConfig, false},
    {"punch", CProfileInfo::GetPunchConfig, true}, {"staple", CProfileInfo::GetStapleConfig, true},
    {"fold", CProfileInfo::GetFoldConfig, true},   {"jog", CProfileInfo::GetJogConfig, true},
};

DeviceRecordMap Records(const std::vector<std::string>& lines) {
    DeviceRecordMap records;
    for (std::size_t i = 0; i < lines.size(); ++i)
        records.AddLine(static_cast<std::int32_t>(i), lines[i]);
    return records;
}

constexpr int kUntouched = 77;

// The list after the query, with an entry behind it that must stay untouched.
std::vector<int> Ask(Query query, int count, const DeviceRecordMap& records) {
    std::vector<int> list(static_cast<std::size_t>(count) + 1, kUntouched);
    EXPECT_EQ(query(list.data(), count, records), 1);
    EXPECT_EQ(list.back(), kUntouched);
    list.pop_back();
    return list;
}

// The indices that are 1 in a list of 32.
std::set<int> Fitted(Query query, const std::vector<std::string>& lines) {
    const std::vector<int> list = Ask(query, 32, Records(lines));
    std::set<int> fitted;
    for (int i = 0; i < 32; ++i) {
        EXPECT_TRUE(list[static_cast<std::size_t>(i)] == 0 || list[static_cast<std::size_t>(i)] == 1);
        if (list[static_cast<std::size_t>(i)] == 1)
            fitted.insert(i);
    }
    return fitted;
}

using Set = std::set<int>;

Set With(Set set, int first, int last) {
    for (int i = first; i <= last; ++i)
        set.insert(i);
    return set;
}

const Set kTrayStart{0, 1, 2, 3, 7};
const Set kFirst{0};

template <typename Error>
void ExpectError(Query query, const std::string& line, const char* text) {
    std::vector<int> list(32);
    try {
        query(list.data(), 32, Records({line}));
        ADD_FAILURE() << "nothing was thrown for " << line;
    } catch (const Error& error) {
        EXPECT_STREQ(error.what(), text);
    }
}

} // namespace

TEST(Queries, WithoutRecordsGiveTheirStart) {
    EXPECT_EQ(Ask(CProfileInfo::GetTrayConfig, 8, {}), (std::vector<int>{1, 1, 1, 1, 0, 0, 0, 1}));
    EXPECT_EQ(Ask(CProfileInfo::GetOutputConfig, 5, {}), (std::vector<int>{1, 0, 0, 0, 0}));
    EXPECT_EQ(Fitted(CProfileInfo::GetTrayConfig, {}), kTrayStart);
    EXPECT_EQ(Fitted(CProfileInfo::GetOutputConfig, {}), kFirst);
    EXPECT_EQ(Fitted(CProfileInfo::GetPunchConfig, {}), kFirst);
    EXPECT_EQ(Fitted(CProfileInfo::GetStapleConfig, {}), kFirst);
    EXPECT_EQ(Fitted(CProfileInfo::GetFoldConfig, {}), kFirst);
}

// All the others set index 0.
TEST(Queries, JogLeavesIndex0At0) {
    EXPECT_EQ(Fitted(CProfileInfo::GetJogConfig, {}), Set{});
    EXPECT_EQ(Fitted(CProfileInfo::GetJogConfig, {"?offset?True"}), (Set{1, 2}));
}

TEST(Queries, TrayHasAnIndexForEachOfItsNumbers) {
    const std::pair<int, int> indexOfNumber[] = {{1, 1}, {2, 2}, {3, 3}, {4, 4}, {5, 5}, {7, 6}, {25, 7}};
    for (const auto& [number, index] : indexOfNumber)
        EXPECT_EQ(Fitted(CProfileInfo::GetTrayConfig, {"?Number?" + std::to_string(number)}),
                  With(kTrayStart, index, index))
            << number;
    for (const int number : {-1, 0, 6, 8, 24, 26, 257, 2147483647})
        EXPECT_EQ(Fitted(CProfileInfo::GetTrayConfig, {"?Number?" + std::to_string(number)}), kTrayStart)
            << number;
}

TEST(Queries, OutputHasAnIndexForEachOfItsTypes) {
    const std::pair<int, int> indexOfType[] = {{12, 1}, {13, 2}, {3, 3}, {6, 4}};
    for (const auto& [type, index] : indexOfType)
        EXPECT_EQ(Fitted(CProfileInfo::GetOutputConfig, {"?Type?" + std::to_string(type)}),
                  With(kFirst, index, index))
            << type;
    for (const int type : {-3, 0, 1, 2, 4, 5, 7, 11, 14})
        EXPECT_EQ(Fitted(CProfileInfo::GetOutputConfig, {"?Type?" + std::to_string(type)}), kFirst) << type;
}

struct TrueRow {
    const char* key;
    Query query;
    int first;
    int last;
};

constexpr TrueRow kTrueRows[] = {
    {"doublePunch", CProfileInfo::GetPunchConfig, 1, 5},
    {"usDoublePunch", CProfileInfo::GetPunchConfig, 1, 5},
    {"triplePunch", CProfileInfo::GetPunchConfig, 6, 10},
    {"quadPunch", CProfileInfo::GetPunchConfig, 11, 15},
    {"singleTop", CProfileInfo::GetStapleConfig, 1, 5},
    {"singleBottom", CProfileInfo::GetStapleConfig, 1, 5},
    {"doubleStitch", CProfileInfo::GetStapleConfig, 6, 10},
    {"saddleFoldStaple", CProfileInfo::GetStapleConfig, 11, 13},
    {"singleStitch", CProfileInfo::GetStapleConfig, 14, 17},
    {"quadStitch", CProfileInfo::GetStapleConfig, 18, 21},
    {"saddleFoldNoStaple", CProfileInfo::GetFoldConfig, 1, 3},
    {"zFold", CProfileInfo::GetFoldConfig, 4, 6},
    {"triFoldC", CProfileInfo::GetFoldConfig, 7, 8},
    {"triFoldZ", CProfileInfo::GetFoldConfig, 9, 10},
    {"offset", CProfileInfo::GetJogConfig, 1, 2},
};

TEST(Queries, SetTheRangeOfEachKeyThatIsTrueAndNoOtherQuerysFlags) {
    for (const TrueRow& row : kTrueRows)
        for (const NamedQuery& named : kQueries) {
            const Set start = Fitted(named.query, {});
            EXPECT_EQ(Fitted(named.query, {"?" + std::string(row.key) + "?True"}),
                      named.query == row.query ? With(start, row.first, row.last) : start)
                << row.key << " " << named.name;
        }
}

TEST(Queries, TakeNothingButTrueForTrue) {
    for (const TrueRow& row : kTrueRows)
        for (const char* value : {"true", "TRUE", "True ", " True", "1", "", "True\r", "False"})
            EXPECT_EQ(Fitted(row.query, {"?" + std::string(row.key) + "?" + value}), Fitted(row.query, {}))
                << row.key << "=" << value;
}

TEST(Queries, KnowTheirKeysOnlyAsTheyAreSpelled) {
    EXPECT_EQ(Fitted(CProfileInfo::GetTrayConfig, {"?number?4|?Number ?5|?NUMBER?7"}), kTrayStart);
    EXPECT_EQ(Fitted(CProfileInfo::GetOutputConfig, {"?type?12| ?Types?13"}), kFirst);
    EXPECT_EQ(Fitted(CProfileInfo::GetFoldConfig, {"?zfold?True|?ZFold?True|?zFold ?True"}), kFirst);
}

TEST(Queries, FeederWithNumbers4And7AddsIndices4And6) {
    EXPECT_EQ(Ask(CProfileInfo::GetTrayConfig, 8, Records({"?Number?4", "?Number?7"})),
              (std::vector<int>{1, 1, 1, 1, 1, 0, 1, 1}));
}

TEST(Queries, QuadPunchInLowerCaseSetsNothing) {
    EXPECT_EQ(Fitted(CProfileInfo::GetPunchConfig, {"?quadPunch?true"}), kFirst);
}

TEST(Queries, PunchAndFoldComeFromTheSameRecord) {
    const std::vector<std::string> lines{"?doublePunch?True|?zFold?True"};
    EXPECT_EQ(Fitted(CProfileInfo::GetPunchConfig, lines), With(kFirst, 1, 5));
    EXPECT_EQ(Fitted(CProfileInfo::GetFoldConfig, lines), With(kFirst, 4, 6));
}

TEST(Queries, TakeTheRecordsAsAUnion) {
    EXPECT_EQ(Fitted(CProfileInfo::GetStapleConfig,
                     {"?singleTop?True|?quadStitch?False", "", "?quadStitch?True", "?singleTop?False"}),
              (With(With(kFirst, 1, 5), 18, 21)));
    EXPECT_EQ(Fitted(CProfileInfo::GetOutputConfig, {"?Type?6", "?Type?12", "?Type?99"}), (Set{0, 1, 4}));
}

TEST(Queries, TakeTheFirstOfAKeyThatStandsTwiceInALine) {
    EXPECT_EQ(Fitted(CProfileInfo::GetTrayConfig, {"?Number?4|?Number?5"}), With(kTrayStart, 4, 4));
}

TEST(Queries, WriteNothingBehindTheListAtAnyLength) {
    const DeviceRecordMap all =
        Records({"?Number?1|?Type?12|?doublePunch?True|?triplePunch?True|?quadPunch?True|?singleTop?True|"
                 "?doubleStitch?True|?saddleFoldStaple?True|?singleStitch?True|?quadStitch?True|"
                 "?saddleFoldNoStaple?True|?zFold?True|?triFoldC?True|?triFoldZ?True|?offset?True",
                 "?Number?4|?Type?13", "?Number?5|?Type?3", "?Number?7|?Type?6", "?Number?25"});
    for (const NamedQuery& named : kQueries) {
        const std::vector<int> whole = Ask(named.query, 40, all);
        for (int count = 1; count < 40; ++count)
            EXPECT_EQ(Ask(named.query, count, all), std::vector<int>(whole.begin(), whole.begin() + count))
                << named.name << " " << count;
    }
}

TEST(Queries, EndTheirFlagsWithTheListInTheMiddleOfARange) {
    EXPECT_EQ(Ask(CProfileInfo::GetFoldConfig, 6, Records({"?zFold?True"})),
              (std::vector<int>{1, 0, 0, 0, 1, 1}));
    EXPECT_EQ(Ask(CProfileInfo::GetTrayConfig, 3, {}), (std::vector<int>{1, 1, 1}));
}

TEST(Queries, RefuseAMissingList) {
    for (const NamedQuery& named : kQueries)
        EXPECT_EQ(named.query(nullptr, 8, {}), 0) << named.name;
}

// The two others don't look at the count.
TEST(Queries, RefuseACountBelow1ButForTrayAndOutput) {
    for (const NamedQuery& named : kQueries)
        for (const int count : {0, -1, -2147483647 - 1}) {
            int list[2] = {kUntouched, kUntouched};
            EXPECT_EQ(named.query(list, count, Records({"?Number?4|?Type?12|?offset?True"})),
                      named.needsCount ? 0 : 1)
                << named.name << " " << count;
            EXPECT_EQ(list[0], kUntouched);
            EXPECT_EQ(list[1], kUntouched);
        }
}

TEST(Queries, ReadANumberByItsDigits) {
    for (const char* value : {"4", "4th", "4.9", "004", "+4", " 4", "\t\v\f\r 4 5", "4-"})
        EXPECT_EQ(Fitted(CProfileInfo::GetTrayConfig, {"?Number?" + std::string(value)}),
                  With(kTrayStart, 4, 4))
            << value;
    EXPECT_EQ(Fitted(CProfileInfo::GetTrayConfig, {std::string("?Number?4\0"
                                                               "5",
                                                               11)}),
              With(kTrayStart, 4, 4));
    EXPECT_EQ(Fitted(CProfileInfo::GetOutputConfig, {"?Type?0x6"}), kFirst) << "a decimal 0";
}

TEST(Queries, ReadTheWholeRangeOfNumbers) {
    EXPECT_EQ(Fitted(CProfileInfo::GetTrayConfig, {"?Number?-2147483648", "?Number?2147483647"}), kTrayStart);
}

TEST(Queries, ThrowForANumberThatIsNone) {
    for (const char* value : {"", "x", "-", "+", "+-4", "-+4", "- 4", "True", " "}) {
        ExpectError<std::invalid_argument>(CProfileInfo::GetTrayConfig, "?Number?" + std::string(value),
                                           "invalid stoi argument");
        ExpectError<std::invalid_argument>(CProfileInfo::GetOutputConfig, "?Type?" + std::string(value),
                                           "invalid stoi argument");
    }
    ExpectError<std::invalid_argument>(CProfileInfo::GetTrayConfig, "?Number", "invalid stoi argument");
}

TEST(Queries, ThrowForANumberTooLarge) {
    for (const char* value : {"2147483648", "-2147483649", "99999999999999999999999999", "+2147483648x"}) {
        ExpectError<std::out_of_range>(CProfileInfo::GetTrayConfig, "?Number?" + std::string(value),
                                       "stoi argument out of range");
        ExpectError<std::out_of_range>(CProfileInfo::GetOutputConfig, "?Type?" + std::string(value),
                                       "stoi argument out of range");
    }
}

TEST(Queries, ConvertOnlyTheNumbersOfTheirOwnKey) {
    EXPECT_EQ(Fitted(CProfileInfo::GetTrayConfig, {"?Type?x|?Name?y"}), kTrayStart);
    EXPECT_EQ(Fitted(CProfileInfo::GetOutputConfig, {"?Number?x"}), kFirst);
    EXPECT_EQ(Fitted(CProfileInfo::GetPunchConfig, {"?Number?x|?Type?x"}), kFirst);
}

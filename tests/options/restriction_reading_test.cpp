// The order in which the settings are read, by a store that only notes the reads.
#include "options/restriction_values.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

std::vector<int> reads;
std::uint32_t ownBypassPaper = 0; // the value of AutoTraySettingToBypass

} // namespace

extern "C" void ExportedFunc_GetCurrent(int keyword, std::uint32_t* value) {
    reads.push_back(keyword);
    *value = keyword == 24 ? ownBypassPaper : 1;
}

namespace {

TEST(ReadRestrictionValues, ReadsInItsOrderWithTheBypassPairLast) {
    reads.clear();
    ownBypassPaper = 0;
    ReadRestrictionValues();
    EXPECT_EQ(reads, (std::vector<int>{112, 113, 111, 104, 15, 336, 138, 194, 199, 114, 307, 12, 134, 135, 24,
                                       25, 26}));
}

TEST(ReadRestrictionValues, DoesNotReadABypassPairThatFollowsTheAutomaticTray) {
    reads.clear();
    ownBypassPaper = 1;
    ReadRestrictionValues();
    EXPECT_EQ(reads,
              (std::vector<int>{112, 113, 111, 104, 15, 336, 138, 194, 199, 114, 307, 12, 134, 135, 24}));
}

} // namespace

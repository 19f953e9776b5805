#include "session/record_routes.h"

#include "Common/log_recorder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::vector<std::string> LinesOf(int id, std::uint32_t value) {
    PrivateDevMode record{};
    const log_backend::Recorder log;
    StoreByRoute(record, id, value);
    EXPECT_TRUE(log.record.empty());
    return log.main;
}

TEST(RouteLog, HasALineWithTheValueForTheRoutesThatAreWatched) {
    for (const int id : {4458, 4613, 4614, 4615, 4621, 4622, 4623, 4624, 4625, 4626, 4627, 4628, 4629}) {
        const auto lines = LinesOf(id, 4123456789u);
        ASSERT_EQ(lines.size(), 1u) << id;
        EXPECT_NE(lines[0].find("4123456789"), std::string::npos) << lines[0];
    }
}

TEST(RouteLog, HasNoLineForTheOtherRoutes) {
    for (const int id :
         {301, 302, 4303, 4308, 4309, 4310, 4455, 4457, 4556, 4612, 4616, 4619, 4620, 4630, 4633})
        EXPECT_TRUE(LinesOf(id, 1).empty()) << id;
}

TEST(RouteLog, HasALineForARefusedId) {
    for (int id = 4581; id <= 4585; ++id)
        EXPECT_EQ(LinesOf(id, 1).size(), 1u) << id;
}

} // namespace

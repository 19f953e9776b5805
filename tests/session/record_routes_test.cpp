#include "session/record_routes.h"

#include "oemps/devmode_fields.h"
#include "tests/oemps/devmode_records.h"
#include "tests/support/devmode_listing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr std::string_view kPaperRoutes = " 301 302 4308 4309 ";

bool IsPaperRoute(int id) {
    return kPaperRoutes.find(" " + std::to_string(id) + " ") != std::string_view::npos;
}

// Route ids and offsets of the independent listing.
std::map<int, std::size_t> ListedRoutes() {
    std::map<int, std::size_t> routes;
    for (const ListedField& field : ListDevModeFields())
        if (field.route != 0)
            routes[field.route] = field.offset;
    return routes;
}

// The offsets of the bytes that a store by this id changes in a record of one byte throughout.
std::vector<std::size_t> ChangedBytes(int id, std::uint32_t value, RouteResult expected) {
    const auto record = std::make_unique<PrivateDevMode>();
    std::memset(record.get(), 0x5A, sizeof *record);
    EXPECT_EQ(StoreByRoute(*record, id, value), expected) << id;
    std::vector<std::size_t> changed;
    for (std::size_t at = 0; at < kDevModeSize; ++at)
        if (ViewOf(*record)[at] != 0x5A)
            changed.push_back(at);
    return changed;
}

TEST(StoreByRoute, ReachesEveryFieldOfTheListingAndOnlyThat) {
    const auto routes = ListedRoutes();
    ASSERT_EQ(routes.size(), 117u);
    for (const auto& [id, offset] : routes) {
        // No byte of it is 0x5A, as given or as 1/14400 inch: 0x01020304 and 0x92CC.
        const auto changed = ChangedBytes(id, IsPaperRoute(id) ? 66287 : 0x01020304, RouteResult::Stored);
        EXPECT_EQ(changed, (std::vector<std::size_t>{offset, offset + 1, offset + 2, offset + 3})) << id;
    }
}

TEST(StoreByRoute, StoresThePlainRoutesAsGiven) {
    PrivateDevMode record{};
    EXPECT_EQ(StoreByRoute(record, 4303, 4294967295u), RouteResult::Stored);
    EXPECT_EQ(record.RecordDivNumOfPages, 4294967295u);
    EXPECT_EQ(StoreByRoute(record, 4337, 0xFFFFFFFEu), RouteResult::Stored);
    EXPECT_EQ(record.FormPositionWidth, -2);
    EXPECT_EQ(StoreByRoute(record, 4458, 1), RouteResult::Stored);
    EXPECT_EQ(record.SpecificJobName, 1u);
    EXPECT_EQ(StoreByRoute(record, 4513, 12), RouteResult::Stored);
    EXPECT_EQ(record.ImpositionFormPositionLength, 12);
    EXPECT_EQ(StoreByRoute(record, 4630, 2), RouteResult::Stored);
    EXPECT_EQ(record.CmykKPreservation, 2u);
    EXPECT_EQ(StoreByRoute(record, 4633, 3), RouteResult::Stored);
    EXPECT_EQ(record.StapleMechanism, 3u);
}

TEST(StoreByRoute, Stores297000At301As168377) {
    PrivateDevMode record{};
    EXPECT_EQ(StoreByRoute(record, 301, 297000), RouteResult::Stored);
    EXPECT_EQ(record.CustomPaperWidth, 168377u);
}

TEST(StoreByRoute, ConvertsTheFourPaperSizes) {
    PrivateDevMode record{};
    StoreByRoute(record, 302, 210000);
    StoreByRoute(record, 4308, 297000);
    StoreByRoute(record, 4309, 420000);
    EXPECT_EQ(record.CustomPaperHeight, 119055u);
    EXPECT_EQ(record.ChgPrintPaperSizeWidth, 168377u);
    EXPECT_EQ(record.ChgPrintPaperSizeLength, 238110u);
}

TEST(StoreByRoute, StoresThePaperDirectionAsGiven) {
    PrivateDevMode record{};
    EXPECT_EQ(StoreByRoute(record, 4310, 297000), RouteResult::Stored);
    EXPECT_EQ(record.CustomChgPaperDirection, 297000u);
}

TEST(StoreByRoute, Refuses4581To4585AndChangesNothing) {
    for (int id = 4581; id <= 4585; ++id)
        EXPECT_TRUE(ChangedBytes(id, 1, RouteResult::Refused).empty()) << id;
}

TEST(StoreByRoute, LeavesModifiedAlone) {
    for (const auto& [id, offset] : ListedRoutes()) {
        PrivateDevMode record{};
        StoreByRoute(record, id, 1);
        EXPECT_EQ(record.Modified, 0u) << id;
    }
}

TEST(StoreByRoute, KnowsNoFieldForAnyOtherId) {
    const auto routes = ListedRoutes();
    const PrivateDevMode before{};
    PrivateDevMode record{};
    for (int id = -10; id < 6000; ++id)
        if (!routes.contains(id) && !(id >= 4581 && id <= 4585)) {
            EXPECT_EQ(StoreByRoute(record, id, 1), RouteResult::NotAField) << id;
        }
    for (const int id : {std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
        EXPECT_EQ(StoreByRoute(record, id, 1), RouteResult::NotAField) << id;
    EXPECT_EQ(ViewOf(record), ViewOf(before));
}

TEST(ApplyRouteOrder, IsTheFixedOrder) {
    const std::vector<int> expected{
        4303, 4312, 4313, 4314, 4315, 4316, 4317, 4318, 4322, 4323, 4324, 4325, 4326, 4329, 4335, 4556,
        4346, 4358, 4359, 4360, 4361, 4362, 4364, 4365, 4366, 4399, 4400, 4401, 4402, 4403, 4404, 4405,
        4406, 4407, 4415, 4416, 4418, 4419, 4420, 4422, 4423, 4424, 4425, 4426, 4430, 4431, 4432, 4433,
        4434, 4435, 4438, 4439, 4447, 4451, 4457, 4458, 4613, 4614, 4615, 4616, 4617, 4618, 4619, 4630,
        4631, 4632, 4633, 4620, 4621, 4622, 4623, 4624, 4625, 4626, 4627, 4628, 4629, 4337, 4338, 4340,
        4341, 4342, 4347, 4348, 4350, 4351, 4352, 4353, 4354, 4355, 4356, 4357, 4427, 4428, 4429, 4436,
        4437, 4441, 4442, 4443, 4448, 4449, 4452, 4453, 4454, 4455, 4507, 4508, 4509, 4510, 4512, 4513};
    EXPECT_EQ(std::vector<int>(kApplyRouteOrder.begin(), kApplyRouteOrder.end()), expected);
}

TEST(ApplyRouteOrder, HasEveryRouteOnceButThoseOfPaperSizeAndDirection) {
    for (const devmode::FieldDescriptor& field : devmode::kFields) {
        if (field.route == 0)
            continue;
        const bool isElsewhere = IsPaperRoute(field.route) || field.route == 4310;
        EXPECT_EQ(std::ranges::count(kApplyRouteOrder, field.route), isElsewhere ? 0 : 1) << field.route;
    }
    EXPECT_EQ(kApplyRouteOrder.size(), 112u);
}

} // namespace

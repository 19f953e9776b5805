// The table of fields against an independent listing of the block, and by hand where a wrong row would hurt
// most.
#include "oemps/devmode_fields.h"

#include "tests/support/devmode_listing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

namespace {

using devmode::Control;
using devmode::FieldDescriptor;
using devmode::FieldKind;
using devmode::kFields;
using devmode::Travel;

// One number or one text of the block.
struct Element {
    std::size_t offset;
    std::string type;
    std::string name;
    int route;

    bool operator==(const Element&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Element& element) {
    return out << element.offset << ' ' << element.type << ' ' << element.name << ' ' << element.route;
}

std::vector<Element> ListedElements() {
    std::vector<Element> elements;
    for (const ListedField& field : ListDevModeFields())
        for (std::size_t i = 0; i < field.count; ++i)
            elements.push_back({field.offset + i * field.Width(), field.type,
                                field.name == "reserved" ? "" : field.name, field.route});
    return elements;
}

std::string TypeOf(const FieldDescriptor& field) {
    switch (field.kind) {
    case FieldKind::NumberI32: return "i32";
    case FieldKind::NumberU64: return "u64";
    case FieldKind::Text:
    case FieldKind::SpareTexts: return "char[" + std::to_string(field.width) + "]";
    default: return "u32";
    }
}

bool IsPad(const FieldDescriptor& field) {
    return field.kind == FieldKind::Unused && field.width < 4;
}

std::vector<Element> TabledElements() {
    std::vector<Element> elements;
    for (const FieldDescriptor& field : kFields)
        for (std::size_t i = 0; i < field.count && !IsPad(field); ++i)
            elements.push_back(
                {field.offset + i * field.width, TypeOf(field), std::string(field.name), field.route});
    return elements;
}

std::size_t CountTexts(auto isCounted) {
    std::size_t count = 0;
    for (const FieldDescriptor& field : kFields)
        if (field.IsText() && isCounted(field))
            count += field.count;
    return count;
}

const FieldDescriptor& At(std::size_t offset) {
    return *std::ranges::find(kFields, offset, &FieldDescriptor::offset);
}

TEST(DevModeFields, AreThoseOfTheListing) {
    const std::vector<Element> listed = ListedElements();
    const std::vector<Element> tabled = TabledElements();
    ASSERT_GT(listed.size(), 287u);
    ASSERT_EQ(tabled.size(), listed.size());
    for (std::size_t i = 0; i < listed.size(); ++i)
        ASSERT_EQ(tabled[i], listed[i]);
}

TEST(DevModeFields, FollowOneAnotherUpToTheLastByte) {
    std::size_t end = 0;
    for (const FieldDescriptor& field : kFields) {
        ASSERT_EQ(field.offset, end);
        end = field.End();
    }
    EXPECT_EQ(end, 24112u);
}

TEST(DevModeFields, HaveFourPadsAndTwoUnusedWords) {
    std::vector<std::pair<int, int>> unused;
    for (const FieldDescriptor& field : kFields)
        if (field.kind == FieldKind::Unused)
            unused.emplace_back(field.offset, field.width);
    const std::vector<std::pair<int, int>> expected{{4703, 1},  {4768, 4},  {5453, 3},
                                                    {10435, 1}, {23767, 1}, {24108, 4}};
    EXPECT_EQ(unused, expected);
}

TEST(DevModeFields, Hold82NamedAnd72ReservedTexts) {
    EXPECT_EQ(CountTexts([](const FieldDescriptor& field) { return !field.name.empty(); }), 82u);
    EXPECT_EQ(CountTexts([](const FieldDescriptor& field) { return field.name.empty(); }), 72u);
}

TEST(DevModeFields, HaveTheirNamesOnce) {
    std::set<std::string_view> names;
    for (const FieldDescriptor& field : kFields)
        if (!field.name.empty()) {
            EXPECT_TRUE(names.insert(field.name).second) << field.name;
        }
}

TEST(DevModeFields, Have117DistinctRoutes) {
    std::set<int> routes;
    for (const FieldDescriptor& field : kFields)
        if (field.route != 0) {
            EXPECT_TRUE(routes.insert(field.route).second) << field.route;
        }
    EXPECT_EQ(routes.size(), 117u);
    EXPECT_EQ(std::ranges::count(routes, 301), 1);
    EXPECT_EQ(std::ranges::count(routes, 302), 1);
}

TEST(DevModeFields, Are120TextsStrippedOfControlCharacters) {
    EXPECT_EQ(CountTexts([](const FieldDescriptor& field) { return field.control == Control::Stripped; }),
              120u);
}

TEST(DevModeFields, KeepControlCharactersInFavoriteNameProfileAnd32ReservedSlots) {
    std::vector<std::pair<std::string_view, int>> kept;
    for (const FieldDescriptor& field : kFields)
        if (field.IsText() && field.control == Control::Kept)
            kept.emplace_back(field.name, field.offset);
    const std::vector<std::pair<std::string_view, int>> expected{
        {"", 13312}, {"FavoriteName", 23784}, {"Profile", 23812}};
    EXPECT_EQ(kept, expected);
    EXPECT_EQ(At(13312).count, 32);
    EXPECT_EQ(At(13312).End(), 16512u);
}

TEST(DevModeFields, GoToTheStoreAndNeverBackForSixTexts) {
    std::vector<std::string_view> names;
    for (const FieldDescriptor& field : kFields)
        if (field.travel == Travel::StoreOnly)
            names.push_back(field.name);
    const std::vector<std::string_view> expected{"JobRscSetName",  "AuthJobUserId", "AuthJobPassword",
                                                 "AuthJobAccount", "FavoriteName",  "Profile"};
    EXPECT_EQ(names, expected);
    EXPECT_EQ(At(19708).travel, Travel::FrontCover);
    EXPECT_EQ(At(19708).name, "FrontCoverStkName");
}

TEST(DevModeFields, GoBackTwiceForTheJobStartTimesAndTheColoursFromBlendingColorSpaceToGraphicsScreen) {
    std::vector<int> offsets;
    for (const FieldDescriptor& field : kFields)
        if (field.travel == Travel::Twice)
            offsets.push_back(field.offset);
    const std::vector<int> expected{4772, 4776, 4780, 4784, 4788, 6280, 6284,
                                    6288, 6292, 6296, 6300, 6304, 6308, 6312};
    EXPECT_EQ(offsets, expected);
}

// Told once more by hand, so that a row edited in the table breaks a test.
TEST(DevModeLayout, PutsTellingFieldsWhereStoredRecordsHaveThem) {
    EXPECT_EQ(offsetof(PrivateDevMode, dwSize), 0u);
    EXPECT_EQ(offsetof(PrivateDevMode, JobName), 12u);
    EXPECT_EQ(offsetof(PrivateDevMode, SecPrintPassword), 3188u);
    EXPECT_EQ(offsetof(PrivateDevMode, AuthJobPassword), 3896u);
    EXPECT_EQ(offsetof(PrivateDevMode, ManageMethod), 4704u);
    EXPECT_EQ(offsetof(PrivateDevMode, CustomPaperWidth), 4716u);
    EXPECT_EQ(offsetof(PrivateDevMode, Magnification), 4916u);
    EXPECT_EQ(offsetof(PrivateDevMode, GraphicsTreatmentBase), 5456u);
    EXPECT_EQ(offsetof(PrivateDevMode, MinimumLineWidthBase), 10436u);
    EXPECT_EQ(offsetof(PrivateDevMode, ImpositionFormName), 16512u);
    EXPECT_EQ(offsetof(PrivateDevMode, SPages), 20932u);
    EXPECT_EQ(sizeof(PrivateDevMode::SPages), 1024u);
    EXPECT_EQ(offsetof(PrivateDevMode, Modified), 23768u);
    EXPECT_EQ(offsetof(PrivateDevMode, FavoriteName), 23784u);
    EXPECT_EQ(sizeof(PrivateDevMode::FavoriteName), 28u);
    EXPECT_EQ(offsetof(PrivateDevMode, Profile), 23812u);
    EXPECT_EQ(offsetof(PrivateDevMode, AutoJobStartSpecifiedDayAndTimeForDriver), 24072u);
    EXPECT_EQ(offsetof(PrivateDevMode, StapleMechanism), 24104u);
    EXPECT_EQ(sizeof(PrivateDevMode), 24112u);
}

} // namespace

// The description of favourite files names every setting that travels with its kind and values: its tables
// against the listings of the tags and of the record, and the device description.
#include "tests/resources/x100_description.h"
#include "tests/settings/option_tag_expectations.h"
#include "tests/settings/setting_keyword_lists.h"
#include "tests/support/file_contents.h"
#include "tests/support/tag_listing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <sstream>

namespace {

using Rows = std::vector<std::string>;

const std::string kDocument = ZR_TEST_DATA_DIR "/../../docs/favourite-file.md";

constexpr int kFirstNamedValue = 328;

// The rows of the table below a heading, without the two of its head.
Rows RowsBelow(const std::string& heading) {
    std::istringstream lines(FileContents(kDocument));
    Rows rows;
    bool isBelow = false;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("#"))
            isBelow = line == heading;
        else if (isBelow && line.starts_with("| `"))
            rows.push_back(line);
    }
    return rows;
}

struct Setting {
    std::string name; // the element's
    ListedOptionField field;

    bool IsNumber() const { return field.type != "text" && field.type != "i32 fixed"; }
    bool IsKeyword() const { return field.number < kFirstNamedValue; }
};

// In the order of a file's elements.
std::vector<Setting> Settings() {
    const auto byTag = ListedFieldsByTag();
    std::vector<Setting> settings;
    for (const ListedTag& tag : ListedTags())
        if (const auto found = byTag.find(tag.key); found != byTag.end())
            settings.push_back({tag.longName, found->second});
    return settings;
}

std::vector<std::string> OptionsOfFeature(const std::string& keyword) {
    std::vector<std::string> options;
    for (const x100_description::Option& option : x100_description::FeatureOf(keyword).options)
        options.push_back(option.keyword);
    return options;
}

// The driver's own items, which are not features of their keyword's name, are written out.
std::vector<std::string> OptionsOf(const Setting& setting) {
    if (setting.name == "PaperSizeType") {
        auto forms = OptionsOfFeature("PageSize");
        forms.push_back("CustomPageSize");
        return forms;
    }
    if (setting.name == "DmOrientation")
        return {"Portrait", "Landscape", "RotatedLandscape"};
    if (setting.name == "Nup")
        return {"1", "2", "4", "6", "9", "16"};
    if (setting.name == "Collate")
        return {"False", "True"};
    if (setting.name == "Tray")
        return OptionsOfFeature("InputSlot");
    if (setting.name == "PaperTypeD")
        return OptionsOfFeature("MediaType");
    return OptionsOfFeature(setting.name);
}

std::vector<std::int32_t> TagsOf(int number) {
    for (const ListedTagArray& array : ListedTagArrays())
        if (array.number == number)
            return array.tags;
    return {0, 1};
}

bool HasTagsOfItsOwn(int number) {
    const auto arrays = ListedTagArrays();
    return std::ranges::any_of(arrays, [&](const ListedTagArray& array) { return array.number == number; });
}

const std::set<std::string> kCounts{"NumOfCopies", "CustomPaperDirection"};

bool IsChoice(const Setting& setting) {
    return setting.IsNumber() && !kCounts.contains(setting.name) &&
           (setting.IsKeyword() || HasTagsOfItsOwn(setting.field.number));
}

// The store itself has the server's numbers for the named values and for the direction of the output paper.
bool GoesByTagNumber(const Setting& setting) {
    const int number = setting.field.number;
    return !setting.IsKeyword() || setting.name == "ChgPrintPaperDirection" || kConverted.contains(number) ||
           kConvertedForAFavorite.contains(number);
}

// A row with a value for each option, or with the values alone where the device description has no options.
std::string ChoiceRow(const std::string& name, const std::vector<std::int32_t>& values,
                      const std::vector<std::string>& options) {
    std::string row = "| `" + name + "` | ";
    const std::size_t count = options.empty() ? values.size() : options.size();
    for (std::size_t i = 0; i < count; ++i)
        row += (i ? ", " : "") + std::to_string(values.at(i)) + (options.empty() ? "" : " " + options[i]);
    return row + " |";
}

Rows ExpectedChoices(bool byTagNumber) {
    Rows rows;
    for (const Setting& setting : Settings()) {
        if (!IsChoice(setting) || GoesByTagNumber(setting) != byTagNumber)
            continue;
        const auto options = setting.IsKeyword() ? OptionsOf(setting) : std::vector<std::string>{};
        std::vector<std::int32_t> values = TagsOf(setting.field.number);
        if (!byTagNumber) {
            values.clear();
            while (values.size() < options.size())
                values.push_back(static_cast<std::int32_t>(values.size()));
        }
        rows.push_back(ChoiceRow(setting.name, values, options));
    }
    return rows;
}

// The ranges of the check of missing elements, and two that are kept elsewhere.
const std::map<std::string, std::string> kRanges{
#define ZR_RANGE(name, min, max, value) {#name, #min " to " #max},
#define ZR_BOOL(name, value) {#name, "0 or 1"},
#include "settings/value_checks.def"
    {"NumOfCopies", "1 to 9999"},
    {"CustomPaperDirection", "0 to 3"},
};

// The store has these as the private DEVMODE has them, in 1/14400 inch.
const std::set<std::string> kInch14400{
    "FormPositionWidth",
    "FormPositionLength",
    "PaginationDistanceX",
    "PaginationDistanceY",
    "FinishedSizeHeight",
    "FinishedSizeWidth",
    "SheetSizeHeight",
    "SheetSizeWidth",
    "BackMargin",
    "CreepInitialOffsetX",
    "CreepTotalOffset",
    "ImpositionPaginationDistanceX",
    "ImpositionPaginationDistanceY",
    "ImpositionFormPositionWidth",
    "ImpositionFormPositionLength",
    "CreasePosition1",
    "CreasePosition2",
    "CreasePosition3",
    "CreasePosition4",
    "CreasePosition5",
    "TopAndTailTrimFinishSize",
    "TopAndTailTrimRearCutSize",
    "TopAndTailTrimFrontCutSize",
};

// Likewise, but the file has a hundredth of what the store has.
const std::set<std::string> kInch144{"PrintPositionFrontWidth", "PrintPositionFrontLength",
                                     "PrintPositionBackWidth",  "PrintPositionBackLength",
                                     "TrimmerFinishedSize",     "TrimmerCutSize"};

// The store has thousandths of a millimetre, and the file a hundredth of what the store has.
const std::set<std::string> kTenthsOfMillimetre{"CustomPaperWidth", "CustomPaperHeight",
                                                "ChgPrintPaperSizeWidth", "ChgPrintPaperSizeLength"};

std::string WithBlank(const std::string& text) {
    return text.empty() ? text : text + ' ';
}

Rows ExpectedWholeNumbers() {
    const std::map<std::string, std::string> signs{
        {"i32", "signed"}, {"u32", "unsigned"}, {"i64", "signed, 64 bits"}};
    Rows rows;
    for (const Setting& setting : Settings()) {
        if (!setting.IsNumber() || IsChoice(setting))
            continue;
        const auto range = kRanges.find(setting.name);
        std::string values = range == kRanges.end() ? "" : range->second;
        if (kInch14400.contains(setting.name))
            values += values.empty() ? "1/14400 inch" : ", 1/14400 inch";
        rows.push_back("| `" + setting.name + "` | " + signs.at(setting.field.type) + " | " +
                       WithBlank(values) + "|");
    }
    return rows;
}

Rows ExpectedFixedNumbers() {
    Rows rows;
    for (const Setting& setting : Settings()) {
        if (setting.field.type != "i32 fixed")
            continue;
        const std::string decimals = setting.name.ends_with("Mag") ? "1" : "2";
        const std::string unit = kInch144.contains(setting.name)              ? "1/144 inch"
                                 : kTenthsOfMillimetre.contains(setting.name) ? "0.1 mm"
                                                                              : "";
        rows.push_back("| `" + setting.name + "` | " + decimals + " | " + WithBlank(unit) + "|");
    }
    return rows;
}

Rows ExpectedTexts() {
    Rows rows;
    for (const Setting& setting : Settings())
        if (setting.field.type == "text")
            rows.push_back("| `" + setting.name + "` | " + std::to_string(setting.field.width - 1) + " |");
    return rows;
}

} // namespace

TEST(FavoriteDocumentText, ListsTheChoicesByTagNumber) {
    EXPECT_EQ(RowsBelow("### Choices by tag number"), ExpectedChoices(true));
}

TEST(FavoriteDocumentText, ListsTheChoicesByPosition) {
    EXPECT_EQ(RowsBelow("### Choices by position"), ExpectedChoices(false));
}

TEST(FavoriteDocumentText, ListsTheWholeNumbers) {
    EXPECT_EQ(RowsBelow("### Whole numbers"), ExpectedWholeNumbers());
}

TEST(FavoriteDocumentText, ListsTheFixedNumbers) {
    EXPECT_EQ(RowsBelow("### Fixed numbers"), ExpectedFixedNumbers());
}

TEST(FavoriteDocumentText, ListsTheTextsWithTheirMostBytes) {
    EXPECT_EQ(RowsBelow("### Texts"), ExpectedTexts());
}

TEST(FavoriteDocumentText, ListsEachSettingThatTravelsOnce) {
    std::set<std::string> names;
    std::size_t rows = 0;
    for (const char* heading : {"### Choices by tag number", "### Choices by position", "### Whole numbers",
                                "### Fixed numbers", "### Texts"})
        for (const std::string& row : RowsBelow(heading)) {
            names.insert(row.substr(0, row.find("` |")));
            ++rows;
        }
    EXPECT_EQ(rows, 473u);
    EXPECT_EQ(names.size(), rows);
}

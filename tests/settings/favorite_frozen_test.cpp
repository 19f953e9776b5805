// Favourite files that every later version reads, and the example of the format's description.
// tests/data/make_favorites.py states the rule of the frozen files' values.
#include "settings/InterchangeOptionTag.h"
#include "tests/settings/favorite_fixture.h"
#include "tests/settings/travelling_fields.h"
#include "tests/support/file_contents.h"
#include "tests/support/tag_listing.h"

#include <map>

namespace {

class FavoriteFrozenTest : public FavoriteTest {
  protected:
    FavoriteFrozenTest() {
        for (const ListedTag& tag : ListedTags())
            rowOf[tag.key] = tag.row;
    }

    // What the setting holds in the fields of the rows from `first` to `last`, against the rule.
    void ExpectTheRule(int first, int last) {
        for (const TravellingField& field : TravellingFields()) {
            const int row = rowOf.at(field.tag);
            if (row < first || row > last)
                continue;
            if (field.IsText())
                EXPECT_EQ(field.TextIn(setting.PrintOption()),
                          "表" + field.tag.substr(0, field.field.width - 3))
                    << field.longName;
            else
                EXPECT_EQ(field.NumberIn(setting.PrintOption()), NumberOf(field, row)) << field.longName;
        }
    }

    std::map<std::string, int> rowOf;

  private:
    static std::int64_t NumberOf(const TravellingField& field, int row) {
        if (field.field.type == "i32 fixed")
            return field.longName.ends_with("Mag") ? row * 10 + 5 : row * 100 + 25;
        return (field.field.type == "i64" ? 1'700'000'000'000 : 1000) + row;
    }
};

// The defaults of the rows that the old file lacks, where 0 is out of range.
const std::map<std::string, std::int64_t> kDefaultsBehindTheOldFile{
    {"UsePdlRgbRenderingIntent", 1},
    {"UsePdlCmykRenderingIntent", 1},
    {"BlendingColorSpace", 1},
    {"RgbSkinImprovementLevel", 2},
    {"GraphicsScreen", 5},
    {"EdgeDensityLevel", 2},
    {"LayoutRepeatX", 1},
    {"LayoutRepeatY", 1},
    {"NumberOfFascicle", 16},
    {"ImpositionPaginationFontSize", 10},
    {"CreaseMode", 1},
    {"CreaseNum", 1},
    {"CreasePosition1", 6803},
    {"CreasePosition2", 20976},
    {"CreasePosition3", 35150},
    {"CreasePosition4", 49323},
    {"CreasePosition5", 63496},
    {"TopAndTailTrimMode", 1},
    {"TopAndTailTrimFinishSize", 160441},
    {"TopAndTailTrimSameCutSize", 1},
    {"MixSizeFirstPageSize", 2},
    {"MixSizeFirstPageOrientation", 1},
    {"MixSizeMixedPageOrientation", 1},
    {"CmykKReset", 1},
    {"SamplePrintCopyInterval", 50},
    {"SamplePrintSheetInterval", 50},
    {"SamplePrintSheetNum", 1},
    {"ImageBacklightCorrectionLevel", 2},
};
constexpr int kRowsOfOldFile = 200;

// The first block of XML in the description of the format.
std::string DocumentedExample() {
    const std::string text = FileContents(ZR_TEST_DATA_DIR "/../../docs/favourite-file.md");
    const std::string begin = "```xml\n";
    const std::size_t at = text.find(begin);
    EXPECT_NE(at, std::string::npos);
    const std::size_t first = at + begin.size();
    return text.substr(first, text.find("```", first) - first);
}

} // namespace

TEST_F(FavoriteFrozenTest, ThePresentFormatIsRead) {
    ASSERT_EQ(manager.LoadFavoriteFromPath(setting, ZR_TEST_DATA_DIR "/favorite_v2.pfk"), 1);
    EXPECT_EQ(setting.FileVer, 2u);
    EXPECT_EQ(setting.IotVer, 10u);
    EXPECT_EQ(setting.CharCode, 0u);
    EXPECT_STREQ(setting.Comment.data(), "凍結した表 <&>");
    EXPECT_STREQ(setting.PageSize.data(), "A4 (210 x 297 mm)");
    ExpectTheRule(1, kTagCount);
    EXPECT_EQ(Value("OAJ"), "0");
    EXPECT_EQ(Value("OAJUI"), "");
}

TEST_F(FavoriteFrozenTest, AnOldFormatIsReadWithDefaultsForWhatItLacks) {
    ASSERT_EQ(manager.LoadFavoriteFromPath(setting, ZR_TEST_DATA_DIR "/favorite_old.pfk"), 1);
    EXPECT_EQ(setting.FileVer, 1u);
    EXPECT_EQ(setting.IotVer, 10u);
    EXPECT_STREQ(setting.Comment.data(), "PageSizeのない形式");
    EXPECT_STREQ(setting.PageSize.data(), "");
    ExpectTheRule(1, kRowsOfOldFile);
    auto defaults = kDefaultsBehindTheOldFile;
    for (const TravellingField& field : TravellingFields()) {
        if (rowOf.at(field.tag) <= kRowsOfOldFile)
            continue;
        if (field.IsText()) {
            EXPECT_EQ(field.TextIn(setting.PrintOption()), "") << field.longName;
            continue;
        }
        const auto found = defaults.extract(field.longName);
        EXPECT_EQ(field.NumberIn(setting.PrintOption()), found ? found.mapped() : 0) << field.longName;
    }
    EXPECT_TRUE(defaults.empty());
}

TEST_F(FavoriteFrozenTest, TheExampleOfTheDescriptionIsAUsableFavourite) {
    ASSERT_EQ(Read(DocumentedExample()), 1);
    EXPECT_EQ(setting.FileVer, 2u);
    EXPECT_EQ(setting.IotVer, 10u);
    EXPECT_EQ(setting.CharCode, 0u);
    EXPECT_STREQ(setting.Comment.data(), "会議資料 2部");
    EXPECT_STREQ(setting.PageSize.data(), "A4");
    EXPECT_EQ(Value("ONOC"), "2");
    EXPECT_EQ(Value("EXT_PGSIZE"), "2");
    EXPECT_EQ(Value("CCM"), "1");
    EXPECT_EQ(Value("OTra"), "1");
    EXPECT_EQ(Value("OPPFW"), "12.50");
    EXPECT_EQ(Value("OPPFWM"), "100.5");
    EXPECT_EQ(Value("OFol"), "表");
    EXPECT_EQ(Value("OMTWV"), "90"); // left out, so its default
}

// The table of defaults for missing elements is that of the check.
TEST_F(FavoriteFrozenTest, TheDescriptionNamesEveryDefaultOfAMissingElement) {
    const std::string text = FileContents(ZR_TEST_DATA_DIR "/../../docs/favourite-file.md");
    ASSERT_EQ(Read("<Favorite/>"), 1);
    std::size_t listed = 0;
    for (const ListedTag& tag : ListedTags()) {
        const std::string value = Value(tag.key.c_str());
        const bool isDefault = value != "0" && value != "" && value != "0.0" && tag.key != "ONOC";
        const std::string row = "| `" + tag.longName + "` | " + value + " |";
        EXPECT_EQ(text.find(row) != std::string::npos, isDefault) << row;
        listed += isDefault;
    }
    EXPECT_GT(listed, 40u);
}

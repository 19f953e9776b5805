#include "session/keyword.h"
#include "settings/InterchangeOptionTag.h"
#include "tests/support/tag_listing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace {

constexpr auto kUntouched = "untouched";

struct Info {
    std::string longName = kUntouched;
    std::string description = kUntouched;
    bool operator==(const Info&) const = default;
};

Info InfoOf(std::string_view tag) {
    Info info;
    CTagTable().GetTagInfo(tag, &info.longName, &info.description);
    return info;
}

std::string TagOf(std::string_view longName) {
    std::string tag = kUntouched;
    CTagTable().GetTagFromLongName(longName, &tag);
    return tag;
}

bool HasKey(std::string_view key) {
    return InfoOf(key) != Info{};
}

bool HasLongName(std::string_view name) {
    return TagOf(name) != kUntouched;
}

TEST(TagTable, ListsTheLongNamesAndTagsInTheListedOrder) {
    const auto listed = ListedTags();
    ASSERT_EQ(listed.size(), 864u);
    std::vector<std::string_view> names;
    std::vector<std::string_view> tags;
    CTagTable().GetLongNameList(&names);
    CTagTable().GetTagList(&tags);
    ASSERT_EQ(names.size(), 864u);
    ASSERT_EQ(tags.size(), 864u);
    for (std::size_t i = 0; i < listed.size(); ++i) {
        EXPECT_EQ(listed[i].row, static_cast<int>(i + 1));
        EXPECT_EQ(tags[i], listed[i].key);
        EXPECT_EQ(names[i], listed[i].longName);
    }
}

TEST(TagTable, AppendsItsListsToWhatIsThere) {
    std::vector<std::string_view> texts{"first"};
    CTagTable().GetLongNameList(&texts);
    CTagTable().GetTagList(&texts);
    ASSERT_EQ(texts.size(), 1u + 864u + 864u);
    EXPECT_EQ(texts[0], "first");
    EXPECT_EQ(texts[1], "CustomPaperWidth");
    EXPECT_EQ(texts[864], "StapleMechanism");
    EXPECT_EQ(texts[865], "PSCPSW");
    EXPECT_EQ(texts[1728], "OSMe");
}

TEST(TagTable, FindsEveryListedRowByItsKeyAndByItsLongName) {
    for (const ListedTag& tag : ListedTags()) {
        EXPECT_EQ(InfoOf(tag.key).longName, tag.longName) << tag.row;
        EXPECT_EQ(TagOf(tag.longName), tag.key) << tag.row;
    }
}

TEST(TagTable, HasUniqueKeysAndUniqueLongNames) {
    std::set<std::string> keys;
    std::set<std::string> names;
    for (const ListedTag& tag : ListedTags()) {
        keys.insert(tag.key);
        names.insert(tag.longName);
    }
    EXPECT_EQ(keys.size(), 864u);
    EXPECT_EQ(names.size(), 864u);
}

TEST(TagTable, KeepsTheKeysThatBreakTheirPattern) {
    EXPECT_EQ(InfoOf("SBPDSPST").longName, "BlankPapersFrontStkPaperSizeType");
    EXPECT_EQ(InfoOf("SBPFSPS").longName, "BlankPapersFrontStkPaperSizeLength");
    EXPECT_EQ(InfoOf("BPFSPC").longName, "BlankPapersFrontStkPaperColor");
    EXPECT_EQ(InfoOf("SBPBPSN").longName, "BlankPapersBackStkPaperSizeName");
    EXPECT_EQ(InfoOf("SBPBPSW").longName, "BlankPapersBackStkPaperSizeWidth");
    EXPECT_EQ(InfoOf("SI1SOSN").longName, "Imposition1stStkPaperSizeName");
    EXPECT_EQ(InfoOf("SI1SOSW").longName, "Imposition1stStkPaperSizeWidth");
    EXPECT_EQ(InfoOf("SI1SOSL").longName, "Imposition1stStkPaperSizeLength");
    for (const char* regular :
         {"SBPFSPST", "SBPFSPSL", "SBPFSPC", "SBPBSPSN", "SBPBSPSW", "SI1SPSN", "SI1SPSW", "SI1SPSL"})
        EXPECT_FALSE(HasKey(regular)) << regular;
}

const std::vector<std::string> kStockItems{"StkType",
                                           "StkName",
                                           "StkTray",
                                           "StkPaperSizeType",
                                           "StkPaperSizeName",
                                           "StkPaperSizeWidth",
                                           "StkPaperSizeLength",
                                           "StkPaperColor",
                                           "StkCustomPaperColor",
                                           "StkPaperType",
                                           "StkCustomPaperType",
                                           "SheetNumOfOneSet",
                                           "StkOrder",
                                           "StkIsDrilled",
                                           "StkWeight",
                                           "StkSidesCoated",
                                           "StkCoatingType",
                                           "StkGrain"};

// The number of sheets has "Stk" in front in two families only.
bool HasStockItem(const std::string& family, const std::string& item) {
    return HasLongName(family + item) || (item == "SheetNumOfOneSet" && HasLongName(family + "Stk" + item));
}

TEST(TagTable, Has18RowsInSevenStockFamiliesAnd15InTheEighth) {
    for (const std::string family : {"", "Separators", "BlankPapersFront", "BlankPapersBack", "FrontCover",
                                     "BackCover", "Imposition1st"})
        for (const std::string& item : kStockItems)
            EXPECT_TRUE(HasStockItem(family, item)) << family << item;

    const std::set<std::string> missing{"StkType", "StkTray", "StkWeight"};
    for (const std::string& item : kStockItems)
        EXPECT_EQ(HasStockItem("ImpositionOther", item), !missing.contains(item)) << item;
}

TEST(TagTable, HasFourRowsForEachOf48UserMarks) {
    for (int mark = 1; mark <= 48; ++mark) {
        const std::string key = "LUM" + std::to_string(mark);
        const std::string name = "UserMark" + std::to_string(mark);
        EXPECT_EQ(InfoOf(key).longName, name);
        EXPECT_EQ(InfoOf(key + "F").longName, name + "File");
        EXPECT_EQ(InfoOf(key + "PX").longName, name + "PositionX");
        EXPECT_EQ(InfoOf(key + "PY").longName, name + "PositionY");
    }
    EXPECT_FALSE(HasKey("LUM0"));
    EXPECT_FALSE(HasKey("LUM49"));
}

TEST(TagTable, HasTheNamesOf304KeywordsAndNotOfTheOther23) {
    std::set<int> expected{0, 1, 2, 3, 5, 139, 270, 271, 297, 298, 304, 325};
    for (int keyword = 24; keyword <= 34; ++keyword)
        expected.insert(keyword);
    std::set<int> missing;
    for (int keyword = 0; keyword < kKeywordCount; ++keyword)
        if (!HasLongName(kKeywordNames[static_cast<std::size_t>(keyword)]))
            missing.insert(keyword);
    EXPECT_EQ(missing, expected);
    EXPECT_EQ(missing.size(), 23u);
}

TEST(TagTable, LacksTheTagsThatOnlyTheRecordKnows) {
    for (const char* tag :
         {"OATSTB", "OPTB", "OPTCNuB", "OMTPB", "OMTDB", "OMTTB", "OMTGFB", "OMTCMB", "OMTWB", "OMTWVB",
          "OPCB", "OMTSB", "OMTGB", "OMDM", "LIOT", "SIOSTr", "SIOSTy", "LIOR"})
        EXPECT_FALSE(HasKey(tag)) << tag;
}

TEST(TagTable, HasNoRowOfTheScale) {
    EXPECT_FALSE(HasKey("PG_MAGNI"));
    EXPECT_FALSE(HasLongName("Scale"));
}

TEST(TagTable, HasTheRowsOfTheDirectlyRoutedTags) {
    EXPECT_EQ(InfoOf("EXT_PGSIZE").longName, "PaperSizeType");
    EXPECT_EQ(InfoOf("OCPPST").longName, "ChgPrintPaperSizeType");
    EXPECT_EQ(InfoOf("OPPOC").longName, "PagePrintOnCenter");
    EXPECT_EQ(InfoOf("OFTP").longName, "FittenToPaper");
    EXPECT_EQ(InfoOf("Depth").longName, "Resolution");
    EXPECT_EQ(InfoOf("ONOC").longName, "NumOfCopies");
    EXPECT_EQ(InfoOf("EXT_ORIENTATION").longName, "DmOrientation");
    EXPECT_EQ(InfoOf("EXT_NUP").longName, "Nup");
    EXPECT_EQ(InfoOf("OTra").longName, "Tray");
}

TEST(TagTable, HasARowOfThePageOrderThatNothingHandles) {
    EXPECT_EQ(InfoOf("EXT_PAGEORDER").longName, "DmPageOrder");
}

TEST(GetTagInfo, LeavesBothOutputsAloneForAnUnknownTag) {
    EXPECT_EQ(InfoOf("NoSuchTag"), Info{});
}

TEST(GetTagFromLongName, LeavesTheTagAloneForAnUnknownName) {
    EXPECT_EQ(TagOf("NoSuchName"), kUntouched);
}

TEST(GetTagInfo, SearchesByKeyOnly) {
    EXPECT_EQ(InfoOf("Tray"), Info{});
    EXPECT_EQ(TagOf("OTra"), kUntouched);
}

TEST(TagTable, ComparesWithCase) {
    for (const char* tag : {"otra", "OTRA", "Otra", "DEPTH", "ocol", "OCol"})
        EXPECT_FALSE(HasKey(tag)) << tag;
    EXPECT_FALSE(HasLongName("tray"));
    EXPECT_FALSE(HasLongName("TRAY"));
    EXPECT_EQ(TagOf("Collate"), "Ocol");
}

TEST(TagTable, RefusesBeginningsAndContinuationsOfANameUnlessTheyAreNamesThemselves) {
    std::set<std::string> keys;
    std::set<std::string> names;
    for (const ListedTag& tag : ListedTags()) {
        keys.insert(tag.key);
        names.insert(tag.longName);
    }
    for (const ListedTag& tag : ListedTags()) {
        for (const std::string& text : {tag.key.substr(0, tag.key.size() - 1), tag.key + "X", tag.key + "F"})
            EXPECT_EQ(HasKey(text), keys.contains(text)) << text;
        for (const std::string& text : {tag.longName.substr(1), tag.longName + "1", tag.longName + "Name"})
            EXPECT_EQ(HasLongName(text), names.contains(text)) << text;
    }
}

// A lead byte with nothing behind it is a byte like any other here: "OTra\x81" is not "OTra".
TEST(TagTable, RefusesEmptyOverlongAndForeignTexts) {
    for (const std::string& text :
         {std::string(), std::string(1'000'000, 'O'), std::string("OTra\0", 5), std::string("OTra\x81"),
          std::string("\x82\x6EOTra"), std::string(64, '\xFF'), std::string("用紙トレイ")}) {
        EXPECT_FALSE(HasKey(text));
        EXPECT_FALSE(HasLongName(text));
    }
}

TEST(TagTable, TakesATagThatItsOwnOutputHolds) {
    std::string text = "OTra";
    std::string description;
    CTagTable().GetTagInfo(text, &text, &description);
    EXPECT_EQ(text, "Tray");
    CTagTable().GetTagFromLongName(text, &text);
    EXPECT_EQ(text, "OTra");
}

} // namespace

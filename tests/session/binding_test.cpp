// How the driver's items are bound, and what the start of a sheet leaves in the store.
#include "sheet_fixture.h"

#include "tests/oemps/guarded_block.h"

#include <cstring>

namespace {

class Binding : public SheetTest {};
class PublicItems : public SheetTest {};
class CustomPage : public SheetTest {};
class HidePrinterSetting : public SheetTest {};

TEST_F(Binding, PutsTheItemBehindTheKeywordOfItsName) {
    const auto staple = driver.AddFeature("StapleMode", 2, 3);
    Bind();
    EXPECT_EQ(block.item[111], &Item(staple));
    EXPECT_EQ(Default(111), 2u);
    EXPECT_EQ(Current(111), 3u);
    EXPECT_EQ(Item(staple).DMPubID, 211);
    EXPECT_EQ(Item(staple).Sel, 3);
}

TEST_F(Binding, LeavesAKeywordThatTheDescriptionLacksUnbound) {
    driver.AddFeature("StapleMode", 0, 0);
    Bind();
    EXPECT_EQ(block.item[112], nullptr);
    EXPECT_EQ(Session().DRVSetDWord(112, 1), 0);
}

TEST_F(Binding, LeavesANameThatDiffersInCaseUnbound) {
    const auto staple = driver.AddFeature("Staplemode", 1, 1);
    Bind();
    EXPECT_EQ(block.item[111], nullptr);
    EXPECT_EQ(Item(staple).DMPubID, 0);
}

TEST_F(Binding, LeavesANameThatTheTableLacksAlone) {
    const auto unknown = driver.AddFeature("SomethingElse", 1, 1);
    Item(unknown).DMPubID = 55;
    Bind();
    EXPECT_EQ(Item(unknown).DMPubID, 55);
    for (const OPTITEM* item : block.item)
        EXPECT_EQ(item, nullptr);
}

TEST_F(Binding, EndsAtTheFirstItemOfAnotherLevelFromBehind) {
    driver.AddFeature("Punch", 0, 1);
    const auto divider = driver.AddFeature("Fold", 0, 1);
    Item(divider).Level = 1;
    const auto staple = driver.AddFeature("StapleMode", 0, 1);
    Bind();
    EXPECT_EQ(block.item[111], &Item(staple));
    EXPECT_EQ(block.item[114], nullptr);
    EXPECT_EQ(block.item[112], nullptr);
}

TEST_F(Binding, BindsNothingIfTheLastItemIsOfAnotherLevel) {
    driver.AddFeature("StapleMode", 0, 1);
    driver.AddPublic(0, 0);
    Bind();
    EXPECT_EQ(block.item[111], nullptr);
}

TEST_F(Binding, StopsAtTheFirstItemWhenAllAreOfTheFeaturesLevel) {
    const auto first = driver.AddFeature("Punch", 0, 1);
    const auto last = driver.AddFeature("StapleMode", 0, 1);
    Bind();
    EXPECT_EQ(block.item[112], &Item(first));
    EXPECT_EQ(block.item[111], &Item(last));
}

TEST_F(Binding, KeepsTheFrontmostOfTwoItemsWithOneName) {
    const auto front = driver.AddFeature("Punch", 0, 1);
    driver.AddFeature("Punch", 0, 2);
    Bind();
    EXPECT_EQ(block.item[112], &Item(front));
    EXPECT_EQ(Current(112), 1u);
}

TEST_F(Binding, SkipsItemsWithoutUserDataOrName) {
    const auto punch = driver.AddFeature("Punch", 0, 1);
    const auto nameless = driver.AddFeature("Fold", 0, 1);
    reinterpret_cast<USERDATA*>(Item(nameless).UserData)->pKeyWordName = nullptr;
    const auto bare = driver.AddFeature("StapleMode", 0, 1);
    Item(bare).UserData = 0;
    Bind();
    EXPECT_EQ(block.item[112], &Item(punch));
    EXPECT_EQ(block.item[111], nullptr);
    EXPECT_EQ(block.item[114], nullptr);
}

TEST_F(Binding, TakesNoFeatureRecordForDefault0) {
    const auto punch = driver.AddFeature("Punch", 3, 1);
    reinterpret_cast<USERDATA*>(Item(punch).UserData)->dwItemID = 0;
    Bind();
    EXPECT_EQ(block.item[112], &Item(punch));
    EXPECT_EQ(Default(112), 0u);
}

TEST_F(Binding, TagOfKeyword156WrapsTo0) {
    const auto item = driver.AddFeature("ImagePhotoAutoCorrection", 0, 1);
    Bind();
    EXPECT_EQ(block.item[156], &Item(item));
    EXPECT_EQ(Item(item).DMPubID, 0);
}

TEST_F(Binding, Keyword157IsBoundAsTheOrientationToo) {
    const auto item = driver.AddFeature("ImagePhotoType", 0, 1);
    Bind();
    EXPECT_EQ(Item(item).DMPubID, 1);
    EXPECT_EQ(block.item[157], &Item(item));
    EXPECT_EQ(block.item[2], &Item(item));
    EXPECT_EQ(Current(2), 1u);
}

TEST_F(Binding, TheRealPublicItemInFrontWinsOverKeyword157) {
    const auto orientation = driver.AddPublic(1, 2);
    const auto item = driver.AddFeature("ImagePhotoType", 0, 1);
    Bind();
    EXPECT_EQ(block.item[157], &Item(item));
    EXPECT_EQ(block.item[2], &Item(orientation));
    EXPECT_EQ(Current(2), 2u);
}

TEST_F(Binding, Keyword159IsBoundAsCopiesAndCollateToo) {
    const auto item = driver.AddFeature("ImageComposeDividedImage", 0, 1);
    Bind();
    EXPECT_EQ(block.item[1], &Item(item));
    EXPECT_EQ(block.item[109], &Item(item));
}

TEST_F(Binding, WrappedTagsWithoutAPublicSettingBindNothingElse) {
    driver.AddFeature("ImageSkyColorCorrection", 0, 1); // 162, whose tag is 6
    Bind();
    int bound = 0;
    for (const OPTITEM* item : block.item)
        bound += item != nullptr;
    EXPECT_EQ(bound, 1);
}

TEST_F(Binding, Keyword172IsBoundAsNupTooAnd173Not) {
    const auto nup = driver.AddFeature("TextPhotoType", 0, 5);           // 172, whose tag is 16
    const auto beyond = driver.AddFeature("TextPhotoTextureType", 0, 6); // 173, whose tag is 17
    Bind();
    EXPECT_EQ(block.item[3], &Item(nup));
    EXPECT_EQ(Item(beyond).DMPubID, 17);
    EXPECT_EQ(block.item[173], &Item(beyond));
}

TEST_F(PublicItems, AreBoundByTheirNumbers) {
    struct {
        BYTE pubId;
        int keyword;
    } rows[] = {{1, 2}, {2, 5}, {3, 1}, {4, 4}, {5, 305}, {9, 0}, {12, 15}, {16, 3}};
    for (const auto& row : rows)
        driver.AddPublic(row.pubId, 10 + row.pubId);
    Bind();
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        EXPECT_EQ(block.item[static_cast<std::size_t>(rows[i].keyword)], &Item(i)) << rows[i].keyword;
        EXPECT_EQ(Current(rows[i].keyword), 10u + rows[i].pubId);
    }
}

TEST_F(PublicItems, CopiesItemIsBoundToCopiesAndCollate) {
    const auto copies = driver.AddPublic(3, 7, OPTIF_ECB_CHECKED);
    Bind();
    EXPECT_EQ(block.item[1], &Item(copies));
    EXPECT_EQ(block.item[109], &Item(copies));
    EXPECT_EQ(Current(1), 7u);
    EXPECT_EQ(Current(109), 1u);
}

TEST_F(PublicItems, CollateIs0WithoutTheCheckMark) {
    driver.AddPublic(3, 7, OPTIF_CHANGED);
    Bind();
    EXPECT_EQ(Current(109), 0u);
}

TEST_F(PublicItems, OtherNumbersBindNothing) {
    for (const BYTE pubId : {0, 6, 7, 8, 10, 11, 13, 14, 15, 17, 18, 100, 255})
        driver.AddPublic(pubId, 1);
    Bind();
    for (const OPTITEM* item : block.item)
        EXPECT_EQ(item, nullptr);
}

TEST_F(PublicItems, TheFrontmostOfTwoWins) {
    const auto front = driver.AddPublic(9, 1);
    driver.AddPublic(9, 2);
    Bind();
    EXPECT_EQ(block.item[0], &Item(front));
    EXPECT_EQ(Current(0), 1u);
}

TEST_F(CustomPage, IsClearedBelowVersion501) {
    SetCustomPageOfDriver(210000, 297000, 1);
    for (const int id : {301, 302, 303, 304})
        ExportedFunc_SetCurrent(id, 99);
    record->ChgPrintPaperSizeWidth = 168378;
    block.dmDriverVersion = 0x500;
    Bind();
    for (const int id : {301, 302, 303, 304, 512, 513})
        EXPECT_EQ(Current(id), 0u) << id;
    EXPECT_EQ(ReadNumber(ExportedFunc_GetChgPrintPaperSizeWidth), 0u);
}

TEST_F(CustomPage, IsReadFromTheDriversAreaAtVersion501) {
    SetCustomPageOfDriver(210000, 297000, 1);
    block.dmDriverVersion = 0x501;
    Bind();
    EXPECT_EQ(Current(301), 210000u);
    EXPECT_EQ(Current(302), 297000u);
    EXPECT_EQ(Current(303), 1u);
    EXPECT_EQ(Default(301), 210000u);
    EXPECT_EQ(Default(302), 297000u);
    EXPECT_EQ(Default(303), 1u);
}

TEST_F(CustomPage, OutputPaperComesFromTheRecordInMicrons) {
    record->ChgPrintPaperSizeWidth = 168378;
    record->ChgPrintPaperSizeLength = 119055;
    record->CustomChgPaperDirection = 1;
    Bind();
    EXPECT_EQ(ReadNumber(ExportedFunc_GetChgPrintPaperSizeWidth), 297000u);
    EXPECT_EQ(ReadNumber(ExportedFunc_GetChgPrintPaperSizeLength), 210000u);
    EXPECT_EQ(Current(304), 1u);
}

TEST_F(CustomPage, LeavesADriversAreaOf169BytesAlone) {
    SetCustomPageOfDriver(210000, 297000, 1);
    block.drvExtraSize = 169;
    record->CustomChgPaperDirection = 1;
    Bind();
    EXPECT_EQ(Current(301), 0u);
    EXPECT_EQ(Current(302), 0u);
    EXPECT_EQ(Current(303), 0u);
    EXPECT_EQ(Current(304), 1u);
}

TEST_F(CustomPage, IsReadFromADriversAreaOf170Bytes) {
    SetCustomPageOfDriver(210000, 297000, 1);
    block.drvExtraSize = 170;
    Bind();
    EXPECT_EQ(Current(303), 1u);
}

TEST_F(HidePrinterSetting, EndsWithThePreviewBankEqualToTheCurrentOne) {
    driver.AddPublic(3, 7, OPTIF_ECB_CHECKED);
    driver.AddFeature("StapleMode", 0, 3);
    ExportedFunc_SetCurrent(200, 5);
    Bind();
    EXPECT_EQ(Preview(1), 7u);
    EXPECT_EQ(Preview(109), 1u);
    EXPECT_EQ(Preview(111), 3u);
    for (int id = 0; id < 327; ++id)
        EXPECT_EQ(Preview(id), Current(id)) << id;
}

TEST_F(HidePrinterSetting, LoadsTheRecordIntoTheStore) {
    std::strcpy(record->Profile, "X100.prf");
    std::strcpy(record->JobName, "report");
    record->PrintPositionFrontWidth = -2835;
    record->SpecificJobName = 1;
    Bind();
    EXPECT_EQ(ReadText(ExportedFunc_GetProfile), "X100.prf");
    EXPECT_EQ(ReadText(ExportedFunc_GetJobName), "report");
    EXPECT_EQ(ReadNumber(ExportedFunc_GetPrintPositionFrontWidth), -2835);
    EXPECT_EQ(ReadNumber(ExportedFunc_GetSpecificJobName), 1u);
}

TEST_F(HidePrinterSetting, SurvivesAnEmptyItemList) {
    Bind();
    for (const OPTITEM* item : block.item)
        EXPECT_EQ(item, nullptr);
}

TEST_F(HidePrinterSetting, SurvivesANullItemListWithACount) {
    OEMCUIPPARAM param{};
    param.cDrvOptItems = 1000;
    CSession::HidePrinterSetting(&param, &block);
    for (const OPTITEM* item : block.item)
        EXPECT_EQ(item, nullptr);
}

TEST_F(HidePrinterSetting, DoesNothingWithoutABlockOrARecord) {
    OEMCUIPPARAM param{};
    CSession::HidePrinterSetting(&param, nullptr);
    CSession::HidePrinterSetting(nullptr, &block);
    block.pOEMDM = nullptr;
    CSession::HidePrinterSetting(&param, &block);
}

// A block without a NUL anywhere, its end against a page that cannot be touched.
TEST_F(HidePrinterSetting, SurvivesAHostileRecordAgainstAGuardPage) {
    const GuardedBlock pages(kDevModeSize);
    auto* hostile = reinterpret_cast<PrivateDevMode*>(pages.Bytes().data());
    block.pOEMDM = hostile;
    for (const int byte : {0xFF, 0x81, 0x01, 0x41}) {
        std::memset(hostile, byte, sizeof *hostile);
        Bind();
        Session().ApplyAll();
    }
}

} // namespace

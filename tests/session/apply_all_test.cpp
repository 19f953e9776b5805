#include "sheet_fixture.h"

#include <cstring>

namespace {

class ApplyAll : public SheetTest {
  protected:
    ApplyAll() {
        driver.AddPublic(3, 7, OPTIF_ECB_CHECKED);
        staple = driver.AddFeature("StapleMode", 0, 3);
        resolution = driver.AddFeature("Resolution", 0, 1);
    }

    std::uint32_t DriverAreaWord(std::size_t at) const {
        std::uint32_t word = 0;
        std::memcpy(&word, &driverArea[at], sizeof word);
        return word;
    }

    std::size_t staple;
    std::size_t resolution;
};

TEST_F(ApplyAll, WithNothingChangedMakesNoDriverCallButRewritesFrontCoverStkName) {
    std::strcpy(record->PhysicalPageRange, "1-5");
    std::strcpy(record->FrontCoverStkName, "Coated");
    Bind();
    Session().ApplyAll();
    EXPECT_TRUE(driverUI.calls.empty());
    EXPECT_EQ(record->Modified, 0u);
    EXPECT_STREQ(record->FrontCoverStkName, "1-5");
}

TEST_F(ApplyAll, TellsTheDriverOnlyWhatHasChanged) {
    Bind();
    ExportedFunc_SetCurrent(305, 2);
    Session().ApplyAll();
    ASSERT_EQ(driverUI.calls.size(), 1u);
    EXPECT_EQ(driverUI.calls[0].item, &Item(resolution));
    EXPECT_EQ(driverUI.calls[0].previous, 1u);
    EXPECT_EQ(Item(resolution).Sel, 2);
    EXPECT_EQ(Item(staple).Sel, 3);
    EXPECT_EQ(record->Modified, 1u);
}

TEST_F(ApplyAll, ASecondTimeTellsTheDriverNothingMore) {
    Bind();
    ExportedFunc_SetCurrent(305, 2);
    Session().ApplyAll();
    Session().ApplyAll();
    EXPECT_EQ(driverUI.calls.size(), 1u);
}

TEST_F(ApplyAll, AtVersion501LeavesTheDriversAreaAndTheOutputPaperAsTheyWere) {
    SetCustomPageOfDriver(210000, 297000, 1);
    record->ChgPrintPaperSizeWidth = 111;
    record->ChgPrintPaperSizeLength = 222;
    record->CustomChgPaperDirection = 1;
    block.dmDriverVersion = 0x501;
    Bind();
    EXPECT_EQ(Current(301), 210000u);
    ExportedFunc_SetCurrent(301, 100000);
    ExportedFunc_SetCurrent(302, 150000);
    ExportedFunc_SetCurrent(303, 0);
    ExportedFunc_SetCurrent(304, 0);
    ExportedFunc_SetChgPrintPaperSizeWidth(297000);
    ExportedFunc_SetChgPrintPaperSizeLength(297000);
    Session().ApplyAll();
    EXPECT_EQ(DriverAreaWord(152), 210000u);
    EXPECT_EQ(DriverAreaWord(156), 297000u);
    EXPECT_EQ(driverArea[168], 1);
    EXPECT_EQ(record->ChgPrintPaperSizeWidth, 111u);
    EXPECT_EQ(record->ChgPrintPaperSizeLength, 222u);
    EXPECT_EQ(record->CustomChgPaperDirection, 1u);
}

TEST_F(ApplyAll, PutsACustomWidthIntoTheRecordAndTheDriversAreaInDifferentUnits) {
    Bind();
    ExportedFunc_SetCurrent(301, 297000);
    Session().ApplyAll();
    EXPECT_EQ(record->CustomPaperWidth, 168377u);
    EXPECT_EQ(DriverAreaWord(152), 297000u);
}

TEST_F(ApplyAll, AboveVersion501WritesTheCustomPageAndNothingElseIntoTheDriversArea) {
    Bind();
    driverArea.fill(0xEE);
    ExportedFunc_SetCurrent(301, 0x01020304);
    ExportedFunc_SetCurrent(302, 0x11121314);
    ExportedFunc_SetCurrent(303, 0xABCD0001);
    Session().ApplyAll();
    std::array<std::uint8_t, 256> expected;
    expected.fill(0xEE);
    const std::uint8_t page[] = {0x04, 0x03, 0x02, 0x01, 0x14, 0x13, 0x12, 0x11};
    std::copy(std::begin(page), std::end(page), &expected[152]);
    expected[168] = 0x01;
    expected[169] = 0x00;
    EXPECT_EQ(driverArea, expected);
}

TEST_F(ApplyAll, WritesTheOutputPaperIntoTheRecord) {
    Bind();
    ExportedFunc_SetChgPrintPaperSizeWidth(297000);
    ExportedFunc_SetChgPrintPaperSizeLength(210000);
    ExportedFunc_SetCurrent(304, 0xABCD0001);
    Session().ApplyAll();
    EXPECT_EQ(record->ChgPrintPaperSizeWidth, 168377u);
    EXPECT_EQ(record->ChgPrintPaperSizeLength, 119055u);
    EXPECT_EQ(record->CustomChgPaperDirection, 1u);
}

TEST_F(ApplyAll, LeavesADriversAreaThatIsTooSmallAloneAndStillWritesTheOutputPaper) {
    block.drvExtraSize = 169;
    Bind();
    driverArea.fill(0xEE);
    ExportedFunc_SetCurrent(301, 1);
    ExportedFunc_SetChgPrintPaperSizeWidth(297000);
    Session().ApplyAll();
    for (const std::uint8_t byte : driverArea)
        EXPECT_EQ(byte, 0xEE);
    EXPECT_EQ(record->ChgPrintPaperSizeWidth, 168377u);
}

TEST_F(ApplyAll, SurvivesWithoutADriversArea) {
    block.pDrvExtra = nullptr;
    Bind();
    Session().ApplyAll();
}

TEST_F(ApplyAll, MovesNamedValuesIntoTheirFields) {
    Bind();
    ExportedFunc_SetRecordDivNumOfPages(4);
    ExportedFunc_SetPrintPositionBackLengthMag(-7);
    ExportedFunc_SetSpecificJobName(1);
    ExportedFunc_SetCreaseNum(5);
    ExportedFunc_SetCmykKPreservation(1);
    ExportedFunc_SetStkName("Stock 1");
    ExportedFunc_SetSPages("2,4");
    ExportedFunc_SetRecordSpecNumber("10-20");
    ExportedFunc_SetJobName("\x97\x70\x8E\x86");
    ExportedFunc_SetJobInfoAccount("acct");
    Session().ApplyAll();
    EXPECT_EQ(record->RecordDivNumOfPages, 4u);
    EXPECT_EQ(record->PrintPositionBackLengthMag, -7);
    EXPECT_EQ(record->SpecificJobName, 1u);
    EXPECT_EQ(record->CreaseNum, 5u);
    EXPECT_EQ(record->CmykKPreservation, 1u);
    EXPECT_STREQ(record->StkName, "Stock 1");
    EXPECT_STREQ(record->SPages, "2,4");
    EXPECT_STREQ(record->RecordSpecNumber, "10-20");
    EXPECT_STREQ(record->JobName, "\x97\x70\x8E\x86");
    EXPECT_STREQ(record->JobInfoAccount, "acct");
}

TEST_F(ApplyAll, LeavesTheOneWayTextsAsTheRecordHasThem) {
    std::strcpy(record->Profile, "old.prf");
    std::strcpy(record->FavoriteName, "old");
    Bind();
    ExportedFunc_SetProfile("new.prf");
    ExportedFunc_SetFavoriteName("new");
    ExportedFunc_SetAuthJobUserId("new");
    ExportedFunc_SetJobRscSetName("new");
    Session().ApplyAll();
    EXPECT_STREQ(record->Profile, "old.prf");
    EXPECT_STREQ(record->FavoriteName, "old");
    EXPECT_STREQ(record->AuthJobUserId, "");
    EXPECT_STREQ(record->JobRscSetName, "");
}

TEST_F(ApplyAll, IgnoresAFailingDriver) {
    Bind();
    driverUI.answer = E_FAIL;
    ExportedFunc_SetCurrent(111, 1);
    ExportedFunc_SetCurrent(305, 0);
    Session().ApplyAll();
    EXPECT_EQ(driverUI.calls.size(), 2u);
}

TEST_F(ApplyAll, WithoutASessionOrARecordDoesNothing) {
    CSession(nullptr).ApplyAll();
    block.pOEMDM = nullptr;
    Session().ApplyAll();
    EXPECT_TRUE(driverUI.calls.empty());
}

} // namespace

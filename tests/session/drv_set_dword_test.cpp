#include "sheet_fixture.h"

#include <cstring>
#include <limits>

namespace {

class DRVSetDWord : public SheetTest {
  protected:
    DRVSetDWord() {
        copies = driver.AddPublic(3, 7, OPTIF_ECB_CHECKED);
        staple = driver.AddFeature("StapleMode", 0, 3);
        Bind();
    }

    std::size_t copies;
    std::size_t staple;
};

TEST_F(DRVSetDWord, WithTheValueUnchangedCallsNoDriverAndLeavesModifiedAlone) {
    EXPECT_EQ(Session().DRVSetDWord(111, 3), 1);
    EXPECT_TRUE(driverUI.calls.empty());
    EXPECT_EQ(record->Modified, 0u);
    EXPECT_EQ(Item(staple).Flags, 0u);
}

TEST_F(DRVSetDWord, WithANewValueChangesTheItemAndTellsTheDriverTheOldOne) {
    EXPECT_EQ(Session().DRVSetDWord(111, 1), 1);
    EXPECT_EQ(Item(staple).Sel, 1);
    EXPECT_EQ(Item(staple).Flags, 8u);
    EXPECT_EQ(Preview(111), 1u);
    EXPECT_EQ(record->Modified, 1u);
    EXPECT_EQ(driverUI.calls,
              (std::vector<FakeDriver::Call>{{reinterpret_cast<PVOID>(0x1234), &Item(staple), 3, 1}}));
}

TEST_F(DRVSetDWord, LeavesTheCurrentBankAlone) {
    Session().DRVSetDWord(111, 1);
    EXPECT_EQ(Current(111), 3u);
}

TEST_F(DRVSetDWord, OfCollateWith0ClearsTheCheckMarkAndLeavesTheCopies) {
    EXPECT_EQ(Session().DRVSetDWord(109, 0), 1);
    EXPECT_EQ(Item(copies).Flags, 8u);
    EXPECT_EQ(Item(copies).Sel, 7);
}

TEST_F(DRVSetDWord, OfCollateSetsTheCheckMarkForAnyOtherValue) {
    Session().DRVSetDWord(109, 0);
    EXPECT_EQ(Session().DRVSetDWord(109, 2), 1);
    EXPECT_EQ(Item(copies).Flags, 0x48u);
    EXPECT_EQ(Item(copies).Sel, 7);
}

TEST_F(DRVSetDWord, OfCopiesChangesTheCountThroughTheSameItem) {
    EXPECT_EQ(Session().DRVSetDWord(1, 9), 1);
    EXPECT_EQ(Item(copies).Sel, 9);
    EXPECT_EQ(Item(copies).Flags, 0x48u);
}

TEST_F(DRVSetDWord, OfACustomWidthStoresInTheRecordOnly) {
    const auto width = driver.AddFeature("CustomPaperWidth", 0, 0);
    Bind();
    EXPECT_EQ(Session().DRVSetDWord(301, 297000), 1);
    EXPECT_EQ(record->CustomPaperWidth, 168377u);
    EXPECT_EQ(block.item[301], &Item(width));
    EXPECT_EQ(Item(width).Sel, 0);
    EXPECT_EQ(Preview(301), 0u);
    EXPECT_EQ(record->Modified, 0u);
    EXPECT_TRUE(driverUI.calls.empty());
}

TEST_F(DRVSetDWord, OfAFieldStoresItAndLeavesModifiedAlone) {
    EXPECT_EQ(Session().DRVSetDWord(4303, 12), 1);
    EXPECT_EQ(record->RecordDivNumOfPages, 12u);
    EXPECT_EQ(record->Modified, 0u);
}

TEST_F(DRVSetDWord, RefusesTheFiveIdsWithoutATarget) {
    for (const int id : {4581, 4582, 4583, 4584, 4585})
        EXPECT_EQ(Session().DRVSetDWord(id, 1), 0) << id;
}

TEST_F(DRVSetDWord, OfAnUnboundKeywordGives0AndKeepsThePreview) {
    EXPECT_EQ(Session().DRVSetDWord(112, 5), 0);
    EXPECT_EQ(Preview(112), 0u);
    EXPECT_EQ(record->Modified, 0u);
}

TEST_F(DRVSetDWord, OfAnIdOutsideEveryClassGives0AndTouchesNothing) {
    const PrivateDevMode before = *record;
    for (const int id : {327, 328, 356, 393, 438, 439, 443, 512, 513, 4300, 4304, 4634, -1, -327,
                         std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
        EXPECT_EQ(Session().DRVSetDWord(id, 1), 0) << id;
    EXPECT_EQ(std::memcmp(&before, record.get(), sizeof before), 0);
    EXPECT_TRUE(driverUI.calls.empty());
}

TEST_F(DRVSetDWord, GivesA0ForAFailingDriverAndKeepsTheChange) {
    driverUI.answer = E_FAIL;
    EXPECT_EQ(Session().DRVSetDWord(111, 1), 0);
    EXPECT_EQ(Item(staple).Sel, 1);
    EXPECT_EQ(Preview(111), 1u);
    EXPECT_EQ(record->Modified, 1u);
}

TEST_F(DRVSetDWord, TakesAStatusAbove0ForSuccess) {
    driverUI.answer = S_FALSE;
    EXPECT_EQ(Session().DRVSetDWord(111, 1), 1);
}

TEST_F(DRVSetDWord, TakesNoDriverForAFailingOne) {
    block.pDriverUI = nullptr;
    EXPECT_EQ(Session().DRVSetDWord(111, 1), 0);
    EXPECT_EQ(Item(staple).Sel, 1);
}

TEST_F(DRVSetDWord, WithoutASessionOrARecordGives0) {
    EXPECT_EQ(CSession(nullptr).DRVSetDWord(111, 1), 0);
    EXPECT_EQ(CSession(nullptr).DRVSetDWord(4303, 1), 0);
    block.pOEMDM = nullptr;
    EXPECT_EQ(Session().DRVSetDWord(111, 1), 0);
    EXPECT_EQ(Session().DRVSetDWord(4303, 1), 0);
}

} // namespace

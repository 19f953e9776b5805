// CSession's small accessors, and CSessionAccessor.
#include "sheet_fixture.h"

namespace {

class Accessors : public SheetTest {};
class SessionAccessor : public SheetTest {
  protected:
    ~SessionAccessor() override { CSessionAccessor::Release(); }
};

TEST_F(Accessors, NumberOfOptionsIsThatOfTheBoundItem) {
    driver.AddFeature("StapleMode", 0, 3, 12);
    Bind();
    EXPECT_EQ(Session().DRVGetKeywordNumOptions(111), 12);
}

TEST_F(Accessors, NumberOfOptionsIs0WithoutASessionOrAnItemOrOutsideTheTable) {
    const auto punch = driver.AddFeature("Punch", 0, 0);
    Bind();
    Item(punch).pOptType = nullptr;
    EXPECT_EQ(CSession(nullptr).DRVGetKeywordNumOptions(112), 0);
    EXPECT_EQ(Session().DRVGetKeywordNumOptions(112), 0);
    EXPECT_EQ(Session().DRVGetKeywordNumOptions(111), 0);
    EXPECT_EQ(Session().DRVGetKeywordNumOptions(327), 0);
    EXPECT_EQ(Session().DRVGetKeywordNumOptions(-1), 0);
}

TEST_F(Accessors, KeywordIdFromNameIsExact) {
    EXPECT_EQ(CSession::KeywordIdFromName("PageSize"), 0);
    EXPECT_EQ(CSession::KeywordIdFromName("RepeatExceptionPage"), 326);
    EXPECT_EQ(CSession::KeywordIdFromName("pagesize"), -1);
    EXPECT_EQ(CSession::KeywordIdFromName(""), -1);
    EXPECT_EQ(CSession::KeywordIdFromName(nullptr), -1);
}

TEST_F(Accessors, SaveCopiesFromTheStoreIntoTheRecordAndReturns1) {
    ExportedFunc_SetRecordSpecNumber("1-9");
    ExportedFunc_SetSPages("3");
    ExportedFunc_SetJobName("report");
    EXPECT_EQ(Session().SaveRecordSpecNumber(), 1);
    EXPECT_EQ(Session().SaveSPages(), 1);
    EXPECT_EQ(Session().SaveJobName(), 1);
    EXPECT_STREQ(record->RecordSpecNumber, "1-9");
    EXPECT_STREQ(record->SPages, "3");
    EXPECT_STREQ(record->JobName, "report");
}

TEST_F(Accessors, GetJobNameReadsIntoTheScratchTextOnly) {
    ExportedFunc_SetJobName("report");
    EXPECT_EQ(Session().GetJobName(), 1);
    EXPECT_STREQ(block.scratch, "report");
    EXPECT_STREQ(record->JobName, "");
}

TEST_F(Accessors, SettersPassOnToTheStore) {
    Session().SetJobName("job");
    Session().SetSPages("1,2");
    Session().SetProfile("a.prf");
    Session().SetCmykKPreservation(2);
    Session().SetSpecificJobName(1);
    EXPECT_EQ(ReadText(ExportedFunc_GetJobName), "job");
    EXPECT_EQ(ReadText(ExportedFunc_GetSPages), "1,2");
    EXPECT_EQ(ReadText(ExportedFunc_GetProfile), "a.prf");
    std::uint32_t value = 0;
    Session().GetCmykKPreservation(&value);
    EXPECT_EQ(value, 2u);
    Session().GetSpecificJobName(&value);
    EXPECT_EQ(value, 1u);
}

TEST_F(Accessors, WithoutASessionDoNothing) {
    CSession none(nullptr);
    std::uint32_t value = 77;
    none.SetJobName("job");
    none.SetSPages("1");
    none.SetProfile("a.prf");
    none.SetCmykKPreservation(2);
    none.SetSpecificJobName(1);
    none.GetCmykKPreservation(&value);
    none.GetSpecificJobName(&value);
    EXPECT_EQ(none.SaveRecordSpecNumber(), 0);
    EXPECT_EQ(none.GetJobName(), 0);
    EXPECT_EQ(none.SaveJobName(), 0);
    EXPECT_EQ(none.SaveSPages(), 0);
    EXPECT_EQ(none.NotifyApplied(1002), 0);
    EXPECT_EQ(value, 77u);
    EXPECT_EQ(ReadText(ExportedFunc_GetJobName), "");
    EXPECT_EQ(ReadText(ExportedFunc_GetSPages), "");
}

struct SheetCall {
    HANDLE sheet;
    UINT function;
    LPARAM first;
    LPARAM second;
    int count;
} sheetCall;

LONG_PTR CALLBACK RecordSheetCall(HANDLE sheet, UINT function, LPARAM first, LPARAM second) {
    sheetCall = {sheet, function, first, second, sheetCall.count + 1};
    return 0;
}

TEST_F(Accessors, NotifyAppliedSetsTheSheetsResultToOk) {
    sheetCall = {};
    block.hComPropSheet = reinterpret_cast<HANDLE>(0x111);
    block.hResultPage = reinterpret_cast<HANDLE>(0x222);
    block.pfnComPropSheet = RecordSheetCall;
    EXPECT_EQ(Session().NotifyApplied(1002), 1);
    EXPECT_EQ(sheetCall.count, 1);
    EXPECT_EQ(sheetCall.sheet, reinterpret_cast<HANDLE>(0x111));
    EXPECT_EQ(sheetCall.function, static_cast<UINT>(CPSFUNC_SET_RESULT));
    EXPECT_EQ(sheetCall.first, 0x222);
    EXPECT_EQ(sheetCall.second, CPSUI_OK);
}

TEST_F(SessionAccessor, PassesIntoTheBanks) {
    CSessionAccessor* accessor = CSessionAccessor::Instance();
    accessor->SetDefault(10, 1);
    accessor->SetCurrent(10, 2);
    accessor->SetFavorite(10, 3);
    EXPECT_EQ(Default(10), 1u);
    EXPECT_EQ(Current(10), 2u);
    EXPECT_EQ(accessor->GetDefault(10), 1u);
    EXPECT_EQ(accessor->GetCurrent(10), 2u);
    EXPECT_EQ(accessor->GetFavorite(10), 3u);
}

TEST_F(SessionAccessor, KeepsTheSessionUntilItIsReleased) {
    CSessionAccessor::Instance()->SetSession(&block);
    EXPECT_EQ(CSessionAccessor::Instance()->GetSession(), &block);
    CSessionAccessor::Release();
    EXPECT_EQ(CSessionAccessor::Instance()->GetSession(), nullptr);
}

TEST_F(SessionAccessor, MayBeReleasedTwice) {
    CSessionAccessor::Instance();
    CSessionAccessor::Release();
    CSessionAccessor::Release();
}

} // namespace

// Which operations of the store a transfer calls, and in which order.
#include "recording_store.h"

#include "Common/log_recorder.h"
#include "session/initialize_data_manager.h"
#include "session/record_transfer.h"
#include "tests/support/devmode_listing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace {

using recording_store::Call;
using Names = std::vector<std::string>;

const std::set<std::string> kNamedValues{
#define ZR_NAMED_VALUE(name, type) #name,
#include "session/named_values.def"
};

Names Operations() {
    Names names;
    for (const Call& call : recording_store::Calls())
        names.push_back(call.operation);
    return names;
}

std::ptrdiff_t CountOf(const Names& names, const std::string& name) {
    return std::ranges::count(names, name);
}

std::size_t LastOf(const Names& names, const std::string& name) {
    const auto found = std::find(names.rbegin(), names.rend(), name);
    return static_cast<std::size_t>(names.rend() - found) - 1;
}

std::size_t FirstOf(const Names& names, const std::string& name) {
    return static_cast<std::size_t>(std::ranges::find(names, name) - names.begin());
}

class StoreCalls : public testing::Test {
  protected:
    StoreCalls() { recording_store::Calls().clear(); }

    Names CallsOf(auto move) {
        move();
        return Operations();
    }

    Names Loaded() {
        return CallsOf([&] { LoadStoreFromRecord(*record); });
    }
    Names Saved() {
        return CallsOf([&] { SaveUnroutedValues(*record, scratch); });
    }

    std::unique_ptr<PrivateDevMode> record = std::make_unique<PrivateDevMode>();
    std::array<char, single_value::kScratchSize> scratch{};
};

class LoadStoreFromRecordCalls : public StoreCalls {};
class LoadStoreAgainCalls : public StoreCalls {};
class SaveUnroutedValuesCalls : public StoreCalls {};
class RoutedValuesCalls : public StoreCalls {};

TEST_F(LoadStoreFromRecordCalls, TellTheProfileBeforeAllElse) {
    std::strcpy(record->Profile, "X100.prf");
    Loaded();
    EXPECT_EQ(recording_store::Calls().front(), (Call{"SetProfile", "X100.prf"}));
}

TEST_F(LoadStoreFromRecordCalls, SendEveryFieldWithANamedValueInTheRecordsOrder) {
    Names expected{"SetProfile"};
    for (const ListedField& field : ListDevModeFields()) {
        const std::string& listed = field.name;
        if (!kNamedValues.contains(listed) || listed == "Profile" ||
            listed.starts_with("ChgPrintPaperSizeW") || listed == "ChgPrintPaperSizeLength")
            continue;
        expected.push_back("Set" + listed);
        if (listed == "FolderName")
            for (const char* name :
                 {"SpecifiedHour", "SpecifiedMinute", "ElapsedDays", "ElapsedHours", "ElapsedMinutes"})
                expected.push_back(std::string("SetAutoJobStart") + name);
    }
    EXPECT_EQ(Loaded(), expected);
}

TEST_F(LoadStoreFromRecordCalls, SendTheJobStartTimesASecondTimeAfterTheFolderName) {
    const Names calls = Loaded();
    for (const char* name :
         {"SetAutoJobStartSpecifiedHour", "SetAutoJobStartSpecifiedMinute", "SetAutoJobStartElapsedDays",
          "SetAutoJobStartElapsedHours", "SetAutoJobStartElapsedMinutes"}) {
        EXPECT_EQ(CountOf(calls, name), 2) << name;
        EXPECT_LT(FirstOf(calls, name), FirstOf(calls, "SetFolderName")) << name;
        EXPECT_GT(LastOf(calls, name), FirstOf(calls, "SetFolderName")) << name;
    }
}

TEST_F(LoadStoreFromRecordCalls, LeaveThePaperSizeBehind) {
    const Names calls = Loaded();
    EXPECT_EQ(CountOf(calls, "SetChgPrintPaperSizeWidth"), 0);
    EXPECT_EQ(CountOf(calls, "SetChgPrintPaperSizeLength"), 0);
}

TEST_F(LoadStoreFromRecordCalls, SendTheFrontCoverFieldAsTheStockName) {
    std::strcpy(record->FrontCoverStkName, "1-3,7");
    Loaded();
    EXPECT_EQ(std::ranges::count(recording_store::Calls(), Call{"SetFrontCoverStkName", "1-3,7"}), 1);
}

TEST_F(LoadStoreFromRecordCalls, LogTheSpecialPagesAndTheBlackPreservation) {
    std::strcpy(record->SPages, "2,5-9");
    record->CmykKPreservation = 2;
    log_backend::Recorder log;
    Loaded();
    ASSERT_EQ(log.main.size(), 2u);
    EXPECT_NE(log.main[0].find("CmykKPreservation=2"), std::string::npos) << log.main[0];
    EXPECT_NE(log.main[1].find("SPages=2,5-9"), std::string::npos) << log.main[1];
    EXPECT_EQ(std::ranges::count(recording_store::Calls(), Call{"SetSPages", "2,5-9"}), 1);
}

TEST_F(LoadStoreFromRecordCalls, EndATextWithoutNulAtItsField) {
    std::memset(record.get(), 'A', sizeof *record);
    Loaded();
    for (const Call& call : recording_store::Calls())
        if (call.operation == "SetFavoriteName") {
            EXPECT_EQ(call.argument, std::string(28, 'A'));
        }
}

TEST_F(LoadStoreAgainCalls, SendTheRepeatedValuesInTheirOrder) {
    EXPECT_EQ(CallsOf([&] { LoadStoreAgain(*record); }),
              (Names{"SetPrintPositionFrontWidth", "SetPrintPositionFrontLength", "SetPrintPositionBackWidth",
                     "SetPrintPositionBackLength", "SetPrintPositionFrontWidthMag",
                     "SetPrintPositionFrontLengthMag", "SetPrintPositionBackWidthMag",
                     "SetPrintPositionBackLengthMag", "SetMailAddress", "SetSpecificJobName",
                     "SetCustomCoverPageNum", "SetJobName", "SetFavoriteName"}));
}

TEST_F(LoadStoreAgainCalls, SendTheNameOfTheFavoriteInForce) {
    std::strcpy(record->FavoriteName, "Booklet");
    LoadStoreAgain(*record);
    EXPECT_EQ(recording_store::Calls().back(), (Call{"SetFavoriteName", "Booklet"}));
}

TEST_F(SaveUnroutedValuesCalls, ReadTheRecordSpecNumberTwiceAfterTheRegisteredResource) {
    const Names calls = Saved();
    ASSERT_EQ(CountOf(calls, "GetRecordSpecNumber"), 2);
    EXPECT_EQ(FirstOf(calls, "GetRecordSpecNumber"), FirstOf(calls, "GetRscRegistName") + 1);
    EXPECT_EQ(LastOf(calls, "GetRecordSpecNumber"), FirstOf(calls, "GetRscRegistName") + 2);
}

TEST_F(SaveUnroutedValuesCalls, ReadTheSpecialPagesTwiceAfterTheBackCoverStock) {
    const Names calls = Saved();
    ASSERT_EQ(CountOf(calls, "GetSPages"), 2);
    EXPECT_EQ(FirstOf(calls, "GetSPages"), FirstOf(calls, "GetBackCoverStkName") + 1);
}

TEST_F(SaveUnroutedValuesCalls, ReadTheJobNameLastOfAll) {
    const Names calls = Saved();
    EXPECT_EQ(CountOf(calls, "GetJobName"), 1);
    EXPECT_EQ(calls.back(), "GetJobName");
}

TEST_F(SaveUnroutedValuesCalls, ReadThePhysicalPageRangeForItselfAndForTheFrontCover) {
    EXPECT_EQ(CountOf(Saved(), "GetPhysicalPageRange"), 2);
}

TEST_F(SaveUnroutedValuesCalls, NeverReadTheOneWayTexts) {
    const Names calls = Saved();
    for (const char* name :
         {"GetJobRscSetName", "GetAuthJobUserId", "GetAuthJobPassword", "GetAuthJobAccount", "GetProfile"})
        EXPECT_EQ(CountOf(calls, name), 0) << name;
}

TEST_F(SaveUnroutedValuesCalls, SetNothing) {
    for (const std::string& name : Saved())
        EXPECT_TRUE(name.starts_with("Get")) << name;
}

TEST_F(RoutedValuesCalls, ReadTheValuesInTheOrderOfTheirRoutes) {
    for (const RoutedValue& value : RoutedValues())
        value.read();
    const Names calls = Operations();
    ASSERT_EQ(calls.size(), 112u);
    EXPECT_EQ(Names(calls.begin(), calls.begin() + 5),
              (Names{"GetRecordDivNumOfPages", "GetPaperTypeCustomNumber", "GetMediaTypeWeightValue",
                     "GetMediaTypeSequence", "GetPaperTypeCustomNumberBypass"}));
    // The repeat's page number stands between the memo's and the pagination's font size.
    const std::size_t at = FirstOf(calls, "GetRepeatExceptionPageNum");
    EXPECT_EQ(calls[at - 1], "GetMemoFontSize");
    EXPECT_EQ(calls[at + 1], "GetPaginationFontSize");
    EXPECT_EQ(calls.back(), "GetImpositionFormPositionLength");
}

TEST(InitializeDataManager, PreparesTheStoreThenNamesAndCreatesTheKeyAndLogsItsName) {
    recording_store::Calls().clear();
    log_backend::Recorder log;
    InitializeDataManager();
    const std::vector<Call> expected{{"InitializeDataManager", ""},
                                     {"CreateDataSettingRegistryKeyName", "zeroed"},
                                     {"CreateDataSettingRegistryKey", "a key 327"}};
    EXPECT_EQ(recording_store::Calls(), expected);
    ASSERT_EQ(log.main.size(), 1u);
    EXPECT_NE(log.main[0].find("key=a key\n"), std::string::npos);
}

} // namespace

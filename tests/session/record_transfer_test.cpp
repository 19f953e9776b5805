#include "session/record_transfer.h"

#include "session/datamanager.h"
#include "session/initialize_data_manager.h"
#include "session/record_routes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <string>

namespace {

// The fields whose unit changes on the way, and which the transfers therefore leave alone.
bool IsPaperSize(std::string_view name) {
    return name == "ChgPrintPaperSizeWidth" || name == "ChgPrintPaperSizeLength";
}

// Calls `use(name, field, get)` for each named value that has a getter and a field of its name.
template <typename Record, typename Use>
void ForEachValueWithField(Record& record, Use use) {
#define ZR_NAMED_VALUE(name, type)                                                                           \
    if constexpr (requires { record.name; })                                                                 \
        use(#name, record.name, ExportedFunc_Get##name);
#define ZR_U32_SET_ONLY(name)
#define ZR_TEXT_SET_ONLY(name, width)
#include "session/named_values.def"
}

template <typename Field>
constexpr bool kIsText = std::is_array_v<std::remove_reference_t<Field>>;

// A number of the value's own, made from its name.
std::uint32_t NumberFor(std::string_view name) {
    std::uint32_t number = 17;
    for (const char c : name)
        number = number * 31 + static_cast<unsigned char>(c);
    return number;
}

template <typename Field>
void Fill(Field& field, std::string_view name) {
    if constexpr (kIsText<Field>) {
        std::ranges::fill(field, '\0');
        std::ranges::copy(name.substr(0, std::size(field) - 1), field);
    } else {
        field = static_cast<Field>(NumberFor(name));
    }
}

// The store's value of a text as a string, of a number as itself.
template <typename Field, typename Get>
auto Read(Field&, Get get) {
    if constexpr (kIsText<Field>) {
        char text[1024] = {};
        get(text);
        return std::string(text);
    } else {
        std::remove_const_t<Field> value{};
        get(&value);
        return value;
    }
}

class RecordTransfer : public testing::Test {
  protected:
    RecordTransfer() { InitializeDataManager(); }
    ~RecordTransfer() override {
        char key[260] = {};
        ExportedFunc_GetRegistryKeyName(key);
        ExportedFunc_DeleteRegistryKey(key);
    }

    void Save() { SaveUnroutedValues(*record, scratch); }

    void StoreRoutes() {
        for (const RoutedValue& value : RoutedValues())
            EXPECT_EQ(StoreByRoute(*record, value.id, value.read()), RouteResult::Stored) << value.id;
    }

    std::unique_ptr<PrivateDevMode> record = std::make_unique<PrivateDevMode>();
    std::array<char, single_value::kScratchSize> scratch{};
};

class LoadingTheStore : public RecordTransfer {};
class SavingTheStore : public RecordTransfer {};

TEST_F(LoadingTheStore, GivesEveryNamedValueItsFieldButThePaperSize) {
    ForEachValueWithField(*record, [](const char* name, auto& field, auto) { Fill(field, name); });
    LoadStoreFromRecord(*record);
    int texts = 0;
    int numbers = 0;
    ForEachValueWithField(*record, [&](const char* name, auto& field, auto get) {
        using Field = std::remove_reference_t<decltype(field)>;
        if constexpr (kIsText<Field>) {
            ++texts;
            EXPECT_EQ(Read(field, get), std::string(name).substr(0, std::size(field) - 1)) << name;
        } else {
            ++numbers;
            EXPECT_EQ(Read(field, get), IsPaperSize(name) ? Field{} : static_cast<Field>(NumberFor(name)))
                << name;
        }
    });
    EXPECT_EQ(texts, 80);
    EXPECT_EQ(numbers, 155); // 114 unsigned with the two of the paper size, 40 signed, 1 of 64 bits
}

TEST_F(LoadingTheStore, LeavesTheRecordAsItIs) {
    std::memset(record.get(), 0x41, sizeof *record);
    const PrivateDevMode before = *record;
    LoadStoreFromRecord(*record);
    LoadStoreAgain(*record);
    EXPECT_EQ(std::memcmp(&before, record.get(), sizeof before), 0);
}

TEST_F(LoadingTheStore, ReadsNothingBehindARecordThatHasNoNulAnywhere) {
    // On the heap, so that the sanitizer sees a step beyond the record.
    std::memset(record.get(), 0xFF, sizeof *record);
    LoadStoreFromRecord(*record);
    LoadStoreAgain(*record);
    char text[1024] = {};
    ExportedFunc_GetProfile(text);
    EXPECT_LT(std::strlen(text), 260u);
}

TEST_F(LoadingTheStore, CutsATextWithoutNulToItsField) {
    std::memset(record->FolderName, 'a', sizeof record->FolderName);
    std::memset(record->ColorRscSetName, 'b', sizeof record->ColorRscSetName);
    LoadStoreFromRecord(*record);
    char text[1024] = {};
    ExportedFunc_GetFolderName(text);
    EXPECT_EQ(std::string(text), std::string(32, 'a'));
}

TEST_F(LoadingTheStore, PassesATextAsLongAsItsFieldUnchanged) {
    std::fill_n(record->SPages, 1023, '9');
    LoadStoreFromRecord(*record);
    char text[1024] = {};
    ExportedFunc_GetSPages(text);
    EXPECT_EQ(std::string(text), std::string(1023, '9'));
}

TEST_F(LoadingTheStore, AgainRestoresTheRepeatedValues) {
    record->PrintPositionBackLengthMag = -5;
    record->CustomCoverPageNum = 3;
    record->SpecificJobName = 1;
    std::strcpy(record->MailAddress, "a@example.com");
    std::strcpy(record->JobName, "report");
    LoadStoreAgain(*record);
    std::int32_t length = 0;
    ExportedFunc_GetPrintPositionBackLengthMag(&length);
    std::uint32_t pages = 0;
    ExportedFunc_GetCustomCoverPageNum(&pages);
    std::uint32_t specific = 0;
    ExportedFunc_GetSpecificJobName(&specific);
    char mail[1024] = {};
    ExportedFunc_GetMailAddress(mail);
    char job[1024] = {};
    ExportedFunc_GetJobName(job);
    EXPECT_EQ(length, -5);
    EXPECT_EQ(pages, 3u);
    EXPECT_EQ(specific, 1u);
    EXPECT_STREQ(mail, "a@example.com");
    EXPECT_STREQ(job, "report");
}

TEST_F(SavingTheStore, BringsBackWhatLoadingSent) {
    ForEachValueWithField(*record, [](const char* name, auto& field, auto) { Fill(field, name); });
    LoadStoreFromRecord(*record);
    std::memset(record.get(), 0, sizeof *record);
    Save();
    StoreRoutes();
    ForEachValueWithField(*record, [&](const char* name, auto& field, auto) {
        using Field = std::remove_reference_t<decltype(field)>;
        const std::string_view view = name;
        if constexpr (kIsText<Field>) {
            const bool oneWay = view == "JobRscSetName" || view.starts_with("AuthJob") || view == "Profile";
            EXPECT_EQ(std::string(field), oneWay ? "" : std::string(view.substr(0, std::size(field) - 1)))
                << name;
        } else {
            EXPECT_EQ(field, IsPaperSize(name) ? Field{} : static_cast<Field>(NumberFor(name))) << name;
        }
    });
}

TEST_F(SavingTheStore, PutsThePhysicalPageRangeIntoTheFrontCoverStockName) {
    ExportedFunc_SetPhysicalPageRange("3-8");
    ExportedFunc_SetFrontCoverStkName("Coated");
    Save();
    EXPECT_STREQ(record->FrontCoverStkName, "3-8");
    EXPECT_STREQ(record->PhysicalPageRange, "3-8");
}

TEST_F(SavingTheStore, NeverReadsTheOneWayTextsBack) {
    std::strcpy(record->JobRscSetName, "a");
    std::strcpy(record->AuthJobUserId, "b");
    std::strcpy(record->AuthJobPassword, "c");
    std::strcpy(record->AuthJobAccount, "d");
    std::strcpy(record->FavoriteName, "e");
    std::strcpy(record->Profile, "f");
    ExportedFunc_SetJobRscSetName("new");
    ExportedFunc_SetAuthJobUserId("new");
    ExportedFunc_SetAuthJobPassword("new");
    ExportedFunc_SetAuthJobAccount("new");
    ExportedFunc_SetFavoriteName("new");
    ExportedFunc_SetProfile("new");
    Save();
    EXPECT_STREQ(record->JobRscSetName, "a");
    EXPECT_STREQ(record->AuthJobUserId, "b");
    EXPECT_STREQ(record->AuthJobPassword, "c");
    EXPECT_STREQ(record->AuthJobAccount, "d");
    EXPECT_STREQ(record->FavoriteName, "e");
    EXPECT_STREQ(record->Profile, "f");
}

// As behind a public DEVMODE of 220 bytes.
TEST_F(SavingTheStore, TakesARecordAlignedOnFourBytesOnly) {
    alignas(8) std::array<unsigned char, kDevModeSize + 4> memory{};
    auto& unaligned = *reinterpret_cast<PrivateDevMode*>(memory.data() + 4);
    ExportedFunc_SetAutoJobStartSpecifiedDayAndTimeForDriver(0x123456789ABCDEF0);
    std::array<char, single_value::kScratchSize> text{};
    SaveUnroutedValues(unaligned, text);
    EXPECT_EQ(unaligned.AutoJobStartSpecifiedDayAndTimeForDriver + 0, 0x123456789ABCDEF0u);
}

TEST_F(SavingTheStore, LeavesTheBytesBehindTheNulOfAText) {
    std::memset(record->JobName, 'x', sizeof record->JobName);
    ExportedFunc_SetJobName("ab");
    Save();
    EXPECT_EQ(std::string(record->JobName, 5), std::string("ab\0xx", 5));
}

TEST_F(SavingTheStore, KeepsATextAsWideAsTheWidestField) {
    const std::string pages(1023, '7');
    ExportedFunc_SetSPages(pages.c_str());
    Save();
    EXPECT_EQ(std::string(record->SPages), pages);
}

TEST_F(SavingTheStore, StoresTheNumbersWithoutARouteStraight) {
    ExportedFunc_SetGraphicsTreatmentBase(-1);
    ExportedFunc_SetCreasePressureLevel5(9);
    ExportedFunc_SetAppeVersion(3);
    ExportedFunc_SetTopAndTailTrimFrontCutSize(4000);
    ExportedFunc_SetColorOutlineEmphasis(2);
    ExportedFunc_SetAutoJobStartSpecifiedDayAndTimeForDriver(0x123456789ABCDEFull);
    Save();
    EXPECT_EQ(record->GraphicsTreatmentBase, -1);
    EXPECT_EQ(record->CreasePressureLevel5, 9u);
    EXPECT_EQ(record->AppeVersion, 3u);
    EXPECT_EQ(record->TopAndTailTrimFrontCutSize, 4000u);
    EXPECT_EQ(record->ColorOutlineEmphasis, 2u);
    EXPECT_EQ(record->AutoJobStartSpecifiedDayAndTimeForDriver, 0x123456789ABCDEFull);
}

TEST_F(SavingTheStore, WritesTheTwiceStoredNumbersWithoutTheirRoutesToo) {
    ExportedFunc_SetBlendingColorSpace(4);
    ExportedFunc_SetGraphicsScreen(6);
    ExportedFunc_SetAutoJobStartSpecifiedHour(23);
    ExportedFunc_SetAutoJobStartElapsedMinutes(59);
    Save();
    EXPECT_EQ(record->BlendingColorSpace, 4u);
    EXPECT_EQ(record->GraphicsScreen, 6u);
    EXPECT_EQ(record->AutoJobStartSpecifiedHour, 23u);
    EXPECT_EQ(record->AutoJobStartElapsedMinutes, 59u);
}

TEST_F(SavingTheStore, StoresASignedValueByItsRoute) {
    ExportedFunc_SetPrintPositionFrontWidth(-2835);
    StoreRoutes();
    EXPECT_EQ(record->PrintPositionFrontWidth, -2835);
}

TEST_F(SavingTheStore, LeavesPaperSizesAndBookkeepingAlone) {
    record->ChgPrintPaperSizeWidth = 1;
    record->ChgPrintPaperSizeLength = 2;
    record->CustomPaperWidth = 3;
    record->CustomPaperHeight = 4;
    record->CustomChgPaperDirection = 5;
    record->ManageMethod = 6;
    record->Modified = 0;
    record->SpecifyJobOwnerName = 7;
    Save();
    StoreRoutes();
    EXPECT_EQ(record->ChgPrintPaperSizeWidth, 1u);
    EXPECT_EQ(record->ChgPrintPaperSizeLength, 2u);
    EXPECT_EQ(record->CustomPaperWidth, 3u);
    EXPECT_EQ(record->CustomPaperHeight, 4u);
    EXPECT_EQ(record->CustomChgPaperDirection, 5u);
    EXPECT_EQ(record->ManageMethod, 6u);
    EXPECT_EQ(record->Modified, 0u);
    EXPECT_EQ(record->SpecifyJobOwnerName, 7u);
}

} // namespace

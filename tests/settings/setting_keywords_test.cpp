// How every keyword moves, in each operation and direction.
#include "session/keyword.h"
#include "tests/settings/setting_fixture.h"
#include "tests/settings/setting_keyword_lists.h"
#include "tests/support/tag_listing.h"

#include <algorithm>
#include <limits>
#include <map>
#include <memory>

namespace {

// Beyond the longest array of tags, and at the limits of 16 and 32 bits.
std::vector<std::uint32_t> Values() {
    std::vector<std::uint32_t> values;
    for (std::uint32_t value = 0; value <= 110; ++value)
        values.push_back(value);
    values.insert(values.end(), {9998, 9999, 10000, 0x7FFF, 0x8000, 0xFFFF, 0x10000, 0x10003, 0x7FFFFFFF,
                                 0x80000000, 0xFFFFFFFF});
    return values;
}

// The tags of a keyword's options, out of the listing.
const std::vector<std::int32_t>& TagsOf(int keyword) {
    static const std::vector<std::int32_t> zeroOne{0, 1};
    static const auto arrays = [] {
        std::map<int, std::vector<std::int32_t>> map;
        for (const ListedTagArray& array : ListedTagArrays())
            map[array.number] = array.tags;
        return map;
    }();
    const auto found = arrays.find(keyword);
    return found == arrays.end() ? zeroOne : found->second;
}

std::uint32_t TagOrSame(int keyword, std::uint32_t index) {
    const auto& tags = TagsOf(keyword);
    return index < tags.size() ? static_cast<std::uint32_t>(tags[index]) : index;
}

std::uint32_t IndexOrSame(int keyword, std::uint32_t tag) {
    const auto& tags = TagsOf(keyword);
    const auto found = std::ranges::find(tags, static_cast<std::int32_t>(tag));
    return found == tags.end() ? tag : static_cast<std::uint32_t>(found - tags.begin());
}

// The value that arrives in the record from the bank.
std::uint32_t ExpectedInRecord(const Keywords& converted, int keyword, std::uint32_t inBank) {
    if (kWide.contains(keyword))
        return inBank;
    const std::uint32_t value = inBank & 0xFFFF;
    if (keyword == 1)
        return value == 0 ? 1 : value > 9999 ? 9999 : value;
    return converted.contains(keyword) ? TagOrSame(keyword, value) : value;
}

std::uint32_t ExpectedInBank(const Keywords& converted, int keyword, std::uint32_t inRecord) {
    if (kWide.contains(keyword))
        return inRecord;
    return (converted.contains(keyword) ? IndexOrSame(keyword, inRecord) : inRecord) & 0xFFFF;
}

const int kOutside[] = {
    -1, 327, 328, 563, 0x10004, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()};

// Moves each keyword by `move`, for each value: the value arrives as `expected` says, and nothing else
// changes.
template <class Move, class Expected>
void ExpectFromBank(CCurrentSetting& setting, StoreBank bank, const Keywords& still, Move move,
                    Expected expected) {
    FillStore(3);
    for (int keyword = 0; keyword <= 326; ++keyword) {
        const auto before = BytesOf(setting);
        const std::uint64_t number = PlaceOf(keyword) ? FieldNumber(setting, keyword) : 0;
        for (const std::uint32_t value : Values()) {
            SetBank(bank, keyword, value);
            ASSERT_EQ(move(keyword), 1) << keyword;
            if (!still.contains(keyword)) {
                ASSERT_EQ(FieldNumber(setting, keyword), expected(keyword, value)) << keyword << " " << value;
            }
        }
        if (!still.contains(keyword))
            PutFieldNumber(setting, keyword, number);
        ASSERT_TRUE(BytesOf(setting) == before) << keyword;
    }
    const auto banks = AllBanks();
    const auto named = AllNamedValues();
    const auto record = BytesOf(setting);
    for (const int keyword : kOutside)
        EXPECT_EQ(move(keyword), 1) << keyword;
    EXPECT_EQ(AllBanks(), banks);
    EXPECT_EQ(AllNamedValues(), named);
    EXPECT_EQ(BytesOf(setting), record);
}

template <class Move, class Expected>
void ExpectToBank(CCurrentSetting& setting, StoreBank bank, const Keywords& still, Move move,
                  Expected expected) {
    FillStore(5);
    FillRecord(setting, 5);
    const auto named = AllNamedValues();
    for (int keyword = 0; keyword <= 326; ++keyword) {
        auto banks = AllBanks();
        for (const std::uint32_t value : Values()) {
            if (PlaceOf(keyword))
                PutFieldNumber(setting, keyword, value);
            ASSERT_EQ(move(keyword), 1) << keyword;
            if (!still.contains(keyword)) {
                ASSERT_EQ(GetBank(bank, keyword), expected(keyword, value)) << keyword << " " << value;
            }
        }
        if (!still.contains(keyword))
            banks[static_cast<std::size_t>(bank) * 327 + static_cast<std::size_t>(keyword)] =
                expected(keyword, Values().back());
        ASSERT_EQ(AllBanks(), banks) << keyword;
    }
    const auto banks = AllBanks();
    for (const int keyword : kOutside)
        EXPECT_EQ(move(keyword), 1) << keyword;
    EXPECT_EQ(AllBanks(), banks);
    EXPECT_EQ(AllNamedValues(), named);
}

// The operations work alike in both classes, on the bank of the class.
template <class Setting>
constexpr StoreBank kBankOf = StoreBank::Current;
template <>
constexpr StoreBank kBankOf<CDefaultSetting> = StoreBank::Default;

template <class Setting>
class SettingKeywords : public SettingTest {
  protected:
    const std::unique_ptr<Setting> setting = std::make_unique<Setting>();
};
using Settings = testing::Types<CCurrentSetting, CDefaultSetting>;
TYPED_TEST_SUITE(SettingKeywords, Settings);

TEST(ConvertedKeywords, Are187And190ForAFavorite) {
    EXPECT_EQ(kConverted.size(), 187u);
    EXPECT_EQ(kConvertedForAFavorite.size(), 190u);
}

TEST(ConvertedKeywords, HaveAFieldOfFourBytesAsAllButTwoHave) {
    for (int keyword = 0; keyword <= 326; ++keyword) {
        const ListedPlace* place = PlaceOf(keyword);
        ASSERT_EQ(place == nullptr, kMoveNowhere.contains(keyword)) << keyword;
        if (place) {
            EXPECT_EQ(place->width, 4u) << keyword;
            EXPECT_FALSE(place->isText) << keyword;
        }
    }
}

TYPED_TEST(SettingKeywords, BecomeTagNumbersOnTheirWayIntoTheRecord) {
    ExpectFromBank(
        *this->setting, kBankOf<TypeParam>, kMoveNowhere,
        [&](int n) { return this->setting->PrintOptionFromSession(n, TransferDirection::FromBank); },
        [](int n, std::uint32_t value) { return ExpectedInRecord(kConverted, n, value); });
}

TYPED_TEST(SettingKeywords, BecomeOptionIndicesOnTheirWayToTheBank) {
    ExpectToBank(
        *this->setting, kBankOf<TypeParam>, kMoveNowhere,
        [&](int n) { return this->setting->PrintOptionFromSession(n, TransferDirection::ToBank); },
        [](int n, std::uint32_t value) { return ExpectedInBank(kConverted, n, value); });
}

TYPED_TEST(SettingKeywords, OfAFavoriteConvertFiveMoreAndNotTheDocumentOrientation) {
    ExpectToBank(
        *this->setting, kBankOf<TypeParam>, kNotForAFavorite,
        [&](int n) { return this->setting->FavoriteFromSession(n); },
        [](int n, std::uint32_t value) { return ExpectedInBank(kConvertedForAFavorite, n, value); });
}

TYPED_TEST(SettingKeywords, GoToTheCurrentBankWholeAndUnconvertedInCurrentToSession) {
    ExpectToBank(
        *this->setting, StoreBank::Current, kNotCurrentToSession,
        [&](int n) { return this->setting->CurrentToSession(n); },
        [](int, std::uint32_t value) { return value; });
}

TYPED_TEST(SettingKeywords, ComeFromTheCurrentBankWholeAndUnconvertedInSessionToCurrent) {
    ExpectFromBank(
        *this->setting, StoreBank::Current, kMoveNowhere,
        [&](int n) { return this->setting->SessionToCurrent(n); },
        [](int n, std::uint32_t value) {
            const bool isCopies = n == 1;
            if (isCopies && static_cast<std::int32_t>(value) < 1)
                return std::uint32_t{1};
            return isCopies && value > 9999 ? 9999 : value;
        });
}

TYPED_TEST(SettingKeywords, MoveNowhereInADirectionThatIsNone) {
    FillStore(7);
    FillRecord(*this->setting, 7);
    const auto banks = AllBanks();
    const auto record = BytesOf(*this->setting);
    for (int keyword = 0; keyword <= 326; ++keyword)
        EXPECT_EQ(this->setting->PrintOptionFromSession(keyword, static_cast<TransferDirection>(2)), 1);
    EXPECT_EQ(AllBanks(), banks);
    EXPECT_EQ(BytesOf(*this->setting), record);
}

using CurrentSettingKeywords = SettingKeywords<CCurrentSetting>;

TEST_F(CurrentSettingKeywords, HaveNoNumberOfCopiesBelow1OrAbove9999InTheRecord) {
    SetBank(StoreBank::Current, 1, 0);
    setting->PrintOptionFromSession(1, TransferDirection::FromBank);
    EXPECT_EQ(FieldNumber(*setting, 1), 1u);
    SetBank(StoreBank::Current, 1, 10000);
    setting->PrintOptionFromSession(1, TransferDirection::FromBank);
    EXPECT_EQ(FieldNumber(*setting, 1), 9999u);
}

TEST_F(CurrentSettingKeywords, HaveAnyNumberOfCopiesInTheBank) {
    PutFieldNumber(*setting, 1, 0);
    setting->PrintOptionFromSession(1, TransferDirection::ToBank);
    EXPECT_EQ(GetBank(StoreBank::Current, 1), 0u);
    PutFieldNumber(*setting, 1, 10000);
    setting->FavoriteFromSession(1);
    EXPECT_EQ(GetBank(StoreBank::Current, 1), 10000u);
}

TEST_F(CurrentSettingKeywords, TakeANegativeNumberOfCopiesAsOneInSessionToCurrentOnly) {
    SetBank(StoreBank::Current, 1, 0xFFFFFFFF);
    setting->SessionToCurrent(1);
    EXPECT_EQ(FieldNumber(*setting, 1), 1u);
    setting->PrintOptionFromSession(1, TransferDirection::FromBank);
    EXPECT_EQ(FieldNumber(*setting, 1), 9999u) << "16 bits have no sign";
}

TEST_F(CurrentSettingKeywords, KeepAValueThatNoOptionHas) {
    PutFieldNumber(*setting, 4, 6); // no tray has this tag
    EXPECT_EQ(setting->PrintOptionFromSession(4, TransferDirection::ToBank), 1);
    EXPECT_EQ(GetBank(StoreBank::Current, 4), 6u);
    SetBank(StoreBank::Current, 4, 8); // one behind the last tray
    EXPECT_EQ(setting->PrintOptionFromSession(4, TransferDirection::FromBank), 1);
    EXPECT_EQ(FieldNumber(*setting, 4), 8u);
}

// The bank takes 16 bits, and its value may be another option's index.
TEST_F(CurrentSettingKeywords, WithATagThatNoOptionHasMayComeBackWithAnother) {
    const struct {
        int keyword;
        std::uint32_t saved;
        std::uint32_t inBank;
        std::uint32_t read;
    } rows[] = {
        {4, 6, 6, 7}, // a tray
        {4, 0xFFFFFFFF, 65535, 65535},
        {keyword::Scale, 70000, 4464, 4464},
    };
    for (const auto& row : rows) {
        const auto expectBack = [&](auto save) {
            PutFieldNumber(*setting, row.keyword, row.saved);
            EXPECT_EQ(save(), 1);
            EXPECT_EQ(GetBank(StoreBank::Current, row.keyword), row.inBank) << row.saved;
            EXPECT_EQ(setting->CreateSettingInfo(), 1);
            EXPECT_EQ(FieldNumber(*setting, row.keyword), row.read) << row.saved;
        };
        expectBack([&] { return setting->SaveToSession(); });
        expectBack([&] { return setting->SaveFavoriteToSession(); });
        expectBack([&] { return setting->FavoriteFromSession(row.keyword); });
    }
}

TEST_F(CurrentSettingKeywords, TurnTray7IntoTag25AndBack) {
    SetBank(StoreBank::Current, 4, 7);
    setting->PrintOptionFromSession(4, TransferDirection::FromBank);
    EXPECT_EQ(FieldNumber(*setting, 4), 25u);
    SetBank(StoreBank::Current, 4, 0);
    setting->PrintOptionFromSession(4, TransferDirection::ToBank);
    EXPECT_EQ(GetBank(StoreBank::Current, 4), 7u);
}

TEST_F(CurrentSettingKeywords, CarryCustomPaperSizesOverSixteenBits) {
    for (const int keyword : {301, 302}) {
        SetBank(StoreBank::Current, keyword, 168378);
        setting->PrintOptionFromSession(keyword, TransferDirection::FromBank);
        EXPECT_EQ(FieldNumber(*setting, keyword), 168378u);
        PutFieldNumber(*setting, keyword, 119055);
        setting->FavoriteFromSession(keyword);
        EXPECT_EQ(GetBank(StoreBank::Current, keyword), 119055u);
    }
}

TEST_F(CurrentSettingKeywords, Of284And325StayInBothPlaces) {
    FillStore(11);
    FillRecord(*setting, 11);
    const std::uint32_t first = GetBank(StoreBank::Current, 284);
    const std::uint32_t second = GetBank(StoreBank::Current, 325);
    setting->SaveToSession();
    setting->CreateSettingInfo();
    EXPECT_EQ(GetBank(StoreBank::Current, 284), first);
    EXPECT_EQ(GetBank(StoreBank::Current, 325), second);
}

TEST_F(SettingTest, TheDefaultAndTheCurrentSettingReadTheirOwnBankIntoTheSameField) {
    SetBank(StoreBank::Current, 7, 1);
    SetBank(StoreBank::Default, 7, 2);
    CCurrentSetting current;
    CDefaultSetting standard;
    current.PrintOptionFromSession(7, TransferDirection::FromBank);
    standard.PrintOptionFromSession(7, TransferDirection::FromBank);
    EXPECT_EQ(FieldNumber(current, 7), 1u);
    EXPECT_EQ(FieldNumber(standard, 7), 2u);
}

} // namespace

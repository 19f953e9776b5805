// Bringing back the defaults on the standard page.
#include "pages/standardpage.h"
#include "settings/store_values.h"
#include "tests/pages/presets_fixture.h"
#include "tests/support/reset_listing.h"

#include <map>

namespace {

// What a store's value reads as; "" for one that is only set.
std::string ReadValue(const StoreValue& value) {
    if (value.getNumber)
        return std::to_string(value.getNumber());
    StoreText text{};
    if (value.getText)
        value.getText(text);
    return text.data();
}

void SetValue(const StoreValue& value, int number, const char* text) {
    if (value.IsText())
        value.setText(text);
    else
        value.setNumber(number);
}

std::map<std::string, std::string> AllValues() {
    std::map<std::string, std::string> values;
    for (const StoreValue& value : StoreValues())
        if (value.HasGetter())
            values.emplace(value.name, ReadValue(value));
    return values;
}

class Reset : public PresetsTest {
  protected:
    void Revert() { CStandardPageDlg(page, ProcessProfile()).RevertToDefault(&block); }
};

} // namespace

TEST_F(Reset, BringsEveryKeywordToItsDefault) {
    OpenPage();
    for (int keyword = 0; keyword < 327; ++keyword) {
        ExportedFunc_SetCurrent(keyword, 4711);
        ExportedFunc_SetDefault(keyword, static_cast<std::uint32_t>(keyword + 1));
    }
    ExportedFunc_SetCurrent(327, 4711);
    Revert();
    for (int keyword = 0; keyword < 327; ++keyword)
        EXPECT_EQ(Current(keyword), static_cast<std::uint32_t>(keyword + 1)) << keyword;
    EXPECT_EQ(Current(327), 4711u);
}

TEST_F(Reset, SetsTheListedValuesAndTouchesNoOther) {
    OpenPage();
    std::map<std::string, std::string> expected;
    for (const StoreValue& value : StoreValues()) {
        SetValue(value, 77, "other");
        if (value.HasGetter())
            expected.emplace(value.name, ReadValue(value));
    }
    std::size_t listed = 0;
    for (const ListedResetValue& value : ListedResetValues()) {
        if (const auto found = expected.find(value.name); found != expected.end()) {
            found->second = value.value;
            ++listed;
        }
    }
    // Two of the 196 cannot be read.
    EXPECT_EQ(listed, 194u);
    Revert();
    EXPECT_EQ(AllValues(), expected);
}

TEST_F(Reset, LeavesTheNameOfACustomPaperAlone) {
    OpenPage();
    ExportedFunc_SetPaperTypeCustomName("mine");
    Revert();
    char name[1024] = {};
    ExportedFunc_GetPaperTypeCustomName(name);
    EXPECT_STREQ(name, "mine");
}

TEST_F(Reset, BringsTheScaleTo100AlsoWhereTheDefaultBankHasNone) {
    OpenPage();
    EXPECT_EQ(Default(keyword::Scale), 100u);
    ExportedFunc_SetDefault(keyword::Scale, 0);
    ExportedFunc_SetCurrent(keyword::Scale, 50);
    Revert();
    EXPECT_EQ(Current(keyword::Scale), 100u);
}

TEST_F(Reset, ByItsButtonSelectsTheStandardSettingsUnmarkedWithoutTellingTheSheet) {
    OpenPage({Favorite("A")});
    ChoosePreset("A");
    ChangeDuplex();
    Choose(6014, 2);
    ForgetChanges();
    EXPECT_EQ(Send(1012, BN_CLICKED), 1);
    EXPECT_EQ(Presets(), (std::vector<std::string>{"標準", "A"}));
    EXPECT_EQ(Selected(), "標準");
    EXPECT_FALSE(CanDelete());
    EXPECT_EQ(Row(6010), 0);
    EXPECT_EQ(Current(keyword::Scale), 100u);
    EXPECT_EQ(ChangesSeen(), 0);
}

TEST_F(Reset, ByItsButtonOnAnUnmarkedFavoriteLeavesNothingToDelete) {
    OpenPage({Favorite("A")});
    ChoosePreset("A");
    ASSERT_TRUE(CanDelete());
    EXPECT_EQ(Send(1012, BN_CLICKED), 1);
    EXPECT_EQ(Selected(), "標準");
    EXPECT_FALSE(CanDelete());
}

TEST_F(Reset, WithoutAManagerWorksAllTheSame) {
    OpenPage();
    CSettingManager::Destroy();
    ExportedFunc_SetCurrent(keyword::DuplexMode, 1);
    EXPECT_EQ(Send(1012, BN_CLICKED), 1);
    EXPECT_EQ(Current(keyword::DuplexMode), 0u);
}

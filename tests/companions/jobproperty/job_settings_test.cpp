#include "tests/companions/jobproperty/x100_catalogue.h"

#include <limits>
#include <string>

namespace jobproperty {
namespace {

class JobSettingsTest : public testing::Test {
  protected:
    Value DefaultOf(std::string_view name) const { return m_settings.Default(PositionOf(name)); }
    Value CurrentOf(std::string_view name) const { return m_settings.Current(PositionOf(name)); }
    bool SetNumber(std::string_view name, std::int64_t number) {
        return m_settings.Set(PositionOf(name), {number, {}});
    }
    bool SetText(std::string_view name, std::string text) {
        return m_settings.Set(PositionOf(name), {0, std::move(text)});
    }
    void LoadNumber(std::string_view name, std::int64_t number,
                    std::optional<std::uint32_t> defaultIndex = {}) {
        m_settings.Load(PositionOf(name), {number, {}}, defaultIndex);
    }
    void LoadText(std::string_view name, std::string text) {
        m_settings.Load(PositionOf(name), {0, std::move(text)}, {});
    }
    std::string ShownOf(std::string_view name) const { return m_settings.Shown(PositionOf(name)); }
    static std::vector<std::string> NamesOf(const std::vector<std::size_t>& positions) {
        std::vector<std::string> names;
        for (const std::size_t position : positions)
            names.push_back(X100Catalogue().Settings()[position].name);
        return names;
    }

    JobSettings m_settings{X100Catalogue(), X100()};
};

using Names = std::vector<std::string>;

Value Number(std::int64_t number) {
    return {number, {}};
}

Value Text(std::string text) {
    return {0, std::move(text)};
}

TEST_F(JobSettingsTest, StartAtDefaultsThatEverySettingCanHave) {
    for (std::size_t setting = 0; setting < X100Catalogue().Settings().size(); ++setting) {
        EXPECT_TRUE(IsAllowed(X100Catalogue().Settings()[setting], m_settings.Default(setting)))
            << X100Catalogue().Settings()[setting].name;
        EXPECT_FALSE(m_settings.DiffersFromDefault(setting));
    }
    EXPECT_EQ(m_settings.OutOfRange().size(), 0u);
    EXPECT_EQ(m_settings.Changed().size(), 0u);
}

TEST_F(JobSettingsTest, HaveTheDescriptionsDefaultsOfKeywordsAsTagNumbers) {
    EXPECT_EQ(DefaultOf("Tray"), Number(0));
    EXPECT_EQ(DefaultOf("PageSize"), Number(2));
    EXPECT_EQ(DefaultOf("OutputTray"), Number(2));
    EXPECT_EQ(DefaultOf("MediaTypeWeight"), Number(2)); // 64 to 70 g, the second
    EXPECT_EQ(DefaultOf("MixSizeFirstPageSize"), Number(2));
    EXPECT_EQ(DefaultOf("MixSizeFirstPageOrientation"), Number(1));
    EXPECT_EQ(DefaultOf("AutoJobStartType"), Number(1));
    EXPECT_EQ(DefaultOf("RgbImageGamma"), Number(3));
    EXPECT_EQ(DefaultOf("FinishFixedForm"), Number(3)); // A4 short edge first
    EXPECT_EQ(DefaultOf("FixedForm"), Number(1));
}

TEST_F(JobSettingsTest, HaveTheDriversDefaultsOfItsPublicSettings) {
    EXPECT_EQ(DefaultOf("Copies"), Number(1));
    EXPECT_EQ(DefaultOf("Scale"), Number(100));
    EXPECT_EQ(DefaultOf("Collate"), Number(1));
    EXPECT_EQ(DefaultOf("PageOrientation"), Number(0));
    EXPECT_EQ(DefaultOf("NUP"), Number(0));
    EXPECT_EQ(DefaultOf("CustomPaperWidth"), Number(210002)); // 595.28 points
    EXPECT_EQ(DefaultOf("CustomPaperHeight"), Number(297000));
}

TEST_F(JobSettingsTest, HaveTheValuesOfAFreshSheetForNamedValues) {
    EXPECT_EQ(DefaultOf("Magnification"), Number(1000));
    EXPECT_EQ(DefaultOf("JobMarkNumOfSheets"), Number(2));
    EXPECT_EQ(DefaultOf("CoverPageTray"), Number(27));
    EXPECT_EQ(DefaultOf("ChgPrintPaperSizeWidth"), Number(297000));
    EXPECT_EQ(DefaultOf("SeparatorsSets"), Number(1));
    EXPECT_EQ(DefaultOf("KOverPrintThreshold"), Number(100));
    EXPECT_EQ(DefaultOf("CreasePosition5"), Number(63496));
    EXPECT_EQ(DefaultOf("TopAndTailTrimSameCutSize"), Number(1));
    EXPECT_EQ(DefaultOf("LayoutBaseFile"), Text("Normal-1side.json"));
    EXPECT_EQ(DefaultOf("CmykDeviceLinkProfile"), Text("JC2011(コート紙)_Uncoated"));
    EXPECT_EQ(DefaultOf("MemoFontName"), Text("SYSTEM_DEFAULT"));
    EXPECT_EQ(DefaultOf("BackSignatureFontName"), Text("SYSTEM_DEFAULT"));
    EXPECT_EQ(DefaultOf("JobInformationFontName"), Text("SYSTEM_DEFAULT"));
    EXPECT_EQ(DefaultOf("JobName"), Text(""));
}

TEST_F(JobSettingsTest, LoadPresentValueAndDefault) {
    LoadNumber("Tray", 25, 6);
    EXPECT_EQ(CurrentOf("Tray"), Number(25));
    EXPECT_EQ(DefaultOf("Tray"), Number(7)) << "the option index is turned into its tag number";
    EXPECT_TRUE(m_settings.DiffersFromDefault(PositionOf("Tray")));
    LoadNumber("StapleMode", 9, 13);
    EXPECT_FALSE(m_settings.DiffersFromDefault(PositionOf("StapleMode")));
    LoadNumber("NUP", 2, 3);
    EXPECT_EQ(DefaultOf("NUP"), Number(3)) << "which does not convert";
    LoadNumber("CustomPaperWidth", 100000, 250000);
    EXPECT_EQ(DefaultOf("CustomPaperWidth"), Number(250000));
    EXPECT_TRUE(m_settings.Changed().empty());
}

TEST_F(JobSettingsTest, KeepTheBuiltInDefaultForOneThatCannotBe) {
    for (const std::uint32_t index : {8u, 25u, 0xFFFFFFFFu, 0x80000000u}) {
        LoadNumber("Tray", 1, index);
        EXPECT_EQ(DefaultOf("Tray"), Number(0)) << index;
    }
    LoadNumber("Copies", 5, 0);
    EXPECT_EQ(DefaultOf("Copies"), Number(1));
}

TEST_F(JobSettingsTest, TakeNoDefaultOfANamedValue) {
    LoadNumber("Magnification", 700, 5000);
    EXPECT_EQ(DefaultOf("Magnification"), Number(1000));
}

TEST_F(JobSettingsTest, SetWhatASettingCanHave) {
    LoadNumber("Tray", 0, 0);
    EXPECT_TRUE(SetNumber("Tray", 7));
    EXPECT_EQ(CurrentOf("Tray"), Number(7));
    EXPECT_TRUE(SetNumber("Copies", 9999));
    EXPECT_TRUE(SetText("MemoCommentContent", "見本"));
    EXPECT_EQ(CurrentOf("MemoCommentContent"), Text("見本"));
    EXPECT_EQ(NamesOf(m_settings.Changed()), (Names{"Tray", "Copies", "MemoCommentContent"}));
}

TEST_F(JobSettingsTest, RefuseWhatASettingCannotHave) {
    for (const std::int64_t number :
         {std::int64_t{6}, std::int64_t{8}, std::int64_t{-1}, std::int64_t{4294967295},
          std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()})
        EXPECT_FALSE(SetNumber("Tray", number)) << number;
    for (const std::int64_t number :
         {std::int64_t{0}, std::int64_t{10000}, std::int64_t{-1}, std::numeric_limits<std::int64_t>::min(),
          std::numeric_limits<std::int64_t>::max()})
        EXPECT_FALSE(SetNumber("Copies", number)) << number;
    EXPECT_TRUE(m_settings.Changed().empty());
}

TEST_F(JobSettingsTest, TakeTextsUpToTheirLimitInWholeCharacters) {
    EXPECT_TRUE(SetText("MemoCommentContent", std::string(63, 'a')));
    EXPECT_FALSE(SetText("MemoCommentContent", std::string(64, 'a')));
    EXPECT_FALSE(SetText("MemoCommentContent", "見\x8C")) << "half a character";
    EXPECT_FALSE(SetText("MemoCommentContent", std::string("a\0b", 3)));
    EXPECT_FALSE(SetText("MemoCommentContent", "a\nb"));
    EXPECT_FALSE(SetText("MemoCommentContent", "a\x7F"));
    EXPECT_TRUE(SetText("SecPrintPassword", std::string(128, '*')));
    EXPECT_FALSE(SetText("SecPrintPassword", std::string(129, '*')));
    EXPECT_EQ(CurrentOf("MemoCommentContent").text, std::string(63, 'a'));
}

TEST_F(JobSettingsTest, TakeNoHalfOfACharacterAtTheLimit) {
    std::string kanji;
    for (int i = 0; i < 31; ++i)
        kanji += "字";
    EXPECT_TRUE(SetText("MemoCommentContent", kanji + "a"));
    EXPECT_FALSE(SetText("MemoCommentContent", kanji + "字"));
}

TEST_F(JobSettingsTest, RevertOne) {
    SetNumber("Tray", 7);
    SetNumber("Copies", 3);
    m_settings.Revert(PositionOf("Tray"));
    EXPECT_EQ(CurrentOf("Tray"), Number(0));
    EXPECT_EQ(CurrentOf("Copies"), Number(3));
}

TEST_F(JobSettingsTest, RevertASubject) {
    SetNumber("Tray", 7);
    SetNumber("Magnification", 705);
    SetNumber("Copies", 3);
    m_settings.Revert(Subject::Paper);
    EXPECT_EQ(NamesOf(m_settings.Changed()), (Names{"Copies"}));
}

TEST_F(JobSettingsTest, RevertAll) {
    LoadNumber("Tray", 7, 1);
    LoadText("JobName", "報告書");
    SetNumber("Copies", 3);
    m_settings.RevertAll();
    EXPECT_EQ(CurrentOf("Tray"), Number(1));
    EXPECT_EQ(CurrentOf("JobName"), Text(""));
    EXPECT_EQ(NamesOf(m_settings.Changed()), (Names{"Tray", "JobName"}))
        << "compared with what was loaded, not with the default";
}

TEST_F(JobSettingsTest, AreUnchangedWhereTheyHaveTheLoadedValueAgain) {
    LoadNumber("Copies", 5);
    SetNumber("Copies", 6);
    SetNumber("Copies", 5);
    EXPECT_TRUE(m_settings.Changed().empty());
}

TEST_F(JobSettingsTest, KeepAndListALoadedValueThatCannotBe) {
    LoadNumber("Tray", 6, 0);
    LoadNumber("Copies", 0);
    LoadNumber("FormPositionWidth", std::numeric_limits<std::int32_t>::min());
    LoadText("Tags", std::string(300, 'a'));
    LoadText("UserComment", "a\x82");
    EXPECT_EQ(NamesOf(m_settings.OutOfRange()),
              (Names{"Tray", "Copies", "FormPositionWidth", "UserComment", "Tags"}));
    EXPECT_EQ(CurrentOf("Tray"), Number(6));
    EXPECT_EQ(CurrentOf("Tags").text.size(), 300u);
    EXPECT_TRUE(m_settings.Changed().empty());
    EXPECT_TRUE(m_settings.DiffersFromDefault(PositionOf("Tray")));
}

TEST_F(JobSettingsTest, ListAValueNoMoreOnceItIsSetOrReverted) {
    LoadNumber("Tray", 6, 0);
    LoadNumber("Copies", 0);
    EXPECT_FALSE(SetNumber("Copies", -3));
    EXPECT_EQ(NamesOf(m_settings.OutOfRange()), (Names{"Tray", "Copies"}));
    SetNumber("Copies", 2);
    EXPECT_EQ(NamesOf(m_settings.OutOfRange()), (Names{"Tray"}));
    m_settings.Revert(PositionOf("Tray"));
    EXPECT_TRUE(m_settings.OutOfRange().empty());
}

TEST_F(JobSettingsTest, CompareOnlyWhatIsOfTheSettingsKind) {
    m_settings.Load(PositionOf("Tray"), {0, "a text"}, 0);
    EXPECT_FALSE(m_settings.DiffersFromDefault(PositionOf("Tray")));
    m_settings.Load(PositionOf("JobName"), {5, ""}, {});
    EXPECT_FALSE(m_settings.DiffersFromDefault(PositionOf("JobName")));
}

TEST_F(JobSettingsTest, ShowChoicesNumbersAndTexts) {
    SetNumber("Tray", 7);
    EXPECT_EQ(ShownOf("Tray"), "トレイ6");
    EXPECT_EQ(ShownOf("Magnification"), "100 %");
    EXPECT_EQ(ShownOf("PaginationDistanceX"), "5 mm");
    EXPECT_EQ(ShownOf("Copies"), "1");
    EXPECT_EQ(ShownOf("AutoJobStartSpecifiedMinute"), "0 分");
    EXPECT_EQ(ShownOf("MemoFontName"), "SYSTEM_DEFAULT");
    EXPECT_EQ(ShownOf("JobName"), "");
}

TEST_F(JobSettingsTest, ShowANumberThatIsNoChoice) {
    LoadNumber("Tray", 4294967295, 0);
    EXPECT_EQ(ShownOf("Tray"), "4294967295");
}

TEST_F(JobSettingsTest, ShowOfAPasswordOnlyThatThereIsOne) {
    EXPECT_EQ(ShownOf("SecPrintPassword"), "");
    SetText("SecPrintPassword", "x");
    EXPECT_EQ(ShownOf("SecPrintPassword"), "********");
    SetText("SecPrintPassword", "a much longer one");
    EXPECT_EQ(ShownOf("SecPrintPassword"), "********");
}

} // namespace
} // namespace jobproperty

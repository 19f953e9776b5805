#include "options/PrintOptionSetting.h"
#include "tests/options/option_vocabulary.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace {

using Texts = std::vector<std::string>;
using StringList = void (*)(Texts&);

const std::map<std::string, StringList> kStringLists{
    {"PageOrientation", UICommon::GetStringList_PageOrientation},
    {"NUP", UICommon::GetStringList_NUP},
    {"Tray", UICommon::GetStringList_Tray},
    {"ChgPrintPaperSizeType", UICommon::GetStringList_ChgPrintPaperSizeType},
    {"FittenToPaper", UICommon::GetStringList_FittenToPaper},
    {"PagePrintOnCenter", UICommon::GetStringList_PagePrintOnCenter},
    {"PaperTypeD", UICommon::GetStringList_PaperTypeD},
    {"MediaTypeWeight", UICommon::GetStringList_MediaTypeWeight},
    {"PaperColor", UICommon::GetStringList_PaperColor},
    {"MediaTypePreprinted", UICommon::GetStringList_MediaTypePreprinted},
    {"MediaTypeDrilled", UICommon::GetStringList_MediaTypeDrilled},
    {"MediaTypeGlossFine", UICommon::GetStringList_MediaTypeGlossFine},
    {"MediaTypeCoatingMaterial", UICommon::GetStringList_MediaTypeCoatingMaterial},
    {"MsiDuplexMode", UICommon::GetStringList_MsiDuplexMode},
    {"DuplexMode", UICommon::GetStringList_DuplexMode},
    {"OutputTray", UICommon::GetStringList_OutputTray},
    {"OffsetMode", UICommon::GetStringList_OffsetMode},
    {"PageOrder", UICommon::GetStringList_PageOrder},
    {"StapleMode", UICommon::GetStringList_StapleMode},
    {"Punch", UICommon::GetStringList_Punch},
    {"PunchHoles", UICommon::GetStringList_PunchHoles},
    {"Fold", UICommon::GetStringList_Fold},
    {"ImpositionMode", UICommon::GetStringList_ImpositionMode},
    {"ImpositionCustomMode", UICommon::GetStringList_ImpositionCustomMode},
    {"ColorMode", UICommon::GetStringList_ColorMode},
    {"SpotColorCorrection", UICommon::GetStringList_SpotColorCorrection},
    {"CustomPaperDirection", UICommon::GetStringList_CustomPaperDirection},
    {"Resolution", UICommon::GetStringList_Resolution},
    {"SamplePrintMode", UICommon::GetStringList_SamplePrintMode},
    {"StapleFreeBinding", UICommon::GetStringList_StapleFreeBinding},
    {"JobNameChoice", UICommon::GetStringList_JobNameChoice},
};

TEST(GetStringList, AppendsEveryTextOfEveryList) {
    ASSERT_EQ(kStringLists.size(), kTextLists.size() + kValueLists.size());
    for (const auto& [list, append] : kStringLists) {
        Texts texts;
        append(texts);
        EXPECT_EQ(texts, TextsOfList(list)) << list;
    }
}

TEST(GetStringList, KeepsWhatTheVectorHolds) {
    Texts texts{"before"};
    UICommon::GetStringList_SamplePrintMode(texts);
    UICommon::GetStringList_ColorMode(texts);
    EXPECT_EQ(texts, (Texts{"before", "しない", "部全体", "シート数ごと", "グレースケール", "フルカラー"}));
}

TEST(GetStringList, GivesTheAcceleratorsOfTheJobNameChoiceOnly) {
    for (const auto& [list, append] : kStringLists) {
        Texts texts;
        append(texts);
        for (const std::string& text : texts)
            EXPECT_EQ(text.find("(&") != std::string::npos, list == "JobNameChoice") << list << " " << text;
    }
}

TEST(GetStringList, KeepsAPlaceForATextThatIsEmpty) {
    Texts texts;
    UICommon::GetStringList_StapleFreeBinding(texts);
    EXPECT_EQ(texts, (Texts{"", "針なし"}));
}

} // namespace

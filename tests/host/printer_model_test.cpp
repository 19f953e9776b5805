// What the model tells of its description: papers, their limits, resolutions and texts.
#include "tests/host/written_devmode.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(PrinterModel, OffersTheCustomPageBehindThePapers) {
    PrinterModel model = MakeModel();
    ASSERT_EQ(model.Forms().size(), 5u);
    EXPECT_EQ(model.CustomForm(), 4u);
    EXPECT_EQ(model.Forms()[4].name, u"PostScript カスタム ページ サイズ");
    EXPECT_EQ(MakeModel(Language::English).Forms()[4].name, u"PostScript Custom Page Size");
}

TEST(PrinterModel, TakesTheEnglishTextWhereTheJapaneseIsMissing) {
    PrinterModel model = MakeModel();
    EXPECT_EQ(model.OptionText(kStapleMode, 1), u"左上");
    EXPECT_EQ(model.OptionText(kStapleMode, 2), u"Top Right");
}

TEST(PrinterModel, ReadsFiguresOfResolutions) {
    std::string text = SmallPpd();
    text.replace(text.find("*Resolution 1200x1200dpi"), 24, "*Resolution 1200x600dpi");
    PrinterModel model = MakeModel(Language::English, text);
    EXPECT_EQ(model.Resolutions()[1].x, 1200);
    EXPECT_EQ(model.Resolutions()[1].y, 600);
    text.replace(text.find("*Resolution 1200x600dpi"), 23, "*Resolution 99999dpi");
    EXPECT_EQ(MakeModel(Language::English, text).Resolutions()[1].x, 0);
}

TEST(PrinterModel, CountsTheCustomPageAmongTheLimits) {
    PrinterModel model = MakeModel();
    EXPECT_EQ(model.SmallestPaper().width, 890);
    EXPECT_EQ(model.SmallestPaper().height, 980);
    EXPECT_EQ(model.LargestPaper().width, 3200);
    EXPECT_EQ(model.LargestPaper().height, 12000);
}

} // namespace

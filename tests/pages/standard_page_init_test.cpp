#include "Common/strings.h"
#include "pages/page_images.h"
#include "tests/pages/standard_page_fixture.h"

namespace {

using Numbers = std::vector<int>;
using Texts = std::vector<std::string>;

class StandardPageInit : public StandardPageTest {
  protected:
    void Initialize(int useDefault = 0) { ASSERT_EQ(Page().Initialize(&block, useDefault), 1); }
};

TEST_F(StandardPageInit, LabelsEachControl) {
    FitWholeFinisher();
    Initialize();
    const std::pair<int, const char*> kLabels[] = {
        {1294, "原稿サイズ(&S):"},
        {1295, "出力用紙サイズ(&P):"},
        {1296, "拡大/縮小(&U):"},
        {1244, "用紙の中心にプリント(&K):"},
        {6009, "両面印刷(&R):"},
        {1290, "カラーモード(&M):"},
        {1109, "まとめて一枚(&N):"},
        {1336, "原稿の向き"},
        {6003, "部数(&C):"},
        {1370, "用紙トレイ(&F):"},
        {1276, "排出先(&O):"},
        {1298, "オフセット排出(&L):"},
        {1275, "ソートする(一部ごと)(&Q):"},
        {1278, "最終ページからプリントする:"},
        {1299, "ホチキス(&H):"},
        {1132, "パンチ(&I):"},
        {1133, "紙折り:"},
    };
    for (const auto& [id, label] : kLabels)
        EXPECT_EQ(CaptionOf(page, id), label) << id;
}

TEST_F(StandardPageInit, GivesEachListTheRowsOfItsOptions) {
    FitWholeFinisher();
    Initialize();
    const std::pair<int, int> kCounts[] = {{5001, 50}, {5002, 5},  {6010, 5}, {1291, 2},
                                           {6014, 6},  {1281, 8},  {1277, 5}, {1257, 3},
                                           {1273, 22}, {1155, 16}, {1156, 11}};
    for (const auto& [id, count] : kCounts)
        EXPECT_EQ(RowCount(id), count) << id;
}

TEST_F(StandardPageInit, GivesDuplexEverySecondImage) {
    EXPECT_EQ(ImageList_GetImageCount(ImagesOf(6010)), 9);
    EXPECT_EQ(RowImages(6010), (Numbers{0, 2, 4, 6, 8}));
}

TEST_F(StandardPageInit, GivesColorModeItsImagesTurnedRound) {
    EXPECT_EQ(ImageList_GetImageCount(ImagesOf(1291)), 2);
    EXPECT_EQ(RowImages(1291), (Numbers{1, 0}));
}

TEST_F(StandardPageInit, GivesNUPSixRowsAndLeavesOutTheFifthImage) {
    EXPECT_EQ(ImageList_GetImageCount(ImagesOf(6014)), 8);
    EXPECT_EQ(RowImages(6014), (Numbers{0, 1, 2, 3, 5, 6}));
    EXPECT_EQ(RowsOf(Control(6014)),
              (Texts{"Nアップしない", "2アップ", "4アップ", "6アップ", "9アップ", "16アップ"}));
}

TEST_F(StandardPageInit, GivesStapleAnImageForEachRowAndTheWarningLast) {
    FitWholeFinisher();
    Initialize();
    EXPECT_EQ(ImageList_GetImageCount(ImagesOf(1273)), 21);
    EXPECT_EQ(RowImages(1273),
              (Numbers{0, 1, 2, 3, 4, 1, 5, 6, 7, 8, 7, 10, 11, 9, 12, 13, 14, 15, 16, 17, 18, 19}));
    EXPECT_EQ(RowMarks(1273), Numbers(22, 0));
}

TEST_F(StandardPageInit, GivesPunchAnImageForEachRowAndTheWarningLast) {
    FitWholeFinisher();
    Initialize();
    EXPECT_EQ(ImageList_GetImageCount(ImagesOf(1155)), 14);
    EXPECT_EQ(RowImages(1155), (Numbers{0, 1, 2, 3, 4, 1, 5, 6, 7, 8, 5, 9, 10, 11, 12, 9}));
    EXPECT_EQ(RowMarks(1155), Numbers(16, 0));
}

TEST_F(StandardPageInit, GivesFoldAnImageForEachRowAndTheWarningLast) {
    FitWholeFinisher();
    Initialize();
    EXPECT_EQ(ImageList_GetImageCount(ImagesOf(1156)), 11);
    EXPECT_EQ(RowImages(1156), (Numbers{0, 2, 3, 1, 9, 8, 8, 4, 5, 6, 7}));
    EXPECT_EQ(RowMarks(1156), Numbers(11, 0));
}

TEST_F(StandardPageInit, MarksStaplesThatAreNotFitted) {
    FitFinisher("doubleStitch?True"); // rows 6 to 10
    Initialize();
    EXPECT_EQ(RowImages(1273),
              (Numbers{0, 20, 20, 20, 20, 20, 5, 6, 7, 8, 7, 20, 20, 20, 20, 20, 20, 20, 20, 20, 20, 20}));
    EXPECT_EQ(RowMarks(1273), (Numbers{0, 1, 1, 1, 1, 1, 0, 0, 0, 0, 0, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1}));
}

TEST_F(StandardPageInit, MarksPunchesThatAreNotFitted) {
    FitFinisher("triplePunch?True"); // rows 6 to 10
    Initialize();
    EXPECT_EQ(RowImages(1155), (Numbers{0, 13, 13, 13, 13, 13, 5, 6, 7, 8, 5, 13, 13, 13, 13, 13}));
    EXPECT_EQ(RowMarks(1155), (Numbers{0, 1, 1, 1, 1, 1, 0, 0, 0, 0, 0, 1, 1, 1, 1, 1}));
}

TEST_F(StandardPageInit, MarksFoldsThatAreNotFitted) {
    FitFinisher("zFold?True"); // rows 4 to 6
    Initialize();
    EXPECT_EQ(RowImages(1156), (Numbers{0, 10, 10, 10, 9, 8, 8, 10, 10, 10, 10}));
    EXPECT_EQ(RowMarks(1156), (Numbers{0, 1, 1, 1, 0, 0, 0, 1, 1, 1, 1}));
}

TEST_F(StandardPageInit, MarksTraysThatAreNotFitted) {
    FitFeeder("Number?5");
    Initialize();
    EXPECT_EQ(ImageList_GetImageCount(ImagesOf(1281)), 1);
    EXPECT_EQ(RowImages(1281), (Numbers{1, 1, 1, 1, 0, 1, 0, 1}));
    EXPECT_EQ(RowMarks(1281), (Numbers{0, 0, 0, 0, 1, 0, 1, 0}));
}

TEST_F(StandardPageInit, MarksOutputTraysThatAreNotFitted) {
    FitStacker("Type?13");
    Initialize();
    EXPECT_EQ(ImageList_GetImageCount(ImagesOf(1277)), 1);
    EXPECT_EQ(RowImages(1277), (Numbers{1, 0, 1, 0, 0}));
    EXPECT_EQ(RowMarks(1277), (Numbers{0, 1, 0, 1, 1}));
}

TEST_F(StandardPageInit, TakesTheMarksFromTraysOnceAllAreFitted) {
    Initialize();
    EXPECT_NE(ImagesOf(1281), nullptr);
    EXPECT_NE(ImagesOf(1277), nullptr);
    for (const char* tray : {"Number?4", "Number?5", "Number?7"})
        FitFeeder(tray);
    for (const char* output : {"Type?12", "Type?13", "Type?3", "Type?6"})
        FitStacker(output);
    Initialize();
    EXPECT_EQ(ImagesOf(1281), nullptr);
    EXPECT_EQ(ImagesOf(1277), nullptr);
    EXPECT_EQ(RowMarks(1281), Numbers(8, 0));
    EXPECT_EQ(RowMarks(1277), Numbers(5, 0));
}

TEST_F(StandardPageInit, HidesFinishingOfWhichNothingIsFittedUntilSomethingIs) {
    const std::pair<int, int> kHidden[] = {{1298, 1257}, {1299, 1273}, {1132, 1155}, {1133, 1156}};
    Initialize();
    for (const auto& [label, control] : kHidden) {
        EXPECT_FALSE(IsShown(label)) << label;
        EXPECT_FALSE(IsShown(control)) << control;
    }
    EXPECT_EQ(Notify(page, PSN_SETACTIVE), 1);
    EXPECT_FALSE(IsShown(1273)) << "an update shows nothing";

    FitWholeFinisher();
    Initialize();
    for (const auto& [label, control] : kHidden) {
        EXPECT_TRUE(IsShown(label)) << label;
        EXPECT_TRUE(IsShown(control)) << control;
    }
}

TEST_F(StandardPageInit, NeverHidesTheTrays) {
    Initialize();
    for (const int id : {1370, 1281, 1276, 1277})
        EXPECT_TRUE(IsShown(id)) << id;
}

TEST_F(StandardPageInit, StopsAtAHiddenControlSoThatItsDefaultIsNotTaken) {
    ExportedFunc_SetDefault(111, 3);
    ExportedFunc_SetCurrent(111, 7);
    Page().InitStaple(&block, 1);
    EXPECT_EQ(Current(111), 7u);
}

TEST_F(StandardPageInit, NeverMarksOffsetRows) {
    FitFinisher("offset?True");
    Initialize();
    EXPECT_EQ(ImagesOf(1257), nullptr);
    EXPECT_EQ(RowMarks(1257), (Numbers{0, 0, 0})) << "though its first row counts as not fitted";
}

TEST_F(StandardPageInit, MarksNoTrayWhereARecordHasNoNumber) {
    FitFeeder("Number?many");
    FitStacker("Type?99999999999");
    Initialize();
    EXPECT_EQ(RowCount(1281), 8);
    EXPECT_EQ(RowMarks(1281), Numbers(8, 0));
    EXPECT_EQ(ImagesOf(1281), nullptr);
    EXPECT_EQ(RowMarks(1277), Numbers(5, 0));
}

TEST_F(StandardPageInit, MarksNothingWithoutAProfile) {
    ASSERT_EQ(CStandardPageDlg(page, nullptr).Initialize(&block, 0), 1);
    EXPECT_EQ(RowMarks(1281), Numbers(8, 0));
    EXPECT_EQ(RowMarks(1273), Numbers(22, 0));
    EXPECT_TRUE(IsShown(1273));
}

TEST_F(StandardPageInit, LeavesRowsBeyondTheImagesWithoutOne) {
    FitWholeFinisher();
    Bind(111, 30);
    Bind(114, 14);
    Bind(104, 9);
    Initialize();
    EXPECT_EQ(RowCount(1273), 30);
    EXPECT_EQ(RowCount(1156), 14);
    EXPECT_EQ(RowCount(6010), 9);
    EXPECT_EQ(RowImages(1273)[21], 19);
}

TEST_F(StandardPageInit, BuildsEmptyListsWithoutDriverItems) {
    block.item = {};
    Initialize();
    EXPECT_EQ(RowCount(1281), 0);
    EXPECT_EQ(RowCount(6010), 0);
    EXPECT_FALSE(IsShown(1273));
}

TEST_F(StandardPageInit, LimitsTheCopies) {
    EXPECT_EQ(static_cast<DWORD>(SendMessageA(Control(6005), UDM_GETRANGE, 0, 0)),
              static_cast<DWORD>(MAKELONG(9999, 1)));
    EXPECT_EQ(SendMessageA(Control(6004), EM_GETLIMITTEXT, 0, 0), 4);
}

TEST_F(StandardPageInit, NamesTheOrientationsAndShowsTheirButtons) {
    for (const int button : {6000, 6001, 6002})
        ShowWindow(Control(button), SW_HIDE);
    Initialize();
    EXPECT_EQ(CaptionOf(page, 6000), "横置きに回転");
    EXPECT_EQ(CaptionOf(page, 6001), "たて原稿");
    EXPECT_EQ(CaptionOf(page, 6002), "よこ原稿");
    for (const int button : {6000, 6001, 6002})
        EXPECT_TRUE(IsShown(button)) << button;
    EXPECT_EQ(CheckedOrientation(), 6001);
}

TEST_F(StandardPageInit, KeepsTheImagesOfTheProcess) {
    FitWholeFinisher();
    Initialize();
    const HIMAGELIST first = ImagesOf(1273);
    const DWORD objects = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    for (int i = 0; i < 20; ++i)
        Initialize();
    EXPECT_EQ(ImagesOf(1273), first);
    EXPECT_EQ(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS), objects);
}

TEST_F(StandardPageInit, HasTheListsInThePageAsLongAsItLives) {
    FitWholeFinisher();
    CStandardPageDlg dialog(page, &device);
    EXPECT_EQ(dialog.hImgStaple, nullptr);
    ASSERT_EQ(dialog.Initialize(&block, 0), 1);
    EXPECT_EQ(dialog.hImgColorModel, ImagesOf(1291));
    EXPECT_EQ(dialog.hImgDuplex, ImagesOf(6010));
    EXPECT_EQ(dialog.hImgStaple, ImagesOf(1273));
    EXPECT_EQ(dialog.hImgFold, ImagesOf(1156));
    EXPECT_EQ(dialog.OnClose(), 1);
    EXPECT_EQ(ImageList_GetImageCount(ImagesOf(1291)), 2) << "closing destroyed what other sheets use";
}

// Resources of another module while it lives.
class OtherModule {
  public:
    OtherModule() : m_prior(StringModule()) { SetStringModule(GetModuleHandleA("kernel32.dll")); }
    ~OtherModule() { SetStringModule(m_prior); }

  private:
    void* m_prior;
};

constexpr ImageStrip kStrips[] = {ImageStrip::ColorModel, ImageStrip::Duplex, ImageStrip::NUP,
                                  ImageStrip::Staple,     ImageStrip::Punch,  ImageStrip::Fold};

TEST(PageImages, AreNoneWithoutABitmapAndAreAskedForAgain) {
    PageImages images;
    const HICON icon = LoadIconA(nullptr, IDI_WARNING);
    {
        const OtherModule other;
        for (const ImageStrip strip : kStrips)
            EXPECT_EQ(images.Of(strip, icon), nullptr);
    }
    for (const ImageStrip strip : kStrips)
        EXPECT_NE(images.Of(strip, icon), nullptr);
}

TEST(PageImages, OfFinishingAreNoneWithoutTheWarningIcon) {
    PageImages images;
    for (const ImageStrip strip : {ImageStrip::Staple, ImageStrip::Punch, ImageStrip::Fold})
        EXPECT_EQ(images.Of(strip, nullptr), nullptr);
    for (const ImageStrip strip : {ImageStrip::ColorModel, ImageStrip::Duplex, ImageStrip::NUP})
        EXPECT_NE(images.Of(strip, nullptr), nullptr);
}

TEST(PageImages, AreTwentyFourPixelsInSquare) {
    PageImages images;
    for (const ImageStrip strip : kStrips) {
        int width = 0;
        int height = 0;
        ImageList_GetIconSize(images.Of(strip, LoadIconA(nullptr, IDI_WARNING)), &width, &height);
        EXPECT_EQ(width, 24);
        EXPECT_EQ(height, 24);
    }
}

} // namespace

// The standard page in a module that has no images at all. This program has none.
#include "tests/pages/standard_page_fixture.h"

namespace {

using StandardPageWithoutImages = StandardPageTest;

TEST_F(StandardPageWithoutImages, HasListsOfTextOnly) {
    FitWholeFinisher();
    ASSERT_EQ(Page().Initialize(&block, 0), 1);
    const std::pair<int, int> kCounts[] = {{6010, 5}, {1291, 2},  {6014, 6},  {1281, 8},
                                           {1277, 5}, {1273, 22}, {1155, 16}, {1156, 11}};
    for (const auto& [id, count] : kCounts) {
        EXPECT_EQ(RowCount(id), count) << id;
        EXPECT_EQ(ImagesOf(id), nullptr) << id;
    }
}

TEST_F(StandardPageWithoutImages, StillMarksWhatIsNotFitted) {
    FitFinisher("doubleStitch?True");
    ASSERT_EQ(Page().Initialize(&block, 0), 1);
    EXPECT_EQ(RowMarks(1273),
              (std::vector<int>{0, 1, 1, 1, 1, 1, 0, 0, 0, 0, 0, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1}));
    EXPECT_EQ(RowMarks(1281), (std::vector<int>{0, 0, 0, 0, 1, 1, 1, 0}));
}

TEST_F(StandardPageWithoutImages, DoesNotMakeTheNUPRowsAnewEachTime) {
    SendMessageA(Control(6014), CB_SETITEMDATA, 2, 99);
    Page().UpdateNUP(&block, 0);
    EXPECT_EQ(RowMarks(6014), (std::vector<int>{0, 0, 99, 0, 0, 0}));
}

} // namespace

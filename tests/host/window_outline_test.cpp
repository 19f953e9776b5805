// Where a window's frame ends, in painted pictures of the window's rectangle: '#' is the frame's line, 't'
// its title bar, 'c' the content; '.' and all else is what the picture has besides.
#include "host/window_outline.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <ostream>
#include <string_view>
#include <vector>

void PrintTo(const PixelBox& box, std::ostream* out) {
    *out << box.left << ',' << box.top << " to " << box.right << ',' << box.bottom;
}

namespace {

// Rows of one length.
using Painting = std::vector<std::string_view>;

PixelBox PartOf(const Painting& rows, const PixelBox& content) {
    std::vector<std::uint32_t> pixels;
    for (const std::string_view row : rows)
        pixels.insert(pixels.end(), row.begin(), row.end());
    const auto width = static_cast<int>(rows.empty() ? 0 : rows.front().size());
    return OutlinedPart({pixels, width, static_cast<int>(rows.size())}, content);
}

TEST(OutlinedPart, IsTheFrameWhereItIsNarrowerThanItsRectangle) {
    EXPECT_EQ(PartOf({"..........", //
                      ".########.", //
                      ".#tttttt#.", //
                      ".#cccccc#.", //
                      ".#cccccc#.", //
                      ".########.", //
                      ".........."},
                     {2, 3, 8, 5}),
              (PixelBox{1, 1, 9, 6}));
}

TEST(OutlinedPart, ReachesAsFarOnEachSideAsTheFrameDoesThere) {
    EXPECT_EQ(PartOf({".........", //
                      ".........", //
                      "...####..", //
                      "...#tt#..", //
                      "...#cc#..", //
                      "...####..", //
                      ".........", //
                      ".........", //
                      "........."},
                     {4, 4, 6, 5}),
              (PixelBox{3, 2, 7, 6}));
}

TEST(OutlinedPart, HasTheWholeOfALineOfSeveralPixels) {
    EXPECT_EQ(PartOf({"..........", //
                      ".########.", //
                      ".########.", //
                      ".##tttt##.", //
                      ".##cccc##.", //
                      ".########.", //
                      ".########.", //
                      ".........."},
                     {3, 4, 7, 5}),
              (PixelBox{1, 1, 9, 7}));
}

TEST(OutlinedPart, ReachesOverALineBetweenTheTitleAndTheContent) {
    EXPECT_EQ(PartOf({"......", //
                      ".####.", //
                      ".#tt#.", //
                      ".####.", //
                      ".#cc#.", //
                      ".####.", //
                      "......"},
                     {2, 4, 4, 5}),
              (PixelBox{1, 1, 5, 6}));
}

TEST(OutlinedPart, ReachesOverAStripBelowTheContent) {
    EXPECT_EQ(PartOf({"......", //
                      ".####.", //
                      ".#cc#.", //
                      ".####.", //
                      ".#ss#.", //
                      ".####.", //
                      "......"},
                     {2, 2, 4, 3}),
              (PixelBox{1, 1, 5, 6}));
}

TEST(OutlinedPart, EndsAtTheFrameWhereItsSidesGoOnInAWindowBehind) {
    EXPECT_EQ(PartOf({".#..#.", //
                      ".#..#.", //
                      ".####.", //
                      ".#tt#.", //
                      ".#cc#.", //
                      ".####.", //
                      ".#..#."},
                     {2, 4, 4, 5}),
              (PixelBox{1, 2, 5, 6}));
}

TEST(OutlinedPart, EndsAtTheFrameWhereALineBehindGoesOnBesideIt) {
    EXPECT_EQ(PartOf({".......", //
                      "#######", //
                      ".#ttt#.", //
                      "##ccc##", //
                      ".#ccc#.", //
                      "#######", //
                      "......."},
                     {2, 3, 5, 5}),
              (PixelBox{1, 1, 6, 6}));
}

TEST(OutlinedPart, IsAllOfAPictureThatTheFrameFills) {
    EXPECT_EQ(PartOf({"####", //
                      "#tt#", //
                      "#cc#", //
                      "####"},
                     {1, 2, 3, 3}),
              (PixelBox{0, 0, 4, 4}));
}

TEST(OutlinedPart, IsAllOfAPictureThatTheContentFills) {
    EXPECT_EQ(PartOf({"ccc", //
                      "ccc"},
                     {0, 0, 3, 2}),
              (PixelBox{0, 0, 3, 2}));
}

TEST(OutlinedPart, IsAllOfThePictureWithoutAFrame) {
    EXPECT_EQ(PartOf({"abcd", //
                      "ecch", //
                      "icck", //
                      "lmno"},
                     {1, 1, 3, 3}),
              (PixelBox{0, 0, 4, 4}));
}

TEST(OutlinedPart, IsAllOfThePictureWhereTheContentHasAnEdgeOfItsOwnInTheFrame) {
    EXPECT_EQ(PartOf({"..........", //
                      ".########.", //
                      ".#dddddl#.", //
                      ".#dccccl#.", //
                      ".#dccccl#.", //
                      ".#llllll#.", //
                      ".########.", //
                      ".........."},
                     {3, 3, 7, 5}),
              (PixelBox{0, 0, 10, 8}));
}

TEST(OutlinedPart, IsAllOfThePictureWhereAScrollBarIsBesideTheContent) {
    EXPECT_EQ(PartOf({".......", //
                      ".#####.", //
                      ".#ttt#.", //
                      ".#ccs#.", //
                      ".#ccs#.", //
                      ".#####.", //
                      "......."},
                     {2, 3, 4, 5}),
              (PixelBox{0, 0, 7, 7}));
}

TEST(OutlinedPart, IsAllOfThePictureWhereAScrollBarIsBelowTheContent) {
    EXPECT_EQ(PartOf({"......", //
                      ".####.", //
                      ".#cc#.", //
                      ".#cc#.", //
                      ".sssss", //
                      ".####."},
                     {2, 2, 4, 4}),
              (PixelBox{0, 0, 6, 6}));
}

TEST(OutlinedPart, IsAllOfThePictureWhereTheTopOfTheFrameIsOutsideIt) {
    EXPECT_EQ(PartOf({".#tt#.", //
                      ".#cc#.", //
                      ".####.", //
                      "......"},
                     {2, 1, 4, 2}),
              (PixelBox{0, 0, 6, 4}));
}

TEST(OutlinedPart, IsAllOfThePictureWhereTheBottomOfTheFrameIsOutsideIt) {
    EXPECT_EQ(PartOf({"......", //
                      ".####.", //
                      ".#cc#.", //
                      ".#ss#."},
                     {2, 2, 4, 3}),
              (PixelBox{0, 0, 6, 4}));
}

TEST(OutlinedPart, IsAllOfThePictureWhereASideHasAGap) {
    EXPECT_EQ(PartOf({"......", //
                      ".####.", //
                      ".#tt..", //
                      ".#cc#.", //
                      ".####.", //
                      "......"},
                     {2, 3, 4, 4}),
              (PixelBox{0, 0, 6, 6}));
}

TEST(OutlinedPart, IsAllOfThePictureWhereALineHasRoundCorners) {
    EXPECT_EQ(PartOf({"......", //
                      "..##..", //
                      ".#cc#.", //
                      "..##..", //
                      "......"},
                     {2, 2, 4, 3}),
              (PixelBox{0, 0, 6, 5}));
}

TEST(OutlinedPart, IsAllOfThePictureWhereALineIsAtOneSideOnly) {
    EXPECT_EQ(PartOf({"....", //
                      "#cc.", //
                      "#cc.", //
                      "...."},
                     {1, 1, 3, 3}),
              (PixelBox{0, 0, 4, 4}));
}

// A maximised window's rectangle ends outside the screen, and the frame is not shown.
TEST(OutlinedPart, IsAllOfThePictureOfAMaximisedWindow) {
    EXPECT_EQ(PartOf({"      ", //
                      " tttt ", //
                      " cccc ", //
                      " cccc ", //
                      "      "},
                     {1, 2, 5, 4}),
              (PixelBox{0, 0, 6, 5}));
}

TEST(OutlinedPart, IsAllOfOnePixel) {
    EXPECT_EQ(PartOf({"c"}, {0, 0, 1, 1}), (PixelBox{0, 0, 1, 1}));
}

TEST(OutlinedPart, IsNothingOfAnEmptyPicture) {
    EXPECT_EQ(PartOf({}, {0, 0, 0, 0}), (PixelBox{0, 0, 0, 0}));
    EXPECT_EQ(PartOf({}, {1, 1, 2, 2}), (PixelBox{0, 0, 0, 0}));
}

// The picture has an outline around its middle; the content is none that it could be around.
class OutlinedPartAround : public testing::TestWithParam<PixelBox> {};

TEST_P(OutlinedPartAround, IsAllOfThePicture) {
    EXPECT_EQ(PartOf({"......", //
                      ".####.", //
                      ".#cc#.", //
                      ".#cc#.", //
                      ".####.", //
                      "......"},
                     GetParam()),
              (PixelBox{0, 0, 6, 6}));
}

INSTANTIATE_TEST_SUITE_P(NoContent, OutlinedPartAround,
                         testing::Values(PixelBox{2, 2, 2, 4}, PixelBox{2, 2, 4, 2}, PixelBox{4, 4, 2, 2}));
INSTANTIATE_TEST_SUITE_P(ContentAtTheEdge, OutlinedPartAround,
                         testing::Values(PixelBox{0, 2, 4, 4}, PixelBox{2, 0, 4, 4}, PixelBox{2, 2, 6, 4},
                                         PixelBox{2, 2, 4, 6}, PixelBox{0, 0, 6, 6}));
INSTANTIATE_TEST_SUITE_P(ContentOutside, OutlinedPartAround,
                         testing::Values(PixelBox{-4, -4, 10, 10}, PixelBox{-3, 2, -1, 4},
                                         PixelBox{2, -9, 4, -7}, PixelBox{7, 2, 9, 4}, PixelBox{2, 7, 4, 9}));

} // namespace

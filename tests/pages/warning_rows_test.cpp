#include "pages/warning_rows.h"

#include <gtest/gtest.h>

#include <array>

namespace {

int Selectable(std::initializer_list<int> enabled) {
    return HasSelectableRow({enabled.begin(), enabled.size()});
}

TEST(HasSelectableRow, DoesNotCountRowZero) {
    EXPECT_EQ(Selectable({1, 0, 0}), 0);
    EXPECT_EQ(Selectable({0, 1}), 1);
}

TEST(HasSelectableRow, IsFalseForNoRowAndForOneRow) {
    EXPECT_EQ(Selectable({}), 0);
    EXPECT_EQ(Selectable({1}), 0);
}

TEST(HasSelectableRow, FindsTheLastRow) {
    EXPECT_EQ(Selectable({0, 0, 0, 1}), 1);
}

TEST(HasSelectableRow, TakesNothingButOneForFitted) {
    EXPECT_EQ(Selectable({0, 2, -1}), 0);
}

TEST(MarkWarningRows, GivesRowsThatCannotBeDoneTheLastImage) {
    const std::array enabled{1, 0, 1, 0};
    std::array images{10, 11, 12, 13};
    EXPECT_EQ(MarkWarningRows(enabled, images, 8), 1);
    EXPECT_EQ(images, (std::array{10, 7, 12, 7}));
}

TEST(MarkWarningRows, TellsThatNoRowWasMarked) {
    const std::array enabled{1, 1};
    std::array images{10, 11};
    EXPECT_EQ(MarkWarningRows(enabled, images, 8), 0);
    EXPECT_EQ(images, (std::array{10, 11}));
}

TEST(MarkWarningRows, MarksNothingWithoutAnImage) {
    const std::array enabled{0, 0};
    std::array images{10, 11};
    EXPECT_EQ(MarkWarningRows(enabled, images, 0), 0);
    EXPECT_EQ(images, (std::array{10, 11}));
}

TEST(MarkWarningRows, StaysInsideTheShorterOfTheTwoLists) {
    const std::array enabled{0, 0, 0};
    std::array images{10, 11};
    EXPECT_EQ(MarkWarningRows(enabled, images, 3), 1);
    EXPECT_EQ(images, (std::array{2, 2}));
}

} // namespace

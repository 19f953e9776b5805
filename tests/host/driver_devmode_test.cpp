#include "tests/host/written_devmode.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

TEST(DriverDevMode, StandsInTheOrderPublicPartDriversAreaBlock) {
    PrinterModel model = MakeModel();
    Bytes bytes = Write(model, DefaultSettings(model));
    EXPECT_EQ(Public(bytes).dmSize, 220);
    EXPECT_EQ(Public(bytes).dmSize + Public(bytes).dmDriverExtra, bytes.size());
    EXPECT_GE(Public(bytes).dmDriverExtra, 170);
    EXPECT_GT(Public(bytes).dmDriverVersion, 0x501);
    EXPECT_EQ(Area(bytes).size + kBlock, Public(bytes).dmDriverExtra);
    EXPECT_EQ((kPublicSize + Area(bytes).size) % 8, 0u);
}

TEST(DriverDevMode, KeepsTheCustomPageAtTheBytesThatPluginsRead) {
    PrinterModel model = MakeModel();
    Settings settings = DefaultSettings(model);
    settings.customWidth = 100000;
    settings.customHeight = 200000;
    settings.customDirection = 3;
    Bytes bytes = Write(model, settings);
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::uint16_t direction = 0;
    std::memcpy(&width, bytes.data() + 220 + 152, 4);
    std::memcpy(&height, bytes.data() + 220 + 156, 4);
    std::memcpy(&direction, bytes.data() + 220 + 168, 2);
    EXPECT_EQ(width, 100000);
    EXPECT_EQ(height, 200000);
    EXPECT_EQ(direction, 3);
}

TEST(DriverDevMode, ComesBackAsItWasWritten) {
    PrinterModel model = MakeModel();
    Settings settings = DefaultSettings(model);
    settings.orientation = kLandscape;
    settings.scale = 71;
    settings.copies = 9999;
    settings.collate = false;
    settings.nup = 5;
    settings.form = 2;
    settings.customDirection = 1;
    settings.selection[kInputSlot] = 2;
    settings.selection[kStapleMode] = 1;
    DevModeReading reading = Read(Write(model, settings), model);
    EXPECT_EQ(reading.trouble, "");
    EXPECT_EQ(reading.remark, "");
    EXPECT_EQ(reading.settings, settings);
    EXPECT_EQ(reading.pluginBlock.size(), kBlock);
}

TEST(DriverDevMode, KeepsTheKindsOfLandscapeApart) {
    PrinterModel model = MakeModel();
    for (int orientation : {kRotatedLandscape, kPortrait, kLandscape}) {
        Settings settings = DefaultSettings(model);
        settings.orientation = orientation;
        Bytes bytes = Write(model, settings);
        EXPECT_EQ(Public(bytes).dmOrientation, orientation == kPortrait ? 1 : 2);
        EXPECT_EQ(Read(bytes, model).settings.orientation, orientation);
    }
}

// Plug-ins take the row of the orientation item for the value of PageOrientation.
TEST(DriverDevMode, NumbersOrientationsAsPageOrientationDoes) {
    EXPECT_EQ(kPortrait, 0);
    EXPECT_EQ(kLandscape, 1);
    EXPECT_EQ(kRotatedLandscape, 2);
    EXPECT_EQ(DefaultSettings(MakeModel()).orientation, 0);
}

TEST(DriverDevMode, KeepsACustomPageToTheThousandth) {
    PrinterModel model = MakeModel();
    Settings settings = DefaultSettings(model);
    settings.form = kCustomForm;
    settings.customWidth = 123456;
    settings.customHeight = 234567;
    Bytes bytes = Write(model, settings);
    EXPECT_EQ(Public(bytes).dmPaperSize, 0x7FFF);
    EXPECT_EQ(Public(bytes).dmPaperWidth, 1235);
    EXPECT_EQ(Public(bytes).dmFields & 0xC, 0xCu);
    EXPECT_EQ(Read(bytes, model).settings, settings);
}

TEST(DriverDevMode, KeepsTheCustomPageWithinItsLimits) {
    PrinterModel model = MakeModel();
    Bytes bytes = Write(model, DefaultSettings(model));
    Area(bytes).customWidth = -1;
    Area(bytes).customHeight = 0x7FFFFFFF;
    DevModeReading reading = Read(bytes, model);
    EXPECT_EQ(reading.settings.customWidth, 89000); // 252.28 points are 88.999 mm
    EXPECT_EQ(reading.settings.customHeight, 1200000);
    Area(bytes).customWidth = 0x7FFFFFFF;
    Area(bytes).customHeight = -1;
    reading = Read(bytes, model);
    EXPECT_EQ(reading.settings.customWidth, 320000);
    EXPECT_EQ(reading.settings.customHeight, 98000);
}

TEST(DriverDevMode, ReachesEachLimitOfTheCustomPage) {
    PrinterModel model = MakeModel();
    Settings settings = DefaultSettings(model);
    settings.form = kCustomForm;
    for (auto [width, height] : {std::pair{89000, 98000}, {320000, 1200000}}) {
        settings.customWidth = width;
        settings.customHeight = height;
        EXPECT_EQ(Read(Write(model, settings), model).settings, settings);
    }
}

// PostScript knows four orientations of a custom page.
TEST(DriverDevMode, PassesOverADirectionThatNoCustomPageHas) {
    PrinterModel model = MakeModel();
    Bytes bytes = Write(model, DefaultSettings(model));
    Area(bytes).customDirection = 4;
    EXPECT_EQ(Read(bytes, model).settings.customDirection, 0);
    Settings settings = DefaultSettings(model);
    settings.customDirection = 1;
    ReadCustomPage(bytes, model, settings);
    EXPECT_EQ(settings.customDirection, 1);
}

TEST(DriverDevMode, LeavesOptionsOfAnotherDescriptionButKeepsTheRest) {
    PrinterModel model = MakeModel();
    Settings settings = DefaultSettings(model);
    settings.copies = 4;
    settings.selection[kStapleMode] = 1;
    Bytes bytes = Write(model, settings);
    Area(bytes).descriptionChecksum ^= 1;
    DevModeReading reading = Read(bytes, model);
    EXPECT_EQ(reading.trouble, "");
    EXPECT_NE(reading.remark, "");
    EXPECT_EQ(reading.settings.copies, 4);
    EXPECT_EQ(reading.settings.selection[kStapleMode], 0);
    EXPECT_EQ(reading.pluginBlock.size(), kBlock);
}

TEST(DriverDevMode, TellsWhenABlockDoesNotFit) {
    PrinterModel model = MakeModel();
    std::size_t area = DriverAreaSize(model);
    EXPECT_EQ(DevModeSize(model, 0xFFFF - area), kPublicSize + 0xFFFF);
    EXPECT_EQ(DevModeSize(model, 0xFFFF - area + 1), 0u);
    EXPECT_EQ(DevModeSize(model, std::size_t{0} - 1), 0u);
}

} // namespace

// What the driver writes into a DEVMODE's public fields, and what it takes from those that a program changed.
#include "tests/host/written_devmode.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>

namespace {

std::string WithOptions(std::string_view behind, std::string_view options) {
    std::string text = SmallPpd();
    return text.insert(text.find(behind), options);
}

TEST(PublicDevMode, HoldsTheDefaultsOfTheDescription) {
    PrinterModel model = MakeModel();
    Bytes bytes = Write(model, DefaultSettings(model));
    const PublicDevMode& dm = Public(bytes);
    EXPECT_EQ(std::u16string(dm.dmDeviceName), u"Orvane X100");
    EXPECT_EQ(dm.dmSpecVersion, 0x0401);
    EXPECT_EQ(dm.dmOrientation, 1);
    EXPECT_EQ(dm.dmPaperSize, 9);
    EXPECT_EQ(std::u16string(dm.dmFormName), u"A4(210x297mm)");
    EXPECT_EQ(dm.dmPaperWidth, 2099); // 595 points
    EXPECT_EQ(dm.dmPaperLength, 2970);
    EXPECT_EQ(dm.dmScale, 100);
    EXPECT_EQ(dm.dmCopies, 1);
    EXPECT_EQ(dm.dmCollate, 1);
    EXPECT_EQ(dm.dmDefaultSource, 7);
    EXPECT_EQ(dm.dmPrintQuality, 600);
    EXPECT_EQ(dm.dmYResolution, 600);
    EXPECT_EQ(dm.dmMediaType, 256u);
    EXPECT_EQ(dm.dmColor, 2);
    EXPECT_EQ(dm.dmNup, 2u);
    EXPECT_EQ(dm.dmFields, 0x1u | 0x2 | 0x10 | 0x40 | 0x100 | 0x200 | 0x400 | 0x800 | 0x2000 | 0x4000 |
                               0x8000 | 0x10000 | 0x02000000);
}

TEST(PublicDevMode, FollowsAPaperNumberThatAProgramChangedAlone) {
    PrinterModel model = MakeModel();
    Bytes bytes = Write(model, DefaultSettings(model));
    Public(bytes).dmPaperSize = 8;
    EXPECT_EQ(Read(bytes, model).settings.form, 0u);
}

TEST(PublicDevMode, FollowsAFormNameThatAProgramChangedAlone) {
    PrinterModel model = MakeModel(Language::English);
    Bytes bytes = Write(model, DefaultSettings(model));
    std::u16string name = u"Letter";
    std::ranges::copy(name, Public(bytes).dmFormName);
    Public(bytes).dmFormName[name.size()] = 0;
    EXPECT_EQ(Read(bytes, model).settings.form, 2u);
}

TEST(PublicDevMode, TakesLengthsAsTheFormOfThatSizeOrTheCustomPage) {
    PrinterModel model = MakeModel();
    Bytes bytes = Write(model, DefaultSettings(model));
    Public(bytes).dmFields |= 0xC;
    Public(bytes).dmPaperSize = 256; // DMPAPER_USER
    Public(bytes).dmPaperWidth = 2970;
    Public(bytes).dmPaperLength = 4200;
    EXPECT_EQ(Read(bytes, model).settings.form, 0u);
    Public(bytes).dmPaperWidth = 1500;
    Public(bytes).dmPaperLength = 5000;
    DevModeReading reading = Read(bytes, model);
    EXPECT_EQ(reading.settings.form, kCustomForm);
    EXPECT_EQ(reading.settings.customWidth, 150000);
    EXPECT_EQ(reading.settings.customHeight, 500000);
}

TEST(PublicDevMode, TakesAResolutionThatAProgramChangedInOneFigureOnlyForBoth) {
    PrinterModel model = MakeModel();
    Bytes bytes = Write(model, DefaultSettings(model));
    Public(bytes).dmPrintQuality = 1200;
    EXPECT_EQ(Read(bytes, model).settings.selection[kResolution], 1);
}

TEST(PublicDevMode, TakesAListedPairOfFiguresAsItStands) {
    PrinterModel model = MakeModel(
        Language::English, WithOptions("*Resolution 1200x1200dpi", "*Resolution 1200x600dpi/Fast: \"\"\n"));
    Bytes bytes = Write(model, DefaultSettings(model));
    Public(bytes).dmPrintQuality = 1200;
    EXPECT_EQ(Read(bytes, model).settings.selection[kResolution], 1);
    Public(bytes).dmYResolution = 1200;
    EXPECT_EQ(Read(bytes, model).settings.selection[kResolution], 2);
}

TEST(PublicDevMode, PassesOverAPairOfChangedFiguresThatIsNotListed) {
    PrinterModel model = MakeModel();
    Bytes bytes = Write(model, DefaultSettings(model));
    Public(bytes).dmPrintQuality = 1200;
    Public(bytes).dmYResolution = 300;
    EXPECT_EQ(Read(bytes, model).settings.selection[kResolution], 0);
}

// Both stand at the platform's number of the automatic tray.
TEST(PublicDevMode, KeepsTwoAutomaticTraysApart) {
    PrinterModel model =
        MakeModel(Language::English, WithOptions("*InputSlot Tray1", "*InputSlot Auto/Other: \"\"\n"));
    Settings settings = DefaultSettings(model);
    settings.selection[kInputSlot] = 1;
    Bytes bytes = Write(model, settings);
    ASSERT_EQ(Public(bytes).dmDefaultSource, 7);
    EXPECT_EQ(Read(bytes, model).settings, settings);
}

TEST(PublicDevMode, BringsThePageRegionAlongWithAFormThatAProgramChanged) {
    PrinterModel model = MakeModel();
    Bytes bytes = Write(model, DefaultSettings(model));
    Public(bytes).dmPaperSize = 8;
    EXPECT_EQ(Read(bytes, model).settings.selection[kPageRegion], 0);
}

TEST(PublicDevMode, PassesOverPublicFieldsThatAreNotSetOrOutOfRange) {
    PrinterModel model = MakeModel();
    Bytes bytes = Write(model, DefaultSettings(model));
    PublicDevMode& dm = Public(bytes);
    dm.dmOrientation = 77;
    dm.dmPaperSize = -1;
    dm.dmScale = 0;
    dm.dmCopies = -3;
    dm.dmDefaultSource = 999;
    dm.dmPrintQuality = -4;
    dm.dmMediaType = 0xFFFFFFFF;
    EXPECT_EQ(Read(bytes, model).settings, DefaultSettings(model));
    dm.dmFields = 0;
    dm.dmCopies = 5;
    EXPECT_EQ(Read(bytes, model).settings.copies, 1);
}

TEST(PublicDevMode, MapsTwoSidedPrinting) {
    std::string text = SmallPpd();
    text += "*OpenUI *DuplexMode/Duplex: PickOne\n*DefaultDuplexMode: None\n*DuplexMode None/Off: \"\"\n"
            "*DuplexMode LongEdge/Long: \"\"\n*DuplexMode ShortEdge/Short: \"\"\n"
            "*DuplexMode SameHead/Same: \"\"\n*CloseUI: *DuplexMode\n";
    PrinterModel model = MakeModel(Language::English, text);
    Settings settings = DefaultSettings(model);
    settings.selection.back() = 2;
    Bytes bytes = Write(model, settings);
    EXPECT_EQ(Public(bytes).dmDuplex, 3);
    Public(bytes).dmDuplex = 2;
    EXPECT_EQ(Read(bytes, model).settings.selection.back(), 1);
    settings.selection.back() = 3;
    bytes = Write(model, settings);
    EXPECT_EQ(Public(bytes).dmDuplex, 2);
    EXPECT_EQ(Read(bytes, model).settings.selection.back(), 3);
}

TEST(PublicDevMode, CutsALongDeviceNameWithoutHalvingACharacter) {
    PrinterModel model = MakeModel();
    Bytes bytes(DevModeSize(model, kBlock));
    WriteDevMode(bytes, DefaultSettings(model), model, kBlock, std::u16string(30, u'x') + u"\U0001F5A8");
    EXPECT_EQ(std::u16string(Public(bytes).dmDeviceName), std::u16string(30, u'x'));
}

} // namespace

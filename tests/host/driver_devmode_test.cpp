#include "host/driver_devmode.h"

#include "tests/support/file_contents.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>

namespace {

constexpr std::size_t kBlock = 64;

PrinterModel MakeModel(Language language = Language::Japanese, std::string text = SmallPpd()) {
    return {std::get<ppd::PpdFile>(ppd::Parse(text)), language};
}

using Bytes = std::vector<std::byte>;

Bytes Write(const PrinterModel& model, const Settings& settings) {
    Bytes bytes(DevModeSize(model, kBlock));
    WriteDevMode(bytes, settings, model, kBlock, u"Orvane X100");
    return bytes;
}

PublicDevMode& Public(Bytes& bytes) {
    return *reinterpret_cast<PublicDevMode*>(bytes.data());
}
DriverArea& Area(Bytes& bytes) {
    return *reinterpret_cast<DriverArea*>(bytes.data() + kPublicSize);
}

DevModeReading Read(const Bytes& bytes, const PrinterModel& model) {
    return ReadDevMode(bytes, model, DefaultSettings(model));
}

// Of small.ppd.
constexpr std::size_t kPageRegion = 1;
constexpr std::size_t kInputSlot = 2;
constexpr std::size_t kResolution = 4;
constexpr std::size_t kStapleMode = 5;
constexpr std::size_t kCustomForm = 4;

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

TEST(DriverDevMode, HoldsTheDefaultsOfTheDescription) {
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

TEST(DriverDevMode, FollowsAPaperNumberThatAProgramChangedAlone) {
    PrinterModel model = MakeModel();
    Bytes bytes = Write(model, DefaultSettings(model));
    Public(bytes).dmPaperSize = 8;
    EXPECT_EQ(Read(bytes, model).settings.form, 0u);
}

TEST(DriverDevMode, FollowsAFormNameThatAProgramChangedAlone) {
    PrinterModel model = MakeModel(Language::English);
    Bytes bytes = Write(model, DefaultSettings(model));
    std::u16string name = u"Letter";
    std::ranges::copy(name, Public(bytes).dmFormName);
    Public(bytes).dmFormName[name.size()] = 0;
    EXPECT_EQ(Read(bytes, model).settings.form, 2u);
}

TEST(DriverDevMode, TakesLengthsAsTheFormOfThatSizeOrTheCustomPage) {
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

std::string WithOptions(std::string_view behind, std::string_view options) {
    std::string text = SmallPpd();
    return text.insert(text.find(behind), options);
}

TEST(DriverDevMode, TakesAResolutionThatAProgramChangedInOneFigureOnlyForBoth) {
    PrinterModel model = MakeModel();
    Bytes bytes = Write(model, DefaultSettings(model));
    Public(bytes).dmPrintQuality = 1200;
    EXPECT_EQ(Read(bytes, model).settings.selection[kResolution], 1);
}

TEST(DriverDevMode, TakesAListedPairOfFiguresAsItStands) {
    PrinterModel model = MakeModel(
        Language::English, WithOptions("*Resolution 1200x1200dpi", "*Resolution 1200x600dpi/Fast: \"\"\n"));
    Bytes bytes = Write(model, DefaultSettings(model));
    Public(bytes).dmPrintQuality = 1200;
    EXPECT_EQ(Read(bytes, model).settings.selection[kResolution], 1);
    Public(bytes).dmYResolution = 1200;
    EXPECT_EQ(Read(bytes, model).settings.selection[kResolution], 2);
}

TEST(DriverDevMode, PassesOverAPairOfChangedFiguresThatIsNotListed) {
    PrinterModel model = MakeModel();
    Bytes bytes = Write(model, DefaultSettings(model));
    Public(bytes).dmPrintQuality = 1200;
    Public(bytes).dmYResolution = 300;
    EXPECT_EQ(Read(bytes, model).settings.selection[kResolution], 0);
}

// Both stand at the platform's number of the automatic tray.
TEST(DriverDevMode, KeepsTwoAutomaticTraysApart) {
    PrinterModel model =
        MakeModel(Language::English, WithOptions("*InputSlot Tray1", "*InputSlot Auto/Other: \"\"\n"));
    Settings settings = DefaultSettings(model);
    settings.selection[kInputSlot] = 1;
    Bytes bytes = Write(model, settings);
    ASSERT_EQ(Public(bytes).dmDefaultSource, 7);
    EXPECT_EQ(Read(bytes, model).settings, settings);
}

TEST(DriverDevMode, BringsThePageRegionAlongWithAFormThatAProgramChanged) {
    PrinterModel model = MakeModel();
    Bytes bytes = Write(model, DefaultSettings(model));
    Public(bytes).dmPaperSize = 8;
    EXPECT_EQ(Read(bytes, model).settings.selection[kPageRegion], 0);
}

TEST(DriverDevMode, PassesOverPublicFieldsThatAreNotSetOrOutOfRange) {
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

TEST(DriverDevMode, MapsTwoSidedPrinting) {
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

struct Damage {
    const char* name;
    void (*apply)(Bytes&);
    const char* trouble;
};

class BrokenDevMode : public ::testing::TestWithParam<Damage> {};

TEST_P(BrokenDevMode, IsRefusedWithItsReasonAndGivesTheBase) {
    PrinterModel model = MakeModel();
    Settings settings = DefaultSettings(model);
    settings.copies = 4;
    Bytes bytes = Write(model, settings);
    GetParam().apply(bytes);
    DevModeReading reading = Read(bytes, model);
    EXPECT_EQ(reading.trouble, GetParam().trouble);
    EXPECT_EQ(reading.settings, DefaultSettings(model));
    EXPECT_TRUE(reading.pluginBlock.empty());
}

constexpr const char* kContradiction = "The lengths inside the DEVMODE contradict each other.";

INSTANTIATE_TEST_SUITE_P(
    DriverDevMode, BrokenDevMode,
    ::testing::Values(
        Damage{"Empty", [](Bytes& b) { b.clear(); }, "The DEVMODE is shorter than its fixed part."},
        Damage{"ShorterThanItsFixedPart", [](Bytes& b) { b.resize(75); },
               "The DEVMODE is shorter than its fixed part."},
        Damage{"SmallSize", [](Bytes& b) { Public(b).dmSize = 75; },
               "The DEVMODE says that it is shorter than its fixed part."},
        Damage{"LargeSize", [](Bytes& b) { Public(b).dmSize = 0xFFFF; },
               "The DEVMODE says that it is longer than its buffer."},
        Damage{"CutByOneByte", [](Bytes& b) { b.pop_back(); },
               "The DEVMODE says that it is longer than its buffer."},
        Damage{"LargeExtra", [](Bytes& b) { Public(b).dmDriverExtra = 0xFFFF; },
               "The DEVMODE says that it is longer than its buffer."},
        Damage{"SmallExtra", [](Bytes& b) { Public(b).dmDriverExtra = 171; },
               "The DEVMODE is not one of this driver's: its parts have other sizes."},
        Damage{"OtherPublicSize", [](Bytes& b) { Public(b).dmSize = 188; },
               "The DEVMODE is not one of this driver's: its parts have other sizes."},
        Damage{"Signature", [](Bytes& b) { Area(b).signature = 0; },
               "The DEVMODE is not one of this driver's: its signature differs."},
        Damage{"Version", [](Bytes& b) { Area(b).version = 2; },
               "The DEVMODE was made by another version of the driver."},
        Damage{"AreaSize", [](Bytes& b) { Area(b).size = 10; }, kContradiction},
        Damage{"FeatureCount", [](Bytes& b) { Area(b).featureCount = 0xFFFF; }, kContradiction},
        Damage{"PluginSize", [](Bytes& b) { Area(b).pluginSize = 0xFFFFFFFF; }, kContradiction},
        Damage{"PagesPerSheet", [](Bytes& b) { Area(b).nup = 6; },
               "The DEVMODE holds a number of pages per sheet that the driver does not have."},
        Damage{"Option",
               [](Bytes& b) { b[kPublicSize + sizeof(DriverArea) + 2 * kStapleMode] = std::byte{3}; },
               "The DEVMODE selects an option that the printer does not have."},
        Damage{"Form", [](Bytes& b) { b[kPublicSize + sizeof(DriverArea)] = std::byte{5}; },
               "The DEVMODE selects an option that the printer does not have."}),
    [](const auto& each) { return each.param.name; });

// Random damage in a buffer of exactly the bytes told; the sanitizer watches the reads.
TEST(DriverDevMode, SurvivesRandomDamage) {
    PrinterModel model = MakeModel();
    Bytes whole = Write(model, DefaultSettings(model));
    std::mt19937 random(1);
    for (int round = 0; round < 20000; ++round) {
        Bytes bytes = whole;
        bytes.resize(random() % (whole.size() + 1));
        for (int i = 0; i < 4 && !bytes.empty(); ++i)
            bytes[random() % std::min<std::size_t>(bytes.size(), 450)] = std::byte(random());
        bytes.shrink_to_fit();
        Settings settings = Read(bytes, model).settings;
        EXPECT_LT(settings.form, model.Forms().size());
        Write(model, settings);
    }
}

TEST(DriverDevMode, TellsWhenABlockDoesNotFit) {
    PrinterModel model = MakeModel();
    std::size_t area = DriverAreaSize(model);
    EXPECT_EQ(DevModeSize(model, 0xFFFF - area), kPublicSize + 0xFFFF);
    EXPECT_EQ(DevModeSize(model, 0xFFFF - area + 1), 0u);
    EXPECT_EQ(DevModeSize(model, std::size_t{0} - 1), 0u);
}

TEST(DriverDevMode, CutsALongDeviceNameWithoutHalvingACharacter) {
    PrinterModel model = MakeModel();
    Bytes bytes(DevModeSize(model, kBlock));
    WriteDevMode(bytes, DefaultSettings(model), model, kBlock, std::u16string(30, u'x') + u"\U0001F5A8");
    EXPECT_EQ(std::u16string(Public(bytes).dmDeviceName), std::u16string(30, u'x'));
}

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

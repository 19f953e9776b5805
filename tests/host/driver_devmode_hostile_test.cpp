// DEVMODEs that are cut, changed or not this driver's.
#include "tests/host/written_devmode.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace {

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
TEST(BrokenDevModes, AreSurvivedWhateverTheDamage) {
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

} // namespace

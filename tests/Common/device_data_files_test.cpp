// The device's data files in a directory of their own.
#include "Common/ProfileInfo.h"

#include "tests/Common/native_folders.h"
#include "tests/Common/plain_records.h"

#include <sys/stat.h>

#include <string>

namespace {

using Plain = PlainRecords;

class DeviceDataFiles : public NativeFolderTest {
  protected:
    DeviceDataFiles() : directory(MakeFolder("data") + "/") {}

    void WriteFile(const char* name, std::string_view content) const { Write(directory + name, content); }
    void Load() { profile.LoadDeviceDataFiles(directory.c_str()); }

    std::string directory;
    CProfileInfo profile;
};

} // namespace

TEST_F(DeviceDataFiles, AreReadEachIntoItsOwnRecords) {
    WriteFile("Feeder.dat", "?Number?4\r\n?Number?7\r\n");
    WriteFile("Stacker.dat", "\n?Type?12");
    WriteFile("Finisher.dat", "?doublePunch?True|?zFold?True\n");
    Load();
    EXPECT_EQ(PlainOf(profile.m_FeederInfo), (Plain{{0, {{"Number", "4"}}}, {1, {{"Number", "7"}}}}));
    EXPECT_EQ(PlainOf(profile.m_StackerInfo), (Plain{{1, {{"Type", "12"}}}}));
    EXPECT_EQ(PlainOf(profile.m_FinisherInfo), (Plain{{0, {{"doublePunch", "True"}, {"zFold", "True"}}}}));
}

TEST_F(DeviceDataFiles, ThatAreMissingLeaveTheirRecordsAsTheyAre) {
    WriteFile("Stacker.dat", "?Type?12\n");
    Load();
    std::filesystem::remove(directory + "Stacker.dat");
    Load();
    EXPECT_EQ(PlainOf(profile.m_FeederInfo), Plain{});
    EXPECT_EQ(PlainOf(profile.m_StackerInfo), (Plain{{0, {{"Type", "12"}}}}));
    EXPECT_EQ(PlainOf(profile.m_FinisherInfo), Plain{});
}

TEST_F(DeviceDataFiles, OfNoOtherNameAreRead) {
    WriteFile("Other.dat", "?Number?4\n");
    WriteFile("Feeder.dat.bak", "?Number?4\n");
    Load();
    EXPECT_EQ(PlainOf(profile.m_FeederInfo), Plain{});
}

// Fresh contents reach a running process only as new keys and new lines.
TEST_F(DeviceDataFiles, ThatHaveChangedAddOnlyNewKeysAndLines) {
    WriteFile("Feeder.dat", "?Number?4\n");
    Load();
    WriteFile("Feeder.dat", "?Number?5|?Name?a\n?Number?7\n");
    Load();
    EXPECT_EQ(PlainOf(profile.m_FeederInfo),
              (Plain{{0, {{"Name", "a"}, {"Number", "4"}}}, {1, {{"Number", "7"}}}}));
}

TEST_F(DeviceDataFiles, TakeNoFurtherRoomWhenReadAgain) {
    std::string content;
    for (int i = 0; i < 5000; ++i)
        content += "?Number?" + std::to_string(i) + "|?Name?feeder " + std::to_string(i) + "\n";
    WriteFile("Feeder.dat", content);
    Load();
    const std::size_t size = profile.m_FeederInfo.TextSize();
    EXPECT_LE(size, content.size());
    for (int i = 0; i < 5; ++i)
        Load();
    EXPECT_EQ(profile.m_FeederInfo.TextSize(), size);
    EXPECT_EQ(profile.m_FeederInfo.All().size(), 5000u);
}

TEST_F(DeviceDataFiles, ThatAreDirectoriesOrPipesAreNotOpened) {
    std::filesystem::create_directories(directory + "Feeder.dat");
    ASSERT_EQ(mkfifo((directory + "Stacker.dat").c_str(), 0666), 0);
    WriteFile("Finisher.dat", "?offset?True\n");
    Load();
    EXPECT_EQ(PlainOf(profile.m_FeederInfo), Plain{});
    EXPECT_EQ(PlainOf(profile.m_StackerInfo), Plain{});
    EXPECT_EQ(PlainOf(profile.m_FinisherInfo), (Plain{{0, {{"offset", "True"}}}}));
    EXPECT_EQ(profile.ReadDeviceDataFile((directory + "Feeder.dat").c_str(), "Feeder.dat"), 0);
}

TEST_F(DeviceDataFiles, ThatMayNotBeReadAreNotOpened) {
    WriteFile("Feeder.dat", "?Number?4\n");
    Forbid(directory + "Feeder.dat");
    const OrdinaryUser user;
    if (!user.IsOrdinary())
        GTEST_SKIP() << "the superuser can't become another user here";
    EXPECT_EQ(profile.ReadDeviceDataFile((directory + "Feeder.dat").c_str(), "Feeder.dat"), 0);
    EXPECT_EQ(PlainOf(profile.m_FeederInfo), Plain{});
}

TEST_F(DeviceDataFiles, AreReadBothWhenThereAndWhenEmpty) {
    WriteFile("Feeder.dat", "");
    EXPECT_EQ(profile.ReadDeviceDataFile((directory + "Feeder.dat").c_str(), "Feeder.dat"), 1);
    EXPECT_EQ(profile.ReadDeviceDataFile((directory + "Stacker.dat").c_str(), "Stacker.dat"), 0);
}

TEST_F(DeviceDataFiles, OfAnotherNameHaveNoRecords) {
    WriteFile("Feeder.dat", "?Number?4\n");
    EXPECT_EQ(profile.ReadDeviceDataFile((directory + "Feeder.dat").c_str(), "feeder.dat"), 0);
    EXPECT_EQ(PlainOf(profile.m_FeederInfo), Plain{});
}

TEST_F(DeviceDataFiles, OfADirectoryThatIsMissingOrNoneAreNotRead) {
    profile.LoadDeviceDataFiles(nullptr);
    profile.LoadDeviceDataFiles("");
    profile.LoadDeviceDataFiles((root / "missing/").c_str());
    profile.LoadDeviceDataFiles(std::string(100000, 'd').c_str());
    EXPECT_EQ(PlainOf(profile.m_FeederInfo), Plain{});
}

TEST_F(DeviceDataFiles, WhosePathIsCutAreNoOtherFiles) {
    // Cut at its buffer's end, the path of Feeder.dat would be this file's.
    const std::string parent = MakeFolder(std::string(100, 'p')) + "/";
    const std::string longDirectory = parent + std::string(259 - parent.size() - 3, 'd') + "/";
    Write(longDirectory + "Fe", "?Number?4\n");
    profile.LoadDeviceDataFiles(longDirectory.c_str());
    EXPECT_EQ(PlainOf(profile.m_FeederInfo), Plain{});
}

TEST_F(DeviceDataFiles, OfALineOfAMegabyteAreRead) {
    std::string line = "?Number?4";
    for (int i = 0; line.size() < (1 << 20); ++i)
        line += "?" + std::to_string(i);
    WriteFile("Feeder.dat", line);
    Load();
    EXPECT_GT(profile.m_FeederInfo.All().at(0).size(), 70000u);
    EXPECT_LE(profile.m_FeederInfo.TextSize(), line.size());
    int list[8];
    EXPECT_EQ(CProfileInfo::GetTrayConfig(list, 8, profile.m_FeederInfo), 1);
    EXPECT_EQ(list[4], 1) << "the value counts by its digits";
}

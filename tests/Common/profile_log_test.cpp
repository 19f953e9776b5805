// What the device profile tells the log.
#include "Common/ProfileInfo.h"
#include "Common/data_directories.h"
#include "Common/log_recorder.h"

#include "tests/Common/native_folders.h"

#include <algorithm>
#include <string>
#include <utility>

namespace {

class ProfileLog : public NativeFolderTest {
  protected:
    bool HasLineEndingIn(std::string_view end) const {
        return std::ranges::any_of(recorder.main,
                                   [&](const std::string& line) { return line.ends_with(end); });
    }

    log_backend::Recorder recorder;
    CProfileInfo profile;
};

} // namespace

TEST_F(ProfileLog, NamesTheFileThatCouldNotBeOpened) {
    profile.UpdateProfile("missing");
    EXPECT_TRUE(HasLineEndingIn("UpdateProfile() ifs=NULL\n"));
}

TEST_F(ProfileLog, TellsTheCountOfARefusedTrayList) {
    CProfileInfo::GetTrayConfig(nullptr, 8, {});
    EXPECT_TRUE(HasLineEndingIn("GetTrayConfig() error trayconfig = 8\n"));
}

TEST_F(ProfileLog, TellsTheCountOfARefusedOutputList) {
    CProfileInfo::GetOutputConfig(nullptr, -5, {});
    EXPECT_TRUE(HasLineEndingIn("GetOutputConfig() error outputconfig = -5\n"));
}

TEST_F(ProfileLog, TellsTheCountOfEachOtherRefusedList) {
    int list[1];
    CProfileInfo::GetPunchConfig(list, 0, {});
    CProfileInfo::GetStapleConfig(list, -1, {});
    CProfileInfo::GetFoldConfig(nullptr, 11, {});
    CProfileInfo::GetJogConfig(nullptr, 3, {});
    EXPECT_TRUE(HasLineEndingIn("GetPunchConfig() error punchconfig = 0\n"));
    EXPECT_TRUE(HasLineEndingIn("GetStapleConfig() error stapleconfig = -1\n"));
    EXPECT_TRUE(HasLineEndingIn("GetFoldConfig() error foldconfig = 11\n"));
    EXPECT_TRUE(HasLineEndingIn("GetJogConfig() error jogconfig = 3\n"));
}

TEST_F(ProfileLog, TellsACustomPaperIndexThatHasNoName) {
    std::string name;
    profile.GetCustomPaperNameConfig(&name, 120);
    profile.GetCustomPaperNameConfig(&name, -1);
    profile.GetCustomPaperNameConfig(nullptr, 4);
    EXPECT_TRUE(HasLineEndingIn("GetCustomPaperNameConfig() index=120\n"));
    EXPECT_TRUE(HasLineEndingIn("GetCustomPaperNameConfig() index=-1\n"));
    EXPECT_TRUE(HasLineEndingIn("GetCustomPaperNameConfig() index=4\n"));
}

TEST_F(ProfileLog, NamesTheQueryInItsEntryLine) {
    using Query = int (*)(int*, int, const DeviceRecordMap&);
    constexpr std::pair<Query, const char*> kQueries[] = {
        {CProfileInfo::GetTrayConfig, "GetTrayConfig"},   {CProfileInfo::GetOutputConfig, "GetOutputConfig"},
        {CProfileInfo::GetPunchConfig, "GetPunchConfig"}, {CProfileInfo::GetStapleConfig, "GetStapleConfig"},
        {CProfileInfo::GetFoldConfig, "GetFoldConfig"},   {CProfileInfo::GetJogConfig, "GetJogConfig"},
    };
    for (const auto& [query, name] : kQueries) {
        recorder.main.clear();
        int list[32] = {};
        query(list, 32, {});
        ASSERT_EQ(recorder.main.size(), 1u) << name;
        EXPECT_TRUE(HasLineEndingIn(" " + std::string(name) + "\n")) << recorder.main[0];
    }
}

TEST_F(ProfileLog, TellsTheTypeOfAnItemThatIsNeitherPresenceNorText) {
    ProfileItem item{"A", 9, "", 0};
    ScanProfileLine({&item, 1}, "A");
    EXPECT_TRUE(HasLineEndingIn("type=9\n"));
}

TEST_F(ProfileLog, DoesNotReportAMissingDataFile) {
    const std::string directory = MakeFolder("data") + "/";
    recorder.main.clear();
    profile.LoadDeviceDataFiles(directory.c_str());
    EXPECT_EQ(recorder.main.size(), 1u) << "only the line that opens the function";
}

TEST_F(ProfileLog, TellsTheDataDirectoriesInTheOrderOfTheirMaking) {
    CreateDataDirectories();
    std::string order;
    for (const std::string& line : recorder.main)
        for (const char* name : {"favorite", "profile", "SpotColor", "SpotColor\\User"})
            if (line.ends_with("Orvane X100\\" + std::string(name) + "\n"))
                order += std::string(name) + " ";
    EXPECT_EQ(order, "favorite profile SpotColor SpotColor\\User ");
}

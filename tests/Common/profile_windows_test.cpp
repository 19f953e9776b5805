// The device profile with the platform's real folders.
#include "Common/ProfileInfo.h"
#include "Common/data_directories.h"
#include "tests/support/traces.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <string>
#include <vector>

namespace {

class RealProfile : public testing::Test {
  protected:
    RealProfile() : root(FolderPath(CSIDL_COMMON_DOCUMENTS) + "\\Zephra\\KP Controller\\Orvane X100") {
        traces.Expect(FolderPath(CSIDL_COMMON_DOCUMENTS) + "\\Zephra");
        traces.Expect(FolderPath(CSIDL_COMMON_DOCUMENTS) + "\\Zephra\\KP Controller");
        traces.Expect(root);
        for (const char* directory : {"\\favorite", "\\profile", "\\SpotColor", "\\SpotColor\\User"})
            traces.Expect(root + directory);
    }

    std::string root;
    Traces traces;
    CProfileInfo profile;
};

class RealDeviceData : public testing::Test {
  protected:
    // The directory of a server's data files, made.
    std::string MakeDirectory(const std::string& serverAddress) {
        return traces.MakeDirectories(FolderPath(CSIDL_LOCAL_APPDATA),
                                      {"PrtSrv", "DriverResource", "10_" + serverAddress}) +
               "\\";
    }

    Traces traces;
    CProfileInfo profile;
};

// In the two double-byte characters a backslash is the second byte of the first.
constexpr char kDoubleByte[] = "\x95\x5C\x8E\xA6";

} // namespace

TEST_F(RealProfile, StandsBelowTheCommonDocuments) {
    char path[260] = {};
    EXPECT_EQ(GetProfileDirectory(path, sizeof path), static_cast<int>(root.size() + 8));
    EXPECT_EQ(path, root + "\\profile");
}

TEST_F(RealProfile, HasItsDirectoriesMade) {
    EXPECT_EQ(CreateDataDirectories(), 1);
    for (const char* directory : {"\\favorite", "\\profile", "\\SpotColor", "\\SpotColor\\User"})
        EXPECT_TRUE(IsDirectory(root + directory)) << directory;
    EXPECT_EQ(CreateDataDirectories(), 1);
}

TEST_F(RealProfile, IsRead) {
    ASSERT_EQ(CreateProfileDirectory(), 1);
    traces.Write(root + "\\profile\\office.cps",
                 "HasOption_InputSlot Tray2\r\n\x1A\r\nHasOption_InputSlot Tray1");
    EXPECT_EQ(profile.UpdateProfile("office"), 1);
    for (std::size_t slot = 0; slot < 149; ++slot)
        EXPECT_EQ(profile.m_Item[slot].exists, slot == 1 ? 1 : 0) << slot;
}

TEST_F(RealProfile, HasANameInTheAnsiCodePage) {
    ASSERT_EQ(GetACP(), 932u);
    ASSERT_EQ(CreateProfileDirectory(), 1);
    traces.Write(root + "\\profile\\" + kDoubleByte + ".cps", "");
    EXPECT_EQ(profile.UpdateProfile(kDoubleByte), 1);
}

TEST_F(RealProfile, IsReadWhileAnotherWritesIt) {
    ASSERT_EQ(CreateProfileDirectory(), 1);
    const std::string path = root + "\\profile\\office.cps";
    traces.Write(path, "HasOption_InputSlot Tray1\n");
    const HANDLE writer = CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(writer, INVALID_HANDLE_VALUE);
    EXPECT_EQ(profile.UpdateProfile("office"), 1);
    EXPECT_EQ(profile.m_Item[0].exists, 1);
    CloseHandle(writer);
}

TEST_F(RealProfile, ThatAnotherHoldsForItselfCannotBeOpened) {
    ASSERT_EQ(CreateProfileDirectory(), 1);
    const std::string path = root + "\\profile\\office.cps";
    traces.Write(path, "");
    const HANDLE owner = CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(owner, INVALID_HANDLE_VALUE);
    EXPECT_EQ(profile.UpdateProfile("office"), 0);
    CloseHandle(owner);
}

TEST_F(RealProfile, ThatIsADirectoryOrMissingCannotBeOpened) {
    ASSERT_EQ(CreateProfileDirectory(), 1);
    traces.MakeDirectory(root + "\\profile\\folder.cps");
    for (const char* name : {"folder", "missing"}) {
        EXPECT_EQ(profile.UpdateProfile(name), 0) << name;
        for (std::size_t slot = 0; slot < 149; ++slot)
            EXPECT_EQ(profile.m_Item[slot].exists, 1) << slot;
    }
}

TEST_F(RealProfile, OfADeviceIsNotOpened) {
    EXPECT_EQ(platform_files::OpenShared("\\\\.\\NUL"), nullptr);
    EXPECT_EQ(platform_files::OpenShared("CON"), nullptr);
}

TEST_F(RealDeviceData, StandsBelowTheLocalApplicationData) {
    PathBuffer path{};
    EXPECT_EQ(GetDeviceDataDirectory(path, "192.168.0.9"), 1);
    EXPECT_EQ(path.data(), FolderPath(CSIDL_LOCAL_APPDATA) + "\\PrtSrv\\DriverResource\\10_192.168.0.9\\");
}

TEST_F(RealDeviceData, IsReadFromADirectoryOfTheAnsiCodePage) {
    for (const std::string& server : {std::string("192.168.0.9"), std::string(kDoubleByte)}) {
        const std::string directory = MakeDirectory(server);
        traces.Write(directory + "Feeder.dat", "?Number?4\r\n?Number?7\r\n");
        traces.Write(directory + "Stacker.dat", "?Type?13\r\n");
        traces.Write(directory + "Finisher.dat", "?offset?True|?Name?\x95\x5C\r\n");

        CProfileInfo fresh;
        PathBuffer path{};
        ASSERT_EQ(GetDeviceDataDirectory(path, server), 1);
        fresh.LoadDeviceDataFiles(path.data());
        int tray[8];
        ASSERT_EQ(CProfileInfo::GetTrayConfig(tray, 8, fresh.m_FeederInfo), 1);
        EXPECT_EQ(std::vector<int>(tray, tray + 8), (std::vector<int>{1, 1, 1, 1, 1, 0, 1, 1}));
        int output[5];
        ASSERT_EQ(CProfileInfo::GetOutputConfig(output, 5, fresh.m_StackerInfo), 1);
        EXPECT_EQ(std::vector<int>(output, output + 5), (std::vector<int>{1, 0, 1, 0, 0}));
        EXPECT_EQ(fresh.m_FinisherInfo.All().at(0).at("offset"), "True");
        EXPECT_EQ(fresh.m_FinisherInfo.All().at(0).at("Name"), "\x95\x5C");
    }
}

TEST_F(RealDeviceData, ThatIsADirectoryIsNotOpened) {
    const std::string directory = MakeDirectory("192.168.0.9");
    traces.MakeDirectory(directory + "Feeder.dat");
    traces.Write(directory + "Stacker.dat", "?Type?13\r\n");
    profile.LoadDeviceDataFiles(directory.c_str());
    EXPECT_TRUE(profile.m_FeederInfo.All().empty());
    EXPECT_EQ(profile.m_StackerInfo.All().size(), 1u);
}

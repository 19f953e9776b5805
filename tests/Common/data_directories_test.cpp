#include "Common/data_directories.h"

#include "tests/Common/native_folders.h"

#include <array>
#include <string>
#include <vector>

namespace {

using Operation = int (*)(char*, std::size_t);

struct Directory {
    Operation get;
    int (*create)();
    const char* below; // below the root
};

constexpr Directory kDirectories[] = {
    {GetFavoriteDirectory, CreateFavoriteDirectory, "\\favorite"},
    {GetProfileDirectory, CreateProfileDirectory, "\\profile"},
    {GetSpotColorDirectory, CreateSpotColorDirectory, "\\SpotColor"},
    {GetUserSpotColorDirectory, CreateUserSpotColorDirectory, "\\SpotColor\\User"},
};

constexpr char kBelowBase[] = "\\Zephra\\KP Controller\\Orvane X100";

// The path in a buffer of this size, with a byte behind it that must stay untouched.
std::string PathIn(Operation operation, std::size_t size, const std::string& before = "") {
    std::vector<char> buffer(size + 1, '\0');
    std::copy(before.begin(), before.end(), buffer.begin());
    buffer[size] = '#';
    const int length = operation(buffer.data(), size);
    EXPECT_EQ(buffer[size], '#');
    const std::string path(buffer.data());
    EXPECT_LT(path.size(), size);
    EXPECT_EQ(length, static_cast<int>(path.size()));
    return path;
}

class DataDirectories : public NativeFolderTest {
  protected:
    DataDirectories() : base(platform_files::Folders().commonDocuments) {}

    // Gives the base a length, a folder that need not be there.
    void SetBaseLength(std::size_t length) {
        base = "/" + std::string(length - 1, 'b');
        platform_files::Folders().commonDocuments = base;
    }
    bool IsDirectory(const char* below) const {
        return std::filesystem::is_directory(
            platform_files::NativePath(platform_files::Folders().commonDocuments + kBelowBase + below));
    }

    std::string base;
};

class DeviceDataDirectory : public NativeFolderTest {};

} // namespace

TEST_F(DataDirectories, StandBelowTheCommonDocuments) {
    EXPECT_EQ(PathIn(GetDataRootDirectory, 260), base + kBelowBase);
    for (const Directory& directory : kDirectories)
        EXPECT_EQ(PathIn(directory.get, 260), base + kBelowBase + directory.below);
}

TEST_F(DataDirectories, StandBelowTheWindowsFolderOfAnOlderSystem) {
    platform_files::Folders().isNt6OrLater = false;
    EXPECT_EQ(PathIn(GetProfileDirectory, 260),
              platform_files::Folders().windowsFolder + kBelowBase + "\\profile");
}

TEST_F(DataDirectories, LeaveTheBufferAsItIsWithoutTheirFolder) {
    platform_files::Folders().commonDocuments.clear();
    EXPECT_EQ(PathIn(GetDataRootDirectory, 260, "as it was"), "as it was");
    for (const Directory& directory : kDirectories)
        EXPECT_EQ(PathIn(directory.get, 260, "as it was"), "as it was");
    EXPECT_EQ(PathIn(GetProfileDirectory, 4, "abcd"), "abc") << "a buffer without a NUL is ended";
}

// The room left must exceed the piece by more than a byte: its backslash and its NUL.
TEST_F(DataDirectories, TakeAPieceOnlyIfTheRoomExceedsItByTwoBytes) {
    const std::string model = base + kBelowBase;
    EXPECT_EQ(PathIn(GetDataRootDirectory, model.size() + 1), model);
    EXPECT_EQ(PathIn(GetDataRootDirectory, model.size()), base + "\\Zephra\\KP Controller");
    for (const Directory& directory : kDirectories) {
        const std::string whole = model + directory.below;
        EXPECT_EQ(PathIn(directory.get, whole.size() + 1), whole);
        EXPECT_EQ(PathIn(directory.get, whole.size()), model);
    }
}

TEST_F(DataDirectories, MayTakeAShortPieceWhereTheModelsHasNoRoom) {
    const std::string controller = base + "\\Zephra\\KP Controller";
    EXPECT_EQ(PathIn(GetProfileDirectory, controller.size() + 12), controller + "\\profile");
}

TEST_F(DataDirectories, AreCutToAnyBuffer) {
    for (std::size_t size = 1; size <= 260; ++size) {
        const std::string path = PathIn(GetUserSpotColorDirectory, size);
        EXPECT_LT(path.size(), size);
        EXPECT_TRUE((base + kBelowBase).starts_with(path.substr(0, (base + kBelowBase).size())) ||
                    path.ends_with("User"))
            << path;
    }
    char none = '#';
    EXPECT_EQ(GetProfileDirectory(&none, 0), 0);
    EXPECT_EQ(none, '#');
    EXPECT_EQ(GetProfileDirectory(nullptr, 260), 0);
}

TEST_F(DataDirectories, AreCutBetweenTwoCharacters) {
    platform_files::Folders().commonDocuments = "/\x95\x5C\x95\x5C";
    EXPECT_EQ(PathIn(GetDataRootDirectory, 5), "/\x95\x5C");
}

TEST_F(DataDirectories, AreMadeOneByOneWithWhatLeadsToThem) {
    for (const Directory& directory : kDirectories) {
        std::filesystem::remove_all(base);
        std::filesystem::create_directory(base);
        EXPECT_EQ(directory.create(), 1) << directory.below;
        EXPECT_TRUE(IsDirectory(directory.below)) << directory.below;
        for (const Directory& other : kDirectories)
            EXPECT_EQ(IsDirectory(other.below), std::string_view(directory.below).starts_with(other.below))
                << other.below;
    }
}

TEST_F(DataDirectories, AreMadeAllFourByOneOperation) {
    EXPECT_EQ(CreateDataDirectories(), 1);
    for (const Directory& directory : kDirectories)
        EXPECT_TRUE(IsDirectory(directory.below)) << directory.below;
    EXPECT_EQ(CreateDataDirectories(), 1) << "those that are there already";
}

TEST_F(DataDirectories, AreMadeBelowAFolderOfDoubleByteCharacters) {
    platform_files::Folders().commonDocuments = MakeFolder("\x95\x5C\x95\x5C");
    EXPECT_EQ(CreateDataDirectories(), 1);
    EXPECT_TRUE(IsDirectory("\\SpotColor\\User"));
}

TEST_F(DataDirectories, AreNotAllMadeWhereAFileStandsInPlaceOfOne) {
    for (const Directory& directory : kDirectories) {
        std::filesystem::remove_all(base);
        Write(platform_files::NativePath(base + kBelowBase + directory.below), "");
        EXPECT_EQ(CreateDataDirectories(), 0) << directory.below;
        for (const Directory& other : kDirectories)
            EXPECT_EQ(IsDirectory(other.below), !std::string_view(other.below).starts_with(directory.below))
                << other.below;
    }
}

TEST_F(DataDirectories, AreNotMadeWithoutTheirFolderOrRoom) {
    platform_files::Folders().commonDocuments = (root / "missing").string();
    EXPECT_EQ(CreateDataDirectories(), 0);
    platform_files::Folders().commonDocuments.clear();
    EXPECT_EQ(CreateDataDirectories(), 0);
    platform_files::Folders().commonDocuments = MakeFolder(std::string(200, 'x'));
    EXPECT_EQ(CreateDataDirectories(), 0);
    EXPECT_TRUE(std::filesystem::is_empty(root / std::string(200, 'x')));
}

TEST_F(DataDirectories, AreWholeInAProfilePathOrThereIsNone) {
    PathBuffer path;
    EXPECT_TRUE(GetProfilePath(path, "office"));
    EXPECT_EQ(path.data(), base + kBelowBase + "\\profile\\office.cps");

    // 33 bytes of the root, "\profile" and "\.cps" leave no byte but the NUL's.
    const std::size_t longest = 259 - 33 - 8 - 5;
    SetBaseLength(longest);
    EXPECT_TRUE(GetProfilePath(path, ""));
    EXPECT_EQ(path.data(), base + kBelowBase + "\\profile\\.cps");
    EXPECT_FALSE(GetProfilePath(path, "n"));
    SetBaseLength(longest + 1);
    EXPECT_FALSE(GetProfilePath(path, ""));

    // The directory would do without its own piece and leave room for a short name.
    SetBaseLength(259 - 33 - 7);
    EXPECT_EQ(PathIn(GetProfileDirectory, 260), base + kBelowBase);
    EXPECT_FALSE(GetProfilePath(path, "n"));
}

TEST_F(DeviceDataDirectory, IsNamedByTheServerAddress) {
    PathBuffer path;
    EXPECT_EQ(GetDeviceDataDirectory(path, "192.168.0.9"), 1);
    EXPECT_EQ(path.data(),
              platform_files::Folders().localAppData + "\\PrtSrv\\DriverResource\\10_192.168.0.9\\");
    EXPECT_EQ(GetDeviceDataDirectory(path, ""), 1);
    EXPECT_EQ(path.data(), platform_files::Folders().localAppData + "\\PrtSrv\\DriverResource\\10_\\");
}

TEST_F(DeviceDataDirectory, IsNotHadWithoutItsFolder) {
    platform_files::Folders().localAppData.clear();
    PathBuffer path{'k', 'e', 'p', 't'};
    EXPECT_EQ(GetDeviceDataDirectory(path, "a"), 0);
    EXPECT_STREQ(path.data(), "kept");
}

TEST_F(DeviceDataDirectory, IsCutToItsBufferAndThenHasNoFiles) {
    const std::string begin = platform_files::Folders().localAppData + "\\PrtSrv\\DriverResource\\10_";
    for (std::size_t length = 259 - begin.size() - 2; length < 600; ++length) {
        PathBuffer path;
        EXPECT_EQ(GetDeviceDataDirectory(path, std::string(length, 's')), 1);
        const std::string whole = begin + std::string(length, 's') + "\\";
        EXPECT_EQ(path.data(), whole.substr(0, 259));
        PathBuffer file;
        EXPECT_FALSE(GetDeviceDataPath(file, path.data(), "Feeder.dat"));
    }
}

TEST_F(DeviceDataDirectory, HasFilesWhosePathsFitWithTheirNul) {
    PathBuffer path;
    EXPECT_TRUE(GetDeviceDataPath(path, std::string(249, 'd'), "Feeder.dat"));
    EXPECT_EQ(path.data(), std::string(249, 'd') + "Feeder.dat");
    EXPECT_FALSE(GetDeviceDataPath(path, std::string(250, 'd'), "Feeder.dat"));
}

// The driver's removal: what is undone and the directories that go.
#include "Common/strings.h"
#include "tests/oemps/driver_event_fixture.h"
#include "tests/support/system_link.h"

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

class Removal : public DriverEvents {};

TEST_F(Removal, UndoesThePreCompilingInTheSameOrder) {
    EXPECT_EQ(Send(2), kNotImplemented);
    EXPECT_EQ(runner.CommandLines(), Commands64(" uninstall "));
}

TEST_F(Removal, DeletesTheApplicationsTwoDirectoriesAndNothingElse) {
    MakeApplication(kX64);
    MakeApplication(kX86);
    for (const std::string& other : {kX64 + "_old\\a.bin", kX86 + "2\\a.bin", kX64 + ".txt",
                                     std::string("\\System32\\spool\\drivers\\other\\b.bin"),
                                     std::string("\\System32\\b.bin"), std::string("\\b.bin")})
        MakeFile(other);
    auto left = Without(Without(Tree(), kX64 + "\\"), kX86 + "\\");
    EXPECT_EQ(left.erase(kX64) + left.erase(kX86), 2u);
    EXPECT_EQ(Send(2), kNotImplemented);
    EXPECT_EQ(Tree(), left);
}

TEST_F(Removal, DeletesTheDirectoriesAfterTheLastCommand) {
    MakeApplication(kX64);
    bool isThere = true;
    runner.onWait = [&] { isThere = isThere && fs::exists(Windows(kX64)); };
    EXPECT_EQ(Send(2), kNotImplemented);
    EXPECT_TRUE(isThere);
    EXPECT_FALSE(fs::exists(Windows(kX64)));
}

TEST_F(Removal, WithoutTheOtherArchitecturesDirectoryDeletesOnlyTheFirst) {
    MakeApplication(kX64);
    MakeFile(kX86 + ".txt");
    EXPECT_EQ(Send(2), kNotImplemented);
    EXPECT_FALSE(fs::exists(Windows(kX64)));
    EXPECT_TRUE(fs::exists(Windows(kX86 + ".txt")));
    EXPECT_EQ(Logged("DeleteDirectoryTree"), 1u);
}

TEST_F(Removal, WithoutTheFirstDirectoryDeletesTheOtherArchitectures) {
    MakeApplication(kX86);
    EXPECT_EQ(Send(2), kNotImplemented);
    EXPECT_FALSE(fs::exists(Windows(kX86)));
    EXPECT_EQ(Logged("_x64 not deleted"), 1u);
}

TEST_F(Removal, LeavesAFileOfTheOtherArchitecturesName) {
    MakeApplication(kX64);
    MakeFile(kX86);
    EXPECT_EQ(Send(2), kNotImplemented);
    EXPECT_FALSE(fs::exists(Windows(kX64)));
    EXPECT_TRUE(fs::exists(Windows(kX86)));
}

TEST_F(Removal, OnAnotherArchitectureBeginsWithItsOwnDirectory) {
    const EnvironmentVariable other("PROCESSOR_ARCHITECTURE", "x86");
    MakeApplication(kX64);
    MakeApplication(kX86);
    EXPECT_EQ(Send(2), kNotImplemented);
    EXPECT_EQ(runner.CommandLines(), Commands(Windows("\\Microsoft.NET\\Framework\\v4.0.30319\\ngen.exe"),
                                              " uninstall ", Windows(kX86)));
    EXPECT_FALSE(fs::exists(Windows(kX64)));
    EXPECT_FALSE(fs::exists(Windows(kX86)));
}

// Without the directory's name the Windows directory itself would be meant.
TEST_F(Removal, WithoutAStringTableDeletesNothing) {
    MakeApplication(kX64);
    const auto before = Tree();
    SetStringModule(GetModuleHandleA("kernel32.dll"));
    IOemUI::DeletePrintOptionDirectoy();
    SetStringModule(nullptr);
    EXPECT_EQ(Tree(), before);
    EXPECT_EQ(Logged("the application's directory has no name"), 1u);
}

TEST_F(Removal, DeletesNothingBelowAPathThatDoesNotFit) {
    MakeApplication(kX64);
    const auto before = Tree();
    const EnvironmentVariable distant("WINDIR", (folder.string() + "\\" + std::string(300, 'w')).c_str());
    IOemUI::DeletePrintOptionDirectoy();
    EXPECT_EQ(Tree(), before);
    EXPECT_EQ(Logged("_x64 not deleted"), 1u);
}

// The paths are those of the drive's own directory then.
TEST_F(Removal, WithoutAWindowsDirectoryHasPathsFromTheRoot) {
    MakeApplication(kX64);
    MakeApplication(kX86);
    const auto before = Tree();
    for (const char* value : {static_cast<const char*>(nullptr), ""}) {
        const EnvironmentVariable none("WINDIR", value);
        Log().Forget();
        IOemUI::DeletePrintOptionDirectoy();
        EXPECT_EQ(Tree(), before);
        EXPECT_EQ(Logged(") \\System32\\spool\\drivers\\ZR_ORKPN01_300_PDF_JPN_x64 not deleted"), 1u);
        EXPECT_EQ(Logged("deleted"), 1u);
    }
}

class LinkedRemoval : public Removal {
  protected:
    LinkedRemoval() { MakeFile("\\outside\\keep.txt"); }
    ~LinkedRemoval() override {
        EXPECT_TRUE(fs::exists(Windows("\\outside\\keep.txt")));
        if (system_link::IsThere(Windows(link)))
            system_link::Remove(Windows(link));
    }
    void SetUp() override {
        if (!system_link::CanBeMade())
            GTEST_SKIP() << "no program that makes links";
    }
    void LinkOutside(const std::string& path) {
        fs::create_directories(fs::path(Windows(path)).parent_path());
        link = path;
        ASSERT_NO_FATAL_FAILURE(system_link::Make(Windows("\\outside"), Windows(path)));
    }

    std::string link;
};

TEST_F(LinkedRemoval, DoesNotFollowAnApplicationsDirectoryThatIsALink) {
    LinkOutside(kX64);
    IOemUI::DeletePrintOptionDirectoy();
    EXPECT_EQ(Logged("_x64 not deleted"), 1u) << "Wine can't remove the link";
}

TEST_F(LinkedRemoval, DoesNotFollowTheOtherArchitecturesDirectoryThatIsALink) {
    MakeApplication(kX64);
    LinkOutside(kX86);
    IOemUI::DeletePrintOptionDirectoy();
    EXPECT_FALSE(fs::exists(Windows(kX64)));
    EXPECT_EQ(Logged("_x86 not deleted"), 1u);
}

} // namespace

#include "settings/file_replacement.h"
#include "tests/settings/xml_fixture.h"

#ifdef _WIN32
#include "Common/win_handles.h"

#include <algorithm>
#include <thread>
#else
#include <signal.h>
#include <sys/resource.h>
#endif

namespace {

class XmlSaveTest : public XmlTest {
  protected:
    XmlSaveTest() { Build("Comment", "new"); }

#ifdef _WIN32
    // For reading; others may do to the file what `share` lets them.
    static UniqueHandle OpenSharing(const std::string& path, DWORD share) {
        UniqueHandle file =
            OpenedFile(CreateFileA(path.c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING, 0, nullptr));
        EXPECT_TRUE(file) << path;
        return file;
    }
#endif
};

} // namespace

TEST_F(XmlSaveTest, ReplacesTheFileAndLeavesNothingBesideIt) {
    const std::string path = Write("a.pfk", std::string(100000, 'x'));
    EXPECT_TRUE(document.Save(path.c_str()));
    EXPECT_TRUE(LoadFile(document, path));
    EXPECT_EQ(LastTexts(document)["Comment"], "new");
    EXPECT_EQ(CountFiles(), 1u);
}

TEST_F(XmlSaveTest, MakesAFileThatWasNotThere) {
    EXPECT_TRUE(document.Save(PathOf("a.pfk").c_str()));
    EXPECT_TRUE(LoadFile(document, PathOf("a.pfk")));
    EXPECT_EQ(CountFiles(), 1u);
}

TEST_F(XmlSaveTest, TakesANameWhoseSecondByteIsABackslash) {
    const std::string path = PathOf("表.pfk");
    EXPECT_TRUE(document.Save(path.c_str()));
    EXPECT_TRUE(LoadFile(document, path));
    EXPECT_EQ(CountFiles(), 1u);
}

TEST_F(XmlSaveTest, AReadOnlyFileStaysAsItWas) {
    const std::string path = Write("a.pfk", "old");
    using std::filesystem::perms;
    std::filesystem::permissions(path, perms::owner_read | perms::group_read | perms::others_read);
    EXPECT_FALSE(document.Save(path.c_str()));
    EXPECT_EQ(Content(path), "old");
    EXPECT_EQ(CountFiles(), 1u);
    std::filesystem::permissions(path, perms::all);
}

TEST_F(XmlSaveTest, AFolderThatIsNotThereGetsNoFile) {
    EXPECT_FALSE(document.Save((PathOf("none") + "/a.pfk").c_str()));
    EXPECT_EQ(CountFiles(), 0u);
}

TEST_F(XmlSaveTest, AMoveThatFailsLeavesNoTemporaryFile) {
    std::filesystem::create_directory(PathOf("a.pfk"));
    EXPECT_FALSE(document.Save(PathOf("a.pfk").c_str()));
    EXPECT_TRUE(std::filesystem::is_directory(PathOf("a.pfk")));
    EXPECT_EQ(CountFiles(), 1u);
}

TEST_F(XmlSaveTest, AnEmptyContentReplacesToo) {
    const std::string path = Write("a.pfk", "old");
    EXPECT_TRUE(ReplaceFileContent(path.c_str(), ""));
    EXPECT_EQ(Content(path), "");
}

#ifdef _WIN32
TEST_F(XmlSaveTest, ALockedFileStaysAsItWas) {
    const std::string path = Write("a.pfk", "old");
    {
        const UniqueHandle lock = OpenSharing(path, 0);
        EXPECT_FALSE(document.Save(path.c_str()));
        EXPECT_EQ(CountFiles(), 1u);
    }
    EXPECT_EQ(Content(path), "old");
}

TEST_F(XmlSaveTest, AFileThatOthersReadAndLetGoIsReplaced) {
    const std::string path = Write("a.pfk", "old");
    {
        const UniqueHandle reader = OpenSharing(path, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE);
        EXPECT_TRUE(document.Save(path.c_str()));
        EXPECT_TRUE(LoadFile(document, path));
    }
    EXPECT_EQ(LastTexts(document)["Comment"], "new");
    EXPECT_EQ(CountFiles(), 1u);
}

TEST_F(XmlSaveTest, AFileThatOthersReadAndDoNotLetGoStaysAsItWas) {
    const std::string path = Write("a.pfk", "old");
    for (const DWORD share : {DWORD{FILE_SHARE_READ | FILE_SHARE_WRITE}, DWORD{FILE_SHARE_READ}}) {
        {
            const UniqueHandle reader = OpenSharing(path, share);
            const DWORD start = GetTickCount();
            EXPECT_FALSE(document.Save(path.c_str()));
            EXPECT_LT(GetTickCount() - start, 500u) << "the sheet's thread waits";
        }
        EXPECT_EQ(Content(path), "old");
        EXPECT_EQ(CountFiles(), 1u);
    }
    EXPECT_TRUE(document.Save(path.c_str()));
}

TEST_F(XmlSaveTest, AFileThatSomebodyHasOpenForAMomentIsReplaced) {
    const std::string path = Write("a.pfk", "old");
    UniqueHandle reader = OpenSharing(path, FILE_SHARE_READ);
    std::thread letsGo([&] {
        Sleep(60);
        reader.Reset();
    });
    EXPECT_TRUE(document.Save(path.c_str()));
    letsGo.join();
    EXPECT_TRUE(LoadFile(document, path));
    EXPECT_EQ(CountFiles(), 1u);
}

// Of a name that is longer than the file's there would be no room beside it.
TEST_F(XmlSaveTest, APathIsSavedIfItFits) {
    constexpr std::size_t kLongestPath = 259;
    for (std::size_t length = 245; length <= 250; ++length) {
        const std::string base = folder.string() + "\\";
        const std::string deep = base + std::string(length - base.size(), 'd');
        ASSERT_TRUE(std::filesystem::create_directory("\\\\?\\" + deep)) << length;
        for (const std::string& name : {std::string(".pfk"), std::string("a.pfk"),
                                        std::string(kLongestPath - length - 5, 'n') + ".pfk"}) {
            const std::string path = deep + "\\" + name;
            ASSERT_LE(path.size(), kLongestPath);
            EXPECT_TRUE(document.Save(path.c_str())) << path.size();
            EXPECT_TRUE(document.Save(path.c_str())) << path.size() << " over the file";
            EXPECT_TRUE(LoadFile(document, path));
            EXPECT_EQ(std::filesystem::remove_all("\\\\?\\" + deep), 2u);
            std::filesystem::create_directory("\\\\?\\" + deep);
        }
        std::filesystem::remove_all("\\\\?\\" + deep);
    }
}

TEST_F(XmlSaveTest, TakesPathsOfEveryForm) {
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder);
    const std::string onDrive = folder.string().substr(0, 2) + "drive.pfk"; // in the drive's current folder
    std::string slashes = PathOf("slashes.pfk");
    std::ranges::replace(slashes, '\\', '/');
    for (const std::string& path : {std::string("bare.pfk"), std::string(".\\dot.pfk"), onDrive, slashes}) {
        EXPECT_TRUE(document.Save(path.c_str())) << path;
        EXPECT_TRUE(LoadFile(document, path));
    }
    std::filesystem::current_path(before);
    EXPECT_EQ(CountFiles(), 4u);
}
#else
TEST_F(XmlSaveTest, ADiskThatIsFullKeepsTheOldFileAndNothingElse) {
    const std::string path = Write("a.pfk", "old");
    signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit full{10, before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &full), 0);
    const bool isSaved = document.Save(path.c_str());
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
    signal(SIGXFSZ, SIG_DFL);
    EXPECT_FALSE(isSaved);
    EXPECT_EQ(Content(path), "old");
    EXPECT_EQ(CountFiles(), 1u);
}
#endif

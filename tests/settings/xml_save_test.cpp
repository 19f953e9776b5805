#include "settings/file_replacement.h"
#include "tests/settings/xml_fixture.h"

#ifdef _WIN32
#include "Common/win_handles.h"
#else
#include <signal.h>
#include <sys/resource.h>
#endif

namespace {

class XmlSaveTest : public XmlTest {
  protected:
    XmlSaveTest() { Build("Comment", "new"); }
};

} // namespace

TEST_F(XmlSaveTest, ReplacesTheFileAndLeavesNothingBesideIt) {
    const std::string path = Write("a.pfk", std::string(100000, 'x'));
    EXPECT_TRUE(document.Save(path.c_str()));
    EXPECT_EQ(document.Load(path.c_str()), XmlLoad::Loaded);
    EXPECT_EQ(LastTexts(document)["Comment"], "new");
    EXPECT_EQ(CountFiles(), 1u);
}

TEST_F(XmlSaveTest, MakesAFileThatWasNotThere) {
    EXPECT_TRUE(document.Save(PathOf("a.pfk").c_str()));
    EXPECT_EQ(document.Load(PathOf("a.pfk").c_str()), XmlLoad::Loaded);
    EXPECT_EQ(CountFiles(), 1u);
}

TEST_F(XmlSaveTest, TakesANameWhoseSecondByteIsABackslash) {
    const std::string path = PathOf("表.pfk");
    EXPECT_TRUE(document.Save(path.c_str()));
    EXPECT_EQ(document.Load(path.c_str()), XmlLoad::Loaded);
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
        const UniqueHandle lock(
            CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
        ASSERT_NE(lock.Get(), INVALID_HANDLE_VALUE);
        EXPECT_FALSE(document.Save(path.c_str()));
        EXPECT_EQ(CountFiles(), 1u);
    }
    EXPECT_EQ(Content(path), "old");
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

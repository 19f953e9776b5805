// Deleting a directory with all in it.
#include "oemps/directory_tree.h"

#include "Common/win_handles.h"
#include "tests/support/main_log.h"
#include "tests/support/system_link.h"
#include "tests/support/test_folder.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

class DirectoryTree : public testing::Test, protected TestFolder {
  protected:
    DirectoryTree() {
        fs::create_directory(PathOf("outside"));
        Write("outside\\keep.txt", "kept");
        fs::create_directory(Tree());
    }
    ~DirectoryTree() override { EXPECT_EQ(Content(PathOf("outside\\keep.txt")), "kept"); }

    std::string Tree(const std::string& name = "") const {
        return name.empty() ? PathOf("tree") : PathOf("tree\\" + name);
    }
    // The names are in the ANSI code page, unlike those of the standard library's paths.
    static fs::path Path(const std::string& ansi) {
        std::wstring wide(ansi.size(), L'\0');
        wide.resize(static_cast<std::size_t>(MultiByteToWideChar(CP_ACP, 0, ansi.data(),
                                                                 static_cast<int>(ansi.size()), wide.data(),
                                                                 static_cast<int>(wide.size()))));
        return wide;
    }
    static bool Exists(const std::string& path) { return fs::exists(Path(path)); }
    void MakeFile(const std::string& name) const {
        fs::create_directories(Path(Tree(name)).parent_path());
        Write("tree\\" + name, "content");
    }
};

TEST_F(DirectoryTree, GoesWithAllInIt) {
    for (const char* name : {"a.txt", "b\\c.txt", "b\\d\\e\\f.txt", "表\\予.txt", ".hidden", "no extension"})
        MakeFile(name);
    fs::create_directory(Tree("empty"));
    EXPECT_EQ(DeleteDirectoryTree(Tree().c_str()), 1);
    EXPECT_FALSE(Exists(Tree()));
    EXPECT_TRUE(fs::exists(folder));
}

TEST_F(DirectoryTree, GoesIfItIsEmpty) {
    EXPECT_EQ(DeleteDirectoryTree(Tree().c_str()), 1);
    EXPECT_FALSE(Exists(Tree()));
}

TEST_F(DirectoryTree, MayBeToldWithABackslashAtItsEnd) {
    MakeFile("a\\b.txt");
    EXPECT_EQ(DeleteDirectoryTree((Tree() + "\\").c_str()), 1);
    EXPECT_FALSE(Exists(Tree()));
}

// Its last byte is a backslash's.
TEST_F(DirectoryTree, MayEndInADoubleByteCharacter) {
    MakeFile("表\\a.txt");
    MakeFile("予.txt");
    EXPECT_EQ(DeleteDirectoryTree(Tree("表").c_str()), 1);
    EXPECT_FALSE(Exists(Tree("表")));
    EXPECT_TRUE(Exists(Tree("予.txt")));
}

TEST_F(DirectoryTree, IsNoneWithoutAPath) {
    EXPECT_EQ(DeleteDirectoryTree(nullptr), 0);
}

// A backslash alone would be the root of the drive.
TEST_F(DirectoryTree, IsNoneOfAnEmptyPath) {
    std::string before(MAX_PATH, '\0');
    before.resize(GetCurrentDirectoryA(MAX_PATH, before.data()));
    MakeFile("a.txt");
    SetCurrentDirectoryA(Tree().c_str());
    EXPECT_EQ(DeleteDirectoryTree(""), 0);
    SetCurrentDirectoryA(before.c_str());
    EXPECT_TRUE(Exists(Tree("a.txt")));
}

TEST_F(DirectoryTree, ThatIsNotThereGivesZero) {
    EXPECT_EQ(DeleteDirectoryTree(Tree("none").c_str()), 0);
    EXPECT_EQ(DeleteDirectoryTree(Tree("none\\none").c_str()), 0);
}

TEST_F(DirectoryTree, IsNoFile) {
    MakeFile("a.txt");
    EXPECT_EQ(DeleteDirectoryTree(Tree("a.txt").c_str()), 0);
    EXPECT_TRUE(Exists(Tree("a.txt")));
}

TEST_F(DirectoryTree, IsLeftPartlyDeletedWhenAFileIsLocked) {
    for (const char* name : {"a\\1.txt", "m.txt", "z\\1.txt"})
        MakeFile(name);
    {
        const UniqueHandle locked(
            CreateFileA(Tree("m.txt").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
        ASSERT_NE(locked.Get(), INVALID_HANDLE_VALUE);
        EXPECT_EQ(DeleteDirectoryTree(Tree().c_str()), 0);
    }
    EXPECT_FALSE(Exists(Tree("a")));
    EXPECT_TRUE(Exists(Tree("m.txt")));
    EXPECT_TRUE(Exists(Tree("z\\1.txt"))) << "the first failure ends it";
    EXPECT_EQ(DeleteDirectoryTree(Tree().c_str()), 1) << "no search was left open";
}

TEST_F(DirectoryTree, StaysWhereAFileFurtherBelowIsLocked) {
    for (const char* name : {"a\\b\\m.txt", "a\\b\\a.txt", "a\\c.txt"})
        MakeFile(name);
    {
        const UniqueHandle locked(
            CreateFileA(Tree("a\\b\\m.txt").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
        EXPECT_EQ(DeleteDirectoryTree(Tree().c_str()), 0);
    }
    EXPECT_FALSE(Exists(Tree("a\\b\\a.txt")));
    EXPECT_TRUE(Exists(Tree("a\\b\\m.txt")));
    EXPECT_TRUE(Exists(Tree("a\\c.txt")));
}

TEST_F(DirectoryTree, KeepsAFileThatMayOnlyBeRead) {
    MakeFile("a.txt");
    SetFileAttributesA(Tree("a.txt").c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(DeleteDirectoryTree(Tree().c_str()), 0);
    EXPECT_TRUE(Exists(Tree("a.txt")));
    SetFileAttributesA(Tree("a.txt").c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(DirectoryTree, GoesWithPathsOf259Bytes) {
    const std::string longest(259 - Tree().size() - 1, 'x');
    MakeFile(longest);
    ASSERT_EQ(Tree(longest).size(), 259u);
    EXPECT_EQ(DeleteDirectoryTree(Tree().c_str()), 1);
    EXPECT_FALSE(Exists(Tree()));
}

// Made by paths that the limit does not hold for.
class DistantEntry : public DirectoryTree {
  protected:
    static std::wstring Unlimited(const std::string& path) { return L"\\\\?\\" + Path(path).wstring(); }
    ~DistantEntry() override {
        for (auto at = made.rbegin(); at != made.rend(); ++at)
            if (!DeleteFileW(Unlimited(*at).c_str()))
                RemoveDirectoryW(Unlimited(*at).c_str());
    }
    void MakeDirectory(const std::string& path) {
        ASSERT_TRUE(CreateDirectoryW(Unlimited(path).c_str(), nullptr)) << GetLastError();
        made.push_back(path);
    }
    void MakeFileAt(const std::string& path) {
        const UniqueHandle file(
            CreateFileW(Unlimited(path).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
        ASSERT_NE(file.Get(), INVALID_HANDLE_VALUE) << GetLastError();
        made.push_back(path);
    }
    bool IsThere(const std::string& path) const {
        return GetFileAttributesW(Unlimited(path).c_str()) != INVALID_FILE_ATTRIBUTES;
    }

    std::vector<std::string> made;
};

TEST_F(DistantEntry, OfMoreThan259BytesStays) {
    const std::string file = Tree(std::string(260 - Tree().size() - 1, 'x'));
    ASSERT_EQ(file.size(), 260u);
    MakeFileAt(file);
    EXPECT_EQ(DeleteDirectoryTree(Tree().c_str()), 0);
    EXPECT_TRUE(IsThere(file));
}

TEST_F(DistantEntry, InADirectoryOfMoreThan259BytesStays) {
    const std::string outer = Tree(std::string(150, 'x'));
    const std::string inner = outer + "\\" + std::string(150, 'y');
    MakeDirectory(outer);
    MakeDirectory(inner);
    MakeFileAt(inner + "\\a.txt");
    EXPECT_EQ(DeleteDirectoryTree(Tree().c_str()), 0);
    EXPECT_EQ(DeleteDirectoryTree(inner.c_str()), 0);
    EXPECT_TRUE(IsThere(inner + "\\a.txt"));
}

// Its listing would need more than the path itself.
TEST_F(DistantEntry, InADirectoryWhoseListingDoesNotFitStays) {
    const std::string directory = Tree(std::string(258 - Tree().size() - 1, 'x'));
    ASSERT_EQ(directory.size(), 258u);
    MakeDirectory(directory);
    EXPECT_EQ(DeleteDirectoryTree(directory.c_str()), 0);
    EXPECT_TRUE(IsThere(directory));
}

TEST_F(DirectoryTree, KeepsANameThatTheCodePageDoesNotHave) {
    const std::wstring name = Path(Tree()).wstring() + L"\\\x0E01";
    ASSERT_TRUE(CreateDirectoryW(name.c_str(), nullptr));
    EXPECT_EQ(DeleteDirectoryTree(Tree().c_str()), 0);
    EXPECT_NE(GetFileAttributesW(name.c_str()), INVALID_FILE_ATTRIBUTES);
}

// Names that the system's own rules for paths would make others are made past these rules.
TEST_F(DistantEntry, WithAPointOrABlankAtItsNamesEndStays) {
    for (const char* end : {".", " ", "..", " ."}) {
        MakeDirectory(Tree(std::string("K") + end));
        MakeFileAt(Tree(std::string("K") + end + "\\a.txt"));
    }
    EXPECT_EQ(DeleteDirectoryTree(Tree().c_str()), 0);
    for (const std::string& path : made)
        EXPECT_TRUE(IsThere(path)) << path;
}

// The system would take the path alone for the directory "K".
TEST_F(DirectoryTree, IsNotToldByAPathWithAPointOrABlankAtItsEnd) {
    MakeFile("K\\a.txt");
    for (const char* end : {".", " ", "\\.", "\\..", ".\\", " /"})
        EXPECT_EQ(DeleteDirectoryTree((Tree("K") + end).c_str()), 0) << end;
    EXPECT_TRUE(Exists(Tree("K\\a.txt")));
}

TEST_F(DirectoryTree, IsNoDrivesOrSharesOwn) {
    MainLog log;
    for (const char* path : {"Q:\\", "Q:", "Q:/", "Q:\\/\\", "\\\\no server\\no share\\",
                             "\\\\no server\\no share", "\\\\?\\Q:\\"}) {
        log.Forget();
        EXPECT_EQ(DeleteDirectoryTree(path), 0);
        EXPECT_TRUE(log.HasLogged(std::string("\"") + path + "\" is no directory to delete")) << path;
    }
}

// Whoever could write to it or delete it could put a link in its place.
TEST_F(DirectoryTree, ThatAnotherHasOpenForMoreThanReadingStays) {
    MakeFile("a\\a.txt");
    for (const DWORD access : {DWORD{GENERIC_WRITE}, DWORD{DELETE}})
        for (const std::string& held : {Tree(), Tree("a")}) {
            const UniqueHandle other = OpenedFile(
                CreateFileA(held.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                            nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
            ASSERT_TRUE(other);
            EXPECT_EQ(DeleteDirectoryTree(Tree().c_str()), 0);
            EXPECT_TRUE(Exists(Tree("a\\a.txt")));
        }
    EXPECT_EQ(DeleteDirectoryTree(Tree().c_str()), 1);
}

// Code page 932 gives both names the bytes of the second.
TEST_F(DirectoryTree, WithTwoNamesThatTheCodePageMakesOneStays) {
    constexpr const wchar_t* kPairs[][2] = {
        {L"\x00A2", L"\xFFE0"}, {L"\x00A3", L"\xFFE1"}, {L"\x00AC", L"\xFFE2"}, {L"\x3094", L"\x30F4"}};
    for (const auto& pair : kPairs)
        for (const wchar_t* name : pair)
            fs::create_directories(Path(Tree()) / name);
    for (const auto& pair : kPairs)
        std::ofstream(Path(Tree()) / pair[1] / L"a.txt") << "content";
    EXPECT_EQ(DeleteDirectoryTree(Tree().c_str()), 0);
    for (const auto& pair : kPairs)
        EXPECT_TRUE(fs::exists(Path(Tree()) / pair[1] / L"a.txt"));
}

class LinkInATree : public DirectoryTree {
  protected:
    LinkInATree() { fs::create_directory(PathOf("empty")); }
    ~LinkInATree() override {
        EXPECT_TRUE(Exists(PathOf("empty")));
        for (const std::string& link : links)
            system_link::Remove(link);
    }
    void SetUp() override {
        if (!system_link::CanBeMade())
            GTEST_SKIP() << "no program that makes links";
    }
    void Link(const std::string& target, const std::string& link) {
        ASSERT_NO_FATAL_FAILURE(system_link::Make(target, link));
        links.push_back(link);
    }

    std::vector<std::string> links;
};

// Wine can't remove such a link itself, so the tree stays.
TEST_F(LinkInATree, IsNotFollowed) {
    MakeFile("a.txt");
    Link(PathOf("outside"), Tree("link"));
    EXPECT_EQ(DeleteDirectoryTree(Tree().c_str()), 0);
    EXPECT_FALSE(Exists(Tree("a.txt")));
}

// What it leads to could be removed in its place.
TEST_F(LinkInATree, ToAnEmptyDirectoryIsNotFollowed) {
    Link(PathOf("empty"), Tree("link"));
    EXPECT_EQ(DeleteDirectoryTree(Tree().c_str()), 0);
    EXPECT_TRUE(Exists(PathOf("empty")));
}

TEST_F(LinkInATree, ToAFileIsNotFollowed) {
    system_link::RunUntil("Z:\\bin\\ln -s " + system_link::UnixPath(PathOf("outside\\keep.txt")) + " " +
                              system_link::UnixLink(Tree("keep.txt")),
                          Tree("keep.txt"), false);
    for (int attempt = 0; attempt < 500 && !Exists(Tree("keep.txt")); ++attempt)
        Sleep(10);
    EXPECT_EQ(Content(Tree("keep.txt")), "kept");
    EXPECT_EQ(DeleteDirectoryTree(Tree().c_str()), 0) << "the link can't be told from the file";
    system_link::Remove(Tree("keep.txt"));
    for (int attempt = 0; attempt < 500 && Exists(Tree("keep.txt")); ++attempt)
        Sleep(10);
}

TEST_F(LinkInATree, ToTheTreeItselfEndsTheWay) {
    MakeFile("a\\a.txt");
    Link(Tree(), Tree("a\\link"));
    EXPECT_EQ(DeleteDirectoryTree(Tree().c_str()), 0);
    EXPECT_FALSE(Exists(Tree("a\\a.txt")));
}

TEST_F(LinkInATree, IsNotFollowedWhereItIsThePathItself) {
    Link(PathOf("outside"), Tree("link"));
    Link(PathOf("empty"), Tree("other_link"));
    for (const char* end : {"", "\\", "/", "\\\\", "//", "/\\", "\\/"})
        for (const char* link : {"link", "other_link"}) {
            EXPECT_EQ(DeleteDirectoryTree((Tree(link) + end).c_str()), 0) << link << end;
            EXPECT_TRUE(Exists(PathOf("empty"))) << link << end;
            EXPECT_TRUE(Exists(PathOf("outside\\keep.txt"))) << link << end;
        }
}

// The directory comes first in the listing, but its name is the link's in the code page.
TEST_F(LinkInATree, IsNotFollowedByTheNameOfADirectory) {
    constexpr struct {
        const wchar_t* directory;
        const char* link;
    } kPairs[] = {{L"\x00A2", "￠"}, {L"\x3094", "ヴ"}};
    for (const auto& [directory, link] : kPairs) {
        const std::string tree = PathOf("tree_of_" + std::to_string(links.size()));
        fs::create_directories(Path(tree) / directory);
        Link(PathOf("outside"), tree + "\\" + link);
        EXPECT_EQ(DeleteDirectoryTree(tree.c_str()), 0);
        EXPECT_TRUE(fs::exists(Path(tree) / directory));
        EXPECT_TRUE(Exists(PathOf("outside\\keep.txt")));
    }
}

} // namespace

// Folders of a test's own in place of the platform's; they go with the test.
#pragma once

#include "Common/platform_files_native.h"

#include <gtest/gtest.h>

#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

class NativeFolderTest : public testing::Test {
  protected:
    NativeFolderTest() {
        std::string name = (std::filesystem::temp_directory_path() / "zr_profile_XXXXXX").string();
        root = mkdtemp(name.data());
        platform_files::Folders() = {true, MakeFolder("documents"), MakeFolder("windows"),
                                     MakeFolder("local")};
    }
    ~NativeFolderTest() override {
        platform_files::Folders() = {};
        std::filesystem::remove_all(root);
    }

    std::string MakeFolder(std::string_view name) const {
        std::filesystem::create_directories(root / name);
        return (root / name).string();
    }
    // Writes a file, with the directories that lead to it.
    static void Write(const std::filesystem::path& path, std::string_view content) {
        std::filesystem::create_directories(path.parent_path());
        std::ofstream file(path, std::ios::binary);
        file << content;
        file.close();
        EXPECT_TRUE(file.good()) << path;
    }
    // Makes a file unreadable for all but the superuser.
    void Forbid(const std::filesystem::path& path) const {
        EXPECT_EQ(chmod(root.c_str(), 0755), 0);
        EXPECT_EQ(chmod(path.c_str(), 0), 0);
    }

    std::filesystem::path root;
};

// While it lives, a superuser, who may read any file, is another user.
class OrdinaryUser {
  public:
    OrdinaryUser() : m_self(geteuid()), m_isOrdinary(m_self != 0 || seteuid(kNobody) == 0) {}
    ~OrdinaryUser() { EXPECT_EQ(seteuid(m_self), 0); }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

    // False where the superuser can't become another user.
    bool IsOrdinary() const { return m_isOrdinary; }

  private:
    static constexpr uid_t kNobody = 65534;

    uid_t m_self;
    bool m_isOrdinary;
};

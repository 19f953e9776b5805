// Folders of a test's own in place of the platform's; they go with the test.
#pragma once

#include "Common/platform_files_native.h"

#include <gtest/gtest.h>

#include <stdlib.h>

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
        std::ofstream(path, std::ios::binary) << content;
    }

    std::filesystem::path root;
};

// A folder for a test's files that goes with the test.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <system_error>

class TestFolder {
  protected:
    // Programs of several builds may run at once.
    TestFolder() {
        do {
            folder = std::filesystem::temp_directory_path();
            folder /= "zr_test_" + std::to_string(std::random_device()());
        } while (!std::filesystem::create_directory(folder));
    }
    ~TestFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(folder, ignored);
    }
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

    // A path in the folder; the name is in the ANSI code page.
    std::string PathOf(std::string_view name) const {
        const char separator = std::filesystem::path::preferred_separator == '/' ? '/' : '\\';
        return folder.string() + separator + std::string(name);
    }
    std::string Write(std::string_view name, std::string_view content) const {
        std::ofstream file(PathOf(name), std::ios::binary);
        file << content;
        file.close();
        EXPECT_TRUE(file.good());
        return PathOf(name);
    }
    static std::string Content(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    std::filesystem::path folder;
};

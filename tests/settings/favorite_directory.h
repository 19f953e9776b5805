// The favourite directory of the platform, or one of the test's own where the build lets it choose, with
// files that go with the test.
#pragma once

#include "Common/data_directories.h"
#include "Common/platform_files.h"

#ifdef _WIN32
#include "tests/support/traces.h"
#else
#include "Common/platform_files_native.h"
#include "tests/support/test_folder.h"
#endif

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#ifdef _WIN32
class FavoriteDirectory {
  public:
    FavoriteDirectory() {
        m_path = m_traces.MakeDirectories(FolderPath(CSIDL_COMMON_DOCUMENTS),
                                          {"Zephra", "KP Controller", "Orvane X100", "favorite"});
    }
    const std::string& Path() const { return m_path; }
    void Put(const std::string& name, std::string_view content) { m_traces.Write(PathOf(name), content); }
    void PutDirectory(const std::string& name) { m_traces.MakeDirectory(PathOf(name)); }
    void Remove(const std::string& name) const { std::filesystem::remove(PathOf(name)); }
    void Resize(const std::string& name, std::uintmax_t size) const {
        std::filesystem::resize_file(PathOf(name), size);
    }

  private:
    std::string PathOf(const std::string& name) const { return m_path + "\\" + name; }

    std::string m_path;
    Traces m_traces;
};
#else
class FavoriteDirectory : private TestFolder {
  public:
    FavoriteDirectory() {
        platform_files::Folders() = {true, folder.string(), "", ""};
        EXPECT_EQ(CreateFavoriteDirectory(), 1);
        PathBuffer path{};
        GetFavoriteDirectory(path.data(), path.size());
        m_path = path.data();
    }
    ~FavoriteDirectory() { platform_files::Folders() = {}; }

    // As the program has it, in the words of the platform that it is made for.
    const std::string& Path() const { return m_path; }
    void Put(const std::string& name, std::string_view content) const {
        std::ofstream file(PathOf(name), std::ios::binary);
        file << content;
        file.close();
        EXPECT_TRUE(file.good()) << name;
    }
    void PutDirectory(const std::string& name) const { std::filesystem::create_directory(PathOf(name)); }
    void Remove(const std::string& name) const { std::filesystem::remove(PathOf(name)); }
    void Resize(const std::string& name, std::uintmax_t size) const {
        std::filesystem::resize_file(PathOf(name), size);
    }

  private:
    std::filesystem::path PathOf(const std::string& name) const {
        return platform_files::NativePath(m_path + "\\" + name);
    }

    std::string m_path;
};
#endif

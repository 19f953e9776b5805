// Files and directories that a test makes in the platform's real folders and that go with it.
#pragma once

#include <windows.h>

#include <shlobj.h>

#include <gtest/gtest.h>

#include <fstream>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

// The path of a folder by its CSIDL number.
inline std::string FolderPath(int folder) {
    char path[MAX_PATH] = {};
    SHGetSpecialFolderPathA(nullptr, path, folder, TRUE);
    return path;
}

inline bool IsDirectory(const std::string& path) {
    const DWORD attributes = GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

// Removes in the reverse order of making. Directories that were there before stay; a file that was there is
// written over and goes all the same.
class Traces {
  public:
    Traces() = default;
    ~Traces() {
        for (auto path = m_made.rbegin(); path != m_made.rend(); ++path)
            if (!DeleteFileA(path->c_str()))
                RemoveDirectoryA(path->c_str());
    }
    Traces(const Traces&) = delete;
    Traces& operator=(const Traces&) = delete;

    // A directory that someone else is going to make.
    void Expect(const std::string& path) {
        if (!IsDirectory(path))
            m_made.push_back(path);
    }
    void MakeDirectory(const std::string& path) {
        Expect(path);
        CreateDirectoryA(path.c_str(), nullptr);
    }
    // Makes a directory of these pieces below `base`, and gives its path.
    std::string MakeDirectories(std::string base, std::initializer_list<std::string_view> pieces) {
        for (const std::string_view piece : pieces) {
            base += "\\" + std::string(piece);
            MakeDirectory(base);
        }
        return base;
    }
    void Write(const std::string& path, std::string_view content) {
        m_made.push_back(path);
        std::ofstream file(path, std::ios::binary);
        file << content;
        file.close();
        EXPECT_TRUE(file.good()) << path;
    }

  private:
    std::vector<std::string> m_made;
};

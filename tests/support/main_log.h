// The main log as the module's file of it has it. It is written only where its directory is.
#pragma once

#include "tests/support/file_contents.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

// Has the log's directory while it lives.
class MainLog {
  public:
    MainLog() {
        // An attempt that found no directory keeps the log silent for a second.
        Sleep(1100);
        CreateDirectoryA("C:\\qpsp", nullptr);
        CreateDirectoryA(kDirectory, nullptr);
        Forget();
    }
    ~MainLog() {
        // Another process may be writing its last lines.
        for (int attempt = 0; IsThere(kDirectory) && attempt < 100; ++attempt) {
            Sleep(attempt > 0 ? 20 : 0);
            Forget();
            DeleteFileA(kFavorites);
            RemoveDirectoryA(kDirectory);
        }
        EXPECT_FALSE(IsThere(kDirectory)) << "all that runs from now on logs";
        RemoveDirectoryA("C:\\qpsp");
    }
    MainLog(const MainLog&) = delete;
    MainLog& operator=(const MainLog&) = delete;

    // The messages since the last Forget, without their stamps and line ends.
    std::vector<std::string> Messages() const {
        std::vector<std::string> messages;
        if (!IsThere(kFile))
            return messages;
        std::istringstream file(FileContents(kFile));
        for (std::string line; std::getline(file, line);)
            messages.push_back(line.substr(line.find("] ") + 2, line.rfind('\r') - line.find("] ") - 2));
        return messages;
    }

    // True if one of these messages contains the text.
    bool HasLogged(const std::string& text) const {
        return std::ranges::any_of(
            Messages(), [&](const std::string& message) { return message.find(text) != std::string::npos; });
    }

    void Forget() { DeleteFileA(kFile); }

  private:
    static bool IsThere(const char* path) { return GetFileAttributesA(path) != INVALID_FILE_ATTRIBUTES; }

    static constexpr char kDirectory[] = "C:\\qpsp\\Log";
    static constexpr char kFile[] = "C:\\qpsp\\Log\\debugLog.txt";
    static constexpr char kFavorites[] = "C:\\qpsp\\Log\\Favorite.txt"; // the favourites' log
};

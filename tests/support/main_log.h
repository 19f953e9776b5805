// The main log as the module's file of it has it. It is written only where its directory is.
#pragma once

#include "tests/support/file_contents.h"

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
        CreateDirectoryA("C:\\qpsp\\Log", nullptr);
        Forget();
    }
    ~MainLog() {
        Forget();
        RemoveDirectoryA("C:\\qpsp\\Log");
        RemoveDirectoryA("C:\\qpsp");
    }
    MainLog(const MainLog&) = delete;
    MainLog& operator=(const MainLog&) = delete;

    // The messages since the last Forget, without their stamps and line ends.
    std::vector<std::string> Messages() const {
        std::vector<std::string> messages;
        if (GetFileAttributesA(kFile) == INVALID_FILE_ATTRIBUTES)
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
    static constexpr char kFile[] = "C:\\qpsp\\Log\\debugLog.txt";
};

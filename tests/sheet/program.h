// Running driverhost.exe, which stands beside the test, and reading what it says.
#pragma once

#include "tests/support/own_folder.h"

#include <string>
#include <vector>

struct ProgramResult {
    unsigned long status = 0;
    std::string output; // both of its outputs
};

// `folder` is where the program stands with the files that it installs.
ProgramResult RunDriverhost(const std::vector<std::wstring>& words,
                            const std::filesystem::path& folder = OwnFolder());

// A file of tests/sheet/scripts.
std::wstring ScriptFile(const std::wstring& name);

// The file of the user's settings for "Orvane X100".
std::wstring SettingsPath();

void WriteBytes(const std::wstring& file, const std::vector<char>& bytes);
std::vector<char> ReadBytes(const std::wstring& file);

// A store with a data setting key of its own, and a second process on the other side of the key.
#pragma once

#include "session/datamanager.h"
#include "tests/support/own_folder.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <cstdint>
#include <cstdio>
#include <fstream>
#include <map>
#include <string>
#include <utility>

// A key's values as the peer reads and writes them: subkey and name; type and data in hexadecimal.
using KeyImage = std::map<std::pair<std::string, std::string>, std::pair<DWORD, std::string>>;

inline std::string Hex(const void* data, std::size_t size) {
    std::string hex;
    for (std::size_t i = 0; i < size; ++i) {
        char digits[3];
        std::snprintf(digits, sizeof digits, "%02x", static_cast<const unsigned char*>(data)[i]);
        hex += digits;
    }
    return hex;
}

inline std::pair<DWORD, std::string> NumberImage(std::uint32_t value) {
    return {4, Hex(&value, sizeof value)};
}
inline std::pair<DWORD, std::string> LongNumberImage(std::uint64_t value) {
    return {11, Hex(&value, sizeof value)};
}
inline std::pair<DWORD, std::string> TextImage(const std::string& text) {
    return {1, Hex(text.c_str(), text.size() + 1)};
}

inline bool KeyExists(const std::string& path) {
    HKEY key = nullptr;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS)
        return false;
    RegCloseKey(key);
    return true;
}

class SettingKeyTest : public testing::Test {
  protected:
    SettingKeyTest() {
        ExportedFunc_InitializeDataManager();
        key = CreateKey();
        // As the plug-in does before it starts another process; until then the key stays empty.
        KeyInUse();
    }
    ~SettingKeyTest() override {
        ExportedFunc_InitializeDataManager();
        RegDeleteTreeA(HKEY_CURRENT_USER, key.c_str());
        std::error_code ignored;
        std::filesystem::remove(file, ignored);
    }

    static std::string CreateKey() {
        char name[260] = {};
        ExportedFunc_CreateDataSettingRegistryKeyName(name);
        ExportedFunc_CreateDataSettingRegistryKey(name, 327);
        return name;
    }

    static std::string KeyInUse() {
        char name[260] = {};
        ExportedFunc_GetRegistryKeyName(name);
        return name;
    }

    static std::uint32_t Current(int keyword) {
        std::uint32_t value = 0xDEAD;
        ExportedFunc_GetCurrent(keyword, &value);
        return value;
    }

    static std::string JobName() {
        char name[512] = {};
        ExportedFunc_GetJobName(name);
        return name;
    }

    // Runs the peer to its end; false unless it reports success.
    static bool RunPeer(const std::string& arguments) {
        const auto peer = OwnFolder() / "setting_key_peer.exe";
        std::string command = "\"" + peer.string() + "\" " + arguments;
        STARTUPINFOA startup{};
        startup.cb = sizeof startup;
        PROCESS_INFORMATION process{};
        if (!CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                            &process))
            return false;
        WaitForSingleObject(process.hProcess, INFINITE);
        DWORD code = 1;
        GetExitCodeProcess(process.hProcess, &code);
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
        return code == 0;
    }

    KeyImage DumpByPeer(const std::string& keyName) const {
        EXPECT_TRUE(RunPeer("dump " + keyName + " " + file));
        KeyImage image;
        std::ifstream in(file);
        for (std::string line; std::getline(in, line);) {
            const std::size_t first = line.find('\t');
            const std::size_t second = line.find('\t', first + 1);
            const std::size_t third = line.find('\t', second + 1);
            image[{line.substr(0, first), line.substr(first + 1, second - first - 1)}] = {
                static_cast<DWORD>(std::stoul(line.substr(second + 1))), line.substr(third + 1)};
        }
        return image;
    }

    // `command` is "apply", or "write" for a change that is not handed over.
    void ChangeByPeer(const char* command, const KeyImage& image) const {
        {
            std::ofstream out(file);
            for (const auto& [place, value] : image)
                out << place.first << '\t' << place.second << '\t' << value.first << '\t' << value.second
                    << '\n';
        }
        EXPECT_TRUE(RunPeer(std::string(command) + " " + key + " " + file));
    }

    // Writes one value of a subkey as it is, without the peer.
    void Put(const char* section, const char* name, DWORD type, const std::string& data) const {
        EXPECT_EQ(RegSetKeyValueA(HKEY_CURRENT_USER, (key + "\\" + section).c_str(), name, type, data.data(),
                                  static_cast<DWORD>(data.size())),
                  ERROR_SUCCESS);
    }

    void HandOverAtOnce() {
        ++generation;
        EXPECT_EQ(RegSetKeyValueA(HKEY_CURRENT_USER, key.c_str(), "Generation", REG_DWORD, &generation,
                                  sizeof generation),
                  ERROR_SUCCESS);
    }

    void HandOver() {
        HandOverAtOnce();
        // Getters may answer from memory for 100 microseconds.
        Sleep(2);
    }

    std::string key;
    const std::string file = (std::filesystem::temp_directory_path() /
                              ("setting_key_" + std::to_string(GetCurrentProcessId()) + ".txt"))
                                 .string();
    DWORD generation = 0;
};

// A key as a sheet with nothing changed has it, for the program to show.
#pragma once

#include "companions/jobproperty/exit_code.h"
#include "tests/companions/jobproperty/command_words.h"
#include "tests/companions/jobproperty/fresh_sheet.h"
#include "tests/companions/jobproperty/property_window.h"
#include "tests/datamanager/setting_key_fixture.h"
#include "tests/support/file_contents.h"

#include <string>
#include <variant>

inline int Code(jobproperty::ExitCode code) {
    return static_cast<int>(code);
}

class ShownKeyTest : public SettingKeyTest {
  protected:
    ShownKeyTest() {
        const auto parsed = ppd::Parse(FileContents(std::string(ZR_RESOURCES_DIR) + "/x100.ppd"));
        LoadFreshSheet(std::get<ppd::PpdFile>(parsed));
        // A key is filled with what the store has when it is first asked for.
        RegDeleteTreeA(HKEY_CURRENT_USER, key.c_str());
        key = CreateKey();
        KeyInUse();
        HandOver();
    }

    void PutNumber(const char* section, const char* name, std::uint32_t value) const {
        Put(section, name, REG_DWORD, {reinterpret_cast<const char*>(&value), sizeof value});
    }
    void PutText(const char* name, const std::string& text) const {
        Put("Values", name, REG_SZ, std::string(text.c_str(), text.size() + 1));
    }

    DWORD Generation() const {
        DWORD value = 0xDEAD;
        DWORD size = sizeof value;
        RegGetValueA(HKEY_CURRENT_USER, key.c_str(), "Generation", RRF_RT_REG_DWORD, nullptr, &value, &size);
        return value;
    }

    // A store's getters may answer from memory for 100 microseconds.
    static std::uint32_t CurrentNow(int keyword) {
        Sleep(2);
        return Current(keyword);
    }
    static std::string JobNameNow() {
        Sleep(2);
        return JobName();
    }
};

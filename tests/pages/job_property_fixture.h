// A page on a sheet whose store has a data setting key, as a driver's sheet has.
#pragma once

#include "pages/standardpage.h"
#include "session/initialize_data_manager.h"
#include "tests/pages/page_fixture.h"
#include "tests/support/main_log.h"
#include "tests/support/own_folder.h"

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

using Calls = std::vector<std::string>;

inline const std::string kApplication =
    "C:\\Windows\\System32\\spool\\drivers\\ZR_ORKPN01_300_PDF_JPN_x64\\PrinterDriverApplication.exe ";

class JobPropertyTest : public PageTest {
  protected:
    static void SetUpTestSuite() { log = std::make_unique<MainLog>(); }
    static void TearDownTestSuite() { log.reset(); }

    JobPropertyTest() {
        InitializeDataManager();
        std::array<char, 260> name{};
        ExportedFunc_GetRegistryKeyName(name.data());
        key = name.data();
        id = key.substr(key.find("DataSet_") + 8);
        EXPECT_EQ(id.size(), 16u) << key;
    }
    ~JobPropertyTest() override { ExportedFunc_DeleteRegistryKey(key.c_str()); }

    // The page, its messages not yet logged and its calls not yet recorded.
    CStandardPageDlg& OpenPage() {
        page = Open(1066, StandardPageProc);
        log->Forget();
        runner.calls.clear();
        dialog = std::make_unique<CStandardPageDlg>(page, ProcessProfile());
        return *dialog;
    }

    // What the functions have logged, without file and line: "FUNCTION ..." or "FUNCTION() ...".
    static std::vector<std::string> Logged(std::string_view function) {
        constexpr std::string_view kBehindNumber = "行目 ";
        std::vector<std::string> lines;
        for (const std::string& message : log->Messages()) {
            const std::size_t at = message.find(kBehindNumber);
            if (at == std::string::npos)
                continue;
            const std::string line = message.substr(at + kBehindNumber.size());
            if (line == function || line.starts_with(std::string(function) + "() ") ||
                line.starts_with(std::string(function) + " "))
                lines.push_back(line);
        }
        return lines;
    }

    bool KeyIsThere() const {
        HKEY opened = nullptr;
        if (RegOpenKeyExA(HKEY_CURRENT_USER, key.c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS)
            return false;
        RegCloseKey(opened);
        return true;
    }
    // What another process finds in the key's Current bank; a value that is not there is 0.
    DWORD InKey(const char* keyword) const {
        DWORD value = 0;
        DWORD size = sizeof value;
        RegGetValueA(HKEY_CURRENT_USER, (key + "\\Current").c_str(), keyword, RRF_RT_REG_DWORD, nullptr,
                     &value, &size);
        return value;
    }

    static inline std::unique_ptr<MainLog> log;
    std::string key;
    std::string id;
    HWND page = nullptr;
    std::unique_ptr<CStandardPageDlg> dialog;
};

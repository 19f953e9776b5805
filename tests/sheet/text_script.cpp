#include "tests/sheet/text_script.h"

#include "host/driverhost_text.h"
#include "tests/sheet/program.h"

#include <gtest/gtest.h>

#include <windows.h>

std::string PlayText(const std::string& text, const std::filesystem::path& folder,
                     std::vector<std::wstring> options) {
    // In the prefix's own folder: processes of two prefixes may have the same number.
    const std::wstring file = (std::filesystem::temp_directory_path() /
                               (L"text_script_" + std::to_wstring(GetCurrentProcessId()) + L".txt"))
                                  .wstring();
    const std::string script = driverhost::Utf8OfAnsi(text);
    WriteBytes(file, {script.begin(), script.end()});
    options.insert(options.end(), {L"--script", file});
    const ProgramResult result = RunDriverhost(options, folder);
    EXPECT_EQ(result.status, 0u) << result.output << "\n" << script;
    DeleteFileW(file.c_str());
    return result.output;
}

std::string Line(const std::string& words, std::int64_t number) {
    return words + " " + std::to_string(number) + "\n";
}

std::string ExpectCurrent(int keyword, std::int64_t value) {
    return "expect bank Current " + std::to_string(keyword) + Line("", value);
}

std::string Choose(int control, int row) {
    return "choose " + std::to_string(control) + Line("", row) + "expect row " + std::to_string(control) +
           Line("", row);
}

void ClearPrinter() {
    const ProgramResult removed = RunDriverhost({L"--remove"});
    EXPECT_EQ(removed.status, 0u) << removed.output;
}

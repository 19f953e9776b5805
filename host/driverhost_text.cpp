#include "host/driverhost_text.h"

#include "host/wide.h"

#include <windows.h>

#include <array>

namespace driverhost {
namespace {

void Write(DWORD handle, std::string_view utf8) {
    const HANDLE output = GetStdHandle(handle);
    DWORD written = 0;
    if (DWORD mode = 0; GetConsoleMode(output, &mode)) {
        const std::wstring wide = Wide(utf8);
        WriteConsoleW(output, wide.data(), static_cast<DWORD>(wide.size()), &written, nullptr);
        return;
    }
    WriteFile(output, utf8.data(), static_cast<DWORD>(utf8.size()), &written, nullptr);
}

} // namespace

std::string Utf8OfAnsi(std::string_view ansi) {
    const int size = static_cast<int>(ansi.size());
    std::wstring wide(ansi.size(), L'\0');
    wide.resize(
        static_cast<std::size_t>(MultiByteToWideChar(CP_ACP, 0, ansi.data(), size, wide.data(), size)));
    return Utf8(wide);
}

std::string AnsiOfUtf8(std::string_view utf8) {
    const std::wstring wide = Wide(utf8);
    const int size = static_cast<int>(wide.size());
    std::string ansi(2 * wide.size(), '\0');
    ansi.resize(static_cast<std::size_t>(WideCharToMultiByte(
        CP_ACP, 0, wide.data(), size, ansi.data(), static_cast<int>(ansi.size()), nullptr, nullptr)));
    return ansi;
}

void Print(std::string_view utf8) {
    Write(STD_OUTPUT_HANDLE, utf8);
}
void PrintError(std::string_view utf8) {
    Write(STD_ERROR_HANDLE, utf8);
}

std::string ErrorText(unsigned long error) {
    std::array<wchar_t, 256> buffer{};
    DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error,
                                  0, buffer.data(), static_cast<DWORD>(buffer.size()), nullptr);
    while (length > 0 && (buffer[length - 1] == L'\n' || buffer[length - 1] == L'\r'))
        --length;
    return "error " + std::to_string(error) +
           (length > 0 ? " (" + Utf8({buffer.data(), length}) + ")" : std::string());
}

} // namespace driverhost

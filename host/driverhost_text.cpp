#include "host/driverhost_text.h"

#include <windows.h>

#include <array>

namespace driverhost {
namespace {

std::wstring WidenFrom(UINT page, std::string_view text) {
    const int size = static_cast<int>(text.size());
    std::wstring wide(static_cast<std::size_t>(MultiByteToWideChar(page, 0, text.data(), size, nullptr, 0)),
                      L'\0');
    MultiByteToWideChar(page, 0, text.data(), size, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

void Write(DWORD handle, std::string_view utf8) {
    const HANDLE output = GetStdHandle(handle);
    DWORD written = 0;
    if (DWORD mode = 0; GetConsoleMode(output, &mode)) {
        const std::wstring wide = Widen(utf8);
        WriteConsoleW(output, wide.data(), static_cast<DWORD>(wide.size()), &written, nullptr);
        return;
    }
    WriteFile(output, utf8.data(), static_cast<DWORD>(utf8.size()), &written, nullptr);
}

} // namespace

std::wstring Widen(std::string_view utf8) {
    return WidenFrom(CP_UTF8, utf8);
}

std::string Narrow(std::wstring_view wide) {
    const int size = static_cast<int>(wide.size());
    std::string text(static_cast<std::size_t>(
                         WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, nullptr, 0, nullptr, nullptr)),
                     '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, text.data(), static_cast<int>(text.size()), nullptr,
                        nullptr);
    return text;
}

std::string NarrowAnsi(std::string_view ansi) {
    return Narrow(WidenFrom(CP_ACP, ansi));
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
           (length > 0 ? " (" + Narrow({buffer.data(), length}) + ")" : std::string());
}

} // namespace driverhost

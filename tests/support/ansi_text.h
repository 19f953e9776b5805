// Test data stands in UTF-8; texts at run time are in code page 932.
#pragma once

#include <string>

#if defined(_WIN32)
#include <windows.h>
#else
#include <iconv.h>
#endif

inline std::string AnsiText(std::string utf8) {
#if defined(_WIN32)
    std::wstring wide(utf8.size(), L'\0');
    wide.resize(static_cast<std::size_t>(MultiByteToWideChar(
        CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), wide.data(), static_cast<int>(wide.size()))));
    std::string ansi(2 * wide.size(), '\0');
    ansi.resize(static_cast<std::size_t>(
        WideCharToMultiByte(932, 0, wide.data(), static_cast<int>(wide.size()), ansi.data(),
                            static_cast<int>(ansi.size()), nullptr, nullptr)));
    return ansi;
#else
    std::string ansi(2 * utf8.size(), '\0');
    char* from = utf8.data();
    char* to = ansi.data();
    std::size_t fromLeft = utf8.size();
    std::size_t toLeft = ansi.size();
    iconv_t converter = iconv_open("CP932", "UTF-8");
    const bool whole = iconv(converter, &from, &fromLeft, &to, &toLeft) != static_cast<std::size_t>(-1);
    iconv_close(converter);
    ansi.resize(whole ? ansi.size() - toLeft : 0);
    return ansi;
#endif
}

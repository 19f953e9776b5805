// The command lines that start and end the job property application. Texts are in the ANSI code page.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// A command line's buffer with its NUL; what does not fit is cut on a character boundary.
inline constexpr std::size_t kCommandLineSize = 2047;

// The id by which the application tells sheets apart, taken from the data setting key's name: with n the
// offset behind its last backslash, at most n and at most 31 characters from n + 8 on; "" if that lies behind
// the end.
std::string JobPropertyId(std::string_view key);

struct JobPropertyStart {
    std::string_view key;
    std::string_view server;
    std::uint32_t communicationMode = 0;
    std::uint32_t startupMode = 0;
};

// `application` is the program's path and a blank, as string 20709 has it. A key and a server stand with at
// most 259 bytes each. No text is quoted: the words' own blanks part them, and two of them can meet.
std::string StartCommand(std::string_view application, const JobPropertyStart& start);
std::string ShowCommand(std::string_view application, std::string_view key);
std::string ExitCommand(std::string_view application, std::string_view key);
std::string FileCommand(std::string_view application, std::string_view address);

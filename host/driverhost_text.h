// Text of the platform in the program's UTF-8, and the program's two outputs.
#pragma once

#include <string>
#include <string_view>

namespace driverhost {

// Text of the process's ANSI code page as UTF-8, and back; `utf8` must be UTF-8.
std::string Utf8OfAnsi(std::string_view ansi);
std::string AnsiOfUtf8(std::string_view utf8);

// UTF-8 to standard output and standard error; a console gets it as its own text.
void Print(std::string_view utf8);
void PrintError(std::string_view utf8);

// What GetLastError's number means, with the number.
std::string ErrorText(unsigned long error);

} // namespace driverhost

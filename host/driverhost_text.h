// Text between the program's UTF-8 and the platform's UTF-16, and the program's two outputs.
#pragma once

#include <string>
#include <string_view>

namespace driverhost {

std::wstring Widen(std::string_view utf8);
std::string Narrow(std::wstring_view wide);

// Text of the process's ANSI code page as UTF-8.
std::string NarrowAnsi(std::string_view ansi);

// UTF-8 to standard output and standard error; a console gets it as its own text.
void Print(std::string_view utf8);
void PrintError(std::string_view utf8);

// What GetLastError's number means, with the number.
std::string ErrorText(unsigned long error);

} // namespace driverhost

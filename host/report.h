// How this module tells why a call failed: in the main log, to a debugger, and to the caller who asks. What
// there is no memory for is not told.
#pragma once

#include <string>
#include <string_view>

// Keeps the message, UTF-8, as the last one and writes it to the log and the debugger.
void Report(std::string_view message) noexcept;

// Only writes it: for what went on all the same.
void Remark(std::string_view message) noexcept;

void ClearReport() noexcept;
std::wstring LastReport() noexcept;

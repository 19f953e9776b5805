// Scripts that a test writes as text: the installed printer's sheet is opened in a process of its own and
// played on.
#pragma once

#include "tests/support/own_folder.h"

#include <cstdint>
#include <string>
#include <vector>

// Plays the text, which is in the code page of these sources, and expects it to end well. Returns what was
// printed, UTF-8. `folder` is where driverhost.exe stands, `options` are others of its options.
std::string PlayText(const std::string& text, const std::filesystem::path& folder = OwnFolder(),
                     std::vector<std::wstring> options = {});

// "words NUMBER" and a line feed.
std::string Line(const std::string& words, std::int64_t number);

// The keyword's value in the Current bank.
std::string ExpectCurrent(int keyword, std::int64_t value);

// The row is chosen and stays.
std::string Choose(int control, int row);

// Takes printer, driver and settings away.
void ClearPrinter();

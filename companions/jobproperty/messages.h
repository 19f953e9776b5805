// What the program tells its user: texts by number, and the two ways they are told.
#pragma once

#include "companions/jobproperty/command_line.h"

#include <windows.h>

#include <string>

namespace jobproperty {

enum class TextId : unsigned {
#define ZR_APPLICATION_TEXT(name, number, text) name = number,
#include "companions/jobproperty/texts.def"
#undef ZR_APPLICATION_TEXT
};

std::string Text(TextId text);

// What is wrong with a command line, with the word at fault.
std::string TextOf(const CommandError& error);

// To the standard error, for what runs unseen.
void ReportUnseen(const std::string& text);
// In a box above `owner`, which may be null.
void ReportSeen(HWND owner, const std::string& text);

} // namespace jobproperty

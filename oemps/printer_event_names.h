// Which part of a printer's name an event goes by. A byte of a double-byte character parts nothing.
#pragma once

#include <string_view>

// What follows the last character of this kind; the whole text if there is none.
std::string_view BehindLast(std::string_view text, char character);

// From behind the last or the first backslash to the last comma behind that. Without a backslash the part
// begins with the name, without such a comma it ends with it.
std::string_view PartBehindLastBackslash(std::string_view printerName);
std::string_view PartBehindFirstBackslash(std::string_view printerName);

// True for a part that names a connection whose jobs the client renders. The part's own first backslash is
// gone already, so the mark counts only behind another one.
bool IsClientSideRendering(std::string_view part);

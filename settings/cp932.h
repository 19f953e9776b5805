// Code page 932 to and from Unicode, for the build whose platform has no ANSI code page.
#pragma once

#include <string>
#include <string_view>

// Asks the platform for the page, once. False if it can't tell: then nothing below may be called.
bool PrepareCp932();

// UTF-8, without the characters that XML has no place for. A double-byte character that the page lacks
// becomes U+30FB, as on the platform; a first byte without its second is left out.
std::string WrittenUtf8(std::string_view cp932);

// Appends the text; what the page lacks becomes '?'. `utf8` must be UTF-8.
void AppendCp932(std::string& cp932, std::string_view utf8);

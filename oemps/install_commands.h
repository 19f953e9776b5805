// What the driver's installation and removal have to do with the job property application, as texts in the
// ANSI code page.
#pragma once

#include <array>
#include <string>
#include <string_view>

// What the environment calls a machine whose programs are 64-bit.
inline constexpr char kAmd64[] = "AMD64";

// The application's directory below the Windows directory, with a backslash in front: the one of 64-bit
// machines if the two texts are equal. "" if the string table has none.
std::string JobPropertyPath(std::string_view processor, std::string_view amd64);

// The same path for the other architecture: x86 in the place of x64 at its end, x64 in the place of all else.
std::string OtherArchitecture(std::string path);

// The commands that pre-compile the application's managed assemblies or undo that, in the order in which they
// are to run. No text is quoted.
std::array<std::string, 4> NgenCommands(bool install, std::string_view processor,
                                        std::string_view windowsDirectory);

// The command line of driverhost.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace driverhost {

enum class Command { DocumentSheet, DeviceSheet, Dump, Remove, Help, Version };

// All texts are UTF-8.
struct Options {
    Command command = Command::DocumentSheet;
    std::string printer = "Orvane X100";
    std::string ppd;            // "" for the description beside the program
    bool installed = false;     // the printer is taken as it is, nothing is installed
    std::string script;         // "" for a sheet that a person works on
    std::optional<int> timeout; // seconds
    std::string error;          // why the command line can't be followed, "" if it can
};

inline constexpr char kVersion[] = "1.0";

// A scripted sheet ends after this many seconds unless the command line says otherwise.
inline constexpr int kScriptTimeout = 60;

// Reads the words behind the program's name.
Options ParseOptions(std::span<const std::string> words);

// The time limit in force, in seconds: none for a person's sheet without --timeout.
std::optional<int> TimeLimit(const Options& options);

std::string HelpText();

} // namespace driverhost

// The command lines that the plug-in starts the job property application with. They come from outside:
// whatever differs from the forms below is an error, so that no other key than a data setting key is ever
// opened and no kernel object is named after anything but an id.
//
//   -start ID KEY PDF ja-JP [SERVER] -iotproduct 10 [-mock -market JP]
//   -start ID KEY PDF ja-JP -ip [SERVER] -onceForce -iotproduct 10 [-mock -market JP]
//   -show ID KEY PDF
//   -exit ID
//   -file dummyID dummyRegKey PDF ja-JP -ip [ADDRESS] -onceForce -iotproduct 10
//
// A sheet whose key was removed leaves ID and KEY empty, which is a fault of its own. A server and an address
// are not used and may be any words: they reach up to the word that stands behind them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace jobproperty {

enum class Verb : std::uint8_t { Start, Show, Exit, File };

struct Command {
    Verb verb;
    std::string id;  // "" for -file
    std::string key; // "" for -exit and -file
    bool operator==(const Command&) const = default;
};

enum class CommandFault : std::uint8_t {
    Empty,
    TooLong,
    UnknownCommand,
    WrongId,
    WrongKey,
    IdOfAnotherKey,
    NoKey,         // neither an id nor a key
    WrongKind,     // the driver is not the PDF one
    WrongLanguage, // not ja-JP
    WrongProduct,  // not 10
    MissingWord,
    UnknownWord, // or one too many
};

struct CommandError {
    CommandFault fault;
    bool isSeen;      // false for -start and -exit, which nobody looks at
    std::string word; // the one at fault, "" for one that is missing
    bool operator==(const CommandError&) const = default;
};

// What the plug-in's buffer holds.
inline constexpr std::size_t kMostCommandLine = 2046;

// `line` is without the program's own path.
std::variant<Command, CommandError> ParseCommandLine(std::string_view line);

} // namespace jobproperty

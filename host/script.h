// The scripts that driverhost plays on a sheet: UTF-8 text, one action a line, `#` starts a comment.
//
// Words are separated by blanks. A word that holds blanks or begins with `#` stands in double quotes, in
// which
// \" \\ and \n mean a quote, a backslash and a line feed; outside quotes a backslash is an ordinary
// character.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace script {

enum class Verb {
    Page,
    Choose,
    Click,
    Check,
    Type,
    Press,
    Answer,
    Screenshot,
    Wait,
    PrintBank,
    PrintValue,
    PrintText,
    SetBank,
    SetValue,
    SetText,
    Key,
    Reopen,
    EndProgram,
    ExpectRow,
    ExpectRows,
    ExpectItem,
    ExpectText,
    ExpectEnabled,
    ExpectDisabled,
    ExpectVisible,
    ExpectHidden,
    ExpectChecked,
    ExpectFocus,
    ExpectRunning,
    ExpectBank,
    ExpectValue,
    ExpectPage,
    ExpectMessage,
};

enum class Bank { Current, Default, Favorite, Preview };

// Control ids of the buttons that a script names by word. Apply is the property sheet's own.
inline constexpr int kOkButton = 1;
inline constexpr int kCancelButton = 2;
inline constexpr int kYesButton = 6;
inline constexpr int kNoButton = 7;
inline constexpr int kApplyButton = 0x3021;

// Virtual key codes of the keys that a script names by word.
inline constexpr int kEnterKey = 0x0D;
inline constexpr int kEscapeKey = 0x1B;
inline constexpr int kTabKey = 0x09;
inline constexpr int kUpKey = 0x26;
inline constexpr int kDownKey = 0x28;
inline constexpr int kSpaceKey = 0x20;

// One line. Which members count follows from the verb.
struct Action {
    int line = 0; // from 1
    Verb verb = Verb::Wait;
    int control = 0;           // a control id, buttons included
    std::optional<int> row;    // from 0; without one `choose` goes by `text`
    Bank bank = Bank::Current; //
    int keyword = 0;           // key of the bank
    std::uint32_t number = 0;  // a value of the store, milliseconds, a key, or 1 and 0 for on and off
    std::string text;          // UTF-8: a title, a text, a file or the name of a value
    std::string wanted;        // UTF-8: what a value or a row is compared with or set to
};

struct Error {
    int line = 0; // 0 if it is about the script as a whole
    std::string message;
};

struct Script {
    std::vector<Action> actions;
    std::optional<Error> error; // the first one; `actions` then ends before its line
};

// A longer text is refused: no script needs it, and a mistaken file name may lead anywhere.
inline constexpr std::size_t kMaximumSize = 1 << 20;

// Reads a script. Every word of every action is checked here, so that a player meets only what it can play.
Script Parse(std::string_view text);

// The actions and what they take, a line each, for people.
std::string Usage();

// "FILE:LINE: message", the line left out where there is none.
std::string Describe(std::string_view file, const Error& error);

// `text` in double quotes, so that Parse reads it back as one word.
std::string Quoted(std::string_view text);

} // namespace script

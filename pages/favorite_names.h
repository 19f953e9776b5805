// What a favourite's name and comment may be. Texts are in the ANSI code page.
#pragma once

#include "settings/favorite_limits.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

// NUL-terminated. What is longer than the limits leave is refused before it comes here.
using FavoriteName = std::array<char, 260>;
using FavoriteComment = std::array<char, 256>;

// No file can have them in its name.
inline constexpr std::string_view kForbiddenInFavoriteName = "\\/:*?\"<>|";

// True if `text` has one of the characters; the second byte of a double-byte character is none.
bool ContainsChars(std::string_view text, std::string_view characters);
// True for a text of blanks alone, of either width, and for an empty one.
bool IsAllSpace(std::string_view text);

// Why a name or a comment is not taken, as the message that says so.
struct NameRefusal {
    unsigned text = 0;    // the string's number
    std::string argument; // what takes the place of its "%s", if it has one

    bool operator==(const NameRefusal&) const = default;
};

// Where a name is checked. Each place asks in an order of its own, so that one name can be refused with
// different messages.
enum class NamePlace {
    SaveDialog,     // the name of a new favourite
    FavoriteDialog, // the name that a favourite is to have
    FileToSave,     // the name, without extension, of the file that a favourite is written to
    FileToLoad,     // the name, without extension, of the file that a favourite is read from
};

// What is wrong with the name. That a favourite or a file has it already is not asked here.
std::optional<NameRefusal> RefuseFavoriteName(NamePlace place, std::string_view name);
std::optional<NameRefusal> RefuseFavoriteComment(std::string_view comment);

// The typed comment as it is saved: on one line, since a file keeps neither line ends nor tabs. Each becomes
// a blank.
std::string OneLineComment(std::string_view typed);

// The message that the user sees.
std::string RefusalText(const NameRefusal& refusal);
// Shows it above the window, an HWND, and returns once it was read.
void ShowRefusal(void* owner, const NameRefusal& refusal);

// The job owner's fields of a record: what is written into them, without a word about where it comes from.
#pragma once

#include "oemps/devmode.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// What a registry value of the owner's can hold, and what a copy into the record writes at most.
inline constexpr std::size_t kOwnerTextSize = 256;

// Stands for "the owner is the user who is logged in".
inline constexpr std::string_view kLoginName = "LoginName";

// The user's name as the platform tells it, at most kOwnerTextSize bytes; "" if it does not.
std::string LoggedInUser();

// Sets the authentication fields for a mode, 0 being off; with another the owner is the user who is logged in
// where `specified` is kLoginName, else `owner`. Returns 1.
//
// A text longer than its field runs on into the fields behind it, for kOwnerTextSize bytes at most, which all
// lie in the record.
int SetAuthenticationData(PrivateDevMode& record, std::uint32_t mode, std::string_view specified,
                          std::string_view owner, std::string_view password, std::string_view account);

// Sets the fields to a mode that is off and a job without an owner. A text loses its first byte only.
void ClearAuthenticationData(PrivateDevMode& record);

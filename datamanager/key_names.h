// The names of the registry keys that the store makes and removes, all below HKEY_CURRENT_USER. A name comes
// from outside, so it is checked before a key is made or removed by it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

inline constexpr std::string_view kDataSettingParent = "Software\\Zephra\\QPSP";
// The last part of a data setting key's name is this and 16 hexadecimal digits. Its length, 8, is known to
// the reader of the digits, which stand alone on the job property application's command line.
inline constexpr std::string_view kDataSettingPrefix = "DataSet_";

// The parent of the authentication dialogs' keys, one per printer.
inline constexpr std::string_view kAuthenticationParent = "Software\\Zephra\\ZR Print Driver Data";

// The name of a data setting key: the upper eight digits are the process, the lower eight the stamp.
std::string DataSettingKeyName(std::uint32_t process, std::uint32_t stamp);

// True for exactly the names that DataSettingKeyName gives.
bool IsDataSettingKeyName(std::string_view name);

// The process that a data setting key's name tells; 0 of another name.
std::uint32_t ProcessOfKey(std::string_view name);

// A stamp that no earlier call in this process gave, whatever the clock does. It is the time in milliseconds
// as far as possible, so that a process that gets the number of an ended one makes other names.
std::uint32_t NextKeyStamp(std::uint64_t time);

// The path of a printer's authentication key, told by the key's own name or by its whole path; "" if the name
// is neither, in which case nothing may be removed.
std::string AuthenticationKeyPath(std::string_view name);

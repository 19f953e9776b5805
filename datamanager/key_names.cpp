#include "datamanager/key_names.h"

#include "Common/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cinttypes>
#include <cstdio>

namespace {

constexpr std::size_t kIdDigits = 16;
constexpr std::size_t kMaxKeyName = 255;

// Takes `beginning` and a backslash off the head of `name`; false if they do not stand there.
bool TakeOff(std::string_view& name, std::string_view beginning) {
    if (!name.starts_with(beginning) || !name.substr(beginning.size()).starts_with('\\'))
        return false;
    name.remove_prefix(beginning.size() + 1);
    return true;
}

bool IsUpperHexDigit(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F');
}

} // namespace

std::string DataSettingKeyName(std::uint32_t process, std::uint32_t stamp) {
    std::array<char, kIdDigits + 1> id{};
    std::snprintf(id.data(), id.size(), "%08" PRIX32 "%08" PRIX32, process, stamp);
    std::string name(kDataSettingParent);
    return name.append("\\").append(kDataSettingPrefix).append(id.data());
}

bool IsDataSettingKeyName(std::string_view name) {
    if (!TakeOff(name, kDataSettingParent) || !name.starts_with(kDataSettingPrefix))
        return false;
    name.remove_prefix(kDataSettingPrefix.size());
    return name.size() == kIdDigits && std::ranges::all_of(name, IsUpperHexDigit);
}

std::uint32_t ProcessOfKey(std::string_view name) {
    std::uint32_t process = 0;
    if (IsDataSettingKeyName(name)) {
        const char* digits = name.data() + name.size() - kIdDigits;
        std::from_chars(digits, digits + kIdDigits / 2, process, 16);
    }
    return process;
}

std::uint32_t NextKeyStamp(std::uint64_t time) {
    static std::uint64_t last = 0;
    last = std::max(last + 1, time);
    return static_cast<std::uint32_t>(last);
}

std::string AuthenticationKeyPath(std::string_view name) {
    TakeOff(name, kAuthenticationParent);
    // A backslash would lead to a key further below, or, at an end of the name, to the parent itself.
    if (name.empty() || name.size() > kMaxKeyName || FindLastCharacter(name, '\\') != std::string_view::npos)
        return {};
    return std::string(kAuthenticationParent).append("\\").append(name);
}

#include "companions/communication/address_form.h"

#include <algorithm>

namespace {

constexpr std::size_t kMostLabelBytes = 63;
constexpr std::size_t kIpV4Parts = 4;

// The platform's own questions depend on the locale.
bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

bool IsLetter(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

bool IsHexadecimalDigit(char character) {
    return IsDigit(character) || (character >= 'a' && character <= 'f') ||
           (character >= 'A' && character <= 'F');
}

bool IsOfIpV6(char character) {
    constexpr std::string_view kOthers = ":.[]";
    return IsHexadecimalDigit(character) || kOthers.find(character) != std::string_view::npos;
}

bool IsOfHostName(char character) {
    return IsDigit(character) || IsLetter(character) || character == '-' || character == '.' ||
           character == '_';
}

// A port or a path has one colon at most before it; a zone follows a percent sign.
bool LooksLikeIpV6(std::string_view address) {
    const std::string_view number = address.substr(0, address.find('%'));
    return std::ranges::count(number, ':') >= 2 && std::ranges::all_of(number, IsOfIpV6);
}

bool IsLabel(std::string_view part) {
    return !part.empty() && part.size() <= kMostLabelBytes && part.front() != '-' && part.back() != '-';
}

// Of 0 to 255. A leading zero would make the number octal for some readers.
bool IsIpV4Part(std::string_view part) {
    if (part.empty() || part.size() > 3 || !std::ranges::all_of(part, IsDigit) ||
        (part.size() > 1 && part.front() == '0'))
        return false;
    int number = 0;
    for (const char digit : part)
        number = 10 * number + (digit - '0');
    return number <= 255;
}

// True if there are parts at all and each is one of the kind.
bool IsEachPart(std::string_view address, bool (*isOfKind)(std::string_view)) {
    for (;;) {
        const std::size_t period = address.find('.');
        if (!isOfKind(address.substr(0, period)))
            return false;
        if (period == std::string_view::npos)
            return true;
        address.remove_prefix(period + 1);
    }
}

bool IsIpV4(std::string_view address) {
    return std::ranges::count(address, '.') == kIpV4Parts - 1 && IsEachPart(address, IsIpV4Part);
}

// A host name's last part is not a number, so that none can be taken for an IPv4 address.
bool EndsInNumber(std::string_view address) {
    const std::string_view last = address.substr(address.rfind('.') + 1);
    return !last.empty() && std::ranges::all_of(last, IsDigit);
}

bool IsOfDigits(std::string_view address) {
    return std::ranges::all_of(address,
                               [](char character) { return IsDigit(character) || character == '.'; });
}

} // namespace

std::wstring_view WithoutBlanksAround(std::wstring_view text) {
    constexpr std::wstring_view kBlanks = L" \t\u3000"; // the last is as wide as a double-byte character
    const std::size_t begin = text.find_first_not_of(kBlanks);
    return begin == std::wstring_view::npos ? std::wstring_view()
                                            : text.substr(begin, text.find_last_not_of(kBlanks) + 1 - begin);
}

AddressFault FaultOfAddress(std::string_view address) {
    if (address.empty())
        return AddressFault::None;
    if (address.size() > kMostAddressBytes)
        return AddressFault::TooLong;
    if (LooksLikeIpV6(address))
        return AddressFault::IpV6;
    if (!std::ranges::all_of(address, IsOfHostName))
        return AddressFault::Character;
    if (IsOfDigits(address) || EndsInNumber(address))
        return IsIpV4(address) ? AddressFault::None : AddressFault::IpV4;
    return IsEachPart(address, IsLabel) ? AddressFault::None : AddressFault::Label;
}

#include "datamanager/printer_settings.h"

#include <map>
#include <string_view>
#include <utility>

namespace printer_settings {
namespace {

std::map<std::pair<void*, std::wstring_view>, std::uint32_t> numbers;

constexpr std::uint32_t kNotSupported = 50;

} // namespace

std::uint32_t ReadNumber(void* printer, const wchar_t* name) {
    const auto found = numbers.find({printer, name});
    return found != numbers.end() ? found->second : 0;
}

std::uint32_t WriteNumber(void* printer, const wchar_t* name, std::uint32_t value) {
    numbers[{printer, name}] = value;
    return 0;
}

bool ReadAddress(void*, std::span<wchar_t, kAddressLength> address) {
    address[0] = L'\0';
    return false;
}

std::uint32_t WriteAddress(void*, const std::wstring&) {
    return kNotSupported;
}

std::uint32_t ReadRaw(void*, const wchar_t*, std::optional<RawData>& data) {
    data.reset();
    return kNotSupported;
}

std::uint32_t PutBack(void*, const wchar_t*, const std::optional<RawData>&) {
    return kNotSupported;
}

} // namespace printer_settings

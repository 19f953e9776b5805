#include "datamanager/printer_settings.h"

#include <map>
#include <string_view>
#include <utility>

namespace printer_settings {
namespace {

std::map<std::pair<void*, std::wstring_view>, std::uint32_t> numbers;

} // namespace

std::uint32_t ReadNumber(void* printer, const wchar_t* name) {
    const auto found = numbers.find({printer, name});
    return found != numbers.end() ? found->second : 0;
}

void WriteNumber(void* printer, const wchar_t* name, std::uint32_t value) {
    numbers[{printer, name}] = value;
}

bool ReadAddress(void*, std::span<wchar_t, kAddressLength> address) {
    address[0] = L'\0';
    return false;
}

} // namespace printer_settings

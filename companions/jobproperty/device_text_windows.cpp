#include "companions/jobproperty/device_text.h"

#include <windows.h>

#include <cstddef>

namespace jobproperty {

std::string DeviceText(std::string_view utf8) {
    constexpr UINT kPage = 932;
    // No text has more UTF-16 units than bytes, nor a unit more than two bytes in this page.
    std::wstring wide(utf8.size(), L'\0');
    wide.resize(static_cast<std::size_t>(MultiByteToWideChar(
        CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), wide.data(), static_cast<int>(wide.size()))));
    std::string text(2 * wide.size(), '\0');
    text.resize(static_cast<std::size_t>(WideCharToMultiByte(kPage, WC_NO_BEST_FIT_CHARS, wide.data(),
                                                             static_cast<int>(wide.size()), text.data(),
                                                             static_cast<int>(text.size()), "?", nullptr)));
    return text;
}

} // namespace jobproperty

#include "host/wide.h"

#include <windows.h>

std::string Utf8(std::wstring_view text) {
    std::string out(3 * text.size(), '\0');
    const int written = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()),
                                            out.data(), static_cast<int>(out.size()), nullptr, nullptr);
    out.resize(static_cast<std::size_t>(written));
    return out;
}

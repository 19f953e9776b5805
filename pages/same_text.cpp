#include "pages/same_text.h"

#include <windows.h>

#include <string>

namespace {

std::string UpperCase(std::string_view text) {
    std::string upper(text);
    CharUpperBuffA(upper.data(), static_cast<DWORD>(upper.size()));
    return upper;
}

} // namespace

bool IsSameButForCase(std::string_view a, std::string_view b) {
    return UpperCase(a) == UpperCase(b);
}

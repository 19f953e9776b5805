#include "Common/strings.h"
#include "Common/text.h"

#include <windows.h>

#include <array>

namespace {

HINSTANCE stringModule = nullptr;

} // namespace

void SetStringModule(void* module) {
    stringModule = static_cast<HINSTANCE>(module);
}

void* StringModule() {
    return stringModule ? stringModule : GetModuleHandleA(nullptr);
}

std::size_t LoadText(unsigned id, std::span<char> buffer) {
    // The platform's own cut of a text too long for its buffer may fall inside a character.
    std::array<char, 2048> whole;
    const int length = LoadStringA(stringModule, id, whole.data(), static_cast<int>(whole.size()));
    return CopyText(buffer, {whole.data(), static_cast<std::size_t>(length)});
}

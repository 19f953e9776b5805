#include "Common/strings.h"

#include <array>

std::string LoadText(unsigned id) {
    std::array<char, 260> buffer;
    return {buffer.data(), LoadText(id, buffer)};
}

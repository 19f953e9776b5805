#include "Common/error_message.h"

#include <array>

std::string ErrorMessage(DWORD error) {
    std::array<char, 1024> text{};
    const DWORD length = FormatMessageA(
        FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK, nullptr,
        error, 0, text.data(), static_cast<DWORD>(text.size()), nullptr);
    std::string message(text.data(), length);
    message.resize(message.find_last_not_of("\r\n ") + 1);
    return message.empty() ? std::to_string(error) : message;
}

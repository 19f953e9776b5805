#include "companions/common/wide_text.h"

SecretBuffer<wchar_t> WideText(std::span<const char> text) {
    const int size = static_cast<int>(text.size());
    // 0 for no text, which the platform takes for a failure.
    const int length = MultiByteToWideChar(CP_ACP, 0, text.data(), size, nullptr, 0);
    SecretBuffer<wchar_t> wide(static_cast<std::size_t>(length) + 1);
    MultiByteToWideChar(CP_ACP, 0, text.data(), size, wide.Units().data(), length);
    return wide;
}

std::optional<SecretBuffer<char>> NarrowText(std::span<const wchar_t> text) {
    // UTF-8 has every character, and takes neither the flag nor the question.
    const bool isWhole = GetACP() == CP_UTF8;
    const DWORD flags = isWhole ? 0 : WC_NO_BEST_FIT_CHARS;
    BOOL isLacking = FALSE;
    BOOL* const lacking = isWhole ? nullptr : &isLacking;
    const int size = static_cast<int>(text.size());
    const int length = WideCharToMultiByte(CP_ACP, flags, text.data(), size, nullptr, 0, nullptr, lacking);
    SecretBuffer<char> narrow(static_cast<std::size_t>(length));
    WideCharToMultiByte(CP_ACP, flags, text.data(), size, narrow.Units().data(), length, nullptr, nullptr);
    if (isLacking)
        return std::nullopt;
    return narrow;
}

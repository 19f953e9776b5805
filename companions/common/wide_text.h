// Text between the ANSI code page, which the product keeps it in, and what the system holds.
#pragma once

#include "companions/common/secret_buffer.h"

#include <optional>
#include <span>

// With a NUL behind it. Throws std::bad_alloc.
SecretBuffer<wchar_t> WideText(std::span<const char> text);

// Without a NUL; nothing if the code page lacks one of the characters. Throws std::bad_alloc.
std::optional<SecretBuffer<char>> NarrowText(std::span<const wchar_t> text);

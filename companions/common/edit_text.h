// The texts of edits that hold UTF-16, as those of a dialog made by a wide call do.
#pragma once

#include "companions/common/secret_buffer.h"

#include <windows.h>

#include <string>

// All that stands in the edit; a NUL stands behind it. Throws std::bad_alloc.
SecretBuffer<wchar_t> EditText(HWND edit);

inline std::wstring PlainEditText(HWND edit) {
    const SecretBuffer<wchar_t> text = EditText(edit);
    return {text.Units().begin(), text.Units().end()};
}

// Telling windows apart by their class.
#pragma once

#include <windows.h>

#include <array>

inline constexpr wchar_t kDialogClass[] = L"#32770"; // dialogs, message boxes and property sheets

// Names of classes are the same whatever their case.
inline bool HasClass(HWND window, const wchar_t* name) {
    std::array<wchar_t, 64> buffer{};
    GetClassNameW(window, buffer.data(), static_cast<int>(buffer.size()));
    return lstrcmpiW(buffer.data(), name) == 0;
}

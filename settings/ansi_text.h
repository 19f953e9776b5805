// Text between the process's ANSI code page and the strings of COM Automation.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <memory>
#include <string>
#include <string_view>

struct BStrFreer {
    void operator()(OLECHAR* text) const { SysFreeString(text); }
};
using UniqueBStr = std::unique_ptr<OLECHAR, BStrFreer>;

// Without the characters that XML has no place for. Null if memory is short.
UniqueBStr WrittenBStr(std::string_view ansi);

// Appends the text, `length` units. Each character that the code page lacks becomes its default character,
// '?', also where the page has one that looks alike.
void AppendAnsi(std::string& ansi, const OLECHAR* text, UINT length);

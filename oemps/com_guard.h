// The edge between this program and its COM callers: no exception crosses it.
#pragma once

#include "Common/log.h"

#include <windows.h>

#include <exception>
#include <utility>

// Runs the body of a COM operation. What it throws is logged and becomes E_FAIL.
template <typename Body>
HRESULT ComGuard(const char* operation, Body&& body) noexcept {
    try {
        return std::forward<Body>(body)();
    } catch (const std::exception& failure) {
        WriteLog("%s: %s\n", operation, failure.what());
    } catch (...) {
        WriteLog("%s: unknown exception\n", operation);
    }
    return E_FAIL;
}

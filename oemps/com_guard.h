// The edge between this program and its COM callers: no exception crosses it.
#pragma once

#include "Common/log.h"

#include <windows.h>

#include <exception>
#include <new>
#include <utility>

// Runs the body of a COM operation. What it throws is logged and becomes a status.
template <typename Body>
HRESULT ComGuard(const char* operation, Body&& body) noexcept {
    try {
        return std::forward<Body>(body)();
    } catch (const std::bad_alloc&) {
        WriteLog("%s: out of memory\n", operation);
        return E_OUTOFMEMORY;
    } catch (const std::exception& failure) {
        WriteLog("%s: %s\n", operation, failure.what());
        return E_FAIL;
    }
}

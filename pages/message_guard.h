// Where the operating system calls a window's procedure, no exception may leave it.
#pragma once

#include "Common/log.h"

#include <exception>
#include <utility>

// What `handle` gives for the message; 0, with a log line, if it raises something.
template <typename Handler>
auto GuardMessage(unsigned message, Handler&& handle) -> decltype(handle()) {
    try {
        return std::forward<Handler>(handle)();
    } catch (const std::exception& error) {
        ZR_LOG("message=%u %s\n", message, error.what());
    } catch (...) {
        ZR_LOG("message=%u\n", message);
    }
    return 0;
}

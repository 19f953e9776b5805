// What surrounds the exported function of a module with a dialog.
#pragma once

#include "Common/log.h"

#include <cstdint>
#include <exception>
#include <utility>

// Texts and dialogs come from the module that this is part of from now on.
void UseOwnResources();

// What `run` gives, 1 if something was stored; 0, with a log line, if it raises something.
template <typename Run>
std::int32_t RunExported(Run&& run) noexcept {
    try {
        UseOwnResources();
        return std::forward<Run>(run)() ? 1 : 0;
    } catch (const std::exception& error) {
        ZR_LOG("%s\n", error.what());
    } catch (...) {
        ZR_LOG("failed\n");
    }
    return 0;
}

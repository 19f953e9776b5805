// Tests of what is logged.
#pragma once

#include "tests/support/main_log.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>

// The main log of each test alone.
class WithLog : public testing::Test {
  protected:
    // One for all: making it takes a second.
    static MainLog& Log() {
        static MainLog log;
        return log;
    }

    WithLog() { Log().Forget(); }

    static std::size_t Logged(const std::string& text) {
        const auto messages = Log().Messages();
        return static_cast<std::size_t>(std::ranges::count_if(
            messages, [&](const std::string& message) { return message.find(text) != std::string::npos; }));
    }
};

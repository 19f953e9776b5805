// Opening a sheet and having it worked on: by a script, or by a person within a time limit.
#pragma once

#include "host/script.h"

// Brings the clocks along. <chrono> itself holds a literal that the execution character set lacks.
#include <condition_variable>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace driverhost {

struct Show {
    // Opens the sheet on the calling thread and returns when it is closed. Called again when the script wants
    // it. What it throws is the failure of the whole.
    std::function<void()> open;
    // The script, null for a person. Its file's name is for messages.
    const std::vector<script::Action>* actions = nullptr;
    std::string file;
    // How long a sheet may be open, if there is a limit.
    std::optional<std::chrono::milliseconds> sheetLimit;
    // How long the sheet may need for one action before it counts as stuck.
    std::chrono::milliseconds actionLimit = std::chrono::seconds(10);
    // Receives what the script prints, UTF-8 with its line feed.
    std::function<void(std::string_view)> print;
};

// Shows the sheet. Returns "" or the failure, told as FILE:LINE: message where it is a script's; the sheet
// has then been cancelled. A sheet that can't even be cancelled ends the process with status 1, its message
// on standard error.
std::string RunSheet(const Show& show);

} // namespace driverhost

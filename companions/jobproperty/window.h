// The property window: subjects and search, the settings, the editor of one, and what ends it.
#pragma once

#include "companions/jobproperty/edited_settings.h"

#include <windows.h>

#include <functional>
#include <string>

namespace jobproperty {

struct WindowTexts {
    std::string hint;    // stands in the window
    std::string opening; // told in a box as soon as the window is there; "" for none
};

// Shows the settings until the user ends the window. At OK `accept` is asked, with the window: false keeps it
// open. True if it was ended with OK. Throws std::bad_alloc; std::system_error if there can be no window.
bool EditInWindow(const Catalogue& catalogue, JobSettings& settings, const WindowTexts& texts,
                  const std::function<bool(HWND)>& accept);

} // namespace jobproperty

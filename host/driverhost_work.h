// What a script's action does with the window in front, or finds in it. All of it runs on the thread of the
// window, unless that belongs to another process.
#pragma once

#include "host/script.h"

#include <string>

#include <windows.h>

namespace driverhost {

// What stands in a message box.
std::wstring MessageOf(HWND box);

// Each of these returns "" or what is wrong.
std::string Mismatch(const std::string& what, const std::string& found, const std::string& wanted);
// One action or expectation on a control.
std::string WorkOn(HWND front, const script::Action& action);
std::string ExpectMessage(HWND front, const std::string& wanted);
std::string Answer(HWND front, int button);

} // namespace driverhost

// What is done when the driver is installed or removed; the rest of it are members of IOemUI.
#pragma once

#include <string>

// Tells the user, in front of all windows, if the run-time of the job property application is missing.
void WarnWithoutDotNet();

// Runs a program to its end, without a console's window. 1 if it was started, whatever came of it, else 0.
int DoModalCommand(const std::string& command);

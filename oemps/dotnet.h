// The run-time that the job property application needs.
#pragma once

// True if the .NET Framework 4.0 or later is installed on this machine.
bool IsDotNet4Present();

// The job property application for printing to a file.
#pragma once

// Starts the application for the printer of the device sheet, with none of a sheet's settings, and waits for
// its end.
void FileJobProperty();

// Sets the C run-time's character type to the language that a driver's name tells, for the whole process: 1,
// or 0 if it tells none.
int FindAndSetlocale(const char* driverName);

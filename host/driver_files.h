// Where a printer's driver files are, and the description read from them.
#pragma once

#include "host/printer_model.h"

#include <windows.h>

#include <memory>
#include <string>

struct DriverFiles {
    std::wstring directory;   // with its closing backslash
    std::wstring description; // full paths
    std::wstring ini;         // names the plug-in; may be missing
};

// By the printer's driver; without a printer, the files that stand beside this module. Throws Failure.
DriverFiles FindDriverFiles(HANDLE printer);

// Reads the description, or hands out the one read before if the file has not changed. Throws Failure.
std::shared_ptr<const PrinterModel> LoadModel(const std::wstring& path);

// The name of the plug-in's file as the .ini gives it; "" if there is no such file or line. Throws Failure if
// the name is more than a name.
std::wstring PluginFileName(const DriverFiles& files);

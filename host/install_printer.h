// Puts the driver and its printer into the spooler, and brings the files of an installed one up to date.
#pragma once

#include <string>
#include <vector>

inline constexpr wchar_t kDriverName[] = L"Zephra Orvane X100";
inline constexpr wchar_t kPrinterName[] = L"Orvane X100";

// Where the plug-in starts the job property application: the path of its own string table.
std::wstring JobPropertyApplicationPath();

// The files of a driver, by name within one source folder.
struct DriverPackage {
    std::wstring driverName = kDriverName;
    std::wstring configFile = L"x100drvui.dll";
    std::wstring dataFile = L"x100.ppd";
    // Copied and registered as the driver's dependent files. One that the source folder lacks is left out,
    // unless it is the description's .ini, without which no plug-in can be found.
    std::vector<std::wstring> dependentFiles = {L"x100.ini",
                                                L"ZRPDS31J.dll",
                                                L"ZRPDS31J_def",
                                                L"ZRPDS31JENU.dll",
                                                L"DataManager.dll",
                                                L"AuthenticationManager.dll",
                                                L"CommunicationSetting.dll"};
    // The program that the plug-in starts by its full path, and that path. Without a path there is none.
    std::wstring application = L"PrinterDriverApplication.exe";
    std::wstring applicationPath = JobPropertyApplicationPath();
};

struct InstallResult {
    bool ok = false;
    bool driverAdded = false;     // false where it was there
    bool printerAdded = false;    // false where it was there
    std::wstring driverDirectory; // where the spooler keeps the files, without a closing backslash
    std::wstring message;         // why it failed, one sentence in English; "" if it did not
    std::wstring lacking;         // what the printer has to do without, one sentence; "" if nothing
};

// Copies what differs from `sourceDirectory` into the spooler's driver folder, registers the driver where it
// is not there or its list of files has changed, and adds the printer where it is not there. A file that a
// running program holds is moved aside, not overwritten. A source folder without the application leaves an
// installed one where it is.
InstallResult InstallPrinter(const std::wstring& sourceDirectory,
                             const std::wstring& printerName = kPrinterName,
                             const DriverPackage& package = {});

// Deletes the printer; true if it is gone. The driver and its files stay.
bool RemovePrinter(const std::wstring& printerName = kPrinterName);

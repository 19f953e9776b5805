// The printer's driver as it is installed: putting it in, taking it out, and the module that the spooler
// loads.
#pragma once

#include "host/driverhost_options.h"
#include "host/x100drvui.h"

#include <cstddef>
#include <span>
#include <string>

namespace driverhost {

struct Installed {
    std::string error;         // UTF-8; "" if the printer is there
    std::wstring configModule; // of its driver, in the spooler's folder
    std::string lacking;       // UTF-8; what the printer has to do without, "" if nothing
};

// Brings driver and printer in from the files beside the program, the device description from where the
// options say. A description that can't be read changes nothing.
Installed Install(const Options& options);

// The printer as somebody else has installed it.
Installed FindInstalled(const std::wstring& printerName);

struct Removed {
    std::string error;  // UTF-8; "" if both are gone
    std::string untold; // UTF-8; why the driver could not be told of it, which keeps nothing
};

// Takes the printer out, and the driver if no other printer has it. The driver is told first, as the spooler
// would: of the printer, whose user loses the authentication data for it, and of itself, by which the job
// property application's directory goes.
Removed Remove(const std::wstring& printerName);

// The description of the installed printer, "" for one that is not there.
std::wstring DescriptionOf(const std::wstring& printerName);

// The configuration module out of the spooler's folder.
class DriverModule {
  public:
    explicit DriverModule(const std::wstring& file);

    // Why the module can't be used; "" if it can.
    const std::string& Trouble() const { return m_trouble; }

    PFNDRVPROPERTYSHEETS DeviceSheets() const { return m_deviceSheets; }
    // CPSUI_OK or CPSUI_CANCEL, whichever ended the sheet that was closed last in this process.
    DWORD LastSheetResult() const { return m_lastResult(); }
    // Why the last call of this process failed, `otherwise` if the module has nothing to say.
    std::string LastMessage(const std::string& otherwise) const;
    // Why the printer's driver would not take these settings; "" if it would.
    std::string Refusal(const std::wstring& printerName, std::span<const std::byte> devmode) const;

  private:
    template <typename Function>
    void Find(HMODULE module, const char* name, Function& function);

    std::string m_trouble;
    PFNDRVPROPERTYSHEETS m_deviceSheets = nullptr;
    PFNX100GETLASTMESSAGE m_lastMessage = nullptr;
    PFNX100GETLASTSHEETRESULT m_lastResult = nullptr;
    PFNX100CHECKDEVMODE m_check = nullptr;
};

} // namespace driverhost

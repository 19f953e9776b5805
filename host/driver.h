// A printer as one call of the spooler's client library sees it: its description, its plug-in, and DEVMODEs
// made of both.
#pragma once

#include "Common/win_handles.h"
#include "host/driver_devmode.h"
#include "host/driver_files.h"
#include "host/plugin.h"

#include <memory>
#include <string>
#include <vector>

// An open printer; opened by its name where the caller has no handle. Throws Failure.
class PrinterRef {
  public:
    PrinterRef(HANDLE printer, PCWSTR name);

    // Null where the caller gave neither handle nor name: the files beside the module then describe the
    // printer.
    HANDLE Get() const { return m_printer; }
    const std::wstring& Name() const { return m_name; }

  private:
    UniquePrinter m_owned;
    HANDLE m_printer;
    std::wstring m_name;
};

using DevModeBytes = std::vector<std::byte>;

class Driver {
  public:
    // Throws Failure if the files, the description or the plug-in are not as they must be.
    Driver(HANDLE printer, PCWSTR name);

    const PrinterRef& Printer() const { return m_printer; }
    const PrinterModel& Model() const { return *m_model; }
    Plugin& OemPlugin() { return m_plugin; }
    std::size_t BlockSize() const { return m_blockSize; }
    std::size_t Size() const { return m_size; }

    // The whole DEVMODE: the defaults, over them what the spooler keeps for this printer, over that `in`,
    // which the caller vouches for up to its own dmSize and dmDriverExtra and which may be null. A stored
    // DEVMODE that the driver or the plug-in can't use is passed over; such an `in` throws Failure.
    DevModeBytes Make(const DEVMODEW* in);

    // Throws Failure if `in` can't be used.
    void Check(std::span<const std::byte> in) const;

    // Rewrites the driver's own parts for changed settings.
    void Write(DevModeBytes& devmode, const Settings& settings) const;

    std::span<std::byte> Block(DevModeBytes& devmode) const;

  private:
    DevModeBytes Stored() const;
    DevModeReading Read(std::span<const std::byte> bytes, const Settings& base) const;
    Settings MakeDefault(DevModeBytes& devmode);
    void Take(std::span<const std::byte> bytes, PDEVMODEW publicIn, DevModeBytes& devmode,
              Settings& settings);
    Settings MakeStored(DevModeBytes& devmode);

    PrinterRef m_printer;
    DriverFiles m_files;
    std::shared_ptr<const PrinterModel> m_model;
    Plugin m_plugin;
    std::size_t m_blockSize;
    std::size_t m_size;
};

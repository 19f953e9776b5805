#include "host/driverhost_sheets.h"

#include "Common/win_handles.h"
#include "host/driverhost_text.h"
#include "host/wide.h"

#include <vector>

namespace driverhost {
namespace {

UniquePrinter OpenPrinterNamed(const std::wstring& name) {
    std::wstring writable = name;
    UniquePrinter printer;
    OpenPrinterW(writable.data(), printer.Receive(), nullptr);
    return printer;
}

PDEVMODEW AsDevMode(std::vector<std::byte>& bytes) {
    return reinterpret_cast<PDEVMODEW>(bytes.data());
}

// The calls of one printer's DocumentProperties.
class DocumentProperties {
  public:
    DocumentProperties(HANDLE printer, const std::wstring& name) : m_printer(printer), m_name(name) {}

    LONG Size() { return Call(nullptr, nullptr, 0); }
    LONG Defaults(std::vector<std::byte>& out) { return Call(AsDevMode(out), nullptr, DM_OUT_BUFFER); }
    // The settings as the driver writes them itself.
    LONG Normalize(std::vector<std::byte>& out, std::vector<std::byte>& in) {
        return Call(AsDevMode(out), AsDevMode(in), DM_IN_BUFFER | DM_OUT_BUFFER);
    }
    LONG Sheet(std::vector<std::byte>& out, std::vector<std::byte>& in) {
        return Call(AsDevMode(out), AsDevMode(in), DM_IN_PROMPT | DM_IN_BUFFER | DM_OUT_BUFFER);
    }

  private:
    LONG Call(PDEVMODEW out, PDEVMODEW in, DWORD mode) {
        return DocumentPropertiesW(nullptr, m_printer, m_name.data(), out, in, mode);
    }

    HANDLE m_printer;
    std::wstring m_name;
};

// The stored settings are the driver's to judge, which knows the printer's description.
std::vector<std::byte> LoadChecked(const std::wstring& printerName, const DriverModule& driver,
                                   const SettingsFile& settings, std::string& error) {
    std::vector<std::byte> stored = settings.Load(error);
    if (!error.empty() || stored.empty())
        return {};
    if (const std::string refusal = driver.Refusal(printerName, stored); !refusal.empty()) {
        error = "the stored settings in " + Utf8(settings.File()) + " can't be used: " + refusal;
        return {};
    }
    return stored;
}

// The bytes that the DEVMODE claims, never more than there are; none of a buffer that was not filled.
std::vector<std::byte> Trimmed(std::vector<std::byte> devmode) {
    const std::size_t size = std::size_t{AsDevMode(devmode)->dmSize} + AsDevMode(devmode)->dmDriverExtra;
    if (size < devmode.size())
        devmode.resize(size);
    return devmode;
}

// Other programs take the user's settings for the printer from the spooler.
void Publish(HANDLE printer, std::vector<std::byte>& devmode) {
    PRINTER_INFO_9W info{AsDevMode(devmode)};
    if (!SetPrinterW(printer, 9, reinterpret_cast<BYTE*>(&info), 0))
        PrintError("driverhost: the spooler does not take the settings: " + ErrorText(GetLastError()) + "\n");
}

} // namespace

std::string ShowDocumentSheet(const std::wstring& printerName, const DriverModule& driver,
                              const SettingsFile& settings) {
    const UniquePrinter printer = OpenPrinterNamed(printerName);
    if (!printer)
        return "the printer can't be opened: " + ErrorText(GetLastError());
    DocumentProperties properties(printer.Get(), printerName);
    const LONG size = properties.Size();
    if (size < static_cast<LONG>(sizeof(DEVMODEW)))
        return driver.LastMessage("the driver does not tell the size of its settings");

    std::string error;
    std::vector<std::byte> stored = LoadChecked(printerName, driver, settings, error);
    if (!error.empty())
        return error;
    std::vector<std::byte> in(static_cast<std::size_t>(size));
    if ((stored.empty() ? properties.Defaults(in) : properties.Normalize(in, stored)) < 0)
        return driver.LastMessage("the driver has no settings to start from");
    in = Trimmed(std::move(in));

    std::vector<std::byte> out(static_cast<std::size_t>(size));
    if (properties.Sheet(out, in) < 0)
        return driver.LastMessage("the sheet could not be opened");
    out = Trimmed(std::move(out));
    // Wine returns IDOK for a cancelled sheet and for one that never opened too.
    if (driver.LastSheetResult() != CPSUI_OK || out.empty())
        return driver.LastMessage("");
    if (const std::string refusal = driver.Refusal(printerName, out); !refusal.empty())
        return "the sheet gives settings that can't be used: " + refusal;
    if (std::string failure = settings.Store(out); !failure.empty())
        return failure;
    Publish(printer.Get(), out);
    return "";
}

std::string ShowDeviceSheet(const std::wstring& printerName, const DriverModule& driver) {
    const UniquePrinter printer = OpenPrinterNamed(printerName);
    if (!printer)
        return "the printer can't be opened: " + ErrorText(GetLastError());
    std::wstring name = printerName;
    DEVICEPROPERTYHEADER header{sizeof header, 0, printer.Get(), name.data()};
    DWORD result = 0;
    // The platform's PrinterProperties never reaches the configuration module here.
    if (CommonPropertySheetUIW(nullptr, driver.DeviceSheets(), reinterpret_cast<LPARAM>(&header), &result) <
        0)
        return driver.LastMessage("the sheet could not be opened");
    return "";
}

} // namespace driverhost

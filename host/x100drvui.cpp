// The exports of the printer's configuration module. No exception leaves them.
#include "host/x100drvui.h"

#include "Common/log.h"
#include "host/capabilities.h"
#include "host/device_sheet.h"
#include "host/document_sheet.h"
#include "host/failure.h"
#include "host/report.h"

#include <algorithm>
#include <atomic>
#include <exception>

namespace {

constexpr char kUnknownFailure[] = "The call fails for an unknown reason.";

template <class Result, class Body>
Result Guarded(Result failed, Body body) noexcept {
    try {
        ClearReport();
        return body();
    } catch (const std::exception& failure) {
        Report(failure.what());
    } catch (...) {
        Report(kUnknownFailure);
    }
    return failed;
}

std::atomic<DWORD> g_lastResult{CPSUI_CANCEL};

// A sheet that can't be opened or kept has been cancelled.
LONG GuardedSheet(PPROPSHEETUI_INFO info, LPARAM param,
                  std::unique_ptr<PluginSheet> (*make)(LPARAM)) noexcept {
    try {
        if (info->Reason == PROPSHEETUI_REASON_INIT) {
            ClearReport();
            g_lastResult = CPSUI_CANCEL;
        }
        LONG answer = DriveSheet(info, param, make);
        if (info->Reason == PROPSHEETUI_REASON_DESTROY)
            g_lastResult = static_cast<DWORD>(info->Result);
        return answer;
    } catch (const std::exception& failure) {
        Report(failure.what());
    } catch (...) {
        Report(kUnknownFailure);
    }
    info->Result = CPSUI_CANCEL;
    return -1;
}

std::unique_ptr<PluginSheet> MakeDocumentSheet(LPARAM lParamInit) {
    auto* header = reinterpret_cast<DOCUMENTPROPERTYHEADER*>(lParamInit);
    if (!header)
        throw Failure("The document sheet is opened without a header.");
    return std::make_unique<DocumentSheet>(*header);
}

std::unique_ptr<PluginSheet> MakeDeviceSheet(LPARAM lParamInit) {
    auto* header = reinterpret_cast<const DEVICEPROPERTYHEADER*>(lParamInit);
    if (!header)
        throw Failure("The device sheet is opened without a header.");
    return std::make_unique<DeviceSheet>(*header);
}

LONG WithoutSheet(DOCUMENTPROPERTYHEADER& header) {
    Driver driver(header.hPrinter, header.pszPrinterName);
    if (header.fMode == 0) {
        header.cbOut = static_cast<DWORD>(driver.Size());
        return static_cast<LONG>(driver.Size());
    }
    GiveDevMode(driver.Make(GivenDevMode(header)), header);
    return IDOK;
}

// A printer of an event may be gone by then, or on its way, or not be there yet; its driver's files are those
// beside this module all the same.
DriverFiles FilesOfEvent(LPWSTR printerName) {
    UniquePrinter printer;
    try {
        if (printerName && *printerName && OpenPrinterW(printerName, printer.Receive(), nullptr))
            return FindDriverFiles(printer.Get());
    } catch (const Failure&) {
        ZR_LOG("the spooler does not tell the printer's driver\n");
    }
    return FindDriverFiles(nullptr);
}

} // namespace

LONG WINAPI DrvDocumentPropertySheets(PPROPSHEETUI_INFO info, LPARAM param) {
    ZR_LOG_ENTRY();
    if (info)
        return GuardedSheet(info, param, &MakeDocumentSheet);
    return Guarded<LONG>(-1, [&] {
        auto* header = reinterpret_cast<DOCUMENTPROPERTYHEADER*>(param);
        if (!header)
            throw Failure("Document properties are asked for without a header.");
        return WithoutSheet(*header);
    });
}

LONG WINAPI DrvDevicePropertySheets(PPROPSHEETUI_INFO info, LPARAM param) {
    ZR_LOG_ENTRY();
    return info ? GuardedSheet(info, param, &MakeDeviceSheet) : -1;
}

DWORD WINAPI DrvDeviceCapabilities(HANDLE printer, PWSTR device, WORD capability, PVOID output, PDEVMODEW) {
    ZR_LOG_ENTRY();
    return Guarded<DWORD>(GDI_ERROR, [&]() -> DWORD {
        if (capability == DC_SIZE)
            return sizeof(DEVMODEW);
        if (capability == DC_EXTRA)
            return static_cast<DWORD>(Driver(printer, device).Size() - sizeof(DEVMODEW));
        PrinterRef ref(printer, device);
        auto model = LoadModel(FindDriverFiles(ref.Get()).description);
        return DescribedCapability(*model, capability, output).value_or(GDI_ERROR);
    });
}

BOOL WINAPI DrvPrinterEvent(LPWSTR printerName, INT event, DWORD flags, LPARAM param) {
    ZR_LOG_ENTRY();
    return Guarded<BOOL>(FALSE, [&] {
        Plugin(FilesOfEvent(printerName)).PrinterEvent(printerName, event, flags, param);
        return TRUE;
    });
}

BOOL WINAPI DrvDriverEvent(DWORD event, DWORD level, LPBYTE driverInfo, LPARAM param) {
    ZR_LOG_ENTRY();
    return Guarded<BOOL>(FALSE, [&] {
        Plugin(FindDriverFiles(nullptr)).DriverEvent(event, level, driverInfo, param);
        return TRUE;
    });
}

DWORD WINAPI X100GetLastMessage(PWSTR buffer, DWORD count) {
    std::wstring message = LastReport();
    if (buffer && count > 0) {
        std::size_t length = std::min<std::size_t>(message.size(), count - 1);
        std::copy_n(message.data(), length, buffer);
        buffer[length] = L'\0';
    }
    return static_cast<DWORD>(message.size());
}

DWORD WINAPI X100GetLastSheetResult() {
    return g_lastResult;
}

BOOL WINAPI X100CheckDevMode(PCWSTR printerName, const void* devmode, DWORD size) {
    return Guarded<BOOL>(FALSE, [&] {
        Driver(nullptr, printerName)
            .Check(std::span(static_cast<const std::byte*>(devmode), devmode ? size : 0));
        return TRUE;
    });
}

// The address of the print server, which the device's data files are found by and the job property
// application is told.
#include "Common/log.h"
#include "Common/printer_info.h"
#include "Common/text.h"
#include "Common/win_handles.h"
#include "pages/print_server_address.h"
#include "pages/standardpage.h"
#include "session/datamanager.h"
#include "session/session.h"

#include <array>
#include <memory>
#include <new>

namespace {

// A printer of this machine has no server.
const char* TextOrNull(const char* text) {
    return text ? text : "(null)";
}

DWORD ReadPrinterData(HANDLE printer, DWORD& type, std::span<BYTE> value, DWORD& needed) {
    return GetPrinterDataA(printer, const_cast<LPSTR>(kPrinterPortAddress), &type, value.data(),
                           static_cast<DWORD>(value.size()), &needed);
}

// The status of the reading. The data need not end in a NUL.
DWORD ReadAddress(HANDLE printer, DWORD size, std::span<char> address) {
    const std::unique_ptr<BYTE[]> value(new (std::nothrow) BYTE[size]());
    if (!value)
        return ERROR_NOT_ENOUGH_MEMORY;
    DWORD type = REG_NONE;
    const DWORD status = ReadPrinterData(printer, type, {value.get(), size}, size);
    if (status == ERROR_SUCCESS && type == REG_SZ)
        CopyText(address, FieldText({reinterpret_cast<const char*>(value.get()), size}));
    return status;
}

} // namespace

int CStandardPageDlg::GetIpAddressFromRegstry(HANDLE printer, std::span<char, 128> address,
                                              const char* serverName) {
    ZR_LOG_ENTRY();
    DWORD type = REG_NONE;
    DWORD size = 0;
    DWORD status = ReadPrinterData(printer, type, {}, size);
    const StoredAddress stored = JudgeStoredAddress(status, type);
    if (stored != StoredAddress::Readable) {
        ZR_LOG("status=%lu type=%lu\n", status, type);
        return stored == StoredAddress::Unusable ? 1 : 0;
    }
    status = ReadAddress(printer, size, address);
    ZR_LOG("status=%lu address=%s\n", status, address.data());
    const std::string reachable(ReachableAddress(FieldText(address), serverName));
    CopyText(address, reachable);
    return status == ERROR_SUCCESS ? 1 : 0;
}

void CStandardPageDlg::SetServerAddress(SessionBlock* session) {
    ZR_LOG_ENTRY();
    PrinterInfo info;
    info.Fetch(session->hPrinter, 2);
    const auto* printer = info.As<PRINTER_INFO_2A>();
    if (!printer)
        return;
    ZR_LOG("pServerName=%s pPrinterName=%s pPortName=%s\n", TextOrNull(printer->pServerName),
           TextOrNull(printer->pPrinterName), TextOrNull(printer->pPortName));

    std::array<char, 256> serverName{};
    CopyText(serverName, TextOrNull(printer->pServerName));
    std::array<char, 128> address{};
    if (GetIpAddressFromRegstry(session->hPrinter, address, serverName.data()) < 1) {
        ZR_LOG("once more with the printer's name\n");
        UniquePrinter byName;
        if (printer->pPrinterName && OpenPrinterA(printer->pPrinterName, byName.Receive(), nullptr))
            GetIpAddressFromRegstry(byName.Get(), address, serverName.data());
    }
    ExportedFunc_SetServerAddress(address.data());
}

#include "oemps/file_job_property.h"

#include "Common/log.h"
#include "Common/printer_info.h"
#include "oemps/sheet_state.h"
#include "pages/job_property_command.h"
#include "pages/job_property_link.h"
#include "pages/process_runner.h"
#include "session/datamanager.h"

#include <array>
#include <clocale>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

struct Language {
    const char* marker; // in a driver's name
    const char* code;
};

// In the order in which they are looked for.
constexpr Language kLanguages[] = {
    {" J", "JPN"}, {" EN", "ENA"}, {" SC", "CHS"}, {" TC", "CHT"}, {" KOR", "KOR"},
};

// The stored address in the language's code page; "" for one that this can't write.
std::string PortAddress() {
    std::array<wchar_t, 260> wide{};
    ExportedFunc_GetPrinterPortAddress(g_hPrinter, wide.data());
    std::array<char, 260> address{};
    const std::size_t length = std::wcstombs(address.data(), wide.data(), address.size() - 1);
    if (length != static_cast<std::size_t>(-1))
        return {address.data(), length};
    ZR_LOG("the address has characters of another language\n");
    return {};
}

} // namespace

int FindAndSetlocale(const char* driverName) {
    ZR_LOG_ENTRY();
    const std::string_view name(driverName);
    for (const auto& [marker, code] : kLanguages) {
        if (name.find(marker) == std::string_view::npos)
            continue;
        std::setlocale(LC_CTYPE, code);
        return 1;
    }
    return 0;
}

void FileJobProperty() {
    ZR_LOG_ENTRY();
    PrinterInfo info;
    info.Fetch(g_hPrinter, 2);
    const auto* printer = info.As<PRINTER_INFO_2A>();
    if (!printer) {
        ZR_LOG("no printer information\n");
        return;
    }
    if (!FindAndSetlocale(printer->pDriverName ? printer->pDriverName : ""))
        std::setlocale(LC_CTYPE, "ENU");
    const std::string address = PortAddress();
    std::uint32_t startupMode = 0;
    ExportedFunc_GetStarttupMode(g_hPrinter, &startupMode);
    ZR_LOG("startupMode=%u\n", startupMode);

    const std::string command = FileCommand(CreateCommand(), address);
    ZR_LOG("%s\n", command.c_str());
    if (RunProgram(command, ProgramWindow::OwnChoice) == ProgramRun::NotStarted)
        ZR_LOG("error=%lu\n", GetLastError());
}

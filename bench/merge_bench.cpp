// What the merge of a stored record costs when the user has 500 connections to printers, each of which is
// looked at for the owner's data: on a machine without the log's directory, which is the normal case, and on
// one with it.
// On the former a merge that finds the connections changed has to ask for each name, as the first merge of a
// process has; the others take the names that were kept. Fails where the median of "merging, no log" or of
// "merging after a change, no log" is more than 20 ms; the other rows have no limit.
#include "bench/timing.h"
#include "oemps/devmode.h"
#include "oemps/oem_devmode.h"
#include "oemps/printer_connections.h"
#include "tests/support/registry_override.h"
#include "tests/support/spooler_printer.h"
#include "tests/support/traces.h"

#include <cstdio>
#include <string>

namespace {

constexpr int kConnections = 500;
constexpr double kLimit = 20000; // microseconds
constexpr char kLogDirectory[] = "C:\\qpsp\\Log";

void AddUser(const RegistryOverride& user, const std::string& printer) {
    for (int i = 1; i < kConnections; ++i)
        user.AddText(("Printers\\Connections\\,,server,Printer " + std::to_string(i)).c_str(), "GuidPrinter",
                     "{0}");
    user.AddText(("Printers\\Connections\\,,server," + printer).c_str(), "GuidPrinter", "{1}");
    const std::string key = "Software\\Zephra\\ZR Print Driver Data\\" + printer + "{1}\\UserInfo";
    for (const char* name :
         {"SpecifyJobOwnerName_User", "JobOwnerName_User", "JobOwnerNamePassword_User", "AccountID_User"})
        user.AddText(key.c_str(), name, "owner");
}

} // namespace

int main() {
    if (IsDirectory(kLogDirectory)) {
        std::printf("%s is there: each merge would be logged in it\n", kLogDirectory);
        return 1;
    }
    const SpoolerPrinter printer("Merge Bench");
    const RegistryOverride user(HKEY_CURRENT_USER);
    AddUser(user, printer.Name());
    const DWORD mode = 1;
    printer.Put(L"ManageMethod", REG_DWORD, &mode, sizeof mode);

    PrivateDevMode target{};
    PrivateDevMode source{};
    OEMDMPARAM param{};
    param.hPrinter = printer.Handle();
    param.pOEMDMIn = &source;
    for (PrivateDevMode* record : {&source, &target}) {
        param.pOEMDMOut = record;
        hrOEMDevMode(OEMDM_DEFAULT, &param);
    }
    const auto merge = [&] { hrOEMDevMode(OEMDM_MERGE, &param); };
    const auto report = [&](const std::string& when) {
        Report(("enumerating the connections, " + when).c_str(), [] { ListConnections(kConnectionsKey); });
        return Report(("merging, " + when).c_str(), merge);
    };

    merge();
    if (std::string(target.AuthJobUserId) != "owner") {
        std::puts("the owner isn't laid over the record");
        return 1;
    }
    std::printf("%d connections\n", kConnections);
    const double unchanged = report("no log");
    const double changed = Report("merging after a change, no log", merge, [&] {
        constexpr char kOther[] = "Printers\\Connections\\,,server,Another";
        user.AddKey(kOther);
        RegDeleteKeyA(HKEY_CURRENT_USER, kOther);
    });
    Traces traces;
    traces.Expect(traces.MakeDirectories("C:", {"qpsp", "Log"}) + "\\debugLog.txt");
    // A missing directory is not asked for again for a second.
    Sleep(1100);
    report("with a log");
    if (unchanged > kLimit || changed > kLimit) {
        std::printf("merging takes more than %.0f us\n", kLimit);
        return 1;
    }
    return 0;
}

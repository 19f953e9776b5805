// driverhost.exe: installs the printer and opens its sheets, for a person or for a script.
#include "host/driver_devmode.h"
#include "host/driverhost_driver.h"
#include "host/driverhost_options.h"
#include "host/driverhost_player.h"
#include "host/driverhost_settings_file.h"
#include "host/driverhost_sheets.h"
#include "host/driverhost_text.h"
#include "host/dump.h"
#include "host/script.h"
#include "host/whole_file.h"
#include "host/wide.h"

#include <exception>
#include <span>
#include <string>
#include <variant>
#include <vector>

#include <windows.h>

#include <shellapi.h>

namespace driverhost {
namespace {

enum Status { kGood = 0, kFailed = 1, kMisused = 2 };

int Fail(const std::string& message, Status status = kFailed) {
    PrintError("driverhost: " + message + "\n");
    return status;
}

std::vector<std::string> CommandLineWords() {
    int count = 0;
    LPWSTR* const words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> list;
    for (int i = 1; words && i < count; ++i)
        list.push_back(Utf8(words[i]));
    LocalFree(words);
    return list;
}

// The script of the command line, read before anything is touched; no text means none.
int LoadScript(const Options& options, script::Script& result) {
    if (options.script.empty())
        return kGood;
    const auto bytes = ReadWhole(Wide(options.script), script::kMaximumSize);
    if (!bytes)
        return Fail("the script " + options.script + " can't be read");
    result = script::Parse(*bytes);
    if (result.error) {
        PrintError(script::Describe(options.script, *result.error) + "\n");
        return kFailed;
    }
    return kGood;
}

int ShowSheet(const Options& options) {
    script::Script script;
    if (const int status = LoadScript(options, script); status != kGood)
        return status;
    const std::wstring printer = Wide(options.printer);
    const Installed installed = options.installed ? FindInstalled(printer) : Install(options);
    if (!installed.error.empty())
        return Fail(installed.error);
    if (!installed.lacking.empty())
        PrintError("driverhost: " + installed.lacking + "\n");
    const DriverModule driver(installed.configModule);
    if (!driver.Trouble().empty())
        return Fail(driver.Trouble());

    const SettingsFile settings(printer);
    std::string sheetError;
    Show show;
    show.open = [&] {
        sheetError = options.command == Command::DeviceSheet ? ShowDeviceSheet(printer, driver)
                                                             : ShowDocumentSheet(printer, driver, settings);
    };
    show.actions = options.script.empty() ? nullptr : &script.actions;
    show.file = options.script;
    if (const auto limit = TimeLimit(options))
        show.sheetLimit = std::chrono::seconds(*limit);
    show.print = Print;
    const std::string playError = RunSheet(show);
    if (!playError.empty())
        PrintError(playError + "\n");
    if (!sheetError.empty())
        return Fail(sheetError);
    return playError.empty() ? kGood : kFailed;
}

int DumpSettings(const Options& options) {
    const std::wstring printer = Wide(options.printer);
    std::string error;
    const std::vector<std::byte> stored = SettingsFile(printer).Load(error);
    if (!error.empty())
        return Fail(error);
    if (stored.empty())
        return Fail("no settings are stored for " + options.printer);
    Print("[public]\n" + dump::PublicFields(stored));

    const std::wstring description = DescriptionOf(printer);
    const auto bytes = ReadWhole(description, ppd::kMaxFileSize);
    if (!bytes)
        return Fail("the printer's description " + Utf8(description) + " can't be read");
    auto parsed = ppd::Parse(*bytes);
    if (const auto* broken = std::get_if<ppd::PpdError>(&parsed))
        return Fail(script::Describe(Utf8(description), {static_cast<int>(broken->line), broken->message}));
    const PrinterModel model(std::get<ppd::PpdFile>(std::move(parsed)), Language::English);
    const DevModeReading reading = ReadDevMode(stored, model, DefaultSettings(model));
    if (!reading.trouble.empty())
        return Fail("the stored settings can't be used: " + reading.trouble);
    Print("[driver]\n" + dump::DriverSettings(reading.settings, model));
    Print("[plug-in]\n" + dump::PluginHeader(reading.pluginBlock) +
          Utf8OfAnsi(dump::Bytes(reading.pluginBlock)));
    return kGood;
}

int RemoveAll(const Options& options) {
    const std::wstring printer = Wide(options.printer);
    const Removed removed = Remove(printer);
    if (!removed.untold.empty())
        PrintError("driverhost: the driver does not know of it: " + removed.untold + "\n");
    if (!removed.error.empty())
        return Fail(removed.error);
    const std::string error = SettingsFile(printer).Forget();
    return error.empty() ? kGood : Fail(error);
}

int Run() {
    const Options options = ParseOptions(CommandLineWords());
    if (!options.error.empty())
        return Fail(options.error + "; --help tells more", kMisused);
    switch (options.command) {
    case Command::Help: Print(HelpText()); return kGood;
    case Command::Version: Print(std::string("driverhost ") + kVersion + "\n"); return kGood;
    case Command::Dump: return DumpSettings(options);
    case Command::Remove: return RemoveAll(options);
    case Command::DeviceSheet:
    case Command::DocumentSheet: break;
    }
    return ShowSheet(options);
}

} // namespace
} // namespace driverhost

int main() {
    try {
        return driverhost::Run();
    } catch (const std::exception& exception) {
        return driverhost::Fail(exception.what());
    }
}

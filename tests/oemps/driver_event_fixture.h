// What the tests of the driver's installation and of its removal have in common.
#pragma once

#include "Common/unique_com.h"
#include "oemps/driver_event.h"
#include "oemps/oemui.h"
#include "tests/oemps/with_log.h"
#include "tests/support/environment_variable.h"
#include "tests/support/recording_runner.h"
#include "tests/support/test_folder.h"

#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <vector>

using Calls = std::vector<std::string>;

// A Windows directory that is a folder of the test's.
class DriverFolders : public WithLog, protected TestFolder {
  protected:
    HRESULT Send(DWORD event) { return plugIn->DriverEvent(event, 3, nullptr, 0); }

    // What is started for the four files, in order.
    static Calls Commands(const std::string& tool, const std::string& verb, const std::string& directory) {
        Calls commands;
        for (const char* file :
             {"\\PrinterDriverApplication.exe", "\\PS.Services.XmlSerializers.dll",
              "\\Microsoft.Expression.Drawing.dll", "\\Microsoft.Expression.Interactions.dll"})
            commands.push_back(tool + verb + directory + file);
        return commands;
    }
    std::string Windows(const std::string& rest) const { return folder.string() + rest; }
    Calls Commands64(const std::string& verb) const {
        return Commands(Windows("\\Microsoft.NET\\Framework64\\v4.0.30319\\ngen.exe"), verb, Windows(kX64));
    }

    // All that stands in the Windows directory, by its path below that.
    std::set<std::string> Tree() const {
        std::set<std::string> tree;
        for (const std::filesystem::directory_entry& entry :
             std::filesystem::recursive_directory_iterator(folder))
            tree.insert(entry.path().string().substr(folder.string().size()));
        return tree;
    }
    void MakeFile(const std::string& path) const {
        std::filesystem::create_directories(std::filesystem::path(Windows(path)).parent_path());
        std::ofstream(Windows(path)) << "content";
    }
    void MakeApplication(const std::string& directory) const {
        for (const char* file : {"\\PrinterDriverApplication.exe", "\\ja\\text.dll", "\\ja\\more\\a.bin"})
            MakeFile(directory + file);
    }
    static std::set<std::string> Without(std::set<std::string> tree, const std::string& beginning) {
        std::erase_if(tree, [&](const std::string& path) { return path.starts_with(beginning); });
        return tree;
    }

    static constexpr HRESULT kNotImplemented = static_cast<HRESULT>(0x80004001);
    static inline const std::string kX64 = "\\System32\\spool\\drivers\\ZR_ORKPN01_300_PDF_JPN_x64";
    static inline const std::string kX86 = "\\System32\\spool\\drivers\\ZR_ORKPN01_300_PDF_JPN_x86";

    UniqueCom<IPrintOemUI> plugIn{new IOemUI};
    EnvironmentVariable windows{"WINDIR", folder.string().c_str()};
    EnvironmentVariable processor{"PROCESSOR_ARCHITECTURE", "AMD64"};
};

// And a runner that starts nothing.
class DriverEvents : public DriverFolders {
  protected:
    RecordingRunner runner;
    ReplacedProcessRunner replaced{runner};
};

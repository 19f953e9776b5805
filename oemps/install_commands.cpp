#include "oemps/install_commands.h"

#include "Common/strings.h"
#include "resources/resource.h"

#include <algorithm>

namespace {

constexpr std::string_view kTool64 = "\\Microsoft.NET\\Framework64\\v4.0.30319\\ngen.exe";
constexpr std::string_view kTool32 = "\\Microsoft.NET\\Framework\\v4.0.30319\\ngen.exe";

constexpr std::array<std::string_view, 4> kAssemblies = {
    "\\PrinterDriverApplication.exe",
    "\\PS.Services.XmlSerializers.dll",
    "\\Microsoft.Expression.Drawing.dll",
    "\\Microsoft.Expression.Interactions.dll",
};

} // namespace

std::string JobPropertyPath(std::string_view processor, std::string_view amd64) {
    return LoadText(processor == amd64 ? IDS_JOB_PROPERTY_PATH_X64 : IDS_JOB_PROPERTY_PATH_X86);
}

std::string OtherArchitecture(std::string path) {
    constexpr std::string_view kX64 = "x64";
    constexpr std::string_view kX86 = "x86";
    const std::string_view other = path.ends_with(kX64) ? kX86 : kX64;
    return path.replace(path.size() - std::min(path.size(), other.size()), std::string::npos, other);
}

std::array<std::string, 4> NgenCommands(bool install, std::string_view processor,
                                        std::string_view windowsDirectory) {
    std::string beginning(windowsDirectory);
    beginning += processor == kAmd64 ? kTool64 : kTool32;
    beginning += install ? " install " : " uninstall ";
    beginning += windowsDirectory;
    beginning += JobPropertyPath(processor, kAmd64);

    std::array<std::string, 4> commands;
    std::ranges::transform(kAssemblies, commands.begin(),
                           [&](std::string_view assembly) { return beginning + std::string(assembly); });
    return commands;
}

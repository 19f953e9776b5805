#include "tests/sheet/device_data.h"

#include "tests/sheet/program.h"

#include <array>
#include <filesystem>
#include <string>

#include <windows.h>

#include <shlobj.h>

namespace {

constexpr const wchar_t* kFiles[] = {L"Feeder.dat", L"Stacker.dat", L"Finisher.dat"};

std::filesystem::path DeviceFolder() {
    std::array<wchar_t, MAX_PATH> path{};
    SHGetFolderPathW(nullptr, CSIDL_LOCAL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, path.data());
    return std::filesystem::path(path.data()) / L"PrtSrv" / L"DriverResource" / L"10_";
}

} // namespace

void FitDevice() {
    std::filesystem::create_directories(DeviceFolder());
    const std::string source = ZR_SHEET_DEVICE_DIR;
    for (const wchar_t* name : kFiles)
        WriteBytes((DeviceFolder() / name).wstring(),
                   ReadBytes(std::wstring(source.begin(), source.end()) + L"/" + name));
}

void UnfitDevice() {
    std::error_code ignored;
    std::filesystem::remove_all(DeviceFolder(), ignored);
}

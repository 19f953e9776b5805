#include "oemps/satellite.h"

#include "Common/log.h"
#include "Common/strings.h"
#include "oemps/module.h"
#include "oemps/satellite_names.h"

#include <array>
#include <string>

namespace {

HMODULE satellite = nullptr;
// Not guarded: the driver makes and frees its plug-in objects one at a time.
int liveObjects = 0;

std::string LanguageCode(SatelliteCandidate candidate) {
    if (candidate == kFixedCandidate)
        return std::string(kFixedCandidateCode);
    std::array<char, 16> code{};
    GetLocaleInfoA(MAKELCID(candidate.language, SORT_DEFAULT), LOCALE_SABBREVLANGNAME, code.data(),
                   static_cast<int>(code.size()));
    return code.data();
}

HMODULE LoadSatellite() {
    std::array<char, MAX_PATH> path{};
    const DWORD length = GetModuleFileNameA(ModuleHandle(), path.data(), static_cast<DWORD>(path.size()));
    if (length == 0 || length == path.size())
        return nullptr;
    const std::string stem(SatelliteStem({path.data(), length}));
    for (const auto& candidate :
         SatelliteCandidates(GetUserDefaultUILanguage(), GetSystemDefaultUILanguage(), GetACP())) {
        const std::string code = LanguageCode(candidate);
        if (code.empty())
            continue;
        const std::string name = stem + code + ".dll";
        if (HMODULE module = LoadLibraryA(name.c_str())) {
            ZR_LOG("%s\n", name.c_str());
            return module;
        }
    }
    return nullptr;
}

} // namespace

void AcquireSatellite() {
    ZR_LOG_ENTRY();
    if (liveObjects < 1)
        satellite = LoadSatellite();
    ++liveObjects;
    SetStringModule(ResourceModule());
}

void ReleaseSatellite() {
    ZR_LOG_ENTRY();
    if (--liveObjects > 0 || !satellite)
        return;
    FreeLibrary(satellite);
    satellite = nullptr;
    SetStringModule(ModuleHandle());
}

HINSTANCE ResourceModule() {
    return satellite ? satellite : ModuleHandle();
}

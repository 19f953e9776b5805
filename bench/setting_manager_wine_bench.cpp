// What a change of a control pays for the question whether the settings differ from the standard ones, and
// what making the manager costs, with the logs off. Prints figures; judges nothing.
#include "bench/timing.h"
#include "session/datamanager.h"
#include "session/keyword.h"
#include "tests/support/all_tags.h"

#include <array>
#include <string>
#include <string_view>

namespace {

std::string DefaultSettingsPath() {
    std::array<char, MAX_PATH> path{};
    GetModuleFileNameA(nullptr, path.data(), static_cast<DWORD>(path.size()));
    const std::string_view text = path.data();
    return std::string(text.substr(0, text.rfind('\\') + 1)) + "ZRPDS31J_def";
}

} // namespace

int main() {
    ExportedFunc_InitializeDataManager();
    const std::string path = DefaultSettingsPath();
    Report("Create and Destroy", [&] {
        CSettingManager::Create(path.c_str());
        CSettingManager::Destroy();
    });

    CSettingManager& manager = *CSettingManager::Create(path.c_str());
    SetAllTags(manager);
    std::uint32_t copies = 0;
    Report("ChangeFavorite(-1)", [&] {
        ExportedFunc_SetCurrent(keyword::Copies, ++copies);
        manager.ChangeFavorite(-1);
    });
    CSettingManager::Destroy();
    return 0;
}

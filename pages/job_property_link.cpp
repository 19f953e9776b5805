// What the link to the job property application and the favourites need before either is used.
#include "pages/job_property_link.h"

#include "Common/log.h"
#include "Common/strings.h"
#include "Common/text.h"
#include "pages/standardpage.h"
#include "resources/resource.h"
#include "session/datamanager.h"
#include "settings/InterchangeOptionTag.h"
#include "settings/SettingManager.h"

#include <array>
#include <string_view>
#include <vector>

namespace {

// The directory of the module that this code is in, with its last backslash; "" if it can't be had.
std::string ModuleDirectory() {
    HMODULE module = nullptr;
    GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCSTR>(&ModuleDirectory), &module);
    std::array<char, MAX_PATH> path{};
    const DWORD length = GetModuleFileNameA(module, path.data(), static_cast<DWORD>(path.size()));
    if (length >= path.size())
        return {};
    const std::string_view file(path.data(), length);
    const std::size_t backslash = FindLastCharacter(file, '\\');
    return std::string(file.substr(0, backslash == std::string_view::npos ? 0 : backslash + 1));
}

// "", which opens no file, without the directory: the name alone would lead into the current directory of the
// program that prints.
std::string DefaultFilePath() {
    const std::string directory = ModuleDirectory();
    if (directory.empty())
        return {};
    return directory + LoadText(IDS_MODULE_NAME) + LoadText(IDS_DEFAULT_FILE_ENDING);
}

} // namespace

std::string CreateCommand() {
    return LoadText(IDS_APPLICATION_PATH);
}

std::string HandOutSettingKeyName() {
    std::array<char, 260> name{};
    ExportedFunc_GetRegistryKeyName(name.data());
    return std::string(FieldText(name));
}

void CStandardPageDlg::CreatePrintOptionList(SessionBlock*) {
    ZR_LOG_ENTRY();
    std::vector<std::string_view> tags;
    CTagTable().GetTagList(&tags);
    std::vector<const char*> texts;
    for (const std::string_view tag : tags)
        texts.push_back(tag.data());

    const std::string path = DefaultFilePath();
    WriteLog("%s %d行目 %s defpath=%s\n", __FILE__, __LINE__, __func__, path.c_str());
    if (CSettingManager* manager = CSettingManager::Create(path.c_str()))
        manager->SetTagList(texts.data(), texts.size());
}

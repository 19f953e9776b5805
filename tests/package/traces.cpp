#include "tests/package/traces.h"

#include "Common/win_handles.h"

#include <array>

#include <shlobj.h>

namespace {

void AddKeysBelow(HKEY root, const std::wstring& path, const std::wstring& prefix, Traces& found) {
    UniqueRegistryKey key;
    if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, key.Receive()) != ERROR_SUCCESS)
        return;
    std::array<wchar_t, 256> name{};
    for (DWORD index = 0, length = name.size(); RegEnumKeyExW(key.Get(), index, name.data(), &length, nullptr,
                                                              nullptr, nullptr, nullptr) == ERROR_SUCCESS;
         ++index, length = name.size()) {
        found.insert(prefix + name.data());
        AddKeysBelow(key.Get(), name.data(), prefix + name.data() + L'\\', found);
    }
}

} // namespace

Traces KeysBelow(HKEY root, const std::wstring& path) {
    Traces found;
    AddKeysBelow(root, path, L"", found);
    return found;
}

Traces TreeBelow(const std::filesystem::path& directory) {
    Traces found;
    std::error_code error;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(directory, error))
        found.insert(entry.path().wstring().substr(directory.wstring().size() + 1));
    return found;
}

std::filesystem::path PublicDocuments() {
    std::array<wchar_t, MAX_PATH> path{};
    SHGetFolderPathW(nullptr, CSIDL_COMMON_DOCUMENTS, nullptr, 0, path.data());
    return path.data();
}

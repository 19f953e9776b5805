#include "companions/jobproperty/setting_key_root.h"

#include "datamanager/key_layout.h"

namespace jobproperty {

namespace {

std::optional<std::uint32_t> NumberOf(HKEY key, const char* name) {
    DWORD number = 0;
    DWORD size = sizeof number;
    DWORD type = REG_NONE;
    if (RegQueryValueExA(key, name, nullptr, &type, reinterpret_cast<BYTE*>(&number), &size) !=
            ERROR_SUCCESS ||
        type != REG_DWORD || size != sizeof number)
        return std::nullopt;
    return number;
}

} // namespace

std::optional<SettingKeyRoot> SettingKeyRoot::Open(const std::string& name, REGSAM access) {
    UniqueRegistryKey key;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, name.c_str(), 0, access, key.Receive()) != ERROR_SUCCESS)
        return std::nullopt;
    return SettingKeyRoot(std::move(key));
}

std::optional<std::uint32_t> SettingKeyRoot::ProcessId() const {
    return NumberOf(m_key.Get(), kProcessIdName);
}

bool SettingKeyRoot::IsThere() const {
    return RegQueryInfoKeyA(m_key.Get(), nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                            nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
}

bool SettingKeyRoot::RaiseGeneration() const {
    const DWORD generation = NumberOf(m_key.Get(), kGenerationName).value_or(0) + 1;
    return RegSetValueExA(m_key.Get(), kGenerationName, 0, REG_DWORD,
                          reinterpret_cast<const BYTE*>(&generation), sizeof generation) == ERROR_SUCCESS;
}

} // namespace jobproperty

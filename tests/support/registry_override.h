// A predefined registry key replaced by an empty one for as long as a test needs it.
#pragma once

#include <windows.h>

#include <string>

class RegistryOverride {
  public:
    explicit RegistryOverride(HKEY predefined) : m_predefined(predefined) {
        m_path = "Software\\Zephra\\Tests\\Override" + std::to_string(GetCurrentProcessId());
        RegCreateKeyExA(HKEY_CURRENT_USER, m_path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                        KEY_ALL_ACCESS, nullptr, &m_key, nullptr);
        RegOverridePredefKey(m_predefined, m_key);
    }
    ~RegistryOverride() {
        RegOverridePredefKey(m_predefined, nullptr);
        RegCloseKey(m_key);
        RegDeleteTreeA(HKEY_CURRENT_USER, m_path.c_str());
        RegDeleteKeyA(HKEY_CURRENT_USER, m_path.c_str());
    }
    RegistryOverride(const RegistryOverride&) = delete;
    RegistryOverride& operator=(const RegistryOverride&) = delete;

    // Makes a key below the replaced one.
    void AddKey(const char* path) const {
        HKEY key = nullptr;
        RegCreateKeyExA(m_key, path, 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS, nullptr, &key,
                        nullptr);
        RegCloseKey(key);
    }
    // Makes a key with one text value.
    void AddText(const char* path, const char* name, const std::string& text) const {
        AddKey(path);
        RegSetKeyValueA(m_key, path, name, REG_SZ, text.c_str(), static_cast<DWORD>(text.size() + 1));
    }
    bool Has(const char* path) const {
        HKEY key = nullptr;
        if (RegOpenKeyExA(m_key, path, 0, KEY_READ, &key) != ERROR_SUCCESS)
            return false;
        RegCloseKey(key);
        return true;
    }

  private:
    HKEY m_predefined;
    HKEY m_key = nullptr;
    std::string m_path;
};

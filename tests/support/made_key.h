// A key of the registry, for tests that need the spooler or other programs and so can't replace the whole of
// it.
#pragma once

#include <windows.h>

#include <string>

// Goes with the object, and with it all above it that was not there.
class MadeKey {
  public:
    explicit MadeKey(const std::string& path, HKEY root = HKEY_LOCAL_MACHINE)
        : m_root(root), m_topmost(TopmostMissing(root, path)) {
        RegCreateKeyExA(m_root, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS, nullptr,
                        &m_key, nullptr);
    }
    ~MadeKey() {
        RegCloseKey(m_key);
        RegDeleteTreeA(m_root, m_topmost.c_str());
        RegDeleteKeyA(m_root, m_topmost.c_str());
    }
    MadeKey(const MadeKey&) = delete;
    MadeKey& operator=(const MadeKey&) = delete;

    void Write(const char* value, const std::string& text) {
        RegSetValueExA(m_key, value, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                       static_cast<DWORD>(text.size() + 1));
    }

  private:
    static bool IsThere(HKEY root, const std::string& path) {
        HKEY key = nullptr;
        if (RegOpenKeyExA(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS)
            return false;
        RegCloseKey(key);
        return true;
    }
    static std::string TopmostMissing(HKEY root, const std::string& path) {
        for (std::size_t end = path.find('\\'); end != std::string::npos; end = path.find('\\', end + 1))
            if (!IsThere(root, path.substr(0, end)))
                return path.substr(0, end);
        return path;
    }

    HKEY m_root;
    HKEY m_key = nullptr;
    std::string m_topmost;
};

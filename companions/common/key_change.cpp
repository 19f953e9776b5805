#include "companions/common/key_change.h"

#include "Common/log.h"
#include "Common/text.h"
#include "companions/common/wide_text.h"

namespace {

// From the path upward.
std::vector<std::string> MissingKeys(std::string path) {
    std::vector<std::string> missing;
    UniqueRegistryKey key;
    while (!path.empty() && RegOpenKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, KEY_QUERY_VALUE,
                                          key.Receive()) == ERROR_FILE_NOT_FOUND) {
        missing.push_back(path);
        const std::size_t separator = FindLastCharacter(path, '\\');
        path.resize(separator == std::string::npos ? 0 : separator);
    }
    return missing;
}

// A key that somebody has put something below stays by itself.
bool HasValues(const std::string& path) {
    UniqueRegistryKey key;
    DWORD count = 0;
    return RegOpenKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, KEY_QUERY_VALUE, key.Receive()) ==
               ERROR_SUCCESS &&
           RegQueryInfoKeyA(key.Get(), nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &count, nullptr,
                            nullptr, nullptr, nullptr) == ERROR_SUCCESS &&
           count > 0;
}

} // namespace

KeyChange::KeyChange(const std::string& path) : m_missing(MissingKeys(path)) {
    DWORD disposition = 0;
    m_status = RegCreateKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                               KEY_QUERY_VALUE | KEY_SET_VALUE, nullptr, m_key.Receive(), &disposition);
    // Somebody else's by now.
    if (m_status == ERROR_SUCCESS && disposition != REG_CREATED_NEW_KEY)
        m_missing.clear();
    if (m_status != ERROR_SUCCESS)
        ZR_LOG("RegCreateKeyEx=%ld %s\n", m_status, path.c_str());
}

KeyChange::~KeyChange() {
    if (!m_isKept)
        PutBack();
}

void KeyChange::SetText(const char* name, std::span<const char> text) {
    if (m_status != ERROR_SUCCESS)
        return;
    std::optional<RawValue> before;
    m_status = RawValue::Read(m_key.Get(), name, before);
    if (m_status == ERROR_SUCCESS) {
        m_before.emplace_back(name, std::move(before));
        const SecretBuffer<wchar_t> wide = WideText(text);
        const auto units = wide.Units();
        m_status = RegSetValueExW(m_key.Get(), WideName(name).c_str(), 0, REG_SZ,
                                  reinterpret_cast<const BYTE*>(units.data()),
                                  static_cast<DWORD>(units.size_bytes()));
    }
    if (m_status != ERROR_SUCCESS)
        ZR_LOG("status=%ld %s\n", m_status, name);
}

void KeyChange::PutBack() {
    for (const auto& [name, value] : m_before) {
        const LSTATUS status = RawValue::Restore(m_key.Get(), name, value);
        ZR_LOG("restored=%ld %s\n", status, name);
    }
    m_key.Reset();
    DeleteMadeKeys();
}

// An empty key would tell something else than none. One that could not be made may have some above it.
void KeyChange::DeleteMadeKeys() {
    for (const std::string& path : m_missing) {
        const LSTATUS status =
            HasValues(path) ? ERROR_DIR_NOT_EMPTY : RegDeleteKeyA(HKEY_CURRENT_USER, path.c_str());
        ZR_LOG("RegDeleteKey=%ld %s\n", status, path.c_str());
        if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND)
            return;
    }
}

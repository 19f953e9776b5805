#include "datamanager/setting_key.h"

#include "Common/log.h"
#include "Common/win_handles.h"
#include "datamanager/key_names.h"

#include <array>
#include <vector>

namespace {

static_assert(static_cast<DWORD>(KeyValueType::Text) == REG_SZ);
static_assert(static_cast<DWORD>(KeyValueType::Number) == REG_DWORD);
static_assert(static_cast<DWORD>(KeyValueType::LongNumber) == REG_QWORD);

// Asking the event costs microseconds, a getter must not, and the other process's end takes far longer than
// this.
constexpr LONGLONG kAskedPerSecond = 10'000;

// A value name of the registry has up to 16383 characters, of two bytes at most. Data beyond this limit is no
// value of ours, and a key with more values than this was not written by a partner.
constexpr DWORD kNameRoom = 2 * 16383 + 1;
constexpr DWORD kDataLimit = 64 * 1024;
constexpr DWORD kMaxValuesRead = 16 * 1024;

struct ReadBuffers {
    std::vector<char> name = std::vector<char>(kNameRoom);
    std::vector<std::byte> data = std::vector<std::byte>(kDataLimit);
};

bool IsGone(LSTATUS status) {
    return status == ERROR_KEY_DELETED || status == ERROR_INVALID_HANDLE;
}

class RegistrySettingKey : public SettingKey {
  public:
    explicit RegistrySettingKey(const std::string& name) : m_name(name) {}

    bool Create(DWORD keywordCount);

    const std::string& Name() const override { return m_name; }
    bool IsHandedOver() override;
    bool ReadAll(const Visitor& visitor) override;
    bool Write(Section section, const char* name, KeyValueType type,
               std::span<const std::byte> data) override;

  private:
    bool CreateRoot();
    bool CreateSections();
    bool WriteRootValues(DWORD keywordCount);
    bool StartWatching();
    LSTATUS Watch();
    bool ReadSection(Section section, const Visitor& visitor, ReadBuffers& buffers);
    HKEY KeyOf(Section section) const { return m_sections[static_cast<std::size_t>(section)].Get(); }

    std::string m_name;
    UniqueRegistryKey m_root;
    std::array<UniqueRegistryKey, kSectionNames.size()> m_sections;
    UniqueHandle m_changed;
    ULONGLONG m_askInterval = 0; // in ticks of the performance counter
    ULONGLONG m_asked = 0;
};

// A volatile key can't have lasting parents made along with it, and the parent is shared by all sheets.
bool MakeParent() {
    UniqueRegistryKey parent;
    return RegCreateKeyExA(HKEY_CURRENT_USER, kDataSettingParent.data(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                           KEY_CREATE_SUB_KEY, nullptr, parent.Receive(), nullptr) == ERROR_SUCCESS;
}

bool RegistrySettingKey::CreateRoot() {
    DWORD disposition = 0;
    const LSTATUS status = RegCreateKeyExA(HKEY_CURRENT_USER, m_name.c_str(), 0, nullptr, REG_OPTION_VOLATILE,
                                           KEY_READ | KEY_WRITE, nullptr, m_root.Receive(), &disposition);
    if (status == ERROR_SUCCESS && disposition == REG_CREATED_NEW_KEY)
        return true;
    ZR_LOG("RegCreateKeyEx=%ld disposition=%lu\n", status, disposition);
    return false;
}

bool RegistrySettingKey::CreateSections() {
    for (std::size_t i = 0; i < m_sections.size(); ++i) {
        const LSTATUS status =
            RegCreateKeyExA(m_root.Get(), kSectionNames[i], 0, nullptr, REG_OPTION_VOLATILE,
                            KEY_READ | KEY_WRITE, nullptr, m_sections[i].Receive(), nullptr);
        if (status != ERROR_SUCCESS) {
            ZR_LOG("RegCreateKeyEx=%ld %s\n", status, kSectionNames[i]);
            return false;
        }
    }
    return true;
}

bool RegistrySettingKey::WriteRootValues(DWORD keywordCount) {
    const auto write = [this](const char* name, DWORD value) {
        return RegSetValueExA(m_root.Get(), name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value),
                              sizeof value) == ERROR_SUCCESS;
    };
    return write(kKeywordCountName, keywordCount) && write(kProcessIdName, GetCurrentProcessId()) &&
           write(kGenerationName, 0);
}

bool RegistrySettingKey::StartWatching() {
    LARGE_INTEGER frequency;
    QueryPerformanceFrequency(&frequency);
    m_askInterval = static_cast<ULONGLONG>(frequency.QuadPart / kAskedPerSecond);
    m_changed.Reset(CreateEventA(nullptr, FALSE, FALSE, nullptr));
    if (!m_changed)
        return false;
    const LSTATUS status = Watch();
    if (status != ERROR_SUCCESS)
        ZR_LOG("RegNotifyChangeKeyValue=%ld\n", status);
    return status == ERROR_SUCCESS;
}

bool RegistrySettingKey::Create(DWORD keywordCount) {
    if (!MakeParent() || !CreateRoot())
        return false;
    // The root's own values are in before the watch begins; from then on only others write there.
    if (CreateSections() && WriteRootValues(keywordCount) && StartWatching())
        return true;
    RegDeleteTreeA(HKEY_CURRENT_USER, m_name.c_str());
    return false;
}

LSTATUS RegistrySettingKey::Watch() {
    return RegNotifyChangeKeyValue(m_root.Get(), FALSE, REG_NOTIFY_CHANGE_LAST_SET, m_changed.Get(), TRUE);
}

bool RegistrySettingKey::IsHandedOver() {
    LARGE_INTEGER counter;
    QueryPerformanceCounter(&counter);
    const auto now = static_cast<ULONGLONG>(counter.QuadPart);
    if (now - m_asked < m_askInterval)
        return false;
    m_asked = now;
    if (WaitForSingleObject(m_changed.Get(), 0) != WAIT_OBJECT_0)
        return false;
    // Watched again before anything is read, so that a hand-over during the reading is not missed.
    if (const LSTATUS status = Watch(); status != ERROR_SUCCESS)
        ZR_LOG("RegNotifyChangeKeyValue=%ld\n", status);
    return true;
}

bool RegistrySettingKey::ReadSection(Section section, const Visitor& visitor, ReadBuffers& buffers) {
    for (DWORD index = 0; index < kMaxValuesRead; ++index) {
        DWORD nameLength = kNameRoom;
        DWORD size = kDataLimit;
        DWORD type = REG_NONE;
        const LSTATUS status = RegEnumValueA(KeyOf(section), index, buffers.name.data(), &nameLength, nullptr,
                                             &type, reinterpret_cast<BYTE*>(buffers.data.data()), &size);
        if (status == ERROR_NO_MORE_ITEMS)
            return true;
        if (status == ERROR_SUCCESS) {
            visitor(section, {buffers.name.data(), nameLength}, type, std::span(buffers.data).first(size));
        } else if (status != ERROR_MORE_DATA) {
            ZR_LOG("RegEnumValue=%ld %s %lu\n", status, NameOf(section), index);
            return !IsGone(status);
        } else {
            ZR_LOG("too large %s %lu\n", NameOf(section), index);
        }
    }
    ZR_LOG("too many values %s\n", NameOf(section));
    return true;
}

bool RegistrySettingKey::ReadAll(const Visitor& visitor) {
    ReadBuffers buffers;
    for (std::size_t i = 0; i < m_sections.size(); ++i)
        if (!ReadSection(static_cast<Section>(i), visitor, buffers))
            return false;
    return true;
}

bool RegistrySettingKey::Write(Section section, const char* name, KeyValueType type,
                               std::span<const std::byte> data) {
    const LSTATUS status =
        RegSetValueExA(KeyOf(section), name, 0, static_cast<DWORD>(type),
                       reinterpret_cast<const BYTE*>(data.data()), static_cast<DWORD>(data.size()));
    if (status != ERROR_SUCCESS)
        ZR_LOG("RegSetValueEx=%ld %s\\%s\n", status, NameOf(section), name);
    return !IsGone(status);
}

} // namespace

std::unique_ptr<SettingKey> MakeSettingKey(const std::string& name, std::uint32_t keywordCount) {
    auto key = std::make_unique<RegistrySettingKey>(name);
    if (!key->Create(keywordCount))
        return nullptr;
    return key;
}

bool DeleteUserKey(const std::string& path) {
    const LSTATUS status = RegDeleteTreeA(HKEY_CURRENT_USER, path.c_str());
    if (status != ERROR_SUCCESS)
        ZR_LOG("RegDeleteTree=%ld\n", status);
    return status == ERROR_SUCCESS;
}

std::uint32_t ProcessNumber() {
    return GetCurrentProcessId();
}

std::uint64_t TimeNow() {
    FILETIME now; // in units of 100 ns
    GetSystemTimeAsFileTime(&now);
    return ((std::uint64_t{now.dwHighDateTime} << 32) | now.dwLowDateTime) / 10'000;
}

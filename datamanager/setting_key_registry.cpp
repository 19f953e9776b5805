#include "datamanager/setting_key.h"

#include "Common/log.h"
#include "Common/win_handles.h"
#include "datamanager/key_names.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

namespace {

static_assert(static_cast<DWORD>(KeyValueType::Text) == REG_SZ);
static_assert(static_cast<DWORD>(KeyValueType::Number) == REG_DWORD);
static_assert(static_cast<DWORD>(KeyValueType::LongNumber) == REG_QWORD);

// Asking the event costs microseconds, a getter must not, and the other process's end takes far longer than
// this.
constexpr LONGLONG kAskedPerSecond = 10'000;
constexpr LONGLONG kAskedPerSecondAfterPostpone = 20;

// A value name of the registry has up to 16383 characters. Data beyond this limit is no value of ours, and a
// section with more values than this was not written by a partner.
constexpr DWORD kNameRoom = 16383 + 1;
constexpr DWORD kDataLimit = 128 * 1024;
constexpr DWORD kMaxValuesRead = 16 * 1024;

struct ReadBuffers {
    std::array<wchar_t, kNameRoom> wideName;
    std::array<char, kNameRoom> name;
    std::array<std::byte, kDataLimit> data;
};

bool IsGone(LSTATUS status) {
    return status == ERROR_KEY_DELETED || status == ERROR_INVALID_HANDLE;
}

KeyResult ResultOf(LSTATUS status) {
    if (status == ERROR_SUCCESS)
        return KeyResult::Done;
    return IsGone(status) ? KeyResult::Gone : KeyResult::Failed;
}

std::wstring Wide(std::string_view text) {
    const auto size = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0'); // no code page gives a byte more than one unit
    wide.resize(static_cast<std::size_t>(
        MultiByteToWideChar(CP_ACP, 0, text.data(), size, wide.data(), static_cast<int>(wide.size()))));
    return wide;
}

std::string Narrow(std::wstring_view wide) {
    const auto size = static_cast<int>(wide.size());
    std::string text(wide.size() * 4, '\0');
    text.resize(static_cast<std::size_t>(WideCharToMultiByte(
        CP_ACP, 0, wide.data(), size, text.data(), static_cast<int>(text.size()), nullptr, nullptr)));
    return text;
}

// Our names are ASCII; any other character becomes one that none of them has.
std::string_view NarrowName(ReadBuffers& buffers, DWORD length) {
    std::transform(buffers.wideName.begin(), buffers.wideName.begin() + length, buffers.name.begin(),
                   [](wchar_t c) { return c < 0x80 ? static_cast<char>(c) : '?'; });
    return {buffers.name.data(), length};
}

class RegistrySettingKey : public SettingKey {
  public:
    explicit RegistrySettingKey(const std::string& name);

    bool Create(DWORD keywordCount);
    bool Open();

    const std::string& Name() const override { return m_name; }
    bool IsDue() override;
    void Postpone() override { m_interval = m_frequency / kAskedPerSecondAfterPostpone; }
    KeyResult Watch() override;
    bool IsSignalled() override { return WaitForSingleObject(m_changed.Get(), 0) == WAIT_OBJECT_0; }
    KeyResult GetMark(Section section, SectionMark& mark) override;
    KeyResult Read(Section section, const Visitor& visitor) override;
    KeyResult Write(Section section, const char* name, KeyValueType type,
                    std::span<const std::byte> data) override;
    std::string ImageOf(std::string_view text) const override { return Narrow(Wide(text)); }

  private:
    bool CreateRoot();
    bool CreateSections();
    bool WriteRootValues(DWORD keywordCount);
    void Show(DWORD type, DWORD nameLength, DWORD size, const Visitor& visitor) const;
    HKEY KeyOf(Section section) const { return m_sections[static_cast<std::size_t>(section)].Get(); }

    std::string m_name;
    UniqueRegistryKey m_root;
    std::array<UniqueRegistryKey, kSectionNames.size()> m_sections;
    UniqueHandle m_changed;
    std::unique_ptr<ReadBuffers> m_buffers; // made by the first reading
    // In ticks of the performance counter.
    LONGLONG m_frequency = 0;
    LONGLONG m_interval = 0;
    LONGLONG m_asked = 0;
};

RegistrySettingKey::RegistrySettingKey(const std::string& name) : m_name(name) {
    LARGE_INTEGER frequency;
    QueryPerformanceFrequency(&frequency);
    m_frequency = frequency.QuadPart;
    m_interval = m_frequency / kAskedPerSecond;
}

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

bool RegistrySettingKey::Create(DWORD keywordCount) {
    if (!MakeParent() || !CreateRoot())
        return false;
    // The root's own values are in before any watch begins; from then on only others write there.
    if (CreateSections() && WriteRootValues(keywordCount))
        return true;
    RegDeleteTreeA(HKEY_CURRENT_USER, m_name.c_str());
    return false;
}

bool RegistrySettingKey::Open() {
    constexpr REGSAM access = KEY_READ | KEY_SET_VALUE;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, m_name.c_str(), 0, access, m_root.Receive()) != ERROR_SUCCESS)
        return false;
    for (std::size_t i = 0; i < m_sections.size(); ++i)
        if (RegOpenKeyExA(m_root.Get(), kSectionNames[i], 0, access, m_sections[i].Receive()) !=
            ERROR_SUCCESS)
            return false;
    return true;
}

bool RegistrySettingKey::IsDue() {
    LARGE_INTEGER counter;
    QueryPerformanceCounter(&counter);
    if (counter.QuadPart - m_asked < m_interval)
        return false;
    m_asked = counter.QuadPart;
    m_interval = m_frequency / kAskedPerSecond;
    return true;
}

KeyResult RegistrySettingKey::Watch() {
    if (!m_changed)
        m_changed.Reset(CreateEventA(nullptr, FALSE, FALSE, nullptr));
    if (!m_changed) {
        ZR_LOG("CreateEvent=%lu\n", GetLastError());
        return KeyResult::Failed;
    }
    const LSTATUS status =
        RegNotifyChangeKeyValue(m_root.Get(), FALSE, REG_NOTIFY_CHANGE_LAST_SET, m_changed.Get(), TRUE);
    if (status != ERROR_SUCCESS)
        ZR_LOG("RegNotifyChangeKeyValue=%ld\n", status);
    return ResultOf(status);
}

KeyResult RegistrySettingKey::GetMark(Section section, SectionMark& mark) {
    DWORD count = 0;
    FILETIME written{};
    const LSTATUS status = RegQueryInfoKeyW(KeyOf(section), nullptr, nullptr, nullptr, nullptr, nullptr,
                                            nullptr, &count, nullptr, nullptr, nullptr, &written);
    mark = {count, (std::uint64_t{written.dwHighDateTime} << 32) | written.dwLowDateTime};
    if (status != ERROR_SUCCESS)
        ZR_LOG("RegQueryInfoKey=%ld %s\n", status, NameOf(section));
    if (count <= kMaxValuesRead)
        return ResultOf(status);
    ZR_LOG("too many values %s %lu\n", NameOf(section), count);
    return KeyResult::Failed;
}

void RegistrySettingKey::Show(DWORD type, DWORD nameLength, DWORD size, const Visitor& visitor) const {
    const std::string_view name = NarrowName(*m_buffers, nameLength);
    const auto data = std::span<const std::byte>(m_buffers->data).first(size);
    if (type != REG_SZ)
        return visitor(name, type, data);
    std::wstring wide(size / sizeof(wchar_t), L'\0');
    std::memcpy(wide.data(), data.data(), wide.size() * sizeof(wchar_t));
    const std::string text = Narrow(wide.substr(0, wide.find(L'\0')));
    visitor(name, type, std::as_bytes(std::span(text)));
}

KeyResult RegistrySettingKey::Read(Section section, const Visitor& visitor) {
    if (!m_buffers)
        m_buffers = std::make_unique<ReadBuffers>();
    for (DWORD index = 0; index <= kMaxValuesRead; ++index) {
        DWORD nameLength = kNameRoom;
        DWORD size = kDataLimit;
        DWORD type = REG_NONE;
        const LSTATUS status =
            RegEnumValueW(KeyOf(section), index, m_buffers->wideName.data(), &nameLength, nullptr, &type,
                          reinterpret_cast<BYTE*>(m_buffers->data.data()), &size);
        if (status == ERROR_NO_MORE_ITEMS)
            return KeyResult::Done;
        if (status == ERROR_SUCCESS) {
            Show(type, nameLength, size, visitor);
        } else if (status == ERROR_MORE_DATA) {
            ZR_LOG("too large %s %lu\n", NameOf(section), index);
        } else {
            ZR_LOG("RegEnumValue=%ld %s %lu\n", status, NameOf(section), index);
            return ResultOf(status);
        }
    }
    ZR_LOG("too many values %s\n", NameOf(section));
    return KeyResult::Failed;
}

// Text goes through the same conversion as ImageOf's, not through the ANSI call's own.
KeyResult RegistrySettingKey::Write(Section section, const char* name, KeyValueType type,
                                    std::span<const std::byte> data) {
    const auto set = [&](auto bytes) {
        return RegSetValueExW(KeyOf(section), Wide(name).c_str(), 0, static_cast<DWORD>(type),
                              reinterpret_cast<const BYTE*>(bytes.data()), static_cast<DWORD>(bytes.size()));
    };
    LSTATUS status = ERROR_SUCCESS;
    if (type == KeyValueType::Text) {
        const std::wstring text = Wide({reinterpret_cast<const char*>(data.data()), data.size() - 1});
        status = set(std::as_bytes(std::span(text.c_str(), text.size() + 1)));
    } else {
        status = set(data);
    }
    if (status != ERROR_SUCCESS)
        ZR_LOG("RegSetValueEx=%ld %s\\%s\n", status, NameOf(section), name);
    return ResultOf(status);
}

} // namespace

std::unique_ptr<SettingKey> MakeSettingKey(const std::string& name, std::uint32_t keywordCount) {
    auto key = std::make_unique<RegistrySettingKey>(name);
    if (!key->Create(keywordCount))
        return nullptr;
    return key;
}

std::unique_ptr<SettingKey> OpenSettingKey(const std::string& name) {
    auto key = std::make_unique<RegistrySettingKey>(name);
    if (!key->Open())
        return nullptr;
    return key;
}

bool UserKeyExists(const std::string& path) {
    UniqueRegistryKey key;
    return RegOpenKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, KEY_QUERY_VALUE, key.Receive()) == ERROR_SUCCESS;
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

#include "oemps/printer_connections.h"

#include "Common/log.h"
#include "Common/text.h"
#include "Common/win_handles.h"
#include "oemps/printer_names.h"

#include <winternl.h>

#include <array>
#include <cstdio>
#include <mutex>
#include <utility>

namespace {

using Names = std::vector<std::string>;

// "None" if it can't be opened.
UniqueRegistryKey OpenToRead(const char* keyName) {
    UniqueRegistryKey key;
    RegOpenKeyExA(HKEY_CURRENT_USER, keyName, 0, KEY_READ, key.Receive());
    return key;
}

// A user may have hundreds of connections, and each merge of a record asks for them.
void LogSubkey(const char* name, const FILETIME& lastWrite) {
    if (!log_backend::IsOpenable(log_backend::Target::Main))
        return;
    SYSTEMTIME time{};
    FileTimeToSystemTime(&lastWrite, &time);
    char stamp[32];
    std::snprintf(stamp, sizeof stamp, "%04d/%02d/%02d %02d:%02d:%02d", time.wYear, time.wMonth, time.wDay,
                  time.wHour, time.wMinute, time.wSecond);
    WriteLog("SubkeyName: %s, LastWriteTime: %s\n", name, stamp);
}

// False if the names are not all there for a reason that is logged.
bool Enumerate(HKEY key, const char* keyName, Names& names) {
    for (DWORD index = 0;; ++index) {
        std::array<char, 1024> name;
        DWORD length = static_cast<DWORD>(name.size());
        FILETIME lastWrite{};
        const LSTATUS status =
            RegEnumKeyExA(key, index, name.data(), &length, nullptr, nullptr, nullptr, &lastWrite);
        if (status == ERROR_MORE_DATA)
            continue;
        if (status == ERROR_NO_MORE_ITEMS)
            return true;
        if (status != ERROR_SUCCESS) {
            ZR_LOG("RegEnumKeyEx %s failed, status=%ld\n", keyName, status);
            return false;
        }
        names.emplace_back(name.data(), length);
        LogSubkey(names.back().c_str(), lastWrite);
    }
}

// The whole path of an open key, in which its user's id stands. "" if the key has been deleted or the path is
// of no usual length.
std::wstring PathOf(HKEY key) {
    struct {
        UNICODE_STRING path;
        std::array<wchar_t, 1024> characters;
    } name{};
    ULONG size = 0;
    if (!NT_SUCCESS(NtQueryObject(key, ObjectNameInformation, &name, sizeof name, &size)))
        return {};
    return {name.path.Buffer, name.path.Length / sizeof(wchar_t)};
}

// The names below the key that was enumerated last, for as long as the registry tells of no change. Each name
// costs a call into the registry, and each merge of a record asks for all of them.
class KeptNames {
  public:
    ConnectionNames Of(UniqueRegistryKey key, const char* keyName) {
        const std::lock_guard lock(m_mutex);
        const std::wstring path = PathOf(key.Get());
        return AreOf(path) ? m_names : Renew(std::move(key), keyName, path);
    }

  private:
    // A name has at most 1023 bytes, so the list takes 1 MB at most. A longer one is enumerated each time;
    // the watch that is set for it in vain costs little beside that.
    static constexpr std::size_t kMost = 1000;

    // The path is compared with that of the key that is watched as well, which has none once it has been
    // deleted: another one may have been made in its place.
    bool AreOf(const std::wstring& path) const {
        return m_names && !path.empty() && PathOf(m_key.Get()) == path &&
               WaitForSingleObject(m_change.Get(), 0) == WAIT_TIMEOUT;
    }

    // Watches before it enumerates, so that a change while it does that is not missed. The watch tells of a
    // change at the latest when the thread that set it next runs, and if that thread ends, it tells of one.
    ConnectionNames Renew(UniqueRegistryKey key, const char* keyName, const std::wstring& path) {
        m_names.reset();
        m_key.Reset();
        m_change.Reset(CreateEventA(nullptr, TRUE, FALSE, nullptr));
        // With what is below the subkeys: a subkey that gets another name is a change of that subkey.
        const bool isWatched = !path.empty() && m_change &&
                               RegNotifyChangeKeyValue(key.Get(), TRUE, REG_NOTIFY_CHANGE_NAME,
                                                       m_change.Get(), TRUE) == ERROR_SUCCESS;
        auto names = std::make_shared<Names>();
        const bool isWhole = Enumerate(key.Get(), keyName, *names);
        if (isWatched && isWhole && names->size() <= kMost) {
            m_key = std::move(key);
            m_names = names;
        }
        return names;
    }

    std::mutex m_mutex;
    // Stays open while the module is loaded in the process that merges.
    UniqueRegistryKey m_key;
    UniqueHandle m_change;
    ConnectionNames m_names;
};

KeptNames keptNames;

} // namespace

std::vector<std::string> ListConnections(const char* rootKey) {
    const UniqueRegistryKey key = OpenToRead(rootKey);
    if (!key)
        return {};
    const OpenMainLog log;
    Names names;
    Enumerate(key.Get(), rootKey, names);
    return names;
}

ConnectionNames KeptConnections(const char* rootKey) {
    UniqueRegistryKey key = OpenToRead(rootKey);
    if (!key)
        return std::make_shared<Names>();
    // Whether there is a log is known once it was to be opened.
    const OpenMainLog log;
    if (!log_backend::IsOpenable(log_backend::Target::Main))
        return keptNames.Of(std::move(key), rootKey);
    // A log has a line for each name, which only the enumeration writes.
    auto names = std::make_shared<Names>();
    Enumerate(key.Get(), rootKey, *names);
    return names;
}

std::string ConnectionKey(std::string_view connection) {
    return std::string(kConnectionsKey).append("\\").append(connection);
}

void GetGuidPrinter(const char* key, std::span<char, 256> out) {
    ZR_LOG_ENTRY();
    out[0] = '\0';
    UniqueRegistryKey handle;
    const LSTATUS opened = RegCreateKeyExA(HKEY_CURRENT_USER, key, 0, nullptr, REG_OPTION_NON_VOLATILE,
                                           KEY_ALL_ACCESS, nullptr, handle.Receive(), nullptr);
    if (opened != ERROR_SUCCESS) {
        ZR_LOG("RegCreateKeyEx %s failed, status=%ld\n", key, opened);
        return;
    }

    std::array<char, 256> value{};
    DWORD size = static_cast<DWORD>(value.size());
    LSTATUS read = RegQueryValueExA(handle.Get(), "GuidPrinter", nullptr, nullptr,
                                    reinterpret_cast<LPBYTE>(value.data()), &size);
    const std::string_view text = FieldText({value.data(), read == ERROR_SUCCESS ? size : 0});
    // A text that leaves no room for its NUL does not fit. Cut, it would be the id of another printer.
    if (text.size() == out.size())
        read = ERROR_MORE_DATA;
    if (read != ERROR_SUCCESS) {
        ZR_LOG("GuidPrinter of %s, status=%ld\n", key, read);
        return;
    }
    CopyText(out, text);
}

std::string PrinterKeyName(std::string_view printerName) {
    const std::string_view shortName = ShortPrinterName(printerName);
    const Names connections = ListConnections(kConnectionsKey);
    std::array<char, 256> guid{};
    GetGuidPrinter(ConnectionKey(FindConnection(connections, shortName)).c_str(), guid);
    return std::string(shortName).append(guid.data());
}

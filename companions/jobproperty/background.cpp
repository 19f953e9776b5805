#include "companions/jobproperty/background.h"

#include "companions/jobproperty/messages.h"
#include "companions/jobproperty/running_mark.h"
#include "companions/jobproperty/setting_key_root.h"
#include "datamanager/key_names.h"

#include <array>
#include <optional>

namespace jobproperty {

namespace {

constexpr const char* kMark = "Background";
constexpr const char* kExitEvent = "Exit";
// The key's end signals nothing, so it is asked for.
constexpr DWORD kAskInterval = 500;
// A background instance ends at once when it is told; one that hangs must not hold the sheet's end up.
constexpr DWORD kExitLimit = 5000;

ExitCode Report(ExitCode code, TextId text) {
    ReportUnseen(Text(text));
    return code;
}

// Null also if the key's values tell another process than its name: the instance would stay for a stranger.
UniqueHandle OpenSheetProcess(const SettingKeyRoot& root, const std::string& key) {
    const std::uint32_t process = ProcessOfKey(key);
    return UniqueHandle(root.ProcessId() == process ? OpenProcess(SYNCHRONIZE, FALSE, process) : nullptr);
}

ExitCode WaitForTheEnd(const UniqueHandle& exitEvent, const UniqueHandle& sheet, const std::string& key) {
    const std::array<HANDLE, 2> ends{exitEvent.Get(), sheet.Get()};
    for (;;) {
        const DWORD waited =
            WaitForMultipleObjects(static_cast<DWORD>(ends.size()), ends.data(), FALSE, kAskInterval);
        if (waited == WAIT_FAILED)
            return Report(ExitCode::Failed, TextId::SystemFailed);
        if (waited != WAIT_TIMEOUT || !SettingKeyRoot::Open(key, KEY_QUERY_VALUE))
            return ExitCode::Done;
    }
}

} // namespace

ExitCode StayInBackground(const std::string& id, const std::string& key) {
    RunningMark mark(kMark, id);
    if (!mark.Hold())
        return ExitCode::Done;
    // An -exit may set it the moment it is there, so it is never reset here. One that an earlier instance's
    // -exit still holds was reset by that instance's waiting.
    const UniqueHandle exitEvent(CreateEventA(nullptr, FALSE, FALSE, ObjectName(kExitEvent, id).c_str()));
    if (!exitEvent)
        return Report(ExitCode::Failed, TextId::SystemFailed);

    const std::optional<SettingKeyRoot> root = SettingKeyRoot::Open(key, KEY_QUERY_VALUE);
    if (!root)
        return Report(ExitCode::NoKey, TextId::NoKey);
    const UniqueHandle sheet = OpenSheetProcess(*root, key);
    if (!sheet)
        return Report(ExitCode::NoSheet, TextId::NoSheet);
    return WaitForTheEnd(exitEvent, sheet, key);
}

ExitCode EndBackground(const std::string& id) {
    const UniqueHandle exitEvent(OpenEventA(EVENT_MODIFY_STATE, FALSE, ObjectName(kExitEvent, id).c_str()));
    if (!exitEvent)
        return Report(ExitCode::NoInstance, TextId::NoInstance);
    SetEvent(exitEvent.Get());
    if (WaitForRelease(kMark, id, kExitLimit))
        return ExitCode::Done;
    return Report(ExitCode::StillRunning, TextId::StillRunning);
}

} // namespace jobproperty

#include "companions/jobproperty/show.h"

#include "companions/jobproperty/data_setting_key.h"
#include "companions/jobproperty/messages.h"
#include "companions/jobproperty/running_mark.h"
#include "companions/jobproperty/window.h"
#include "companions/jobproperty/window_resource.h"

#include <windows.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <string_view>
#include <variant>

namespace jobproperty {

namespace {

constexpr const char* kMark = "Window";
constexpr std::size_t kMostNamed = 10;

ExitCode Report(ExitCode code, TextId text, HWND owner = nullptr) {
    ReportSeen(owner, Text(text));
    return code;
}

// The plug-in waits for input to be idle, which begins with the thread's message queue.
void MakeMessageQueue() {
    MSG message;
    PeekMessageA(&message, nullptr, WM_USER, WM_USER, PM_NOREMOVE);
}

std::string_view DescriptionText() {
    const HRSRC resource = FindResourceA(nullptr, MAKEINTRESOURCEA(IDR_DEVICE_DESCRIPTION), RT_RCDATA);
    const HGLOBAL loaded = resource ? LoadResource(nullptr, resource) : nullptr;
    if (!loaded)
        return {};
    return {static_cast<const char*>(LockResource(loaded)), SizeofResource(nullptr, resource)};
}

// The device's settings at their defaults. Not copied, since the settings refer to the catalogue.
struct DeviceSettings {
    explicit DeviceSettings(const ppd::PpdFile& device) : catalogue(device), settings(catalogue, device) {}
    DeviceSettings(const DeviceSettings&) = delete;
    DeviceSettings& operator=(const DeviceSettings&) = delete;

    Catalogue catalogue;
    JobSettings settings;
};

std::unique_ptr<DeviceSettings> ReadDevice() {
    const auto parsed = ppd::Parse(DescriptionText());
    const auto* device = std::get_if<ppd::PpdFile>(&parsed);
    return device ? std::make_unique<DeviceSettings>(*device) : nullptr;
}

// "" if all values are in their ranges.
std::string OutOfRangeText(const DeviceSettings& device) {
    const std::vector<std::size_t> wrong = device.settings.OutOfRange();
    if (wrong.empty())
        return {};
    std::string text = Text(TextId::OutOfRangeLoaded) + "\n";
    for (std::size_t i = 0; i < std::min(wrong.size(), kMostNamed); ++i)
        text.append("\n").append(device.catalogue.Settings()[wrong[i]].label);
    if (wrong.size() > kMostNamed)
        text.append("\n")
            .append(Text(TextId::AndOthers))
            .append(" ")
            .append(std::to_string(wrong.size() - kMostNamed))
            .append(" ")
            .append(Text(TextId::Items));
    return text;
}

// How the end of one window goes on: an answer keeps the window open, or ends it with a code.
class Acceptance {
  public:
    Acceptance(DataSettingKey& key, const DeviceSettings& device) : m_key(key), m_device(device) {}

    bool operator()(HWND window) {
        switch (m_key.Write(m_device.catalogue, m_device.settings)) {
        case KeyResult::Done: break;
        case KeyResult::Gone: m_failure = Report(ExitCode::KeyVanished, TextId::KeyVanished, window); break;
        case KeyResult::Failed: Report(ExitCode::Failed, TextId::NotWritten, window); return false;
        }
        return true;
    }
    std::optional<ExitCode> Failure() const { return m_failure; }

  private:
    DataSettingKey& m_key;
    const DeviceSettings& m_device;
    std::optional<ExitCode> m_failure;
};

ExitCode Edit(DataSettingKey& key, DeviceSettings& device) {
    const std::string opening = OutOfRangeText(device);
    Acceptance acceptance(key, device);
    const bool isAccepted = EditInWindow(device.catalogue, device.settings, {.hint = {}, .opening = opening},
                                         [&](HWND window) { return acceptance(window); });
    if (acceptance.Failure())
        return *acceptance.Failure();
    const bool areWrongLeft = isAccepted ? !device.settings.OutOfRange().empty() : !opening.empty();
    return areWrongLeft ? ExitCode::ValuesOutOfRange : ExitCode::Done;
}

} // namespace

ExitCode ShowSettingsOf(const std::string& id, const std::string& key) {
    MakeMessageQueue();
    RunningMark mark(kMark, id);
    if (!mark.Hold())
        return Report(ExitCode::AlreadyShown, TextId::AlreadyShown);
    const std::unique_ptr<DataSettingKey> opened = DataSettingKey::Open(key);
    if (!opened)
        return Report(ExitCode::NoKey, TextId::NoKey);
    const std::unique_ptr<DeviceSettings> device = ReadDevice();
    if (!device)
        return Report(ExitCode::Failed, TextId::NoDescription);
    switch (opened->Read(device->catalogue, device->settings)) {
    case KeyResult::Done: return Edit(*opened, *device);
    case KeyResult::Gone: return Report(ExitCode::NoKey, TextId::NoKey);
    case KeyResult::Failed: break;
    }
    return Report(ExitCode::Failed, TextId::SystemFailed);
}

ExitCode ShowDefaults() {
    MakeMessageQueue();
    const std::unique_ptr<DeviceSettings> device = ReadDevice();
    if (!device)
        return Report(ExitCode::Failed, TextId::NoDescription);
    EditInWindow(device->catalogue, device->settings, {.hint = Text(TextId::NothingStored), .opening = {}},
                 [](HWND) { return true; });
    return ExitCode::Done;
}

} // namespace jobproperty

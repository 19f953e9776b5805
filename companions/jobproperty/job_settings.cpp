#include "companions/jobproperty/job_settings.h"

#include "Common/text.h"
#include "companions/jobproperty/device_options.h"
#include "companions/jobproperty/key_value.h"
#include "companions/jobproperty/setting_choices.h"
#include "settings/standard_values.h"

#include <algorithm>

namespace jobproperty {
namespace {

bool IsText(const SettingInfo& setting) {
    return setting.kind == SettingKind::Text || setting.kind == SettingKind::Password;
}

// A merge of two records strips control characters from texts.
bool IsControl(char byte) {
    return static_cast<unsigned char>(byte) < 0x20 || byte == 0x7F;
}

bool IsOfWholeCharacters(std::string_view text) {
    std::size_t at = 0;
    while (at < text.size())
        at += IsLeadByte(static_cast<unsigned char>(text[at])) ? 2 : 1;
    return at == text.size();
}

bool IsAllowedText(const SettingInfo& setting, std::string_view text) {
    return text.size() <= setting.limit && IsOfWholeCharacters(text) && std::ranges::none_of(text, IsControl);
}

const Choice* FindChoice(const SettingInfo& setting, std::int64_t value) {
    const auto found = std::ranges::find(setting.choices, value, &Choice::value);
    return found == setting.choices.end() ? nullptr : &*found;
}

// A keyword's option index, or its number, as the present value is.
std::optional<std::int64_t> OfKeyword(const SettingInfo& setting, std::uint32_t index) {
    return setting.kind == SettingKind::Choice ? ShownValue(setting.number, index) : index;
}

// What a fresh sheet shows, which begins with the private DEVMODE's defaults. A reset in the sheet writes the
// standard values instead, which differ in a few. The paper lengths have another unit in the DEVMODE.
Value NamedDefault(const SettingInfo& setting) {
    const devmode::FieldDescriptor* record = DescribeKeyValue(setting.name).record;
    if (!record || record->travel == devmode::Travel::Paper)
        return {.number = StandardNumber(setting.name), .text = std::string(StandardText(setting.name))};
    return {.number = static_cast<std::int64_t>(record->number), .text = std::string(record->text)};
}

Value BuiltInDefault(const SettingInfo& setting, const ppd::PpdFile& device) {
    if (setting.isKeyword) {
        const std::uint32_t index = DeviceDefault(device, setting.number);
        return {.number = OfKeyword(setting, index).value_or(index), .text = {}};
    }
    return NamedDefault(setting);
}

// A description may have a default that no setting here can have; its place takes the next one that is.
Value AllowedDefault(const SettingInfo& setting, Value value) {
    if (!IsAllowed(setting, value) && setting.kind == SettingKind::Choice)
        value.number = setting.choices.front().value;
    if (!IsAllowed(setting, value) && setting.kind == SettingKind::Number)
        value.number = std::clamp(value.number, setting.least, setting.most);
    return value;
}

std::string ShownText(const SettingInfo& info, const Value& value) {
    switch (info.kind) {
    case SettingKind::Choice: {
        const Choice* choice = FindChoice(info, value.number);
        return choice ? choice->text : std::to_string(value.number);
    }
    case SettingKind::Number: {
        const std::string number = FormatNumber(info, value.number);
        return info.unit.empty() ? number : number + ' ' + info.unit;
    }
    case SettingKind::Text: return value.text;
    case SettingKind::Password: return value.text.empty() ? std::string() : "********";
    }
    return {};
}

} // namespace

bool IsAllowed(const SettingInfo& setting, const Value& value) {
    switch (setting.kind) {
    case SettingKind::Choice: return FindChoice(setting, value.number) != nullptr;
    case SettingKind::Number: return value.number >= setting.least && value.number <= setting.most;
    case SettingKind::Text:
    case SettingKind::Password: return IsAllowedText(setting, value.text);
    }
    return false;
}

JobSettings::JobSettings(const Catalogue& catalogue, const ppd::PpdFile& device) : m_catalogue(catalogue) {
    m_entries.reserve(catalogue.Settings().size());
    for (const SettingInfo& setting : catalogue.Settings()) {
        const Value standard = AllowedDefault(setting, BuiltInDefault(setting, device));
        m_entries.push_back({standard, standard, standard});
    }
}

void JobSettings::Load(std::size_t setting, const Value& current, std::optional<std::uint32_t> defaultIndex) {
    Entry& entry = m_entries[setting];
    const SettingInfo& info = Info(setting);
    // What is of the other kind stays empty, so that a comparison means this kind alone.
    entry.loaded =
        IsText(info) ? Value{.number = 0, .text = current.text} : Value{.number = current.number, .text = {}};
    entry.current = entry.loaded;
    if (!info.isKeyword || !defaultIndex)
        return;
    const auto standard = OfKeyword(info, *defaultIndex);
    if (standard && IsAllowed(info, {.number = *standard, .text = {}}))
        entry.standard.number = *standard;
}

bool JobSettings::Set(std::size_t setting, const Value& value) {
    const SettingInfo& info = Info(setting);
    if (!IsAllowed(info, value))
        return false;
    Value& current = m_entries[setting].current;
    if (IsText(info))
        current.text = value.text;
    else
        current.number = value.number;
    return true;
}

bool JobSettings::DiffersFromDefault(std::size_t setting) const {
    return m_entries[setting].current != m_entries[setting].standard;
}

void JobSettings::Revert(std::size_t setting) {
    m_entries[setting].current = m_entries[setting].standard;
}

void JobSettings::Revert(Subject subject) {
    for (std::size_t setting = 0; setting < m_entries.size(); ++setting)
        if (Info(setting).subject == subject)
            Revert(setting);
}

void JobSettings::RevertAll() {
    for (std::size_t setting = 0; setting < m_entries.size(); ++setting)
        Revert(setting);
}

std::vector<std::size_t> JobSettings::OutOfRange() const {
    std::vector<std::size_t> settings;
    for (std::size_t setting = 0; setting < m_entries.size(); ++setting)
        if (!IsAllowed(Info(setting), m_entries[setting].current))
            settings.push_back(setting);
    return settings;
}

std::vector<std::size_t> JobSettings::Changed() const {
    std::vector<std::size_t> settings;
    for (std::size_t setting = 0; setting < m_entries.size(); ++setting)
        if (m_entries[setting].current != m_entries[setting].loaded)
            settings.push_back(setting);
    return settings;
}

std::string JobSettings::Shown(std::size_t setting) const {
    return ShownText(Info(setting), Current(setting));
}

std::string JobSettings::ShownDefault(std::size_t setting) const {
    return ShownText(Info(setting), Default(setting));
}

} // namespace jobproperty

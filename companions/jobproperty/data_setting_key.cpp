#include "companions/jobproperty/data_setting_key.h"

#include "Common/text.h"
#include "datamanager/key_reading.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace jobproperty {

namespace {

// Where the present value of a setting stands. The catalogue names nothing that has no place.
Place PlaceOfSetting(const SettingInfo& setting) {
    if (setting.isKeyword)
        return PlaceOf(Bank::Current, setting.number);
    const auto row = std::ranges::find(kValueRows, std::string_view(setting.name),
                                       [](const ValueRow& value) { return std::string_view(value.name); });
    return PlaceOf(static_cast<NamedValue>(row - kValueRows.begin()));
}

std::int64_t NumberIn(const KeyEntry& entry, const SettingInfo& setting) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, entry.slot.data(), entry.slot.size());
    if (entry.slot.size() < sizeof bits && setting.isSigned)
        return static_cast<std::int32_t>(bits);
    return static_cast<std::int64_t>(bits);
}

std::span<char> TextSlot(const KeyEntry& entry) {
    return {reinterpret_cast<char*>(entry.slot.data()), entry.slot.size()};
}

Value ValueIn(const KeyEntry& entry, const SettingInfo& setting) {
    if (entry.type == KeyValueType::Text)
        return {.number = 0, .text = std::string(FieldText(TextSlot(entry)))};
    return {.number = NumberIn(entry, setting), .text = {}};
}

void Put(const KeyEntry& entry, const Value& value) {
    if (entry.type == KeyValueType::Text) {
        std::ranges::fill(entry.slot, std::byte{});
        CopyText(TextSlot(entry), value.text);
    } else {
        std::memcpy(entry.slot.data(), &value.number, entry.slot.size());
    }
}

} // namespace

std::unique_ptr<DataSettingKey> DataSettingKey::Open(const std::string& name) {
    std::optional<SettingKeyRoot> root = SettingKeyRoot::Open(name, KEY_QUERY_VALUE | KEY_SET_VALUE);
    std::unique_ptr<SettingKey> key = OpenSettingKey(name);
    if (!root || !key)
        return nullptr;
    return std::unique_ptr<DataSettingKey>(new DataSettingKey(std::move(*root), std::move(key)));
}

KeyResult DataSettingKey::Read(const Catalogue& catalogue, JobSettings& settings) {
    if (const KeyResult result = ReadValues(*m_key, m_values); result != KeyResult::Done)
        return result;
    const auto& defaults = m_values.banks[static_cast<std::size_t>(Bank::Default)];
    for (std::size_t i = 0; i < catalogue.Settings().size(); ++i) {
        const SettingInfo& setting = catalogue.Settings()[i];
        std::optional<std::uint32_t> defaultIndex;
        if (setting.isKeyword)
            defaultIndex = defaults[static_cast<std::size_t>(setting.number)];
        settings.Load(i, ValueIn(EntryAt(m_values, PlaceOfSetting(setting)), setting), defaultIndex);
    }
    return KeyResult::Done;
}

KeyResult DataSettingKey::HandOver(const Catalogue& catalogue, const JobSettings& settings) {
    const std::vector<std::size_t> changed = settings.Changed();
    for (const std::size_t setting : changed) {
        const KeyEntry entry = EntryAt(m_values, PlaceOfSetting(catalogue.Settings()[setting]));
        Put(entry, settings.Current(setting));
        if (const KeyResult result = WriteEntry(entry); result != KeyResult::Done)
            return result;
    }
    return changed.empty() || m_root.RaiseGeneration() ? KeyResult::Done : Fault();
}

KeyResult DataSettingKey::Write(const Catalogue& catalogue, const JobSettings& settings) {
    if (!m_root.IsThere())
        return KeyResult::Gone;
    const auto loaded = std::make_unique<StoredValues>(m_values);
    const KeyResult result = HandOver(catalogue, settings);
    if (result == KeyResult::Done)
        return result;
    m_values = *loaded;
    for (const std::size_t setting : settings.Changed())
        WriteEntry(EntryAt(m_values, PlaceOfSetting(catalogue.Settings()[setting])));
    return result;
}

} // namespace jobproperty

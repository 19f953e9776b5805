#include "datamanager/key_reading.h"

#include "Common/log.h"

namespace {

constexpr int kReadings = 4;

KeyResult ReadOnce(SettingKey& key, Section section, StoredValues& values) {
    return key.Read(section, [&](std::string_view name, std::uint32_t type, std::span<const std::byte> data) {
        if (TakeKeyValue(values, section, name, type, data) == Taken::WrongForm)
            ZR_LOG("wrong form %s\\%.*s type=%u size=%u\n", NameOf(section), static_cast<int>(name.size()),
                   name.data(), static_cast<unsigned>(type), static_cast<unsigned>(data.size()));
    });
}

// Values are shown by their index, which shifts as soon as another process removes one, and then a value is
// skipped. So a section is read again until it was the same all the while.
KeyResult ReadSection(SettingKey& key, Section section, StoredValues& values) {
    for (int reading = 0; reading < kReadings; ++reading) {
        Clear(values, section);
        SectionMark before;
        SectionMark after;
        if (const KeyResult result = key.GetMark(section, before); result != KeyResult::Done)
            return result;
        if (const KeyResult result = ReadOnce(key, section, values); result != KeyResult::Done)
            return result;
        if (const KeyResult result = key.GetMark(section, after); result != KeyResult::Done)
            return result;
        if (before == after)
            return KeyResult::Done;
    }
    ZR_LOG("never still %s\n", NameOf(section));
    return KeyResult::Failed;
}

} // namespace

KeyResult ReadValues(SettingKey& key, StoredValues& values) {
    for (std::size_t i = 0; i < kSectionNames.size(); ++i)
        if (const KeyResult result = ReadSection(key, static_cast<Section>(i), values);
            result != KeyResult::Done)
            return result;
    return KeyResult::Done;
}

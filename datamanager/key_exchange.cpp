#include "datamanager/key_exchange.h"

#include "Common/log.h"
#include "Common/text.h"
#include "datamanager/key_reading.h"

#include <algorithm>
#include <array>
#include <new>
#include <utility>

namespace {

bool HoldsNothing(std::span<const std::byte> slot) {
    return std::ranges::all_of(slot, [](std::byte b) { return b == std::byte{}; });
}

std::span<char> TextIn(std::span<std::byte> slot) {
    return {reinterpret_cast<char*>(slot.data()), slot.size()};
}

// True if `loaded` is what the slot's own text has become on its way through the key.
bool IsImage(const SettingKey& key, const KeyEntry& own, const KeyEntry& loaded) {
    if (own.type != KeyValueType::Text)
        return false;
    std::array<char, kMaxValueSize> image{};
    const auto cut = std::span(image).first(own.slot.size());
    CopyText(cut, key.ImageOf(FieldText(TextIn(own.slot))));
    return FieldText(cut) == FieldText(TextIn(loaded.slot));
}

} // namespace

void KeyExchange::Attach(std::unique_ptr<SettingKey> key) {
    m_key = std::move(key);
    m_isNameOut = false;
    m_isWatched = false;
    m_isPending = false;
    m_isToldToSetter = false;
    m_unwritten.reset();
}

void KeyExchange::LetGoIfGone(KeyResult result) {
    if (result != KeyResult::Gone)
        return;
    ZR_LOG("key gone=%s\n", m_key->Name().c_str());
    Detach();
}

std::string_view KeyExchange::HandOutName(StoredValues& values) {
    if (m_key && !m_isNameOut) {
        m_isNameOut = true;
        for (Place place = 0; place < kPlaceCount; ++place)
            m_unwritten[place] = !HoldsNothing(EntryAt(values, place).slot);
        const KeyResult watched = m_key->Watch();
        m_isWatched = watched == KeyResult::Done;
        LetGoIfGone(watched);
    }
    WriteAgain(values);
    return KeyName();
}

// While the key could not be watched, a hand-over would not have been told, so it is assumed.
void KeyExchange::Ask() {
    if (m_isWatched && !m_key->IsSignalled())
        return;
    const bool isSignalled = m_isWatched;
    const KeyResult watched = m_key->Watch();
    m_isWatched = watched == KeyResult::Done;
    m_isPending = m_isPending || isSignalled || m_isWatched;
    LetGoIfGone(watched);
}

void KeyExchange::TakeHandOver(StoredValues& values) {
    m_isToldToSetter = false;
    Ask();
    if (!m_isPending)
        return;
    WriteAgain(values);
    if (!m_key)
        return;
    try {
        Read(values);
    } catch (const std::bad_alloc&) {
        // A getter reports no failure; it gives the value of the last hand-over.
        ZR_LOG("no memory\n");
        m_key->Postpone();
    }
}

void KeyExchange::Read(StoredValues& values) {
    StoredValues loaded;
    const KeyResult result = ReadValues(*m_key, loaded);
    if (result == KeyResult::Done) {
        KeepOwn(values, loaded);
        values = loaded;
        m_isPending = false;
    } else if (result == KeyResult::Failed) {
        // Reading takes milliseconds, and the reason may last.
        m_key->Postpone();
    }
    LetGoIfGone(result);
}

// Leaves in `loaded` the store's own values where the key does not hold the later ones.
void KeyExchange::KeepOwn(StoredValues& values, StoredValues& loaded) const {
    for (Place place = 0; place < kPlaceCount; ++place) {
        const KeyEntry own = EntryAt(values, place);
        const KeyEntry other = EntryAt(loaded, place);
        if (std::ranges::equal(own.slot, other.slot))
            continue;
        if (m_unwritten[place] || IsImage(*m_key, own, other))
            std::ranges::copy(own.slot, other.slot.begin());
    }
}

void KeyExchange::AfterSet(StoredValues& values, Place place, bool isEqual) {
    if (!m_isNameOut)
        return;
    const auto isInKey = [&] { return isEqual && m_isWatched && !m_isPending && !m_unwritten[place]; };
    if (isInKey() && !m_key->IsDue())
        return;
    Ask();
    if (!m_key)
        return;
    m_isToldToSetter = m_isPending;
    if (!isInKey())
        Write(values, place);
}

void KeyExchange::Write(StoredValues& values, Place place) {
    const KeyEntry entry = EntryAt(values, place);
    KeyResult result = KeyResult::Failed;
    try {
        result = m_key->Write(entry.section, entry.name, entry.type, entry.DataOf(entry.slot));
    } catch (const std::bad_alloc&) {
        ZR_LOG("no memory\n");
    }
    m_unwritten[place] = result != KeyResult::Done;
    LetGoIfGone(result);
}

void KeyExchange::WriteAgain(StoredValues& values) {
    for (Place place = 0; m_unwritten.any() && place < kPlaceCount; ++place)
        if (m_unwritten[place])
            Write(values, place);
}

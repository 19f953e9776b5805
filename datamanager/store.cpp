#include "datamanager/store.h"

#include "Common/log.h"
#include "Common/text.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace {

bool IsInTable(int keyword) {
    return keyword >= 0 && keyword < kKeywordCount;
}

bool HoldsNothing(std::span<const std::byte> slot) {
    return std::ranges::all_of(slot, [](std::byte b) { return b == std::byte{}; });
}

// What of a slot goes into the key: of a text no more than its NUL.
std::span<const std::byte> DataOf(const ValueRow& row, std::span<const std::byte> slot) {
    if (row.type != ValueType::Text)
        return slot;
    return slot.first(FieldText({reinterpret_cast<const char*>(slot.data()), slot.size()}).size() + 1);
}

} // namespace

void ValueStore::Reset() {
    m_key.reset();
    m_values = {};
    m_foreignCount = 0;
    active = nullptr;
}

void ValueStore::Attach(std::unique_ptr<SettingKey> key) {
    m_key = std::move(key);
    for (std::size_t bank = 0; bank < kBankCount; ++bank)
        for (std::size_t keyword = 0; keyword < kKeywordCount; ++keyword)
            if (const std::uint32_t& value = m_values.banks[bank][keyword])
                WriteToKey(SectionOf(static_cast<Bank>(bank)), kKeywordNames[keyword], KeyValueType::Number,
                           std::as_bytes(std::span(&value, 1)));
    for (const ValueRow& row : kValueRows)
        if (const auto slot = SlotOf(m_values.named, row); !HoldsNothing(slot))
            WriteToKey(Section::Values, row.name, KeyTypeOf(row.type), DataOf(row, slot));
}

std::uint32_t ValueStore::Get(Bank bank, int keyword) {
    if (IsInTable(keyword)) {
        TakeHandOver();
        return m_values.banks[static_cast<std::size_t>(bank)][static_cast<std::size_t>(keyword)];
    }
    const Foreign* foreign = FindForeign(bank, keyword);
    return foreign ? foreign->value : 0;
}

void ValueStore::Set(Bank bank, int keyword, std::uint32_t value) {
    if (!IsInTable(keyword)) {
        if (Foreign* foreign = FindForeign(bank, keyword))
            foreign->value = value;
        else if (m_foreignCount < kForeignLimit)
            m_foreign[m_foreignCount++] = {bank, keyword, value};
        return;
    }
    auto& slot = m_values.banks[static_cast<std::size_t>(bank)][static_cast<std::size_t>(keyword)];
    const auto bytes = std::as_bytes(std::span(&value, 1));
    if (Change(std::as_writable_bytes(std::span(&slot, 1)), bytes))
        WriteToKey(SectionOf(bank), kKeywordNames[static_cast<std::size_t>(keyword)], KeyValueType::Number,
                   bytes);
}

void ValueStore::SetText(NamedValue which, const char* text) {
    const std::size_t width = kValueRows[static_cast<std::size_t>(which)].size;
    std::array<char, kMaxValueSize> cut{};
    CopyText(std::span(cut).first(width), {text, strnlen(text, width)});
    Set(which, std::as_bytes(std::span(cut).first(width)));
}

void ValueStore::Set(NamedValue which, std::span<const std::byte> value) {
    const ValueRow& row = kValueRows[static_cast<std::size_t>(which)];
    if (Change(SlotOf(m_values.named, row), value))
        WriteToKey(Section::Values, row.name, KeyTypeOf(row.type), DataOf(row, value));
}

// Gives a slot its new value; false if it has that value already. What another process has handed over is
// taken in first, so that "already" means what stands in the key, and the newer value is the one that stays.
bool ValueStore::Change(std::span<std::byte> slot, std::span<const std::byte> value) {
    TakeHandOver();
    if (std::ranges::equal(slot, value))
        return false;
    std::ranges::copy(value, slot.begin());
    return true;
}

void ValueStore::WriteToKey(Section section, const char* name, KeyValueType type,
                            std::span<const std::byte> data) {
    if (!m_key || m_key->Write(section, name, type, data))
        return;
    ZR_LOG("key gone=%s\n", m_key->Name().c_str());
    Detach();
}

// A value that does not stand in the key, or stands there in a wrong form, is one that was never set.
void ValueStore::Reload() {
    StoredValues loaded;
    const auto take = [&](Section section, std::string_view name, std::uint32_t type,
                          std::span<const std::byte> data) {
        if (TakeKeyValue(loaded, section, name, type, data) == Taken::WrongForm)
            ZR_LOG("wrong form %s\\%.*s type=%u size=%u\n", NameOf(section), static_cast<int>(name.size()),
                   name.data(), static_cast<unsigned>(type), static_cast<unsigned>(data.size()));
    };
    try {
        if (m_key->ReadAll(take)) {
            m_values = loaded;
            return;
        }
    } catch (const std::bad_alloc&) {
        // A getter reports no failure; the values of the last hand-over stay.
        ZR_LOG("no memory\n");
        return;
    }
    ZR_LOG("key gone=%s\n", m_key->Name().c_str());
    Detach();
}

ValueStore::Foreign* ValueStore::FindForeign(Bank bank, int keyword) {
    const auto end = m_foreign.begin() + static_cast<std::ptrdiff_t>(m_foreignCount);
    const auto found = std::find_if(m_foreign.begin(), end, [=](const Foreign& foreign) {
        return foreign.bank == bank && foreign.keyword == keyword;
    });
    return found != end ? &*found : nullptr;
}

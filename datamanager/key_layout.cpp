#include "datamanager/key_layout.h"

#include "Common/text.h"
#include "datamanager/name_index.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr NameIndex kKeywordIndex(kKeywordNames);
static_assert(!kKeywordIndex.HasDuplicates());

consteval std::array<const char*, kNamedValueCount> ValueNames() {
    std::array<const char*, kNamedValueCount> names{};
    std::ranges::transform(kValueRows, names.begin(), &ValueRow::name);
    return names;
}
constexpr NameIndex kValueIndex(ValueNames());
static_assert(!kValueIndex.HasDuplicates());

bool IsOfType(std::uint32_t type, KeyValueType expected) {
    return type == static_cast<std::uint32_t>(expected);
}

Taken TakeNumber(std::span<std::byte> slot, std::span<const std::byte> data) {
    if (data.size() != slot.size())
        return Taken::WrongForm;
    std::ranges::copy(data, slot.begin());
    return Taken::Yes;
}

Taken TakeText(std::span<std::byte> slot, std::span<const std::byte> data) {
    std::ranges::fill(slot, std::byte{});
    const std::string_view text = FieldText({reinterpret_cast<const char*>(data.data()), data.size()});
    CopyText({reinterpret_cast<char*>(slot.data()), slot.size()}, text);
    return Taken::Yes;
}

} // namespace

KeyValueType KeyTypeOf(ValueType type) {
    switch (type) {
    case ValueType::Text: return KeyValueType::Text;
    case ValueType::U64: return KeyValueType::LongNumber;
    case ValueType::U32:
    case ValueType::I32: break;
    }
    return KeyValueType::Number;
}

std::span<const std::byte> KeyEntry::DataOf(std::span<const std::byte> content) const {
    if (type != KeyValueType::Text)
        return content;
    return content.first(FieldText({reinterpret_cast<const char*>(content.data()), content.size()}).size() +
                         1);
}

KeyEntry EntryAt(StoredValues& values, Place place) {
    constexpr Place firstNamed = PlaceOf(NamedValue{});
    if (place >= firstNamed) {
        const ValueRow& row = kValueRows[place - firstNamed];
        return {Section::Values, row.name, KeyTypeOf(row.type), SlotOf(values.named, row)};
    }
    const Place bank = place / kKeywordCount;
    const Place keyword = place % kKeywordCount;
    return {SectionOf(static_cast<Bank>(bank)), kKeywordNames[keyword], KeyValueType::Number,
            std::as_writable_bytes(std::span(&values.banks[bank][keyword], 1))};
}

void Clear(StoredValues& values, Section section) {
    if (section == Section::Values)
        values.named = {};
    else
        values.banks[static_cast<std::size_t>(section)] = {};
}

Taken TakeKeyValue(StoredValues& values, Section section, std::string_view name, std::uint32_t type,
                   std::span<const std::byte> data) {
    if (section != Section::Values) {
        const int keyword = kKeywordIndex.Find(name);
        if (keyword < 0)
            return Taken::UnknownName;
        if (!IsOfType(type, KeyValueType::Number))
            return Taken::WrongForm;
        auto& bank = values.banks[static_cast<std::size_t>(section)];
        return TakeNumber(std::as_writable_bytes(std::span(&bank[static_cast<std::size_t>(keyword)], 1)),
                          data);
    }

    const int index = kValueIndex.Find(name);
    if (index < 0)
        return Taken::UnknownName;
    const ValueRow& row = kValueRows[static_cast<std::size_t>(index)];
    if (!IsOfType(type, KeyTypeOf(row.type)))
        return Taken::WrongForm;
    const std::span<std::byte> slot = SlotOf(values.named, row);
    return row.type == ValueType::Text ? TakeText(slot, data) : TakeNumber(slot, data);
}

#include "datamanager/store.h"

#include "Common/text.h"

#include <algorithm>
#include <cstring>

namespace {

bool IsInTable(int keyword) {
    return keyword >= 0 && keyword < kKeywordCount;
}

} // namespace

void ValueStore::Reset() {
    Detach();
    m_values = {};
    m_foreignCount = 0;
    active = nullptr;
}

std::uint32_t ValueStore::Get(Bank bank, int keyword) {
    if (IsInTable(keyword)) {
        m_exchange.BeforeGet(m_values);
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
    Set(PlaceOf(bank, keyword), std::as_bytes(std::span(&value, 1)));
}

void ValueStore::SetText(NamedValue which, const char* text) {
    const std::size_t width = kValueRows[static_cast<std::size_t>(which)].size;
    std::array<char, kMaxValueSize> cut{};
    CopyText(std::span(cut).first(width), {text, strnlen(text, width)});
    Set(which, std::as_bytes(std::span(cut).first(width)));
}

void ValueStore::Set(NamedValue which, std::span<const std::byte> value) {
    Set(PlaceOf(which), value);
}

void ValueStore::Set(Place place, std::span<const std::byte> value) {
    const std::span<std::byte> slot = EntryAt(m_values, place).slot;
    const bool isEqual = std::ranges::equal(slot, value);
    std::ranges::copy(value, slot.begin());
    m_exchange.AfterSet(m_values, place, isEqual);
}

ValueStore::Foreign* ValueStore::FindForeign(Bank bank, int keyword) {
    const auto end = m_foreign.begin() + static_cast<std::ptrdiff_t>(m_foreignCount);
    const auto found = std::find_if(m_foreign.begin(), end, [=](const Foreign& foreign) {
        return foreign.bank == bank && foreign.keyword == keyword;
    });
    return found != end ? &*found : nullptr;
}

// The value store: what is set is kept here and, once the name of the attached data setting key was asked
// for, stands in the key as well.
#pragma once

#include "datamanager/key_exchange.h"
#include "datamanager/values.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <utility>

// For one thread. Every read first takes over what another process has handed over through the key.
class ValueStore {
  public:
    // Back to the state in which nothing was ever set. The key is let go, not removed.
    void Reset();

    void Attach(std::unique_ptr<SettingKey> key) { m_exchange.Attach(std::move(key)); }
    // The values stay.
    void Detach() { m_exchange.Detach(); }
    // The name of the attached key, "" if there is none.
    std::string_view KeyName() const { return m_exchange.KeyName(); }
    // The same for somebody else, and from now on every value stands in the key, those already set included.
    std::string_view HandOutKeyName() { return m_exchange.HandOutName(m_values); }

    // Any int is a possible keyword. Those outside the table are kept, up to kForeignLimit of them, but never
    // stand in the key; what does not fit is forgotten.
    std::uint32_t Get(Bank bank, int keyword);
    void Set(Bank bank, int keyword, std::uint32_t value);
    static constexpr std::size_t kForeignLimit = 64;

    const NamedValues& Named() {
        m_exchange.BeforeGet(m_values);
        return m_values.named;
    }
    // T is the type of the slot.
    template <typename T>
    void SetNumber(NamedValue which, T value) {
        Set(which, std::as_bytes(std::span(&value, 1)));
    }
    // Cut to the slot on a character boundary.
    void SetText(NamedValue which, const char* text);

    // The window of the active page.
    void* active = nullptr;

  private:
    struct Foreign {
        Bank bank;
        int keyword;
        std::uint32_t value;
    };

    Foreign* FindForeign(Bank bank, int keyword);
    void Set(NamedValue which, std::span<const std::byte> value);
    void Set(Place place, std::span<const std::byte> value);

    StoredValues m_values;
    std::array<Foreign, kForeignLimit> m_foreign{};
    std::size_t m_foreignCount = 0;
    KeyExchange m_exchange;
};

// The value store: what is set is kept here and, while a data setting key is attached, stands in the key as
// well.
#pragma once

#include "datamanager/setting_key.h"
#include "datamanager/values.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

// For one thread. Every read first takes over what another process has handed over through the key.
class ValueStore {
  public:
    // Back to the state in which nothing was ever set. The key is let go, not removed.
    void Reset();

    // From now on every value stands in this key too, those already set included.
    void Attach(std::unique_ptr<SettingKey> key);
    // The values stay.
    void Detach() { m_key.reset(); }
    // The name of the attached key, "" if there is none.
    std::string_view KeyName() const { return m_key ? std::string_view(m_key->Name()) : std::string_view(); }

    // Any int is a possible keyword. Those outside the table are kept, up to kForeignLimit of them, but never
    // stand in the key; what does not fit is forgotten.
    std::uint32_t Get(Bank bank, int keyword);
    void Set(Bank bank, int keyword, std::uint32_t value);
    static constexpr std::size_t kForeignLimit = 64;

    const NamedValues& Named() {
        TakeHandOver();
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

    void TakeHandOver() {
        if (m_key && m_key->IsHandedOver())
            Reload();
    }
    void Reload();
    Foreign* FindForeign(Bank bank, int keyword);
    void Set(NamedValue which, std::span<const std::byte> value);
    bool Change(std::span<std::byte> slot, std::span<const std::byte> value);
    void WriteToKey(Section section, const char* name, KeyValueType type, std::span<const std::byte> data);

    StoredValues m_values;
    std::array<Foreign, kForeignLimit> m_foreign{};
    std::size_t m_foreignCount = 0;
    std::unique_ptr<SettingKey> m_key;
};

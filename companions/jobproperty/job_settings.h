// The settings of one job while they are edited.
#pragma once

#include "companions/jobproperty/catalogue.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace jobproperty {

// A number or a text, by the setting's kind.
struct Value {
    std::int64_t number = 0;
    std::string text;
    bool operator==(const Value&) const = default;
};

// False for a value that the setting can't have: no choice of it, out of its range, a text that is too long,
// ends within a character or has control characters.
bool IsAllowed(const SettingInfo& setting, const Value& value);

class JobSettings {
  public:
    // All settings at their built-in defaults: of a keyword the device description's, of a named value what
    // a fresh sheet shows. The catalogue must outlive this.
    explicit JobSettings(const Catalogue& catalogue, const ppd::PpdFile& device);

    // What the sheet has given: the present value and, for a keyword, its default, both as the key has them.
    // The default is an option index and is turned into the tag number that the present value is; without
    // one that the setting can have, the built-in default stays.
    void Load(std::size_t setting, const Value& current, std::optional<std::uint32_t> defaultIndex);

    const Value& Current(std::size_t setting) const { return m_entries[setting].current; }
    const Value& Default(std::size_t setting) const { return m_entries[setting].standard; }
    // False, with nothing changed, for a value that the setting can't have.
    bool Set(std::size_t setting, const Value& value);
    bool DiffersFromDefault(std::size_t setting) const;
    void Revert(std::size_t setting);
    void Revert(Subject subject);
    void RevertAll();

    // Those that were loaded with a value that they can't have and still have it.
    std::vector<std::size_t> OutOfRange() const;
    // Those whose value is another one than was loaded.
    std::vector<std::size_t> Changed() const;

    // The value as it is shown: the choice's text, the number with its unit, nothing of a password but that
    // there is one. A number that is no choice is shown as such.
    std::string Shown(std::size_t setting) const;
    std::string ShownDefault(std::size_t setting) const;

  private:
    struct Entry {
        Value loaded, current, standard;
    };
    const SettingInfo& Info(std::size_t setting) const { return m_catalogue.Settings()[setting]; }

    const Catalogue& m_catalogue;
    std::vector<Entry> m_entries;
};

// The number that a user's text means, in the key's units; nothing for what is no number of this setting.
// Full-width digits count as well.
std::optional<std::int64_t> ParseNumber(const SettingInfo& setting, std::string_view text);
// Without the unit, with as few decimals as give this very value back.
std::string FormatNumber(const SettingInfo& setting, std::int64_t value);

} // namespace jobproperty

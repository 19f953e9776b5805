// The data setting key's own values, seen from outside of the process that has made it.
#pragma once

#include "Common/win_handles.h"

#include <cstdint>
#include <optional>
#include <string>

namespace jobproperty {

class SettingKeyRoot {
  public:
    // Nothing if there is no such key; it is never made. `name` is a data setting key's.
    static std::optional<SettingKeyRoot> Open(const std::string& name, REGSAM access);

    // Nothing for a value that is not there or no number.
    std::optional<std::uint32_t> ProcessId() const;

    // False if the key was removed since it was opened.
    bool IsThere() const;
    // Tells the key's store that values have been written. A Generation that is missing counts as 0.
    bool RaiseGeneration() const;

  private:
    explicit SettingKeyRoot(UniqueRegistryKey key) : m_key(std::move(key)) {}

    UniqueRegistryKey m_key;
};

} // namespace jobproperty

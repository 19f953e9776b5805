// Keeping the store's named values over an operation that overwrites them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// Reads every named value that has a getter and puts all of them back when it goes out of scope.
//
// The store has one slot for each named value and no Default bank beside it. So filling the Default bank from
// the standard settings, CDefaultSetting::SaveToSession, also overwrites the named values that the open sheet
// shows; whoever does so holds a guard.
class NamedValuesGuard {
  public:
    NamedValuesGuard();
    ~NamedValuesGuard();
    NamedValuesGuard(const NamedValuesGuard&) = delete;
    NamedValuesGuard& operator=(const NamedValuesGuard&) = delete;

  private:
    // One for each named value with a getter, in the order of StoreValues().
    std::vector<std::int64_t> m_numbers;
    std::vector<std::string> m_texts;
};

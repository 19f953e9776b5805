// Values of one registry key that are stored all or not at all.
#pragma once

#include "Common/win_handles.h"
#include "companions/common/raw_value.h"

#include <windows.h>

#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

class KeyChange {
  public:
    // Opens the key below HKEY_CURRENT_USER, and makes it if there is none.
    explicit KeyChange(const std::string& path);
    // Puts back what stood there, the keys included, unless it was told to keep the change.
    ~KeyChange();
    KeyChange(const KeyChange&) = delete;
    KeyChange& operator=(const KeyChange&) = delete;

    // Stores a REG_SZ of the ANSI code page; does nothing once something has failed. Throws std::bad_alloc.
    void SetText(const char* name, std::span<const char> text);
    // ERROR_SUCCESS, or why the first step that failed did.
    LSTATUS Status() const { return m_status; }
    void Keep() { m_isKept = true; }
    // Null if it could not be opened.
    HKEY Key() const { return m_key.Get(); }
    bool IsChanged() const { return !m_before.empty(); }

  private:
    void PutBack();
    void DeleteMadeKeys();

    std::vector<std::string> m_missing; // the key and those above it that are not there yet, from below
    UniqueRegistryKey m_key;
    bool m_isKept = false;
    LSTATUS m_status;
    std::vector<std::pair<const char*, std::optional<RawValue>>> m_before;
};

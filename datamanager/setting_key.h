// The data setting key in use: where a store's values also stand for another process, and from where that
// process's changes come. Keys are below HKEY_CURRENT_USER; a build without a registry has none.
#pragma once

#include "datamanager/key_layout.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>

class SettingKey {
  public:
    using Visitor =
        std::function<void(Section, std::string_view name, std::uint32_t type, std::span<const std::byte>)>;

    virtual ~SettingKey() = default;

    virtual const std::string& Name() const = 0;

    // True, once, if another process has handed over changes since the last time. Asked by every getter: the
    // system is asked in turn only if it has not been for 100 microseconds.
    virtual bool IsHandedOver() = 0;

    // Shows every value that stands in the key. False if the key is gone.
    virtual bool ReadAll(const Visitor& visitor) = 0;

    // Writes one value at once. False if the key is gone; any other failure is logged only.
    virtual bool Write(Section section, const char* name, KeyValueType type,
                       std::span<const std::byte> data) = 0;
};

// Makes the key with this name, which must be a data setting key's. Null, with a log line, if it can't be
// made or is there already, and then belongs to another store.
std::unique_ptr<SettingKey> MakeSettingKey(const std::string& name, std::uint32_t keywordCount);

// Removes a key and all below it. False if it isn't there or can't be removed.
bool DeleteUserKey(const std::string& path);

// This process's number, which no other running process has.
std::uint32_t ProcessNumber();

// The time in milliseconds since some moment long ago.
std::uint64_t TimeNow();

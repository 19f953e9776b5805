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

enum class KeyResult {
    Done,
    Gone,  // the key or a subkey was removed, and stays so
    Failed // for another reason, with a log line; may be tried again
};

// What changes whenever a section does. A section whose mark is the same before and after it was read was not
// changed meanwhile.
struct SectionMark {
    std::uint32_t valueCount = 0;
    std::uint64_t lastWrite = 0;

    friend bool operator==(const SectionMark&, const SectionMark&) = default;
};

class SettingKey {
  public:
    using Visitor =
        std::function<void(std::string_view name, std::uint32_t type, std::span<const std::byte>)>;

    virtual ~SettingKey() = default;

    virtual const std::string& Name() const = 0;

    // True if a getter, or a setter of what the store has, should ask for a hand-over: not more often than
    // every 100 microseconds, since asking the system takes longer than these may.
    virtual bool IsDue() = 0;
    // IsDue() is false for the next 50 milliseconds.
    virtual void Postpone() = 0;

    // From now on the next change of the key's own values is signalled, once.
    virtual KeyResult Watch() = 0;
    virtual bool IsSignalled() = 0;

    virtual KeyResult GetMark(Section section, SectionMark& mark) = 0;
    // Shows every value that stands in a section. After a failure some may have been shown.
    virtual KeyResult Read(Section section, const Visitor& visitor) = 0;
    // Writes one value at once. A text ends with its NUL.
    virtual KeyResult Write(Section section, const char* name, KeyValueType type,
                            std::span<const std::byte> data) = 0;

    // What a text reads as after it was written. Where the registry keeps text in another encoding that is
    // not always the text itself.
    virtual std::string ImageOf(std::string_view text) const = 0;
};

// Makes the key with this name, which must be a data setting key's. Null, with a log line, if it can't be
// made or is there already, and then belongs to another store.
std::unique_ptr<SettingKey> MakeSettingKey(const std::string& name, std::uint32_t keywordCount);

// A key that another process has made, with this name, which must be a data setting key's. Null if the key or
// one of its subkeys is not there; nothing is made.
std::unique_ptr<SettingKey> OpenSettingKey(const std::string& name);

bool UserKeyExists(const std::string& path);

// Removes a key and all below it. False if it isn't there or can't be removed.
bool DeleteUserKey(const std::string& path);

// This process's number, which no other running process has.
std::uint32_t ProcessNumber();

// The time in milliseconds since some moment long ago.
std::uint64_t TimeNow();

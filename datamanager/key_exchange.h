// Keeps a store's values and a data setting key in step.
//
// The order of things, which all of this rests on:
// - Until the key's name is asked for nobody can know it: nothing is written, and nothing is asked.
// - Handing the name out first starts watching, then writes every value, so that no hand-over of a reader of
//   the name is missed. From then on every change is written through at once.
// - A hand-over is watched for again before anything is read, so that the next one, made during the reading,
//   is seen. It is pending until a reading has succeeded.
// - Getters ask seldom, so between two questions the store may be older than the key, and so do setters of
//   what stands there already: a whole set of settings is mostly the same values again. A setter of another
//   value asks each time, and both write when a hand-over is pending. They need not read: their value is the
//   later one, and the getter that reads finds it in the key.
// - A value that could not be written is written again before a reading, which would otherwise bring back
//   what it replaced; if that fails too, the reading leaves its slot alone.
#pragma once

#include "datamanager/setting_key.h"
#include "datamanager/values.h"

#include <bitset>
#include <memory>
#include <string_view>

// The values are always the same store's; they stay when the key is let go.
class KeyExchange {
  public:
    void Attach(std::unique_ptr<SettingKey> key);
    // The key is let go, not removed.
    void Detach() { Attach(nullptr); }
    // "" if there is no key.
    std::string_view KeyName() const { return m_key ? std::string_view(m_key->Name()) : std::string_view(); }

    // The name, for another process, in whose sight the values stand from now on. "" if there is no key or
    // it is gone.
    std::string_view HandOutName(StoredValues& values);

    // Before a value is read: takes over what another process has handed over. What can't be read now is
    // taken over later.
    void BeforeGet(StoredValues& values) {
        if (m_isNameOut && (m_isToldToSetter || m_key->IsDue()))
            TakeHandOver(values);
    }
    // After a value was set: puts it into the key. `isEqual` tells that its slot held it already.
    void AfterSet(StoredValues& values, Place place, bool isEqual);

  private:
    void Ask();
    void TakeHandOver(StoredValues& values);
    void Read(StoredValues& values);
    void KeepOwn(StoredValues& values, StoredValues& loaded) const;
    void Write(StoredValues& values, Place place);
    void WriteAgain(StoredValues& values);
    void LetGoIfGone(KeyResult result);

    std::unique_ptr<SettingKey> m_key;
    bool m_isNameOut = false; // only with a key
    bool m_isWatched = false;
    bool m_isPending = false;
    // A setter has asked and knows of a hand-over, so the next getter takes it, due or not.
    bool m_isToldToSetter = false;
    std::bitset<kPlaceCount> m_unwritten;
};

// The data setting key of a running sheet: its settings are read when the window opens and what the user has
// changed is handed over when it closes.
#pragma once

#include "companions/jobproperty/job_settings.h"
#include "companions/jobproperty/setting_key_root.h"
#include "datamanager/setting_key.h"
#include "datamanager/values.h"

#include <memory>
#include <optional>
#include <string>

namespace jobproperty {

class DataSettingKey {
  public:
    // Null if the key or one of its subkeys is not there; nothing is made. `name` is a data setting key's.
    static std::unique_ptr<DataSettingKey> Open(const std::string& name);

    // Gives what stands in the key to the settings.
    KeyResult Read(const Catalogue& catalogue, JobSettings& settings);

    // Writes the changed settings and nothing else, and hands them over. If this fails nothing was handed
    // over, and the loaded values are put back as far as the system lets them: a later hand-over takes along
    // whatever stands there.
    KeyResult Write(const Catalogue& catalogue, const JobSettings& settings);

  private:
    DataSettingKey(SettingKeyRoot root, std::unique_ptr<SettingKey> key)
        : m_root(std::move(root)), m_key(std::move(key)) {}
    KeyResult HandOver(const Catalogue& catalogue, const JobSettings& settings);
    KeyResult WriteEntry(const KeyEntry& entry) {
        return m_key->Write(entry.section, entry.name, entry.type, entry.DataOf(entry.slot));
    }
    KeyResult Fault() const { return m_root.IsThere() ? KeyResult::Failed : KeyResult::Gone; }

    SettingKeyRoot m_root;
    std::unique_ptr<SettingKey> m_key;
    StoredValues m_values;
};

} // namespace jobproperty

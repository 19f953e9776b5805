// The settings as the window shows them: those of the job, and what the user has typed and no setting can
// have.
#pragma once

#include "companions/jobproperty/job_settings.h"

#include <cstddef>
#include <map>
#include <optional>
#include <string>

namespace jobproperty {

class EditedSettings {
  public:
    EditedSettings(const Catalogue& shownCatalogue, JobSettings& job)
        : catalogue(shownCatalogue), settings(job) {}

    // Takes the text of a number's field. One that is no number of the setting is kept beside the setting,
    // which stays as it is until there is a good one.
    void TypeNumber(std::size_t setting, const std::string& text);
    const std::string* Draft(std::size_t setting) const;
    std::optional<std::size_t> FirstDraft() const;

    bool IsMarked(std::size_t setting) const;
    bool IsMarked(Subject subject) const;
    bool IsAnyMarked() const;
    std::string Shown(std::size_t setting) const;

    void Revert(std::size_t setting);
    void Revert(Subject subject);
    void RevertAll();

    // The positions of a subject's settings.
    std::size_t FirstOf(Subject subject) const;
    std::size_t CountOf(Subject subject) const { return catalogue.Of(subject).size(); }

    const Catalogue& catalogue;
    JobSettings& settings;

  private:
    std::map<std::size_t, std::string> m_drafts;
};

} // namespace jobproperty

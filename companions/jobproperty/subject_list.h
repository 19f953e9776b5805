// The list of subjects at the left of the window, each with a mark if it contains a setting that differs.
#pragma once

#include "companions/jobproperty/edited_settings.h"

#include <windows.h>

#include <array>
#include <cstddef>
#include <optional>
#include <string>

namespace jobproperty {

class SubjectList {
  public:
    SubjectList(HWND dialog, const EditedSettings& edited);

    void ShowMarks();
    void Select(std::optional<Subject> subject);
    std::optional<Subject> Selected() const;

  private:
    static std::string RowOf(Subject subject, bool isMarked);

    HWND m_list;
    const EditedSettings& m_edited;
    std::array<bool, static_cast<std::size_t>(Subject::Count)> m_isMarked{}; // as the rows show it
};

} // namespace jobproperty

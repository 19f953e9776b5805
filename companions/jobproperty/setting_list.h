// The list of settings: those of a subject, or what a search has found, with the subjects in a column of
// their own. It asks for the text of a row when it paints it, so any number of rows is shown at once.
#pragma once

#include "companions/jobproperty/edited_settings.h"

#include <windows.h>

#include <commctrl.h>

#include <cstddef>
#include <optional>
#include <vector>

namespace jobproperty {

class SettingList {
  public:
    SettingList(HWND dialog, const EditedSettings& edited);

    void ShowSubject(Subject subject);
    void ShowFound(std::vector<std::size_t> found);

    std::size_t Count() const { return m_rows.size(); }
    // Of a row that is there.
    void SelectRow(std::size_t row);
    // False if the list does not show the setting.
    bool SelectSetting(std::size_t setting);
    std::optional<std::size_t> SelectedSetting() const;
    // Paints what has changed.
    void Repaint() const;

    // A notification of the list; true if another setting was selected. `result` is what the list gets.
    bool OnNotify(NMHDR& header, LRESULT& result);

  private:
    void ShowRows(std::vector<std::size_t> rows, bool withSubjects);
    void ShowColumns(bool withSubjects);
    void AddColumn(int index, const std::string& title, int width) const;
    std::string TextOfCell(std::size_t row, int column) const;
    LRESULT ColorOf(NMLVCUSTOMDRAW& draw) const;
    void GiveText(NMLVDISPINFOA& info);
    LRESULT FindRow(const std::string& text, int first) const;

    HWND m_list;
    const EditedSettings& m_edited;
    std::vector<std::size_t> m_rows;
    int m_width = 0; // of all columns together
    bool m_isFilling = false;
    bool m_hasSubjects = false;
    std::string m_mark;
    std::string m_given; // the text last asked for
};

} // namespace jobproperty

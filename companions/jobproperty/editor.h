// The editor of the selected setting: its names, a field of its kind, what may be typed there, and its
// default.
#pragma once

#include "companions/jobproperty/edited_settings.h"
#include "companions/jobproperty/messages.h"

#include <windows.h>

#include <cstddef>
#include <optional>
#include <string>

namespace jobproperty {

class Editor {
  public:
    Editor(HWND dialog, EditedSettings& edited);
    ~Editor();
    Editor(const Editor&) = delete;
    Editor& operator=(const Editor&) = delete;

    void Show(std::optional<std::size_t> setting);
    std::optional<std::size_t> Shown() const { return m_setting; }
    // Goes to the field of the setting that is shown.
    void TakeFocus() const;

    // A notification of a field; true if the setting was changed, or what is typed of it.
    bool OnCommand(int controlId, int notification);
    // The color of a static control's text.
    std::optional<COLORREF> ColorOf(HWND control) const;

  private:
    const SettingInfo& Info() const { return m_edited.catalogue.Settings()[*m_setting]; }
    int FieldId() const;
    void ShowNames();
    void ShowField();
    void ShowChoices();
    void ShowRange();
    void ShowDefault();
    void ShowNote();
    void Tell(const std::string& note, bool isWrong);

    bool TakeChoice();
    bool TakeNumber();
    bool TakeText(HWND field);
    void Refuse(HWND field, const std::string& why);
    std::string RangeText() const;
    std::string LimitText(TextId text) const;
    HWND Control(int controlId) const { return GetDlgItem(m_dialog, controlId); }

    HWND m_dialog;
    EditedSettings& m_edited;
    std::optional<std::size_t> m_setting;
    bool m_isFilling = false;
    bool m_isNoteWrong = false;
    HFONT m_nameFont = nullptr;
};

} // namespace jobproperty

#include "companions/jobproperty/editor.h"

#include "companions/jobproperty/window_colors.h"
#include "companions/jobproperty/window_controls.h"
#include "companions/jobproperty/window_resource.h"

#include <algorithm>
#include <array>

namespace jobproperty {

namespace {

constexpr std::array kFields{IDC_CHOICE, IDC_TEXT, IDC_PASSWORD};

// What the value's field holds of a setting at any time is the user's; what is put there must not come back
// as typed.
class Filling {
  public:
    explicit Filling(bool& isFilling) : m_isFilling(isFilling) { m_isFilling = true; }
    ~Filling() { m_isFilling = false; }
    Filling(const Filling&) = delete;
    Filling& operator=(const Filling&) = delete;

  private:
    bool& m_isFilling;
};

HFONT BoldFontOf(HWND control) {
    LOGFONTA font{};
    const auto present = reinterpret_cast<HFONT>(SendMessageA(control, WM_GETFONT, 0, 0));
    if (!GetObjectA(present, sizeof font, &font))
        return nullptr;
    font.lfWeight = FW_BOLD;
    return CreateFontIndirectA(&font);
}

} // namespace

Editor::Editor(HWND dialog, EditedSettings& edited)
    : m_dialog(dialog), m_edited(edited), m_nameFont(BoldFontOf(GetDlgItem(dialog, IDC_NAME))) {
    if (m_nameFont)
        SendMessageA(Control(IDC_NAME), WM_SETFONT, reinterpret_cast<WPARAM>(m_nameFont), FALSE);
}

Editor::~Editor() {
    if (m_nameFont)
        DeleteObject(m_nameFont);
}

int Editor::FieldId() const {
    if (!m_setting)
        return IDC_CHOICE;
    switch (Info().kind) {
    case SettingKind::Choice: return IDC_CHOICE;
    case SettingKind::Password: return IDC_PASSWORD;
    case SettingKind::Number:
    case SettingKind::Text: break;
    }
    return IDC_TEXT;
}

void Editor::Show(std::optional<std::size_t> setting) {
    m_setting = setting;
    ShowNames();
    ShowField();
    ShowRange();
    ShowNote();
    ShowDefault();
}

void Editor::TakeFocus() const {
    MoveFocus(m_dialog, FieldId());
}

void Editor::ShowNames() {
    SetText(Control(IDC_NAME), m_setting ? Info().label : std::string());
    SetText(Control(IDC_KEYWORD), m_setting ? std::string(Info().name) : std::string());
}

void Editor::ShowField() {
    const Filling filling(m_isFilling);
    const int shown = FieldId();
    const bool hasFocus = std::ranges::any_of(kFields, [this](int id) { return GetFocus() == Control(id); });
    for (const int id : kFields) {
        ShowControl(m_dialog, id, id == shown);
        EnableWindow(Control(id), id == shown && m_setting);
    }
    EnableControl(m_dialog, IDC_VALUE_LABEL, m_setting.has_value());
    if (hasFocus)
        TakeFocus();
    if (shown == IDC_CHOICE)
        return ShowChoices();
    const std::string* draft = m_edited.Draft(*m_setting);
    const Value& value = m_edited.settings.Current(*m_setting);
    if (Info().kind == SettingKind::Number)
        SetText(Control(shown), draft ? *draft : FormatNumber(Info(), value.number));
    else
        SetText(Control(shown), value.text);
    // A text that is the same already is not set anew, and the field could still undo what was typed of
    // another setting, a password too.
    SendMessageA(Control(shown), EM_EMPTYUNDOBUFFER, 0, 0);
    SendMessageA(Control(shown), EM_SETSEL, 0, -1);
}

void Editor::ShowChoices() {
    const HWND combo = Control(IDC_CHOICE);
    SendMessageA(combo, CB_RESETCONTENT, 0, 0);
    if (!m_setting)
        return;
    for (const Choice& choice : Info().choices)
        SendMessageA(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(choice.text.c_str()));
    const auto present =
        std::ranges::find(Info().choices, m_edited.settings.Current(*m_setting).number, &Choice::value);
    if (present != Info().choices.end())
        SendMessageA(combo, CB_SETCURSEL, static_cast<WPARAM>(present - Info().choices.begin()), 0);
}

std::string Editor::RangeText() const {
    std::string text =
        FormatNumber(Info(), Info().least) + Text(TextId::Till) + FormatNumber(Info(), Info().most);
    if (!Info().unit.empty())
        text.append(" ").append(Info().unit);
    return text;
}

std::string Editor::LimitText(TextId text) const {
    return Text(text) + std::to_string(Info().limit);
}

void Editor::ShowRange() {
    const bool isNumber = m_setting && Info().kind == SettingKind::Number;
    SetText(Control(IDC_RANGE), isNumber ? RangeText() : std::string());
}

void Editor::ShowDefault() {
    std::string text;
    if (m_setting) {
        const std::string standard = m_edited.settings.ShownDefault(*m_setting);
        text = Text(TextId::DefaultIs) + (standard.empty() ? Text(TextId::None) : standard);
    }
    SetText(Control(IDC_DEFAULT), text);
    EnableControl(m_dialog, IDC_REVERT, m_setting && m_edited.IsMarked(*m_setting));
}

void Editor::Tell(const std::string& note, bool isWrong) {
    if (m_isNoteWrong != isWrong)
        InvalidateRect(Control(IDC_NOTE), nullptr, TRUE);
    m_isNoteWrong = isWrong;
    SetText(Control(IDC_NOTE), note);
}

void Editor::ShowNote() {
    if (!m_setting)
        return Tell({}, false);
    const bool isAllowed = IsAllowed(Info(), m_edited.settings.Current(*m_setting));
    switch (Info().kind) {
    case SettingKind::Choice: return Tell(isAllowed ? std::string() : Text(TextId::ValueUnknown), !isAllowed);
    case SettingKind::Number:
        if (m_edited.Draft(*m_setting))
            return Tell(Text(TextId::NotInRange) + RangeText(), true);
        return Tell(isAllowed ? std::string() : Text(TextId::ValueOutOfRange), !isAllowed);
    case SettingKind::Text:
    case SettingKind::Password: return Tell(LimitText(TextId::TextLimit), false);
    }
}

bool Editor::OnCommand(int controlId, int notification) {
    if (m_isFilling || !m_setting || controlId != FieldId())
        return false;
    bool isChanged = false;
    if (controlId == IDC_CHOICE)
        isChanged = notification == CBN_SELCHANGE && TakeChoice();
    else if (notification == EN_CHANGE)
        isChanged = Info().kind == SettingKind::Number ? TakeNumber() : TakeText(Control(controlId));
    if (isChanged) {
        ShowNote();
        ShowDefault();
    }
    return isChanged;
}

bool Editor::TakeChoice() {
    const LRESULT row = SendMessageA(Control(IDC_CHOICE), CB_GETCURSEL, 0, 0);
    if (row < 0 || static_cast<std::size_t>(row) >= Info().choices.size())
        return false;
    return m_edited.settings.Set(*m_setting,
                                 {.number = Info().choices[static_cast<std::size_t>(row)].value, .text = {}});
}

bool Editor::TakeNumber() {
    m_edited.TypeNumber(*m_setting, TextOf(Control(IDC_TEXT)));
    return true;
}

bool Editor::TakeText(HWND field) {
    const std::optional<std::string> text = ExactTextOf(field);
    if (text && m_edited.settings.Set(*m_setting, {.number = 0, .text = *text}))
        return true;
    const bool isTooLong = text && text->size() > Info().limit;
    Refuse(field, isTooLong ? LimitText(TextId::TextRefused) : Text(TextId::CharacterRefused));
    return false;
}

// The field gets back what it held; the caret goes back to where the refused characters begin.
void Editor::Refuse(HWND field, const std::string& why) {
    const Filling filling(m_isFilling);
    DWORD caret = 0;
    SendMessageA(field, EM_GETSEL, 0, reinterpret_cast<LPARAM>(&caret));
    // The field counts characters, not bytes.
    const int refused = GetWindowTextLengthW(field);
    SetWindowTextA(field, m_edited.settings.Current(*m_setting).text.c_str());
    const int added = std::max(refused - GetWindowTextLengthW(field), 0);
    const int back = std::max(static_cast<int>(caret) - added, 0);
    SendMessageA(field, EM_SETSEL, static_cast<WPARAM>(back), back);
    Tell(why, true);
}

std::optional<COLORREF> Editor::ColorOf(HWND control) const {
    if (control == Control(IDC_NOTE))
        return m_isNoteWrong ? kWrongColor : kQuietColor;
    if (control == Control(IDC_KEYWORD) || control == Control(IDC_RANGE))
        return kQuietColor;
    return std::nullopt;
}

} // namespace jobproperty

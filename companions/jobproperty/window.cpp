#include "companions/jobproperty/window.h"

#include "Common/ask_user.h"
#include "companions/jobproperty/editor.h"
#include "companions/jobproperty/messages.h"
#include "companions/jobproperty/setting_list.h"
#include "companions/jobproperty/subject_list.h"
#include "companions/jobproperty/window_controls.h"
#include "companions/jobproperty/window_resource.h"
#include "pages/message_guard.h"

#include <memory>
#include <system_error>

namespace jobproperty {

namespace {

// Posted to itself, so that a box above the window comes when the window is complete.
constexpr UINT kOpened = WM_APP;
// Posted to itself when no row is selected, since a row gives way to the next one in two steps.
constexpr UINT kDeselected = WM_APP + 1;

class PropertyWindow {
  public:
    PropertyWindow(const Catalogue& catalogue, JobSettings& settings, const WindowTexts& texts,
                   const std::function<bool(HWND)>& accept)
        : m_edited(catalogue, settings), m_texts(texts), m_accept(accept) {}

    static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_INITDIALOG)
            SetWindowLongPtrA(dialog, DWLP_USER, lParam);
        auto* window = reinterpret_cast<PropertyWindow*>(GetWindowLongPtrA(dialog, DWLP_USER));
        if (!window)
            return FALSE;
        return GuardMessage(message, [&] { return window->OnMessage(dialog, message, wParam, lParam); });
    }

  private:
    INT_PTR OnMessage(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR OnInit(HWND dialog);
    INT_PTR OnCommand(int controlId, int notification);
    INT_PTR OnNotify(NMHDR& header);
    INT_PTR OnStaticColor(HDC context, HWND control);

    void OnSearch();
    void OnSubject();
    void OnOk();
    void OnCancel();
    void OnRevertAll();
    void RefreshValue();
    void RefreshAll();
    void KeepRowSelected();
    void ShowMarks();
    void GoTo(std::size_t setting);
    void SetSearch(const std::string& text);

    HWND m_dialog = nullptr;
    EditedSettings m_edited;
    const WindowTexts& m_texts;
    const std::function<bool(HWND)>& m_accept;
    std::unique_ptr<SubjectList> m_subjects;
    std::unique_ptr<SettingList> m_list;
    std::unique_ptr<Editor> m_editor;
    bool m_isSearchSet = false; // the search box is being written by the window itself
};

INT_PTR PropertyWindow::OnInit(HWND dialog) {
    m_dialog = dialog;
    m_subjects = std::make_unique<SubjectList>(dialog, m_edited);
    m_list = std::make_unique<SettingList>(dialog, m_edited);
    m_editor = std::make_unique<Editor>(dialog, m_edited);
    SetDlgItemTextA(dialog, IDC_HINT, m_texts.hint.c_str());
    m_subjects->Select(Subject::Paper);
    OnSubject();
    ShowMarks();
    if (!m_texts.opening.empty())
        PostMessageA(dialog, kOpened, 0, 0);
    return TRUE;
}

INT_PTR PropertyWindow::OnMessage(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG: return OnInit(dialog);
    case WM_COMMAND: return OnCommand(LOWORD(wParam), HIWORD(wParam));
    case WM_NOTIFY: return OnNotify(*reinterpret_cast<NMHDR*>(lParam));
    case WM_CTLCOLORSTATIC:
        return OnStaticColor(reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam));
    // The close box is no Esc key, which ends a search first.
    case WM_CLOSE: EndDialog(dialog, IDCANCEL); return TRUE;
    case kOpened:
        // A dialog is shown when nothing is posted any more.
        ShowWindow(dialog, SW_SHOW);
        ReportSeen(dialog, m_texts.opening);
        return TRUE;
    case kDeselected: KeepRowSelected(); return TRUE;
    default: return FALSE;
    }
}

INT_PTR PropertyWindow::OnCommand(int controlId, int notification) {
    if (!m_editor)
        return FALSE;
    switch (controlId) {
    case IDOK: OnOk(); return TRUE;
    case IDCANCEL: OnCancel(); return TRUE;
    case IDC_SEARCH:
        if (notification == EN_CHANGE && !m_isSearchSet)
            OnSearch();
        return TRUE;
    case IDC_SUBJECTS:
        if (notification == LBN_SELCHANGE) {
            SetSearch("");
            OnSubject();
        }
        return TRUE;
    case IDC_REVERT:
        if (const auto setting = m_editor->Shown())
            m_edited.Revert(*setting);
        RefreshAll();
        return TRUE;
    case IDC_REVERT_SUBJECT:
        if (const auto subject = m_subjects->Selected())
            m_edited.Revert(*subject);
        RefreshAll();
        return TRUE;
    case IDC_REVERT_ALL: OnRevertAll(); return TRUE;
    default:
        if (m_editor->OnCommand(controlId, notification))
            RefreshValue();
        return TRUE;
    }
}

INT_PTR PropertyWindow::OnNotify(NMHDR& header) {
    if (!m_list || header.idFrom != IDC_SETTINGS)
        return FALSE;
    LRESULT result = 0;
    if (m_list->OnNotify(header, result))
        m_editor->Show(m_list->SelectedSetting());
    else if (header.code == LVN_ITEMCHANGED && !m_list->SelectedSetting())
        PostMessageA(m_dialog, kDeselected, 0, 0);
    SetWindowLongPtrA(m_dialog, DWLP_MSGRESULT, result);
    return TRUE;
}

INT_PTR PropertyWindow::OnStaticColor(HDC context, HWND control) {
    const std::optional<COLORREF> color = m_editor ? m_editor->ColorOf(control) : std::nullopt;
    if (!color)
        return FALSE;
    SetTextColor(context, *color);
    SetBkMode(context, TRANSPARENT);
    return reinterpret_cast<INT_PTR>(GetSysColorBrush(COLOR_BTNFACE));
}

void PropertyWindow::OnSubject() {
    const std::optional<Subject> subject = m_subjects->Selected();
    if (!subject)
        return;
    m_list->ShowSubject(*subject);
    m_editor->Show(m_list->SelectedSetting());
    SetDlgItemTextA(m_dialog, IDC_FOUND, "");
    ShowMarks();
}

void PropertyWindow::OnSearch() {
    const std::string query = TextOf(GetDlgItem(m_dialog, IDC_SEARCH));
    if (query.empty()) {
        // Back to the subject of what was looked at.
        const std::optional<std::size_t> setting = m_editor->Shown();
        m_subjects->Select(setting ? m_edited.catalogue.Settings()[*setting].subject : Subject::Paper);
        OnSubject();
        if (setting && m_list->SelectSetting(*setting))
            m_editor->Show(setting);
        return;
    }
    m_subjects->Select(std::nullopt);
    m_list->ShowFound(m_edited.catalogue.Search(query));
    if (m_list->SelectedSetting() != m_editor->Shown())
        m_editor->Show(m_list->SelectedSetting());
    const std::size_t count = m_list->Count();
    SetText(GetDlgItem(m_dialog, IDC_FOUND),
            count == 0 ? Text(TextId::NothingFound) : std::to_string(count) + " " + Text(TextId::Items));
    ShowMarks();
}

void PropertyWindow::SetSearch(const std::string& text) {
    m_isSearchSet = true;
    SetText(GetDlgItem(m_dialog, IDC_SEARCH), text);
    m_isSearchSet = false;
}

void PropertyWindow::GoTo(std::size_t setting) {
    if (!m_list->SelectSetting(setting)) {
        SetSearch("");
        m_subjects->Select(m_edited.catalogue.Settings()[setting].subject);
        OnSubject();
        m_list->SelectSetting(setting);
    }
    m_editor->Show(setting);
    m_editor->TakeFocus();
}

void PropertyWindow::OnOk() {
    if (const std::optional<std::size_t> draft = m_edited.FirstDraft())
        GoTo(*draft);
    else if (m_accept(m_dialog))
        EndDialog(m_dialog, IDOK);
}

void PropertyWindow::OnCancel() {
    const HWND search = GetDlgItem(m_dialog, IDC_SEARCH);
    if (GetFocus() != search || TextOf(search).empty()) {
        EndDialog(m_dialog, IDCANCEL);
        return;
    }
    SetSearch("");
    OnSearch();
}

void PropertyWindow::OnRevertAll() {
    if (AskUser(m_dialog, Text(TextId::AskRevertAll).c_str(), Text(TextId::Title).c_str(),
                AskButtons::YesNo) != ask_answer::Yes)
        return;
    m_edited.RevertAll();
    RefreshAll();
}

// A click beside the rows deselects them all, and the editor would act on a setting that no row tells.
void PropertyWindow::KeepRowSelected() {
    const std::optional<std::size_t> shown = m_editor->Shown();
    if (shown && !m_list->SelectedSetting())
        m_list->SelectSetting(*shown);
}

void PropertyWindow::RefreshValue() {
    m_list->Repaint();
    ShowMarks();
}

void PropertyWindow::RefreshAll() {
    m_editor->Show(m_editor->Shown());
    RefreshValue();
}

void PropertyWindow::ShowMarks() {
    m_subjects->ShowMarks();
    const std::optional<Subject> subject = m_subjects->Selected();
    EnableControl(m_dialog, IDC_REVERT_SUBJECT, subject && m_edited.IsMarked(*subject));
    EnableControl(m_dialog, IDC_REVERT_ALL, m_edited.IsAnyMarked());
}

// The library is not among the program's imports, since a start or an exit in the background must not wait
// for it.
bool RegisterListView() {
    const HMODULE library = LoadLibraryA("comctl32.dll");
    if (!library)
        return false;
    const auto initialize = reinterpret_cast<decltype(&InitCommonControlsEx)>(
        reinterpret_cast<void*>(GetProcAddress(library, "InitCommonControlsEx")));
    const INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_LISTVIEW_CLASSES};
    return initialize && initialize(&controls);
}

} // namespace

bool EditInWindow(const Catalogue& catalogue, JobSettings& settings, const WindowTexts& texts,
                  const std::function<bool(HWND)>& accept) {
    PropertyWindow window(catalogue, settings, texts, accept);
    INT_PTR ended = -1;
    if (RegisterListView())
        ended = DialogBoxParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDD_JOB_PROPERTY), nullptr,
                                PropertyWindow::Procedure, reinterpret_cast<LPARAM>(&window));
    if (ended != IDOK && ended != IDCANCEL)
        throw std::system_error(static_cast<int>(GetLastError()), std::system_category());
    return ended == IDOK;
}

} // namespace jobproperty

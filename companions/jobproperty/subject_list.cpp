#include "companions/jobproperty/subject_list.h"

#include "companions/jobproperty/messages.h"
#include "companions/jobproperty/window_resource.h"

namespace jobproperty {

namespace {

constexpr int kSubjectCount = static_cast<int>(Subject::Count);

} // namespace

SubjectList::SubjectList(HWND dialog, const EditedSettings& edited)
    : m_list(GetDlgItem(dialog, IDC_SUBJECTS)), m_edited(edited) {
    INT behindMark = 11;
    SendMessageA(m_list, LB_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&behindMark));
    for (int row = 0; row < kSubjectCount; ++row)
        SendMessageA(m_list, LB_ADDSTRING, 0,
                     reinterpret_cast<LPARAM>(RowOf(static_cast<Subject>(row), false).c_str()));
}

std::string SubjectList::RowOf(Subject subject, bool isMarked) {
    return (isMarked ? Text(TextId::Mark) : std::string()) + '\t' + SubjectName(subject);
}

void SubjectList::ShowMarks() {
    const LRESULT selected = SendMessageA(m_list, LB_GETCURSEL, 0, 0);
    for (int row = 0; row < kSubjectCount; ++row) {
        const auto subject = static_cast<Subject>(row);
        bool& isShownMarked = m_isMarked[static_cast<std::size_t>(row)];
        if (isShownMarked == m_edited.IsMarked(subject))
            continue;
        isShownMarked = !isShownMarked;
        const std::string text = RowOf(subject, isShownMarked);
        SendMessageA(m_list, WM_SETREDRAW, FALSE, 0);
        SendMessageA(m_list, LB_DELETESTRING, static_cast<WPARAM>(row), 0);
        SendMessageA(m_list, LB_INSERTSTRING, static_cast<WPARAM>(row),
                     reinterpret_cast<LPARAM>(text.c_str()));
        SendMessageA(m_list, LB_SETCURSEL, static_cast<WPARAM>(selected), 0);
        SendMessageA(m_list, WM_SETREDRAW, TRUE, 0);
        InvalidateRect(m_list, nullptr, TRUE);
    }
}

void SubjectList::Select(std::optional<Subject> subject) {
    SendMessageA(m_list, LB_SETCURSEL, subject ? static_cast<WPARAM>(*subject) : static_cast<WPARAM>(-1), 0);
}

std::optional<Subject> SubjectList::Selected() const {
    const LRESULT row = SendMessageA(m_list, LB_GETCURSEL, 0, 0);
    if (row < 0 || row >= kSubjectCount)
        return std::nullopt;
    return static_cast<Subject>(row);
}

} // namespace jobproperty

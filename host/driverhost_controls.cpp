#include "host/driverhost_controls.h"

#include "host/driverhost_windows.h"
#include "host/script.h"
#include "host/wide.h"
#include "host/window_class.h"

#include <array>
#include <vector>

#include <commctrl.h>
#include <prsht.h>

namespace driverhost {
namespace {

constexpr std::size_t kTextLimit = 4096;

bool IsList(HWND control) {
    return HasClass(control, WC_LISTBOXW);
}

bool IsExtendedCombo(HWND control) {
    return HasClass(control, WC_COMBOBOXEXW);
}

std::string WhyUnusable(HWND control) {
    if (!IsWindowVisible(control))
        return "the control is hidden";
    if (!IsWindowEnabled(control))
        return "the control is disabled";
    return "";
}

// A combo box notifies its parent. The box inside an extended one notifies that one, which passes it on under
// its own id as it sees fit.
class ComboNotifier {
  public:
    explicit ComboNotifier(HWND combo)
        : m_combo(combo), m_source(IsExtendedCombo(combo) ? Inner(combo) : combo),
          m_target(IsExtendedCombo(combo) ? combo : GetParent(combo)) {}

    void Focus() const { SetFocus(m_source); }

    void Notify(WORD code) const {
        if (IsWindow(m_combo))
            SendMessageW(m_target, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(m_source), code),
                         reinterpret_cast<LPARAM>(m_source));
    }

  private:
    static HWND Inner(HWND combo) {
        return reinterpret_cast<HWND>(SendMessageW(combo, CBEM_GETCOMBOCONTROL, 0, 0));
    }

    HWND m_combo;
    HWND m_source;
    HWND m_target;
};

std::wstring ExtendedRowText(HWND combo, int row) {
    std::vector<wchar_t> buffer(kTextLimit);
    COMBOBOXEXITEMW item{};
    item.mask = CBEIF_TEXT;
    item.iItem = row;
    item.pszText = buffer.data();
    item.cchTextMax = static_cast<int>(buffer.size() - 1);
    if (!SendMessageW(combo, CBEM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item)) || !item.pszText)
        return L"";
    return item.pszText;
}

// The messages by which the rows of a combo box or of a list are asked for.
struct RowMessages {
    UINT count, selected, textLength, text;
};
constexpr RowMessages kComboMessages{CB_GETCOUNT, CB_GETCURSEL, CB_GETLBTEXTLEN, CB_GETLBTEXT};
constexpr RowMessages kListMessages{LB_GETCOUNT, LB_GETCURSEL, LB_GETTEXTLEN, LB_GETTEXT};

const RowMessages& MessagesOf(HWND control) {
    return IsList(control) ? kListMessages : kComboMessages;
}

// A list's row is clicked at, as by mouse: the list itself selects it and notifies its parent.
std::string ClickRow(HWND list, int row) {
    SendMessageW(list, LB_SETTOPINDEX, static_cast<WPARAM>(row), 0);
    RECT place{};
    if (SendMessageW(list, LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&place)) ==
        LB_ERR)
        return "the row has no place";
    const LPARAM point = MAKELPARAM(place.left + 2, (place.top + place.bottom) / 2);
    SendMessageW(list, WM_LBUTTONDOWN, MK_LBUTTON, point);
    if (IsWindow(list))
        SendMessageW(list, WM_LBUTTONUP, 0, point);
    return "";
}

std::wstring TabTitle(HWND tab, int index) {
    std::array<wchar_t, 256> buffer{};
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = buffer.data();
    item.cchTextMax = static_cast<int>(buffer.size());
    SendMessageW(tab, TCM_GETITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
    return item.pszText ? item.pszText : L"";
}

HWND TabControl(HWND sheet) {
    return reinterpret_cast<HWND>(SendMessageW(sheet, PSM_GETTABCONTROL, 0, 0));
}

// The thread of another process has to move its focus itself.
void GiveFocus(HWND control) {
    if (GetWindowThreadProcessId(control, nullptr) == GetCurrentThreadId())
        SetFocus(control);
    else
        SendMessageW(GetParent(control), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
}

void SendKeys(HWND edit, const std::wstring& text) {
    for (const wchar_t c : text)
        SendMessageW(edit, WM_CHAR, c == L'\n' ? L'\r' : c, 1);
}

// A combo box may have an edit field of its own.
HWND EditOf(HWND control) {
    if (!HasRows(control) || IsList(control))
        return control;
    const HWND combo =
        IsExtendedCombo(control) ? FindWindowExW(control, nullptr, WC_COMBOBOXW, nullptr) : control;
    const HWND edit = FindWindowExW(combo, nullptr, WC_EDITW, nullptr);
    return edit ? edit : control;
}

struct ControlSearch {
    int id;
    HWND found;
};

BOOL CALLBACK NoteControl(HWND control, LPARAM param) {
    auto& search = *reinterpret_cast<ControlSearch*>(param);
    if (GetDlgCtrlID(control) == search.id && HasClass(GetParent(control), kDialogClass))
        search.found = control;
    return !search.found;
}

} // namespace

HWND FindControl(HWND front, int id) {
    if (IsSheet(front)) {
        const HWND page = reinterpret_cast<HWND>(SendMessageW(front, PSM_GETCURRENTPAGEHWND, 0, 0));
        if (const HWND control = page ? GetDlgItem(page, id) : nullptr)
            return control;
    }
    if (const HWND control = GetDlgItem(front, id); control || IsSheet(front))
        return control;
    ControlSearch search{id, nullptr};
    EnumChildWindows(front, NoteControl, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

bool HasRows(HWND control) {
    return IsList(control) || HasClass(control, WC_COMBOBOXW) || IsExtendedCombo(control);
}

int RowCount(HWND control) {
    return static_cast<int>(SendMessageW(control, MessagesOf(control).count, 0, 0));
}

int SelectedRow(HWND control) {
    return static_cast<int>(SendMessageW(control, MessagesOf(control).selected, 0, 0));
}

std::wstring RowText(HWND control, int row) {
    if (IsExtendedCombo(control))
        return ExtendedRowText(control, row);
    const RowMessages& messages = MessagesOf(control);
    const LRESULT length = SendMessageW(control, messages.textLength, static_cast<WPARAM>(row), 0);
    if (length < 0)
        return L"";
    // Of an ANSI control the length may count bytes; it is never below the characters.
    std::vector<wchar_t> buffer(static_cast<std::size_t>(length) + 2);
    SendMessageW(control, messages.text, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(buffer.data()));
    return buffer.data();
}

std::string ChooseRow(HWND combo, int row) {
    if (!HasRows(combo))
        return "the control is no combo box";
    if (std::string reason = WhyUnusable(combo); !reason.empty())
        return reason;
    const int count = RowCount(combo);
    if (row < 0 || row >= count)
        return "the " + std::string(IsList(combo) ? "list" : "combo box") + " has " + std::to_string(count) +
               " rows, counted from 0";
    if (IsList(combo))
        return ClickRow(combo, row);
    const ComboNotifier notifier(combo);
    notifier.Focus();
    notifier.Notify(CBN_DROPDOWN);
    SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(row), 0);
    notifier.Notify(CBN_SELENDOK);
    notifier.Notify(CBN_CLOSEUP);
    notifier.Notify(CBN_SELCHANGE);
    return "";
}

std::string ChooseText(HWND combo, const std::wstring& text) {
    if (!HasRows(combo))
        return "the control is no combo box";
    std::string rows;
    for (int row = 0; row < RowCount(combo); ++row) {
        const std::wstring label = RowText(combo, row);
        if (label == text)
            return ChooseRow(combo, row);
        rows += (row > 0 ? ", " : "") + script::Quoted(Utf8(label));
    }
    return "no row is " + script::Quoted(Utf8(text)) + "; there are: " + rows;
}

std::string Click(HWND button) {
    if (!HasClass(button, WC_BUTTONW))
        return "the control is no button";
    if (std::string reason = WhyUnusable(button); !reason.empty())
        return reason;
    SendMessageW(button, BM_CLICK, 0, 0);
    return "";
}

std::string Check(HWND button, bool on) {
    if (!HasClass(button, WC_BUTTONW))
        return "the control is no button";
    if (std::string reason = WhyUnusable(button); !reason.empty())
        return reason;
    if (IsChecked(button) == on)
        return "";
    SendMessageW(button, BM_CLICK, 0, 0);
    if (IsWindow(button) && IsChecked(button) != on)
        return on ? "a click does not check it" : "a click does not uncheck it";
    return "";
}

std::string TypeText(HWND control, const std::wstring& text) {
    const HWND edit = EditOf(control);
    if (!HasClass(edit, WC_EDITW))
        return "the control is no edit field";
    if (std::string reason = WhyUnusable(edit); !reason.empty())
        return reason;
    if (GetWindowLongPtrW(edit, GWL_STYLE) & ES_READONLY)
        return "the edit field can't be changed";
    GiveFocus(edit);
    SendMessageW(edit, EM_SETSEL, 0, -1);
    SendMessageW(edit, WM_CLEAR, 0, 0);
    SendKeys(edit, text);
    return "";
}

std::string PressKey(HWND dialog, std::uint32_t key) {
    const HWND focus = FocusOf(dialog);
    if (!focus || !(focus == dialog || IsChild(dialog, focus)))
        return "no control of the window in front has the focus";
    PostMessageW(focus, WM_KEYDOWN, key, 1);
    PostMessageW(focus, WM_KEYUP, key, 0xC0000001);
    return "";
}

std::string GoToPage(HWND sheet, const std::wstring& title) {
    const HWND tab = TabControl(sheet);
    std::string pages;
    for (int page = 0; page < static_cast<int>(SendMessageW(tab, TCM_GETITEMCOUNT, 0, 0)); ++page) {
        const std::wstring found = TabTitle(tab, page);
        if (found == title) {
            SendMessageW(sheet, PSM_SETCURSEL, static_cast<WPARAM>(page), 0);
            return CurrentPage(sheet) == title ? "" : "the sheet stays on its page";
        }
        pages += (page > 0 ? ", " : "") + script::Quoted(Utf8(found));
    }
    return "no page is called " + script::Quoted(Utf8(title)) + "; there are: " + pages;
}

std::wstring CurrentPage(HWND sheet) {
    const HWND tab = TabControl(sheet);
    const int page = static_cast<int>(SendMessageW(tab, TCM_GETCURSEL, 0, 0));
    return page < 0 ? L"" : TabTitle(tab, page);
}

HWND FocusOf(HWND window) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    return GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info) ? info.hwndFocus : nullptr;
}

bool HasFocus(HWND control) {
    const HWND focus = FocusOf(control);
    return focus && (focus == control || IsChild(control, focus));
}

bool IsChecked(HWND button) {
    return SendMessageW(button, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

std::wstring ShownText(HWND control) {
    const bool showsRow =
        HasRows(control) &&
        (IsList(control) || (GetWindowLongPtrW(control, GWL_STYLE) & 3) == CBS_DROPDOWNLIST);
    if (showsRow) {
        const int row = SelectedRow(control);
        return row < 0 ? L"" : RowText(control, row);
    }
    std::vector<wchar_t> buffer(kTextLimit);
    // Of another process's control nothing but the message gives the text.
    SendMessageW(control, WM_GETTEXT, buffer.size(), reinterpret_cast<LPARAM>(buffer.data()));
    return buffer.data();
}

} // namespace driverhost

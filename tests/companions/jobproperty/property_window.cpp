#include "tests/companions/jobproperty/property_window.h"

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace {

constexpr int kMessageBoxText = 0xFFFF;

// What the pictures of rows are told by, in the other process's memory.
class RemoteMemory {
  public:
    RemoteMemory(HANDLE process, std::size_t size)
        : m_process(process),
          m_address(VirtualAllocEx(process, nullptr, size, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE)) {}
    ~RemoteMemory() { VirtualFreeEx(m_process, m_address, 0, MEM_RELEASE); }
    RemoteMemory(const RemoteMemory&) = delete;
    RemoteMemory& operator=(const RemoteMemory&) = delete;

    char* Address() const { return static_cast<char*>(m_address); }
    void Write(const void* data, std::size_t size) const {
        WriteProcessMemory(m_process, m_address, data, size, nullptr);
    }
    void Read(std::size_t offset, void* data, std::size_t size) const {
        ReadProcessMemory(m_process, Address() + offset, data, size, nullptr);
    }

  private:
    HANDLE m_process;
    void* m_address;
};

struct Wanted {
    DWORD process;
    bool isMessageBox;
    HWND found;
};

BOOL CALLBACK FindDialog(HWND window, LPARAM parameter) {
    auto& wanted = *reinterpret_cast<Wanted*>(parameter);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    std::array<char, 16> className{};
    GetClassNameA(window, className.data(), className.size());
    const int telling = wanted.isMessageBox ? kMessageBoxText : IDC_SETTINGS;
    if (process != wanted.process || std::string(className.data()) != "#32770" || !IsWindowVisible(window) ||
        !GetDlgItem(window, telling))
        return TRUE;
    wanted.found = window;
    return FALSE;
}

std::string WindowText(HWND window) {
    std::array<char, 4096> text{};
    SendMessageA(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    return text.data();
}

// A list's text crosses the border between processes as wide characters only.
std::string ListText(HWND list, UINT message, LRESULT row) {
    std::array<wchar_t, 512> wide{};
    SendMessageW(list, message, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(wide.data()));
    std::array<char, 1024> text{};
    WideCharToMultiByte(932, 0, wide.data(), -1, text.data(), text.size(), nullptr, nullptr);
    return text.data();
}

} // namespace

HWND AwaitDialog(const Application& application, bool isMessageBox) {
    Wanted wanted{application.Id(), isMessageBox, nullptr};
    const ULONGLONG deadline = GetTickCount64() + Application::kPatience;
    while (GetTickCount64() < deadline) {
        EnumWindows(FindDialog, reinterpret_cast<LPARAM>(&wanted));
        if (wanted.found || !application.IsRunning())
            break;
        Sleep(1);
    }
    if (!wanted.found)
        ADD_FAILURE() << (isMessageBox ? "no message box" : "no window");
    return wanted.found;
}

PropertyWindow::PropertyWindow(const std::string& words)
    : m_application(words), m_window(AwaitDialog(m_application, false)) {}

std::string PropertyWindow::Text(int controlId) const {
    return WindowText(Control(controlId));
}

bool PropertyWindow::IsShown(int controlId) const {
    return (GetWindowLongA(Control(controlId), GWL_STYLE) & WS_VISIBLE) != 0;
}

HWND PropertyWindow::Focus() const {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetWindowThreadProcessId(m_window, nullptr), &info);
    return info.hwndFocus;
}

std::vector<std::string> PropertyWindow::Subjects() const {
    std::vector<std::string> subjects;
    const HWND list = Control(IDC_SUBJECTS);
    const LRESULT count = SendMessageA(list, LB_GETCOUNT, 0, 0);
    for (LRESULT row = 0; row < count; ++row) {
        std::string subject = ListText(list, LB_GETTEXT, row);
        std::erase(subject, '\t');
        subjects.push_back(subject);
    }
    return subjects;
}

int PropertyWindow::SelectedSubject() const {
    return static_cast<int>(SendMessageA(Control(IDC_SUBJECTS), LB_GETCURSEL, 0, 0));
}

void PropertyWindow::SelectSubject(int subject) const {
    SendMessageA(Control(IDC_SUBJECTS), LB_SETCURSEL, static_cast<WPARAM>(subject), 0);
    SendMessageA(m_window, WM_COMMAND, MAKEWPARAM(IDC_SUBJECTS, LBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(Control(IDC_SUBJECTS)));
}

std::string PropertyWindow::CellText(int row, int column) const {
    constexpr std::size_t size = 512;
    const RemoteMemory memory(m_application.Process(), sizeof(LVITEMA) + size);
    LVITEMA item{};
    item.iSubItem = column;
    item.pszText = memory.Address() + sizeof item;
    item.cchTextMax = size;
    memory.Write(&item, sizeof item);
    SendMessageA(Control(IDC_SETTINGS), LVM_GETITEMTEXTA, static_cast<WPARAM>(row),
                 reinterpret_cast<LPARAM>(memory.Address()));
    std::array<char, size> text{};
    memory.Read(sizeof item, text.data(), text.size());
    text.back() = '\0';
    return text.data();
}

std::vector<SettingRow> PropertyWindow::Rows() const {
    std::vector<SettingRow> rows;
    const HWND list = Control(IDC_SETTINGS);
    const auto header = reinterpret_cast<HWND>(SendMessageA(list, LVM_GETHEADER, 0, 0));
    const LRESULT columns = SendMessageA(header, HDM_GETITEMCOUNT, 0, 0);
    const LRESULT count = SendMessageA(list, LVM_GETITEMCOUNT, 0, 0);
    for (int row = 0; row < count; ++row)
        rows.push_back({!CellText(row, 0).empty(), CellText(row, 1), CellText(row, 2),
                        columns > 3 ? CellText(row, 3) : std::string()});
    return rows;
}

int PropertyWindow::SelectedRow() const {
    return static_cast<int>(SendMessageA(Control(IDC_SETTINGS), LVM_GETNEXTITEM, static_cast<WPARAM>(-1),
                                         MAKELPARAM(LVNI_SELECTED, 0)));
}

RECT PropertyWindow::PlaceOf(int row) const {
    const HWND list = Control(IDC_SETTINGS);
    RECT place{};
    place.left = LVIR_BOUNDS;
    const RemoteMemory memory(m_application.Process(), sizeof place);
    memory.Write(&place, sizeof place);
    SendMessageA(list, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(memory.Address()));
    memory.Read(0, &place, sizeof place);
    return place;
}

void PropertyWindow::Click(LONG x, LONG y) const {
    const HWND list = Control(IDC_SETTINGS);
    const LPARAM point = MAKELPARAM(x, y);
    PostMessageA(list, WM_LBUTTONUP, 0, point);
    SendMessageA(list, WM_LBUTTONDOWN, MK_LBUTTON, point);
}

void PropertyWindow::ClickRow(int row) const {
    SendMessageA(Control(IDC_SETTINGS), LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
    const RECT place = PlaceOf(row);
    Click(place.left + 40, (place.top + place.bottom) / 2);
}

void PropertyWindow::ClickBelowRows() const {
    const HWND list = Control(IDC_SETTINGS);
    const RECT last = PlaceOf(static_cast<int>(SendMessageA(list, LVM_GETITEMCOUNT, 0, 0)) - 1);
    RECT client{};
    GetClientRect(list, &client);
    EXPECT_LT(last.bottom + 10, client.bottom) << "no room below the rows";
    Click(last.left + 40, last.bottom + 10);
}

void PropertyWindow::Search(const std::string& text) const {
    Type(IDC_SEARCH, text);
}

void PropertyWindow::GoTo(const std::string& keyword) const {
    Search(keyword);
    const LRESULT count = SendMessageA(Control(IDC_SETTINGS), LVM_GETITEMCOUNT, 0, 0);
    for (int row = 0; row < count && Text(IDC_KEYWORD) != keyword; ++row) {
        if (row != 0)
            PressKey(VK_DOWN);
        else
            MoveFocus(IDC_SETTINGS);
    }
    EXPECT_EQ(Text(IDC_KEYWORD), keyword);
}

std::vector<std::string> PropertyWindow::Choices() const {
    std::vector<std::string> choices;
    const HWND combo = Control(IDC_CHOICE);
    const LRESULT count = SendMessageA(combo, CB_GETCOUNT, 0, 0);
    for (LRESULT row = 0; row < count; ++row)
        choices.push_back(ListText(combo, CB_GETLBTEXT, row));
    return choices;
}

void PropertyWindow::Choose(const std::string& text) const {
    const std::vector<std::string> choices = Choices();
    const auto row = std::ranges::find(choices, text);
    if (row == choices.end()) {
        ADD_FAILURE() << "no choice " << text << " among " << testing::PrintToString(choices);
        return;
    }
    const HWND combo = Control(IDC_CHOICE);
    SendMessageA(combo, CB_SETCURSEL, static_cast<WPARAM>(row - choices.begin()), 0);
    SendMessageA(m_window, WM_COMMAND, MAKEWPARAM(IDC_CHOICE, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(combo));
}

void PropertyWindow::TypeMore(int controlId, const std::string& text) const {
    for (const char c : text)
        SendMessageA(Control(controlId), WM_CHAR, static_cast<unsigned char>(c), 1);
}

void PropertyWindow::TypeMore(int controlId, const std::wstring& text) const {
    for (const wchar_t c : text)
        SendMessageW(Control(controlId), WM_CHAR, c, 1);
}

void PropertyWindow::Type(int controlId, const std::string& text) const {
    MoveFocus(controlId);
    SendMessageA(Control(controlId), EM_SETSEL, 0, -1);
    SendMessageA(Control(controlId), WM_CLEAR, 0, 0);
    TypeMore(controlId, text);
}

void PropertyWindow::Press(int button) const {
    PostMessageA(Control(button), BM_CLICK, 0, 0);
}

void PropertyWindow::PressKey(WORD key) const {
    PostMessageA(Focus(), WM_KEYDOWN, key, 1);
    PostMessageA(Focus(), WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
    // A sent message is answered before posted ones are: only a second one behind an idle queue tells that
    // they are done.
    WaitForInputIdle(m_application.Process(), 1000);
    Sleep(30);
}

void PropertyWindow::MoveFocus(int controlId) const {
    SendMessageA(m_window, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Control(controlId)), TRUE);
}

std::string PropertyWindow::AnswerBox(int button) const {
    const HWND box = AwaitDialog(m_application, true);
    const std::string text = WindowText(GetDlgItem(box, kMessageBoxText));
    SendMessageA(box, WM_COMMAND, static_cast<WPARAM>(button), 0);
    return text;
}

int PropertyWindow::ExitCodeAfter(int button) const {
    Press(button);
    return m_application.ExitCodeAtEnd();
}

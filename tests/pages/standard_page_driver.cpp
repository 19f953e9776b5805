#include "tests/pages/standard_page_driver.h"

#include "Common/ProfileInfo.h"
#include "pages/controls.h"
#include "pages/standardpage.h"

#include <algorithm>

std::unique_ptr<MainLog> LoggedStandardPage::log;

namespace {

struct BoundOptions {
    int keyword;
    WORD options;
};

constexpr BoundOptions kOptions[] = {
    {keyword::ChgPrintPaperSizeType, 50},
    {keyword::FittenToPaper, 5},
    {keyword::DuplexMode, 5},
    {keyword::ColorMode, 2},
    {keyword::NUP, 6},
    {keyword::PageOrientation, 2},
    {keyword::Tray, 8},
    {keyword::OutputTray, 5},
    {keyword::OffsetMode, 3},
    {keyword::StapleMode, 22},
    {keyword::Punch, 6},
    {keyword::Fold, 11},
};

BOOL CALLBACK FindDialog(HWND window, LPARAM found) {
    auto& search = *reinterpret_cast<std::pair<int, HWND>*>(found);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    char className[16] = {};
    GetClassNameA(window, className, sizeof className);
    if (process != GetCurrentProcessId() || std::string(className) != "#32770" || !IsWindowVisible(window) ||
        !GetDlgItem(window, search.first))
        return TRUE;
    search.second = window;
    return FALSE;
}

// The function of a line "FILE.cpp LINE行目 FUNCTION" or "... FUNCTION() ...".
std::string FunctionOf(const std::string& line) {
    constexpr std::string_view kBehindNumber = "行目 ";
    const std::size_t at = line.find(kBehindNumber);
    if (at == std::string::npos)
        return {};
    const std::size_t begin = at + kBehindNumber.size();
    const std::size_t end = line.find_first_of("( ", begin);
    return end == std::string::npos ? line.substr(begin) : std::string();
}

} // namespace

void StandardPageDriver::SetUpTestSuite() {
    CProfileInfo& device = *ProcessProfile();
    device.m_FinisherInfo.AddLine(
        0, "?singleTop?True|?doubleStitch?True|?saddleFoldStaple?True|?singleStitch?True|?quadStitch?True|"
           "?doublePunch?True|?triplePunch?True|?quadPunch?True|?saddleFoldNoStaple?True|?zFold?True|"
           "?triFoldC?True|?triFoldZ?True|?offset?True");
    for (const auto& [index, type] : {std::pair{0, "12"}, {1, "13"}, {2, "3"}, {3, "6"}})
        device.m_StackerInfo.AddLine(index, std::string("?Type?") + type);
    for (const auto& [index, number] : {std::pair{0, "4"}, {1, "5"}, {2, "7"}})
        device.m_FeederInfo.AddLine(index, std::string("?Number?") + number);
}

void LoggedStandardPage::SetUpTestSuite() {
    StandardPageDriver::SetUpTestSuite();
    log = std::make_unique<MainLog>();
}

void LoggedStandardPage::TearDownTestSuite() {
    log.reset();
}

HWND LoggedStandardPage::OpenWith(const Settings& current, const Settings& defaults) {
    StandardPageDriver::OpenWith(current, defaults);
    ForgetCalls();
    return page;
}

HWND StandardPageDriver::OpenWith(const Settings& current, const Settings& defaults) {
    for (const BoundOptions& row : kOptions)
        Bind(row.keyword, row.options);
    SetCurrent(current);
    SetDefaults(defaults);
    page = Open(1066, StandardPageProc);
    Notify(page, PSN_SETACTIVE);
    TakePosted();
    ForgetChanges();
    return page;
}

int StandardPageDriver::Row(int id) const {
    return SelectedRow(Control(id));
}

int StandardPageDriver::RowCount(int id) const {
    return static_cast<int>(SendMessageA(Control(id), CB_GETCOUNT, 0, 0));
}

LRESULT StandardPageDriver::Choose(int id, int row) {
    SelectRow(Control(id), static_cast<std::uint32_t>(row));
    return Send(id, CBN_SELCHANGE);
}

LRESULT StandardPageDriver::Click(int id, bool isChecked) {
    CheckDlgButton(page, id, isChecked ? BST_CHECKED : BST_UNCHECKED);
    return Send(id, BN_CLICKED);
}

MessageBoxSeen StandardPageDriver::ChooseAndAnswer(int id, int row, int button) {
    auto box = AnswerNextMessageBox(button);
    EXPECT_EQ(Choose(id, row), 1);
    return box.get();
}

void StandardPageDriver::SetCurrent(const Settings& settings) {
    for (const Setting& setting : settings)
        ExportedFunc_SetCurrent(setting.keyword, setting.value);
}

void StandardPageDriver::SetDefaults(const Settings& settings) {
    for (const Setting& setting : settings)
        ExportedFunc_SetDefault(setting.keyword, setting.value);
}

CurrentBank StandardPageDriver::WholeBank() {
    CurrentBank bank;
    for (int keyword = 0; keyword < 600; ++keyword)
        bank.push_back(Current(keyword));
    return bank;
}

std::string StandardPageDriver::ValuesOf(const Settings& settings) {
    Settings values = settings;
    for (Setting& setting : values)
        setting.value = Current(setting.keyword);
    return Text(values);
}

std::string StandardPageDriver::Text(const Settings& settings) {
    std::string text;
    for (const Setting& setting : settings)
        text += std::string(kKeywordNames.at(static_cast<std::size_t>(setting.keyword))) + "=" +
                std::to_string(setting.value) + " ";
    return text;
}

std::vector<StandardPageDriver::Posted> StandardPageDriver::TakePosted() {
    std::vector<Posted> posted;
    MSG message;
    while (PeekMessageA(&message, page, WM_COMMAND, WM_COMMAND, PM_REMOVE))
        posted.push_back(
            {LOWORD(message.wParam), HIWORD(message.wParam), reinterpret_cast<HWND>(message.lParam)});
    return posted;
}

std::vector<std::string> LoggedStandardPage::CallsAmong(const std::vector<std::string>& functions) {
    std::vector<std::string> calls;
    for (const std::string& line : log->Messages())
        if (const std::string function = FunctionOf(line);
            std::ranges::find(functions, function) != functions.end())
            calls.push_back(function);
    return calls;
}

bool LoggedStandardPage::HasLogged(const std::string& ending) {
    return std::ranges::any_of(log->Messages(),
                               [&](const std::string& line) { return line.ends_with(ending); });
}

std::future<bool> CloseNextDialog(int controlId, std::function<void(HWND)> look) {
    return std::async(std::launch::async, [controlId, look] {
        const ULONGLONG deadline = GetTickCount64() + 10000;
        while (GetTickCount64() < deadline) {
            std::pair<int, HWND> search{controlId, nullptr};
            EnumWindows(FindDialog, reinterpret_cast<LPARAM>(&search));
            if (search.second) {
                if (look)
                    look(search.second);
                PostMessageA(search.second, WM_CLOSE, 0, 0);
                return true;
            }
            Sleep(20);
        }
        return false;
    });
}

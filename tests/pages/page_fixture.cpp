#include "tests/pages/page_fixture.h"

#include "pages/controls.h"
#include "settings/SettingManager.h"

namespace {

int changesSeen = 0;
HWND changedPage = nullptr;
std::vector<SheetCall> sheetCalls;

LRESULT CALLBACK SheetProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == PSM_CHANGED) {
        ++changesSeen;
        changedPage = reinterpret_cast<HWND>(wParam);
        return 0;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

LONG_PTR CALLBACK ComPropSheet(HANDLE sheet, UINT function, LPARAM first, LPARAM second) {
    sheetCalls.push_back({sheet, function, first, second});
    return 1;
}

const char* SheetClass() {
    static const ATOM atom = [] {
        WNDCLASSA windowClass{};
        windowClass.lpfnWndProc = SheetProc;
        windowClass.hInstance = GetModuleHandleA(nullptr);
        windowClass.lpszClassName = "PageTestSheet";
        return RegisterClassA(&windowClass);
    }();
    return MAKEINTATOM(atom);
}

} // namespace

PageTest::PageTest() {
    RegisterPageControls();
    ExportedFunc_InitializeDataManager();
    block.pOEMDM = &m_record;
    block.hComPropSheet = reinterpret_cast<HANDLE>(0x51);
    block.hResultPage = reinterpret_cast<HANDLE>(0x52);
    block.pfnComPropSheet = ComPropSheet;
    CSessionAccessor::Instance()->SetSession(&block);
    // A manager that is there already reads no standard settings over the defaults that a test sets.
    CSettingManager::GetSettingManager();
    ForgetChanges();
    sheetCalls.clear();
    m_sheet = CreateWindowA(SheetClass(), "", WS_POPUP, 0, 0, 600, 400, nullptr, nullptr, nullptr, nullptr);
}

PageTest::~PageTest() {
    DestroyWindow(m_sheet);
    CSettingManager::Destroy();
    CSessionAccessor::Release();
}

OPTITEM& PageTest::Bind(int keyword, WORD options) {
    BoundItem& bound = m_items[keyword];
    bound.type.cbSize = sizeof bound.type;
    bound.type.Count = options;
    bound.item.cbSize = sizeof bound.item;
    bound.item.pOptType = &bound.type;
    block.item[static_cast<std::size_t>(keyword)] = &bound.item;
    return bound.item;
}

HWND PageTest::Open(int templateId, DLGPROC procedure) {
    PROPSHEETPAGEA page{};
    page.dwSize = sizeof page;
    page.lParam = reinterpret_cast<LPARAM>(&block);
    m_page = CreateDialogParamA(nullptr, MAKEINTRESOURCEA(templateId), m_sheet, procedure,
                                reinterpret_cast<LPARAM>(&page));
    EXPECT_NE(m_page, nullptr);
    return m_page;
}

void PageTest::EndSession() {
    CSessionAccessor::Instance()->SetSession(nullptr);
}

int PageTest::ChangesSeen() {
    return changesSeen;
}
HWND PageTest::ChangedPage() {
    return changedPage;
}

void PageTest::ForgetChanges() {
    changesSeen = 0;
    changedPage = nullptr;
}

const std::vector<SheetCall>& PageTest::SheetCalls() {
    return sheetCalls;
}

std::uint32_t PageTest::Current(int keyword) {
    std::uint32_t value = 0;
    ExportedFunc_GetCurrent(keyword, &value);
    return value;
}

std::uint32_t PageTest::Default(int keyword) {
    std::uint32_t value = 0;
    ExportedFunc_GetDefault(keyword, &value);
    return value;
}

// Dialog results are asked of the dialog procedure itself; DefDlgProc gives most of them away.
LRESULT PageTest::Command(HWND page, int controlId, int notifyCode) {
    const auto procedure = reinterpret_cast<DLGPROC>(GetWindowLongPtrA(page, DWLP_DLGPROC));
    return procedure(page, WM_COMMAND, MAKEWPARAM(controlId, notifyCode),
                     reinterpret_cast<LPARAM>(GetDlgItem(page, controlId)));
}

LRESULT PageTest::Notify(HWND page, UINT code, LPARAM lParam) {
    const auto procedure = reinterpret_cast<DLGPROC>(GetWindowLongPtrA(page, DWLP_DLGPROC));
    PSHNOTIFY notification{};
    notification.hdr.hwndFrom = GetParent(page);
    notification.hdr.code = code;
    notification.lParam = lParam;
    return procedure(page, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification));
}

std::string CaptionOf(HWND page, int controlId) {
    return ControlText(GetDlgItem(page, controlId));
}

std::vector<std::string> RowsOf(HWND combo) {
    std::vector<std::string> rows;
    const LRESULT count = SendMessageA(combo, CB_GETCOUNT, 0, 0);
    for (int row = 0; row < count; ++row)
        rows.push_back(RowText(combo, row));
    return rows;
}

#include "tests/pages/preview_window.h"

#include "Common/strings.h"
#include "pages/SettingPreview.h"
#include "resources/resource.h"
#include "session/datamanager.h"
#include "session/keyword.h"

#include <commctrl.h>

namespace {

int drawings = 0;

INT_PTR CALLBACK DialogProc(HWND, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_DRAWITEM || wParam != IDC_PREVIEW)
        return FALSE;
    ++drawings;
    const auto* item = reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
    DrawPreview(item->hwndItem, item->hDC);
    return TRUE;
}

} // namespace

int GraphicsObjects() {
    // The process's table of handles, which the platform keeps at a fixed place and gives no count of here.
    constexpr std::size_t kTableInProcess = 0xF8;
    constexpr std::size_t kEntrySize = 24;
    constexpr std::size_t kTypeInEntry = 14;
    constexpr std::size_t kEntries = 0x10000;
    const auto environment = reinterpret_cast<const std::uint8_t*(WINAPI*)()>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("ntdll.dll"), "RtlGetCurrentPeb")));
    const std::uint8_t* process = environment();
    const auto* table = *reinterpret_cast<const std::uint8_t* const*>(process + kTableInProcess);
    int count = 0;
    for (std::size_t entry = 0; entry < kEntries; ++entry)
        count += table[entry * kEntrySize + kTypeInEntry] != 0;
    return count;
}

PreviewWindow::PreviewWindow() {
    const INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_WIN95_CLASSES | ICC_USEREX_CLASSES};
    InitCommonControlsEx(&controls);
    ExportedFunc_InitializeDataManager();
    for (const int id : {keyword::NUP, keyword::DuplexMode, keyword::ColorMode, keyword::PageOrientation,
                         keyword::StapleMode, keyword::PunchHoles, keyword::Punch, keyword::Collate,
                         keyword::Fold, keyword::WaterMark})
        SetCurrent(id, 0);
    drawings = 0;
}

PreviewWindow::~PreviewWindow() {
    if (dialog)
        DestroyWindow(dialog);
    if (m_sheet)
        DestroyWindow(m_sheet);
    SetStringModule(nullptr);
}

HWND PreviewWindow::Open(int templateId) {
    dialog = CreateDialogParamA(nullptr, MAKEINTRESOURCEA(templateId), nullptr, DialogProc, 0);
    EXPECT_NE(dialog, nullptr);
    return dialog;
}

HWND PreviewWindow::OpenProductPage() {
    m_sheet = CreateWindowA("STATIC", "", WS_POPUP | WS_VISIBLE, 0, 0, 1000, 700, nullptr, nullptr, nullptr,
                            nullptr);
    dialog = CreateDialogParamA(nullptr, MAKEINTRESOURCEA(IDD_STANDARD_PAGE), m_sheet, DialogProc, 0);
    EXPECT_NE(dialog, nullptr);
    EnableWindow(dialog, TRUE);
    ShowWindow(dialog, SW_SHOW);
    return dialog;
}

HWND PreviewWindow::Control() const {
    return GetDlgItem(dialog, IDC_PREVIEW);
}

void PreviewWindow::SetCurrent(int keyword, std::uint32_t value) {
    ExportedFunc_SetCurrent(keyword, value);
}

int PreviewWindow::Drawings() {
    return drawings;
}

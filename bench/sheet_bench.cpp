// How long the plug-in's document sheet takes from the first CommonUIProp until both pages are painted,
// beside an empty sheet of the same templates; how long its first page takes from WM_INITDIALOG until it is
// painted, beside the same controls without the plug-in; and what a change on that page takes until all of it
// is painted again. Plays the driver itself, so that nothing but the plug-in is in the figures. Prints
// milliseconds; run it under Wine with a display after the product is built.
#include "pages/preview_plan.h"
#include "tests/support/plugin_sheet.h"

#include <commctrl.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

namespace {

constexpr WORD kTemplates[] = {1066, 4007};
constexpr int kPreview = 1285;
constexpr int kRounds = 30;

LONGLONG Now() {
    LARGE_INTEGER now;
    QueryPerformanceCounter(&now);
    return now.QuadPart;
}

double Milliseconds(LONGLONG from, LONGLONG to) {
    LARGE_INTEGER frequency;
    QueryPerformanceFrequency(&frequency);
    return 1000.0 * static_cast<double>(to - from) / static_cast<double>(frequency.QuadPart);
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

// Counts of the performance counter.
LONGLONG firstPageBegun;
LONGLONG firstPagePainted;
LONGLONG allPainted;

void PaintBothPages(HWND sheet) {
    PaintAll(sheet);
    firstPagePainted = Now();
    SendMessageA(sheet, PSM_SETCURSEL, 1, 0);
    PaintAll(sheet);
    allPainted = Now();
}

INT_PTR CALLBACK EmptyPage(HWND page, UINT message, WPARAM, LPARAM) {
    if (message == WM_INITDIALOG && GetDlgItem(page, kPreview))
        firstPageBegun = Now();
    return FALSE;
}

// What the plug-in has put into its first page's combo boxes.
struct FilledCombo {
    int control;
    bool isExtended;
    HIMAGELIST images;
    std::vector<std::string> rows;
    int selected;
};
std::vector<FilledCombo> filledCombos;

BOOL CALLBACK RecordCombo(HWND control, LPARAM page) {
    char name[32] = {};
    GetClassNameA(control, name, sizeof name);
    const bool isExtended = lstrcmpiA(name, WC_COMBOBOXEXA) == 0;
    if (GetParent(control) != reinterpret_cast<HWND>(page) ||
        (!isExtended && lstrcmpiA(name, "ComboBox") != 0))
        return TRUE;
    FilledCombo combo{GetDlgCtrlID(control), isExtended, nullptr, {}, 0};
    if (isExtended)
        combo.images = reinterpret_cast<HIMAGELIST>(SendMessageA(control, CBEM_GETIMAGELIST, 0, 0));
    const LRESULT count = SendMessageA(control, CB_GETCOUNT, 0, 0);
    for (LRESULT row = 0; row < count; ++row) {
        char text[256] = {};
        SendMessageA(control, CB_GETLBTEXT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(text));
        combo.rows.emplace_back(text);
    }
    combo.selected = static_cast<int>(SendMessageA(control, CB_GETCURSEL, 0, 0));
    filledCombos.push_back(std::move(combo));
    return TRUE;
}

// The same rows and images by one message each, which is what any page with these contents takes.
void FillCombos(HWND page) {
    for (const FilledCombo& combo : filledCombos) {
        const HWND control = GetDlgItem(page, combo.control);
        if (combo.images)
            SendMessageA(control, CBEM_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(combo.images));
        for (const std::string& row : combo.rows) {
            COMBOBOXEXITEMA item{};
            item.mask = CBEIF_TEXT | (combo.images ? CBEIF_IMAGE | CBEIF_SELECTEDIMAGE : 0u);
            item.iItem = -1;
            item.pszText = const_cast<char*>(row.c_str());
            if (combo.isExtended)
                SendMessageA(control, CBEM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item));
            else
                SendMessageA(control, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(row.c_str()));
        }
        SendMessageA(control, CB_SETCURSEL, static_cast<WPARAM>(combo.selected), 0);
    }
}

INT_PTR CALLBACK FilledPage(HWND page, UINT message, WPARAM, LPARAM) {
    if (message == WM_INITDIALOG && GetDlgItem(page, kPreview)) {
        firstPageBegun = Now();
        FillCombos(page);
    }
    return FALSE;
}

struct BareSheet {
    HMODULE module;
    DLGPROC page;
};

LONG CALLBACK ShowBareSheet(PPROPSHEETUI_INFO info, LPARAM) {
    if (info->Reason == PROPSHEETUI_REASON_INIT) {
        const auto& bare = *reinterpret_cast<const BareSheet*>(info->lParamInit);
        for (const WORD dialog : kTemplates) {
            PROPSHEETPAGEA page{};
            page.dwSize = sizeof page;
            page.dwFlags = PSP_USETITLE;
            page.hInstance = bare.module;
            page.pszTemplate = MAKEINTRESOURCEA(dialog);
            page.pszTitle = "bare";
            page.pfnDlgProc = bare.page;
            info->pfnComPropSheet(info->hComPropSheet, CPSFUNC_ADD_PROPSHEETPAGEA,
                                  reinterpret_cast<LPARAM>(&page), 0);
        }
    }
    return 1;
}

struct SheetTimes {
    std::vector<double> whole;
    std::vector<double> firstPage;

    void Take(LONGLONG start) {
        whole.push_back(Milliseconds(start, allPainted));
        firstPage.push_back(Milliseconds(firstPageBegun, firstPagePainted));
    }
};

void TimeBareSheet(BareSheet sheet, SheetTimes& times) {
    const LONGLONG start = Now();
    ShowSheetAndCancel(ShowBareSheet, reinterpret_cast<LPARAM>(&sheet), PaintBothPages);
    times.Take(start);
}

void TimeOwnSheet(PlugInSheet& sheet, SheetTimes& times, std::vector<double>& opening) {
    const LONGLONG start = Now();
    sheet.Prepare();
    opening.push_back(Milliseconds(start, Now()));
    sheet.Show(PaintBothPages);
    times.Take(start);
}

// What CreateProcess alone takes of the page's time: the page starts the job property application before it
// is painted, and no bare page does. This one ends at once, since no sheet has its identifier.
double TimeStart() {
    const std::wstring program = JobPropertyApplicationPath();
    std::wstring command = program + L" -exit none";
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES; // none, so that it tells nobody
    PROCESS_INFORMATION process{};
    const LONGLONG start = Now();
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, NORMAL_PRIORITY_CLASS, nullptr,
                        nullptr, &startup, &process))
        return 0;
    const double time = Milliseconds(start, Now());
    WaitForSingleObject(process.hProcess, INFINITE);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return time;
}

struct Change {
    const char* what;
    int control;
    int row;
};

constexpr Change kChanges[] = {
    {"duplex", 6010, 1}, {"pages on a sheet", 6014, 2}, {"color mode", 1291, 0},  {"staple", 1273, 1},
    {"punch", 1155, 0},  {"output size", 5001, 2},      {"fit to paper", 5002, 1}};

// As a user does: the row, its notification, and all that has to be painted for it.
double TimeChange(HWND sheet, HWND page, int control, int row) {
    const HWND combo = GetDlgItem(page, control);
    const LONGLONG start = Now();
    SendMessageA(combo, CB_SETCURSEL, static_cast<WPARAM>(row), 0);
    SendMessageA(page, WM_COMMAND, MAKEWPARAM(control, CBN_SELCHANGE), reinterpret_cast<LPARAM>(combo));
    PaintAll(sheet);
    return Milliseconds(start, Now());
}

void ReportChanges(HWND sheet) {
    PaintAll(sheet);
    const HWND page = reinterpret_cast<HWND>(SendMessageA(sheet, PSM_GETCURRENTPAGEHWND, 0, 0));
    for (const auto& [what, control, row] : kChanges) {
        const int before = static_cast<int>(SendMessageA(GetDlgItem(page, control), CB_GETCURSEL, 0, 0));
        std::vector<double> times;
        for (int round = 0; round < kRounds; ++round) {
            times.push_back(TimeChange(sheet, page, control, row));
            times.push_back(TimeChange(sheet, page, control, before));
        }
        std::printf("%-30s%7.2f ms, worst %7.2f ms\n", what, Median(times), *std::ranges::max_element(times));
    }
}

void ReportBitmaps(const char* what, const SymbolSettings& symbols, const PreviewSettings& picture) {
    std::printf("%-30s%4zu bitmaps a paint\n", what, CountBitmaps(PlanPreview(symbols, picture)));
}

} // namespace

int main() {
    PlugInSheet sheet;
    if (!sheet.Trouble().empty()) {
        std::printf("%s\n", sheet.Trouble().c_str());
        return 1;
    }
    sheet.beforeFirstPage = [] { firstPageBegun = Now(); };
    sheet.Prepare();
    sheet.Show([](HWND window) {
        const auto page = SendMessageA(window, PSM_GETCURRENTPAGEHWND, 0, 0);
        EnumChildWindows(reinterpret_cast<HWND>(page), RecordCombo, page);
    });
    SheetTimes empty;
    SheetTimes filled;
    SheetTimes own;
    std::vector<double> opening;
    std::vector<double> starts;
    // The first of each load what stays.
    for (int round = -1; round < kRounds; ++round) {
        if (round == 0) {
            empty = {};
            filled = {};
            own = {};
            opening.clear();
        }
        TimeBareSheet({sheet.Module(), EmptyPage}, empty);
        TimeBareSheet({sheet.Module(), FilledPage}, filled);
        TimeOwnSheet(sheet, own, opening);
        starts.push_back(TimeStart());
    }
    std::printf("medians of %d rounds\n", kRounds);
    std::printf("empty two-page sheet          %7.2f ms\n", Median(empty.whole));
    std::printf("plug-in's sheet               %7.2f ms, of it CommonUIProp %.2f ms\n", Median(own.whole),
                Median(opening));
    std::printf("ratio                         %7.2f\n", Median(own.whole) / Median(empty.whole));
    std::printf("empty first page              %7.2f ms from WM_INITDIALOG until it is painted\n",
                Median(empty.firstPage));
    std::printf("the same with bare contents   %7.2f ms, %zu combo boxes filled with what the page shows\n",
                Median(filled.firstPage), filledCombos.size());
    std::printf(
        "standard page                 %7.2f ms, with the start of a process, which alone takes %.2f ms\n",
        Median(own.firstPage), Median(starts));
    std::printf("ratio to the empty page       %7.2f, at most 1.3 wanted\n",
                Median(own.firstPage) / Median(empty.firstPage));
    std::printf("ratio to bare contents        %7.2f\n", Median(own.firstPage) / Median(filled.firstPage));
    std::printf("from a change until all is painted, at most 16 ms wanted\n");
    sheet.Prepare();
    sheet.Show(ReportChanges);
    PreviewSettings plain;
    ReportBitmaps("one page, gray", {}, plain);
    PreviewSettings full;
    full.duplexMode = full.colorMode = full.stapleMode = full.punch = full.punchHoles = 1;
    ReportBitmaps("all that there is", {0, 1, 1}, full);
    return 0;
}

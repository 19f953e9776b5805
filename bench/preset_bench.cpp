// What the favourites cost on the plug-in's first page, with the logs off: the question after a change of a
// control whether the settings differ from the selected preset, and choosing a favourite until all of the
// page is painted. Prints figures; run it under Wine with a display after the product is built.
#include "bench/timing.h"
#include "settings/FavoriteFileManager.h"
#include "settings/print_option_access.h"
#include "tests/support/plugin_sheet.h"
#include "tests/support/traces.h"

#include <commctrl.h>

#include <string>

namespace {

constexpr int kPresets = 1300;
constexpr int kOnCenter = 1244; // a change of it costs nothing but the mark
constexpr int kMostFavorites = 50;

std::string ProgramFolder() {
    std::array<char, MAX_PATH> path{};
    GetModuleFileNameA(nullptr, path.data(), static_cast<DWORD>(path.size()));
    const std::string text = path.data();
    return text.substr(0, text.rfind('\\') + 1);
}

// Favourites that differ from the standard settings in what the page shows.
void WriteFavorites(Traces& traces, const std::string& directory) {
    CFavoriteFileManager files({});
    CFavoriteSetting favorite;
    files.LoadFavoriteFromPath(favorite, (ProgramFolder() + "ZRPDS31J_def").c_str());
    for (int number = 1; number <= kMostFavorites; ++number) {
        for (const ddb::FieldId field :
             {ddb::FieldId::DuplexMode, ddb::FieldId::StapleMode, ddb::FieldId::NumOfCopies})
            ddb::SetI32(favorite.PrintOption(), ddb::FieldAt(field), number % 3 + 1);
        const std::string path = directory + "\\bench " + std::to_string(number) + ".pfk";
        traces.Write(path, "");
        files.SaveFavoriteFromPath(favorite, path.c_str());
    }
}

void Tell(HWND page, int control, int notification) {
    SendMessageA(page, WM_COMMAND, static_cast<WPARAM>(MAKELONG(control, notification)),
                 reinterpret_cast<LPARAM>(GetDlgItem(page, control)));
}

void ReportPage(HWND sheet) {
    PaintAll(sheet);
    const HWND page = reinterpret_cast<HWND>(SendMessageA(sheet, PSM_GETCURRENTPAGEHWND, 0, 0));
    const HWND presets = GetDlgItem(page, kPresets);
    std::printf("%d rows of presets\n", static_cast<int>(SendMessageA(presets, CB_GETCOUNT, 0, 0)));
    std::printf("at most 3000 us wanted\n");
    Report("mark after a change of a control", [&] {
        CheckDlgButton(page, kOnCenter, !IsDlgButtonChecked(page, kOnCenter));
        Tell(page, kOnCenter, BN_CLICKED);
    });
    int row = 0;
    const auto choose = [&] {
        row = row % 2 + 1;
        SendMessageA(presets, CB_SETCURSEL, static_cast<WPARAM>(row), 0);
    };
    std::printf("at most 50000 us wanted\n");
    Report("favourite, by the keyboard, till painted", [&] {
        choose();
        Tell(page, kPresets, CBN_SELENDOK);
        Tell(page, kPresets, CBN_SELCHANGE);
        PaintAll(sheet);
    });
    Report("favourite, by the mouse, till painted", [&] {
        choose();
        Tell(page, kPresets, CBN_SELENDOK);
        Tell(page, kPresets, CBN_CLOSEUP);
        Tell(page, kPresets, CBN_SELCHANGE);
        PaintAll(sheet);
    });
}

double OpenAndReport(PlugInSheet& sheet, const std::function<void(HWND)>& report) {
    double begun = 0;
    double painted = 0;
    sheet.beforeFirstPage = [&] { begun = Microseconds(); };
    sheet.Prepare();
    sheet.Show([&](HWND window) {
        PaintAll(window);
        painted = Microseconds();
        report(window);
    });
    return (painted - begun) / 1000;
}

} // namespace

int main() {
    PlugInSheet sheet;
    if (!sheet.Trouble().empty()) {
        std::printf("%s\n", sheet.Trouble().c_str());
        return 1;
    }
    const auto nothing = [](HWND) {};
    OpenAndReport(sheet, nothing);
    std::printf("first page, no favourite      %8.2f ms from WM_INITDIALOG until it is painted\n",
                OpenAndReport(sheet, nothing));
    Traces traces;
    const std::string directory = traces.MakeDirectories(
        FolderPath(CSIDL_COMMON_DOCUMENTS), {"Zephra", "KP Controller", "Orvane X100", "favorite"});
    WriteFavorites(traces, directory);
    // A file that has just been written is read once more.
    Sleep(200);
    std::printf("first page, %d favourites     %8.2f ms\n", kMostFavorites, OpenAndReport(sheet, nothing));
    OpenAndReport(sheet, ReportPage);
    return 0;
}

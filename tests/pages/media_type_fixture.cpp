#include "tests/pages/media_type_fixture.h"

#include "pages/controls.h"

#include <utility>

namespace {

template <typename Get>
std::uint32_t Read(Get get) {
    std::uint32_t value = 0;
    get(&value);
    return value;
}

} // namespace

MediaTypeTest::MediaTypeTest() {
    ShowWindow(Sheet(), SW_SHOW);
    SetActiveWindow(Sheet());
}

INT_PTR MediaTypeTest::Run(CMediaTypeDlg& dialog, std::vector<Step> steps) {
    return RunModal(dialog, std::move(steps));
}

void MediaTypeTest::Press(HWND dialog, int button) {
    SendMessageA(GetDlgItem(dialog, button), BM_CLICK, 0, 0);
}

MediaTypeTest::Step MediaTypeTest::Pressing(int button) {
    return [button](HWND dialog) { Press(dialog, button); };
}

void MediaTypeTest::Choose(HWND dialog, int combo, int row) {
    const HWND control = GetDlgItem(dialog, combo);
    SendMessageA(control, CB_SETCURSEL, static_cast<WPARAM>(row), 0);
    SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(combo, CBN_SELCHANGE), reinterpret_cast<LPARAM>(control));
}

MediaTypeTest::Step MediaTypeTest::Choosing(int combo, int row) {
    return [combo, row](HWND dialog) { Choose(dialog, combo, row); };
}

MediaTypeTest::Step MediaTypeTest::Keying(WPARAM key) {
    return [key](HWND) { PostMessageA(GetFocus(), WM_KEYDOWN, key, 0); };
}

void MediaTypeTest::Leave(HWND dialog, int edit, const char* text) {
    SetDlgItemTextA(dialog, edit, text);
    SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(edit, EN_KILLFOCUS),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, edit)));
}

void MediaTypeTest::MakeConflict() {
    ExportedFunc_SetCurrent(media_keyword::Fold, 1);
    ExportedFunc_SetCurrent(media_keyword::Punch, 1);
    ExportedFunc_SetCurrent(media_keyword::PunchHoles, 1);
}

int MediaTypeTest::SelectedIn(HWND dialog, int combo) {
    return SelectedRow(GetDlgItem(dialog, combo));
}
bool MediaTypeTest::IsEnabled(HWND dialog, int control) {
    return IsWindowEnabled(GetDlgItem(dialog, control));
}
bool MediaTypeTest::IsShown(HWND dialog, int control) {
    return IsWindowVisible(GetDlgItem(dialog, control));
}

std::uint32_t StoredSequence() {
    return Read(ExportedFunc_GetMediaTypeSequence);
}
std::uint32_t StoredSequenceBypass() {
    return Read(ExportedFunc_GetMediaTypeSequenceBypass);
}
std::uint32_t StoredWeightValue() {
    return Read(ExportedFunc_GetMediaTypeWeightValue);
}
std::uint32_t StoredWeightValueBypass() {
    return Read(ExportedFunc_GetMediaTypeWeightValueBypass);
}
std::uint32_t StoredCustomNumber() {
    return Read(ExportedFunc_GetPaperTypeCustomNumber);
}
std::uint32_t StoredCustomNumberBypass() {
    return Read(ExportedFunc_GetPaperTypeCustomNumberBypass);
}

const std::vector<std::string>& PaperTypeTexts() {
    static const std::vector<std::string> texts{
        "普通紙",           "上質紙",
        "再生紙",           "普通紙(うら)",
        "穴あき紙",         "OHPフィルム",
        "うす紙",           "厚紙1",
        "厚紙1(うら)",      "厚紙2",
        "厚紙2(うら)",      "厚紙3",
        "厚紙3(うら)",      "コート紙1",
        "コート紙1(うら)",  "コート紙2",
        "コート紙2(うら)",  "コート紙3",
        "コート紙3(うら)",  "ラベル紙",
        "はがき",           "封筒",
        "ユーザー用紙1",    "ユーザー用紙2",
        "ユーザー用紙3",    "ユーザー用紙4",
        "ユーザー用紙5",    "上質紙A",
        "上質紙B",          "厚紙1A",
        "厚紙1B",           "厚紙1C",
        "厚紙1S",           "厚紙1(うら)A",
        "厚紙1(うら)B",     "厚紙1(うら)C",
        "厚紙1(うら)S",     "厚紙2A",
        "厚紙2S",           "厚紙2(うら)A",
        "厚紙2(うら)S",     "厚紙3A",
        "厚紙3B",           "厚紙3S",
        "厚紙3(うら)A",     "厚紙3(うら)B",
        "厚紙3(うら)S",     "コート紙1A",
        "コート紙1B",       "コート紙1C",
        "コート紙1(うら)A", "コート紙1(うら)B",
        "コート紙1(うら)C", "コート紙2A",
        "コート紙2(うら)A", "コート紙3A",
        "コート紙3B",       "コート紙3(うら)A",
        "コート紙3(うら)B",
    };
    return texts;
}

const std::vector<std::string>& WeightTexts() {
    // The last weight has no text.
    static const std::vector<std::string> texts{
        "52-63 g/㎡",   "64-70 g/㎡",   "71-82 g/㎡",   "83-90 g/㎡",   "91-105 g/㎡",  "106-128 g/㎡",
        "129-150 g/㎡", "151-176 g/㎡", "177-220 g/㎡", "221-256 g/㎡", "257-300 g/㎡", "",
    };
    return texts;
}

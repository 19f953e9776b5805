// The window itself: subjects, search, marks, reverting, and what is checked while the user types.
#include "session/keyword.h"
#include "tests/companions/jobproperty/shown_key_fixture.h"
#include "tests/companions/jobproperty/timing.h"

#include <algorithm>
#include <cstdio>
#include <tuple>

namespace {

using jobproperty::ExitCode;

constexpr int kFinishing = 3;
constexpr int kColor = 8;
constexpr int kSecurity = 15;

class Window : public ShownKeyTest {
  protected:
    static SettingRow RowOf(const PropertyWindow& window, const std::string& name) {
        const std::vector<SettingRow> rows = window.Rows();
        const auto row = std::ranges::find(rows, name, &SettingRow::name);
        if (row != rows.end())
            return *row;
        ADD_FAILURE() << "no row " << name;
        return {};
    }
    static bool IsSubjectMarked(const PropertyWindow& window, int subject) {
        return window.Subjects()[static_cast<std::size_t>(subject)].starts_with("●");
    }
    static int MarkedSubjects(const PropertyWindow& window) {
        const auto subjects = window.Subjects();
        return static_cast<int>(
            std::ranges::count_if(subjects, [](const std::string& s) { return s.starts_with("●"); }));
    }
};

} // namespace

TEST_F(Window, IsTitledAndBeginsWithPaperAndTheSearch) {
    const PropertyWindow window(ShowWords(key));
    std::array<char, 128> title{};
    GetWindowTextA(window.Window(), title.data(), title.size());
    EXPECT_EQ(std::string(title.data()), "ジョブプロパティ - Orvane X100");
    EXPECT_EQ(window.SelectedSubject(), 0);
    EXPECT_EQ(window.SelectedRow(), 0);
    EXPECT_EQ(window.Text(IDC_NAME), "原稿サイズ");
    EXPECT_EQ(window.Text(IDC_KEYWORD), "PageSize");
    EXPECT_EQ(window.Focus(), window.Control(IDC_SEARCH));
    EXPECT_EQ(window.Text(IDC_HINT), "");
}

TEST_F(Window, ShowsTheSettingsOfTheSubject) {
    const PropertyWindow window(ShowWords(key));
    window.SelectSubject(kFinishing);
    const SettingRow staple = RowOf(window, "ホチキス");
    EXPECT_EQ(staple, (SettingRow{false, "ホチキス", "しない", ""}));
    EXPECT_EQ(window.SelectedRow(), 0);
}

TEST_F(Window, AClickOnARowShowsItsEditor) {
    const PropertyWindow window(ShowWords(key));
    window.SelectSubject(kFinishing);
    const auto rows = window.Rows();
    window.ClickRow(2);
    EXPECT_EQ(window.SelectedRow(), 2);
    EXPECT_EQ(window.Text(IDC_NAME), rows[2].name);
}

TEST_F(Window, ASearchFiltersAtOnceAndShowsTheSubjects) {
    const PropertyWindow window(ShowWords(key));
    window.Search("staplemode");
    EXPECT_EQ(window.Rows(), (std::vector<SettingRow>{{false, "ホチキス", "しない", "仕上げ"}}));
    EXPECT_EQ(window.Text(IDC_FOUND), "1 件");
    EXPECT_EQ(window.Text(IDC_KEYWORD), "StapleMode");
    EXPECT_EQ(window.SelectedSubject(), -1);
    EXPECT_EQ(window.Focus(), window.Control(IDC_SEARCH));
}

TEST_F(Window, ASearchByJapaneseTextFindsEveryRowWithIt) {
    const PropertyWindow window(ShowWords(key));
    window.Search("ホチキス");
    const auto rows = window.Rows();
    EXPECT_TRUE(std::ranges::any_of(rows, [](const SettingRow& row) { return row.name == "ホチキス"; }));
    EXPECT_LT(rows.size(), 40U);
}

TEST_F(Window, ASearchWithoutAResultSaysSoAndLeavesNoEditor) {
    const PropertyWindow window(ShowWords(key));
    window.Search("zzzzzz");
    EXPECT_TRUE(window.Rows().empty());
    EXPECT_EQ(window.Text(IDC_FOUND), "見つかりません");
    EXPECT_EQ(window.Text(IDC_NAME), "");
    EXPECT_FALSE(window.IsEnabled(IDC_CHOICE));
    EXPECT_FALSE(window.IsEnabled(IDC_REVERT));
}

TEST_F(Window, EscInTheSearchClearsItFirstAndEndsTheWindowThen) {
    const PropertyWindow window(ShowWords(key));
    window.Search("StapleMode");
    window.PressKey(VK_ESCAPE);
    EXPECT_EQ(window.Text(IDC_SEARCH), "");
    EXPECT_EQ(window.SelectedSubject(), kFinishing);
    EXPECT_EQ(window.Text(IDC_KEYWORD), "StapleMode");
    EXPECT_TRUE(window.Process().IsRunning());
    window.PressKey(VK_ESCAPE);
    EXPECT_EQ(window.Process().ExitCodeAtEnd(), Code(ExitCode::Done));
}

TEST_F(Window, ChoosingASubjectEndsTheSearch) {
    const PropertyWindow window(ShowWords(key));
    window.Search("StapleMode");
    window.SelectSubject(kSecurity);
    EXPECT_EQ(window.Text(IDC_SEARCH), "");
    EXPECT_EQ(window.Text(IDC_FOUND), "");
    EXPECT_EQ(window.Rows().front().subject, "");
}

TEST_F(Window, MarksWhatDiffersFromItsDefaultAndItsSubject) {
    const PropertyWindow window(ShowWords(key));
    EXPECT_EQ(MarkedSubjects(window), 0);
    window.GoTo("StapleMode");
    window.Choose("左上１ヵ所");
    EXPECT_EQ(window.Rows(), (std::vector<SettingRow>{{true, "ホチキス", "左上１ヵ所", "仕上げ"}}));
    EXPECT_TRUE(IsSubjectMarked(window, kFinishing));
    EXPECT_EQ(MarkedSubjects(window), 1);
    EXPECT_TRUE(window.IsEnabled(IDC_REVERT));
    window.Choose("しない");
    EXPECT_EQ(window.Rows(), (std::vector<SettingRow>{{false, "ホチキス", "しない", "仕上げ"}}));
    EXPECT_EQ(MarkedSubjects(window), 0);
}

TEST_F(Window, MarksWhatDifferedFromTheStart) {
    PutNumber("Current", "StapleMode", 1);
    const PropertyWindow window(ShowWords(key));
    EXPECT_TRUE(IsSubjectMarked(window, kFinishing));
    window.SelectSubject(kFinishing);
    EXPECT_TRUE(RowOf(window, "ホチキス").isMarked);
    EXPECT_TRUE(window.IsEnabled(IDC_REVERT_SUBJECT));
}

TEST_F(Window, RevertsOneSetting) {
    PutNumber("Current", "StapleMode", 1);
    PutNumber("Current", "Tray", 2);
    const PropertyWindow window(ShowWords(key));
    window.GoTo("StapleMode");
    SendMessageA(window.Control(IDC_REVERT), BM_CLICK, 0, 0);
    EXPECT_FALSE(RowOf(window, "ホチキス").isMarked);
    EXPECT_EQ(SendMessageA(window.Control(IDC_CHOICE), CB_GETCURSEL, 0, 0), 0);
    EXPECT_FALSE(window.IsEnabled(IDC_REVERT));
    EXPECT_EQ(window.ExitCodeAfter(IDOK), Code(ExitCode::Done));
    EXPECT_EQ(CurrentNow(keyword::StapleMode), 0U);
    EXPECT_EQ(CurrentNow(keyword::Tray), 2U);
}

TEST_F(Window, RevertsASubject) {
    PutNumber("Current", "StapleMode", 1);
    PutNumber("Current", "Tray", 2);
    const PropertyWindow window(ShowWords(key));
    window.SelectSubject(kFinishing);
    SendMessageA(window.Control(IDC_REVERT_SUBJECT), BM_CLICK, 0, 0);
    EXPECT_FALSE(IsSubjectMarked(window, kFinishing));
    EXPECT_TRUE(IsSubjectMarked(window, 0));
    EXPECT_FALSE(window.IsEnabled(IDC_REVERT_SUBJECT));
    EXPECT_EQ(window.ExitCodeAfter(IDOK), Code(ExitCode::Done));
    EXPECT_EQ(CurrentNow(keyword::StapleMode), 0U);
    EXPECT_EQ(CurrentNow(keyword::Tray), 2U);
}

TEST_F(Window, RevertsAllOnlyAfterAYes) {
    PutNumber("Current", "StapleMode", 1);
    PutNumber("Current", "Tray", 2);
    PutText("JobName", "x");
    const PropertyWindow window(ShowWords(key));
    EXPECT_EQ(MarkedSubjects(window), 3);
    window.Press(IDC_REVERT_ALL);
    EXPECT_EQ(window.AnswerBox(IDNO), "すべての設定を既定値に戻しますか？");
    EXPECT_EQ(MarkedSubjects(window), 3);
    window.Press(IDC_REVERT_ALL);
    window.AnswerBox(IDYES);
    const ULONGLONG deadline = GetTickCount64() + 2000;
    while (MarkedSubjects(window) != 0 && GetTickCount64() < deadline)
        Sleep(10);
    EXPECT_EQ(MarkedSubjects(window), 0);
    EXPECT_EQ(window.ExitCodeAfter(IDOK), Code(ExitCode::Done));
    EXPECT_EQ(CurrentNow(keyword::StapleMode), 0U);
    EXPECT_EQ(JobNameNow(), "");
}

TEST_F(Window, TheSubjectButtonIsOffDuringASearch) {
    PutNumber("Current", "StapleMode", 1);
    const PropertyWindow window(ShowWords(key));
    window.Search("StapleMode");
    EXPECT_FALSE(window.IsEnabled(IDC_REVERT_SUBJECT));
    EXPECT_TRUE(window.IsEnabled(IDC_REVERT_ALL));
}

TEST_F(Window, ANumberShowsItsRangeAndTakesWhatIsInIt) {
    const PropertyWindow window(ShowWords(key));
    window.GoTo("Copies");
    EXPECT_EQ(window.Text(IDC_RANGE), "1 ～ 9999");
    window.Type(IDC_TEXT, "9999");
    EXPECT_EQ(window.Text(IDC_NOTE), "");
    EXPECT_EQ(window.ExitCodeAfter(IDOK), Code(ExitCode::Done));
    EXPECT_EQ(CurrentNow(keyword::Copies), 9999U);
}

TEST_F(Window, ANumberOutOfRangeIsToldAtOnceAndRefusedAtOk) {
    const PropertyWindow window(ShowWords(key));
    window.GoTo("Copies");
    for (const char* text : {"0", "10000", "-1", "12x", "", "99999999999999999999"}) {
        window.Type(IDC_TEXT, text);
        EXPECT_EQ(window.Text(IDC_NOTE), "この範囲の数値を入力してください: 1 ～ 9999") << text;
        EXPECT_EQ(window.Rows().front().value, text);
    }
    window.Type(IDC_TEXT, "0");
    window.SelectSubject(kSecurity);
    window.MoveFocus(IDC_SEARCH);
    SendMessageA(window.Control(IDOK), BM_CLICK, 0, 0);
    EXPECT_TRUE(window.Process().IsRunning());
    EXPECT_EQ(window.Text(IDC_KEYWORD), "Copies");
    EXPECT_EQ(window.Text(IDC_TEXT), "0");
    EXPECT_EQ(window.Focus(), window.Control(IDC_TEXT));
    EXPECT_EQ(window.SelectedSubject(), kFinishing);
    window.Type(IDC_TEXT, "5");
    EXPECT_EQ(window.ExitCodeAfter(IDOK), Code(ExitCode::Done));
    EXPECT_EQ(CurrentNow(keyword::Copies), 5U);
}

TEST_F(Window, RevertingTakesANumberOutOfRangeBack) {
    const PropertyWindow window(ShowWords(key));
    window.GoTo("Copies");
    window.Type(IDC_TEXT, "0");
    EXPECT_TRUE(window.Rows().front().isMarked);
    SendMessageA(window.Control(IDC_REVERT), BM_CLICK, 0, 0);
    EXPECT_EQ(window.Text(IDC_TEXT), "1");
    EXPECT_EQ(window.Text(IDC_NOTE), "");
    EXPECT_EQ(window.ExitCodeAfter(IDOK), Code(ExitCode::Done));
}

TEST_F(Window, ANumberThatWasOutOfRangeMayStay) {
    PutNumber("Current", "Copies", 70000);
    const PropertyWindow window(ShowWords(key));
    window.AnswerBox();
    window.GoTo("Copies");
    EXPECT_EQ(window.Text(IDC_TEXT), "70000");
    window.MoveFocus(IDC_TEXT);
    SendMessageA(window.Control(IDC_TEXT), EM_SETSEL, 5, 5);
    window.TypeMore(IDC_TEXT, "1");
    EXPECT_EQ(window.Text(IDC_NOTE), "この範囲の数値を入力してください: 1 ～ 9999");
    window.TypeMore(IDC_TEXT, "\b");
    EXPECT_EQ(window.Text(IDC_NOTE), "現在の値は範囲を外れています。別の値にするまで、そのまま残ります。");
    EXPECT_EQ(window.ExitCodeAfter(IDOK), Code(ExitCode::ValuesOutOfRange));
    EXPECT_EQ(CurrentNow(keyword::Copies), 70000U);
}

TEST_F(Window, ALengthShowsItsUnit) {
    const PropertyWindow window(ShowWords(key));
    window.GoTo("CustomPaperWidth");
    EXPECT_EQ(window.Text(IDC_RANGE), "89 ～ 320 mm");
    window.Type(IDC_TEXT, "100.5");
    EXPECT_EQ(window.ExitCodeAfter(IDOK), Code(ExitCode::Done));
    EXPECT_EQ(CurrentNow(keyword::CustomPaperWidth), 100500U);
}

TEST_F(Window, ATextTellsItsLimitAndRefusesMoreBytes) {
    const PropertyWindow window(ShowWords(key));
    window.GoTo("JobName");
    EXPECT_EQ(window.Text(IDC_NOTE), "半角の文字数の上限: 511");
    window.Type(IDC_TEXT, std::string(511, 'a'));
    EXPECT_EQ(window.Text(IDC_NOTE), "半角の文字数の上限: 511");
    window.TypeMore(IDC_TEXT, "b");
    EXPECT_EQ(window.Text(IDC_NOTE), "これ以上は入力できません。半角の文字数の上限: 511");
    EXPECT_EQ(window.Text(IDC_TEXT), std::string(511, 'a'));
    EXPECT_EQ(window.ExitCodeAfter(IDOK), Code(ExitCode::Done));
    EXPECT_EQ(JobNameNow(), std::string(511, 'a'));
}

TEST_F(Window, ADoubleByteCharacterIsTakenOrRefusedWhole) {
    const PropertyWindow window(ShowWords(key));
    window.GoTo("JobName");
    std::string kanji;
    for (int i = 0; i < 255; ++i)
        kanji += "表";
    window.Type(IDC_TEXT, kanji);
    window.TypeMore(IDC_TEXT, "ソ");
    EXPECT_EQ(window.Text(IDC_TEXT), kanji);
    window.TypeMore(IDC_TEXT, "a");
    EXPECT_EQ(window.Text(IDC_TEXT), kanji + "a");
    EXPECT_EQ(window.ExitCodeAfter(IDOK), Code(ExitCode::Done));
    EXPECT_EQ(JobNameNow(), kanji + "a");
}

TEST_F(Window, ARefusedCharacterLeavesTheCaretWhereItWas) {
    const PropertyWindow window(ShowWords(key));
    window.GoTo("JobName");
    window.Type(IDC_TEXT, std::string(511, 'a'));
    SendMessageA(window.Control(IDC_TEXT), EM_SETSEL, 7, 7);
    window.TypeMore(IDC_TEXT, "b");
    EXPECT_EQ(SendMessageA(window.Control(IDC_TEXT), EM_GETSEL, 0, 0), MAKELONG(7, 7));
}

TEST_F(Window, APasswordIsMaskedEverywhere) {
    PutText("SecPrintPassword", "secret1");
    const PropertyWindow window(ShowWords(key));
    window.GoTo("SecPrintPassword");
    EXPECT_TRUE(window.IsShown(IDC_PASSWORD));
    EXPECT_FALSE(window.IsShown(IDC_TEXT));
    EXPECT_NE(SendMessageA(window.Control(IDC_PASSWORD), EM_GETPASSWORDCHAR, 0, 0), 0);
    EXPECT_EQ(window.Rows().front().value, "********");
    EXPECT_EQ(window.Text(IDC_DEFAULT).find("secret1"), std::string::npos);
    window.Type(IDC_PASSWORD, "other2");
    EXPECT_EQ(window.Rows().front().value, "********");
    EXPECT_EQ(window.ExitCodeAfter(IDOK), Code(ExitCode::Done));
    EXPECT_EQ(DumpByPeer(key)[std::make_pair("Values", "SecPrintPassword")], TextImage("other2"));
}

// What is typed and taken away again leaves a field that shows the next setting's text already.
TEST_F(Window, UndoBringsNothingOfOneSettingIntoAnother) {
    const PropertyWindow window(ShowWords(key));
    for (const auto& [from, to, field] : {std::tuple{"SecPrintPassword", "RscPassword", IDC_PASSWORD},
                                          std::tuple{"JobName", "UserComment", IDC_TEXT}}) {
        window.GoTo(from);
        window.Type(field, "secret");
        SendMessageA(window.Control(field), EM_SETSEL, 0, -1);
        SendMessageA(window.Control(field), WM_CLEAR, 0, 0);
        EXPECT_TRUE(SendMessageA(window.Control(field), EM_CANUNDO, 0, 0));
        window.GoTo(to);
        SendMessageA(window.Control(field), WM_UNDO, 0, 0);
        EXPECT_EQ(window.Text(field), "");
        EXPECT_EQ(window.Rows().front().value, "");
    }
}

TEST_F(Window, ACharacterOutsideTheCodePageIsRefusedAndNotTakenForOneThatLooksAlike) {
    const PropertyWindow window(ShowWords(key));
    window.GoTo("JobName");
    window.Type(IDC_TEXT, "ab");
    for (const wchar_t* character : {L"\u00E9", L"\u00A5", L"\u00B2", L"\uAC00", L"\U0001F600"}) {
        window.TypeMore(IDC_TEXT, std::wstring(character));
        EXPECT_EQ(window.Text(IDC_NOTE), "この文字は入力できません。");
        EXPECT_EQ(window.Text(IDC_TEXT), "ab");
        EXPECT_EQ(SendMessageA(window.Control(IDC_TEXT), EM_GETSEL, 0, 0), MAKELONG(2, 2));
    }
    window.TypeMore(IDC_TEXT, std::wstring(L"\u8868?"));
    EXPECT_EQ(window.Text(IDC_NOTE), "半角の文字数の上限: 511");
    EXPECT_EQ(window.ExitCodeAfter(IDOK), Code(ExitCode::Done));
    EXPECT_EQ(JobNameNow(), "ab表?");
}

TEST_F(Window, ANumberWithACharacterOutsideTheCodePageIsNoNumber) {
    const PropertyWindow window(ShowWords(key));
    window.GoTo("Copies");
    window.Type(IDC_TEXT, "1");
    window.TypeMore(IDC_TEXT, std::wstring(L"\u00B2"));
    EXPECT_EQ(window.Text(IDC_NOTE), "この範囲の数値を入力してください: 1 ～ 9999");
    EXPECT_EQ(window.ExitCodeAfter(IDCANCEL), Code(ExitCode::Done));
}

TEST_F(Window, ALetterInTheListGoesToTheNextNameThatBeginsWithIt) {
    const PropertyWindow window(ShowWords(key));
    const auto type = [&window](const char* letters) {
        Sleep(1100); // after which a letter is the first of another name
        window.TypeMore(IDC_SETTINGS, std::string(letters));
        return window.Text(IDC_NAME);
    };
    window.SelectSubject(kColor);
    window.MoveFocus(IDC_SETTINGS);
    EXPECT_EQ(type("c"), "CMYKレンダリングインテント");
    EXPECT_EQ(type("r"), "RGB色補正");
    EXPECT_EQ(type("z"), "RGB色補正") << "no name begins with it";
    EXPECT_EQ(type("pdf"), "PDF/Xの出力インテント");
    EXPECT_EQ(type("rip"), "RIPモード") << "round the end of the list";
    EXPECT_EQ(window.Rows()[static_cast<std::size_t>(window.SelectedRow())].name, "RIPモード");
}

TEST_F(Window, AClickBelowTheRowsKeepsTheRowSelectedThatTheEditorShows) {
    const PropertyWindow window(ShowWords(key));
    window.Search("ホチキス");
    window.ClickRow(1);
    const std::string shown = window.Text(IDC_KEYWORD);
    window.ClickBelowRows();
    const ULONGLONG deadline = GetTickCount64() + 2000;
    while (window.SelectedRow() != 1 && GetTickCount64() < deadline)
        Sleep(10);
    EXPECT_EQ(window.SelectedRow(), 1);
    EXPECT_EQ(window.Text(IDC_KEYWORD), shown);
    EXPECT_EQ(shown, "StapleMechanism");
}

TEST_F(Window, TabVisitsEveryControlOnceInOrder) {
    PutNumber("Current", "StapleMode", 1);
    const PropertyWindow window(ShowWords(key));
    window.SelectSubject(kFinishing);
    window.MoveFocus(IDC_SEARCH);
    std::vector<int> visited;
    for (int i = 0; i < 20; ++i) {
        visited.push_back(GetDlgCtrlID(window.Focus()));
        const HWND before = window.Focus();
        window.PressKey(VK_TAB);
        if (window.Focus() == window.Control(IDC_SEARCH) || window.Focus() == before)
            break;
    }
    EXPECT_EQ(visited, (std::vector<int>{IDC_SEARCH, IDC_SUBJECTS, IDC_SETTINGS, IDC_TEXT, IDC_REVERT_SUBJECT,
                                         IDC_REVERT_ALL, IDOK, IDCANCEL}));
}

TEST_F(Window, AcceleratorsAreUnique) {
    const PropertyWindow window(ShowWords(key));
    std::string letters;
    for (HWND control = GetWindow(window.Window(), GW_CHILD); control;
         control = GetWindow(control, GW_HWNDNEXT)) {
        std::array<char, 128> text{};
        SendMessageA(control, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
        const std::string caption = text.data();
        if (const std::size_t place = caption.find("(&"); place != std::string::npos)
            letters += caption[place + 2];
    }
    std::ranges::sort(letters);
    EXPECT_EQ(letters, "ADISUV");
}

TEST_F(Window, IsVisibleInTimeAndSearchesInTime) {
    const std::string query = "Paper";
    double visible = 1e9;
    std::vector<double> keyPresses(query.size(), 1e9);
    for (int round = 0; round < 5; ++round) {
        const double start = Milliseconds();
        const PropertyWindow window(ShowWords(key));
        visible = std::min(visible, Milliseconds() - start);
        window.MoveFocus(IDC_SEARCH);
        for (std::size_t i = 0; i < query.size(); ++i) {
            const double before = Milliseconds();
            window.TypeMore(IDC_SEARCH, query.substr(i, 1));
            keyPresses[i] = std::min(keyPresses[i], Milliseconds() - before);
        }
        EXPECT_EQ(window.ExitCodeAfter(IDCANCEL), Code(ExitCode::Done));
    }
    const double slowness = Slowness();
    std::printf("window visible %.0f ms after its start; slowest key press in the search %.1f ms; "
                "the machine is %.1f times slower than idle\n",
                visible, std::ranges::max(keyPresses), slowness);
    EXPECT_LT(visible, 400.0 * slowness);
    EXPECT_LT(std::ranges::max(keyPresses), 20.0 * slowness);
}

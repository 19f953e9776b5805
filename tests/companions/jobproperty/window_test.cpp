// The window itself: subjects, search, marks, reverting, and its keyboard.
#include "session/keyword.h"
#include "tests/companions/jobproperty/shown_key_fixture.h"
#include "tests/companions/jobproperty/timing.h"

#include <algorithm>
#include <cstdio>

namespace {

using jobproperty::ExitCode;

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

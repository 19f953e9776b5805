// The window's editor of one setting: what it shows, and what is checked while the user types.
#include "session/keyword.h"
#include "tests/companions/jobproperty/shown_key_fixture.h"

#include <tuple>
#include <utility>

namespace {

using jobproperty::ExitCode;

class WindowEditor : public ShownKeyTest {};

} // namespace

TEST_F(WindowEditor, ANumberShowsItsRangeAndTakesWhatIsInIt) {
    const PropertyWindow window(ShowWords(key));
    window.GoTo("Copies");
    EXPECT_EQ(window.Text(IDC_RANGE), "1 ～ 9999");
    window.Type(IDC_TEXT, "9999");
    EXPECT_EQ(window.Text(IDC_NOTE), "");
    EXPECT_EQ(window.ExitCodeAfter(IDOK), Code(ExitCode::Done));
    EXPECT_EQ(CurrentNow(keyword::Copies), 9999U);
}

TEST_F(WindowEditor, ANumberOutOfRangeIsToldAtOnceAndRefusedAtOk) {
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

TEST_F(WindowEditor, RevertingTakesANumberOutOfRangeBack) {
    const PropertyWindow window(ShowWords(key));
    window.GoTo("Copies");
    window.Type(IDC_TEXT, "0");
    EXPECT_TRUE(window.Rows().front().isMarked);
    SendMessageA(window.Control(IDC_REVERT), BM_CLICK, 0, 0);
    EXPECT_EQ(window.Text(IDC_TEXT), "1");
    EXPECT_EQ(window.Text(IDC_NOTE), "");
    EXPECT_EQ(window.ExitCodeAfter(IDOK), Code(ExitCode::Done));
}

TEST_F(WindowEditor, ANumberThatWasOutOfRangeMayStay) {
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

TEST_F(WindowEditor, ALengthShowsItsUnit) {
    const PropertyWindow window(ShowWords(key));
    window.GoTo("CustomPaperWidth");
    EXPECT_EQ(window.Text(IDC_RANGE), "89 ～ 320 mm");
    window.Type(IDC_TEXT, "100.5");
    EXPECT_EQ(window.ExitCodeAfter(IDOK), Code(ExitCode::Done));
    EXPECT_EQ(CurrentNow(keyword::CustomPaperWidth), 100500U);
}

TEST_F(WindowEditor, ATextTellsItsLimitAndRefusesMoreBytes) {
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

TEST_F(WindowEditor, ADoubleByteCharacterIsTakenOrRefusedWhole) {
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

TEST_F(WindowEditor, ARefusedCharacterLeavesTheCaretWhereItWas) {
    const PropertyWindow window(ShowWords(key));
    window.GoTo("JobName");
    window.Type(IDC_TEXT, std::string(511, 'a'));
    SendMessageA(window.Control(IDC_TEXT), EM_SETSEL, 7, 7);
    window.TypeMore(IDC_TEXT, "b");
    EXPECT_EQ(SendMessageA(window.Control(IDC_TEXT), EM_GETSEL, 0, 0), MAKELONG(7, 7));
}

TEST_F(WindowEditor, APasswordIsMaskedEverywhere) {
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
TEST_F(WindowEditor, UndoBringsNothingOfOneSettingIntoAnother) {
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

TEST_F(WindowEditor, ACharacterOutsideTheCodePageIsRefusedAndNotTakenForOneThatLooksAlike) {
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

TEST_F(WindowEditor, ANumberWithACharacterOutsideTheCodePageIsNoNumber) {
    const PropertyWindow window(ShowWords(key));
    window.GoTo("Copies");
    window.Type(IDC_TEXT, "1");
    window.TypeMore(IDC_TEXT, std::wstring(L"\u00B2"));
    EXPECT_EQ(window.Text(IDC_NOTE), "この範囲の数値を入力してください: 1 ～ 9999");
    EXPECT_EQ(window.ExitCodeAfter(IDCANCEL), Code(ExitCode::Done));
}

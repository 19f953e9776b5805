// -show: reading the key, editing, and what the ends of the window write.
#include "session/keyword.h"
#include "tests/companions/jobproperty/shown_key_fixture.h"

#include <algorithm>

namespace {

using jobproperty::ExitCode;

class Show : public ShownKeyTest {
  protected:
    void ExpectUnchanged(const KeyImage& before, DWORD generationBefore) const {
        EXPECT_EQ(DumpByPeer(key), before);
        EXPECT_EQ(Generation(), generationBefore);
    }
};

// All keys and values from here down, as text.
std::string Snapshot(const std::string& path) {
    UniqueRegistryKey opened;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, opened.Receive()) != ERROR_SUCCESS)
        return path + " is not there\n";
    std::string text = path + "\n";
    for (DWORD index = 0;; ++index) {
        std::array<char, 256> name{};
        std::array<BYTE, 4096> data{};
        DWORD nameLength = name.size();
        DWORD size = data.size();
        DWORD type = 0;
        if (RegEnumValueA(opened.Get(), index, name.data(), &nameLength, nullptr, &type, data.data(),
                          &size) != ERROR_SUCCESS)
            break;
        text += std::string(name.data()) + "=" + std::to_string(type) + ":" + Hex(data.data(), size) + "\n";
    }
    for (DWORD index = 0;; ++index) {
        std::array<char, 256> name{};
        if (RegEnumKeyA(opened.Get(), index, name.data(), name.size()) != ERROR_SUCCESS)
            break;
        text += Snapshot(path + "\\" + name.data());
    }
    return text;
}

} // namespace

TEST_F(Show, AKeyWithoutFaultsIsShownWithoutAWordAndIsLeftAsItWas) {
    const KeyImage before = DumpByPeer(key);
    const PropertyWindow window(ShowWords(key));
    EXPECT_EQ(window.Subjects(),
              (std::vector<std::string>{"用紙", "用紙の種類", "レイアウト/面付け", "仕上げ", "表紙/合紙",
                                        "ページ番号", "フォーム/スタンプ", "メモ/マーク", "カラー",
                                        "画像と文字", "スクリーン", "クリア/特色", "ジョブの開始",
                                        "ジョブ情報", "警告", "セキュリティー"}));
    EXPECT_FALSE(window.IsEnabled(IDC_REVERT));
    EXPECT_FALSE(window.IsEnabled(IDC_REVERT_SUBJECT));
    EXPECT_FALSE(window.IsEnabled(IDC_REVERT_ALL));
    EXPECT_EQ(window.ExitCodeAfter(IDOK), Code(ExitCode::Done));
    ExpectUnchanged(before, 1);
}

TEST_F(Show, OkHandsTrayStapleAndATextOverToTheStore) {
    const PropertyWindow window(ShowWords(key));
    window.GoTo("Tray");
    window.Choose("トレイ2");
    window.GoTo("StapleMode");
    EXPECT_EQ(window.Text(IDC_DEFAULT), "既定値: しない");
    window.Choose("左上１ヵ所");
    window.GoTo("JobName");
    window.Type(IDC_TEXT, "月次報告 ソ表");
    EXPECT_EQ(window.ExitCodeAfter(IDOK), Code(ExitCode::Done));

    EXPECT_EQ(Generation(), 2U);
    EXPECT_EQ(CurrentNow(keyword::Tray), 2U);
    EXPECT_EQ(CurrentNow(keyword::StapleMode), 1U);
    EXPECT_EQ(JobNameNow(), "月次報告 ソ表");
}

TEST_F(Show, OkWritesOnlyWhatWasChanged) {
    KeyImage expected = DumpByPeer(key);
    const PropertyWindow window(ShowWords(key));
    window.GoTo("StapleMode");
    window.Choose("左上１ヵ所");
    window.GoTo("Tray");
    window.Choose("トレイ2");
    window.Choose("自動選択");
    EXPECT_EQ(window.ExitCodeAfter(IDOK), Code(ExitCode::Done));
    expected[{"Current", "StapleMode"}] = NumberImage(1);
    EXPECT_EQ(DumpByPeer(key), expected);
}

TEST_F(Show, CancelTheCloseBoxAndEscWriteNothing) {
    const KeyImage before = DumpByPeer(key);
    for (int way = 0; way < 3; ++way) {
        const PropertyWindow window(ShowWords(key));
        window.GoTo("StapleMode");
        window.Choose("左上１ヵ所");
        switch (way) {
        case 0: window.Press(IDCANCEL); break;
        case 1: PostMessageA(window.Window(), WM_CLOSE, 0, 0); break;
        default: window.MoveFocus(IDC_CHOICE); window.PressKey(VK_ESCAPE);
        }
        EXPECT_EQ(window.Process().ExitCodeAtEnd(), Code(ExitCode::Done)) << way;
        ExpectUnchanged(before, 1);
    }
}

TEST_F(Show, TheCloseBoxEndsTheWindowDuringASearchToo) {
    const PropertyWindow window(ShowWords(key));
    window.Search("a");
    PostMessageA(window.Window(), WM_CLOSE, 0, 0);
    EXPECT_EQ(window.Process().ExitCodeAtEnd(), Code(ExitCode::Done));
}

TEST_F(Show, EnterIsOk) {
    const PropertyWindow window(ShowWords(key));
    window.GoTo("JobName");
    window.Type(IDC_TEXT, "x");
    window.PressKey(VK_RETURN);
    EXPECT_EQ(window.Process().ExitCodeAtEnd(), Code(ExitCode::Done));
    EXPECT_EQ(JobNameNow(), "x");
}

TEST_F(Show, AKilledWindowHasChangedNothing) {
    const KeyImage before = DumpByPeer(key);
    {
        const PropertyWindow window(ShowWords(key));
        window.GoTo("StapleMode");
        window.Choose("左上１ヵ所");
        TerminateProcess(window.Process().Process(), 1);
    }
    ExpectUnchanged(before, 1);
}

TEST_F(Show, WithoutItsKeySaysSoAndMakesNone) {
    ExportedFunc_DeleteRegistryKey(key.c_str());
    const Application application(ShowWords(key));
    const HWND box = AwaitDialog(application, true);
    SendMessageA(box, WM_COMMAND, IDOK, 0);
    EXPECT_EQ(application.ExitCodeAtEnd(), Code(ExitCode::NoKey));
    EXPECT_FALSE(KeyExists(key));
}

TEST_F(Show, WithoutASubkeySaysSoAndMakesNone) {
    RegDeleteTreeA(HKEY_CURRENT_USER, (key + "\\Values").c_str());
    const Application application(ShowWords(key));
    SendMessageA(AwaitDialog(application, true), WM_COMMAND, IDOK, 0);
    EXPECT_EQ(application.ExitCodeAtEnd(), Code(ExitCode::NoKey));
    EXPECT_FALSE(KeyExists(key + "\\Values"));
}

TEST_F(Show, AKeyThatVanishesIsToldAtOk) {
    for (const bool isChanged : {true, false}) {
        key = CreateKey();
        KeyInUse();
        const PropertyWindow window(ShowWords(key));
        if (isChanged) {
            window.GoTo("JobName");
            window.Type(IDC_TEXT, "x");
        }
        RegDeleteTreeA(HKEY_CURRENT_USER, key.c_str());
        window.Press(IDOK);
        EXPECT_EQ(window.AnswerBox(), "設定のキーがなくなったため、変更を保存できません。\nプリンターのプロパ"
                                      "ティはすでに閉じられています。");
        EXPECT_EQ(window.Process().ExitCodeAtEnd(), Code(ExitCode::KeyVanished));
        EXPECT_FALSE(KeyExists(key));
    }
}

TEST_F(Show, OfASheetWhoseKeyIsGoneSaysThatTheKeyIsMissing) {
    const Application application(" -show   PDF ");
    const HWND box = AwaitDialog(application, true);
    std::array<char, 512> text{};
    SendMessageA(GetDlgItem(box, 0xFFFF), WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    EXPECT_EQ(std::string(text.data()),
              "設定のキーが見つかりません。\nプリンターのプロパティを閉じて、もう一度"
              "開いてください。");
    SendMessageA(box, WM_COMMAND, IDOK, 0);
    EXPECT_EQ(application.ExitCodeAtEnd(), Code(ExitCode::NoKey));
}

// What is written first must not wait in the key for a later hand-over.
TEST_F(Show, AnOkThatFailsHalfwayLeavesTheLoadedValuesInTheKey) {
    PutNumber("Current", "StapleMode", 2);
    const DWORD generationBefore = Generation();
    const PropertyWindow window(ShowWords(key));
    window.GoTo("StapleMode");
    window.Choose("左上１ヵ所");
    window.GoTo("JobName");
    window.Type(IDC_TEXT, "x");
    const std::string before = Snapshot(key + "\\Current");
    RegDeleteTreeA(HKEY_CURRENT_USER, (key + "\\Values").c_str());
    window.Press(IDOK);
    const HWND box = AwaitDialog(window.Process(), true);
    EXPECT_EQ(Snapshot(key + "\\Current"), before);
    EXPECT_EQ(Generation(), generationBefore);
    SendMessageA(box, WM_COMMAND, IDOK, 0);
    EXPECT_EQ(window.Process().ExitCodeAtEnd(), Code(ExitCode::KeyVanished));
}

TEST_F(Show, AWrongCommandLineIsToldInABox) {
    const std::string id = IdOf(key);
    for (const auto& [words, expected] : std::vector<std::pair<std::string, std::string>>{
             {"", "このプログラムはプリンターのプロパティから開始してください。"},
             {"-print", "コマンドが正しくありません。\n-print"},
             {"-show " + id + " Software PDF", "設定のキーの名前が正しくありません。\nSoftware"},
             {"-show 0000000000000000 " + key + " PDF", "識別子と設定のキーの名前が一致しません。\n" + key},
             {"-show " + id + " " + key + " PS", "プリンタードライバーの種類が正しくありません。\nPS"},
             {"-show", "コマンドラインが途中で終わっています。"}}) {
        const Application application(words);
        const HWND box = AwaitDialog(application, true);
        std::array<char, 512> text{};
        SendMessageA(GetDlgItem(box, 0xFFFF), WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
        EXPECT_EQ(std::string(text.data()), expected);
        SendMessageA(box, WM_COMMAND, IDOK, 0);
        EXPECT_EQ(application.ExitCodeAtEnd(), Code(ExitCode::BadCommandLine));
    }
}

TEST_F(Show, ASecondWindowOfTheSameKeyIsRefused) {
    const PropertyWindow first(ShowWords(key));
    const Application second(ShowWords(key));
    SendMessageA(AwaitDialog(second, true), WM_COMMAND, IDOK, 0);
    EXPECT_EQ(second.ExitCodeAtEnd(), Code(ExitCode::AlreadyShown));
    EXPECT_EQ(first.ExitCodeAfter(IDCANCEL), Code(ExitCode::Done));
}

TEST_F(Show, ValuesOutOfRangeAreNamedStayAndGiveAStatus) {
    PutNumber("Current", "StapleMode", 0xFFFFFFFF);
    PutNumber("Current", "Tray", 6);
    KeyImage expected = DumpByPeer(key);
    const PropertyWindow window(ShowWords(key));
    EXPECT_EQ(window.AnswerBox(), "次の設定の値は範囲を外れています。別の値を選ぶまで、そのまま残ります。\n\n"
                                  "用紙トレイ\nホチキス");
    window.GoTo("StapleMode");
    EXPECT_EQ(SendMessageA(window.Control(IDC_CHOICE), CB_GETCURSEL, 0, 0), CB_ERR);
    EXPECT_EQ(window.Text(IDC_NOTE), "現在の値は選択肢にありません。別の値を選ぶまで、そのまま残ります。");
    window.GoTo("Tray");
    window.Choose("トレイ1");
    EXPECT_EQ(window.Text(IDC_NOTE), "");
    EXPECT_EQ(window.ExitCodeAfter(IDOK), Code(ExitCode::ValuesOutOfRange));
    expected[{"Current", "Tray"}] = NumberImage(1);
    EXPECT_EQ(DumpByPeer(key), expected);
}

TEST_F(Show, ValuesOutOfRangeThatAreAllReplacedGiveNoStatus) {
    PutNumber("Current", "Tray", 6);
    const PropertyWindow window(ShowWords(key));
    window.AnswerBox();
    window.GoTo("Tray");
    window.Choose("トレイ1");
    EXPECT_EQ(window.ExitCodeAfter(IDOK), Code(ExitCode::Done));
}

TEST_F(Show, ValuesOutOfRangeGiveAStatusAfterCancelToo) {
    PutNumber("Current", "Tray", 6);
    const PropertyWindow window(ShowWords(key));
    window.AnswerBox();
    EXPECT_EQ(window.ExitCodeAfter(IDCANCEL), Code(ExitCode::ValuesOutOfRange));
}

TEST_F(Show, GarbageInEveryKeywordIsNamedUpToTenAndTouchesNothing) {
    for (const char* name : kKeywordNames)
        PutNumber("Current", name, 0xDEADBEEF);
    Put("Values", "JobName", REG_DWORD, "abcd");
    Put("Values", "SecPrintPassword", REG_SZ, std::string(100'000, 'x'));
    Put("Default", "Tray", REG_BINARY, "");
    PutNumber("Current", "NoKeyword", 1);
    const KeyImage before = DumpByPeer(key);
    const PropertyWindow window(ShowWords(key));
    const std::string told = window.AnswerBox();
    EXPECT_EQ(std::ranges::count(told, '\n'), 2 + 10);
    EXPECT_NE(told.find("\nほか "), std::string::npos);
    for (int subject = 0; subject < 16; ++subject) {
        window.SelectSubject(subject);
        EXPECT_FALSE(window.Rows().empty());
    }
    EXPECT_EQ(window.ExitCodeAfter(IDOK), Code(ExitCode::ValuesOutOfRange));
    ExpectUnchanged(before, 1);
}

// The plug-in waits for it before it waits for the end.
TEST_F(Show, CanBeWaitedForUntilInputIsIdle) {
    for (const std::string& words : {ShowWords(key), std::string("-show")}) {
        const Application application(words);
        EXPECT_EQ(WaitForInputIdle(application.Process(), Application::kPatience), 0U);
    }
}

TEST_F(Show, FileWritesNothingAtAll) {
    const std::string path = "Software\\Zephra";
    const std::string before = Snapshot(path);
    EXPECT_NE(before.find(IdOf(key)), std::string::npos);
    for (const int button : {IDOK, IDCANCEL}) {
        const PropertyWindow window(kFileWords);
        EXPECT_EQ(window.Text(IDC_HINT),
                  "プリンターの既定値を表示しています。ここでの変更は保存されません。");
        window.GoTo("StapleMode");
        window.Choose("左上１ヵ所");
        EXPECT_EQ(window.ExitCodeAfter(button), Code(ExitCode::Done));
    }
    EXPECT_EQ(Snapshot(path), before);
    EXPECT_FALSE(KeyExists("dummyRegKey"));
}

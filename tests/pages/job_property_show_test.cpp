// The job property application's window: what it is given, and what of it comes back.
#include "session/keyword.h"
#include "tests/pages/job_property_fixture.h"

#include <map>

namespace {

// What both sides say for the same setting: option index in the bank, tag number for the application.
struct Both {
    int keyword;
    const char* name;
    std::uint32_t option;
    std::uint32_t tag;
};

constexpr Both kGiven[] = {
    {keyword::Tray, "Tray", 7, 25},
    {keyword::ChgPrintPaperSizeType, "ChgPrintPaperSizeType", 11, 8},
    {keyword::OutputTray, "OutputTray", 1, 17},
    {keyword::StapleMode, "StapleMode", 5, 36},
    {keyword::Fold, "Fold", 3, 11},
    {keyword::DuplexMode, "DuplexMode", 3, 3},
    {keyword::Copies, "Copies", 12, 12},
};

// What the application leaves of them.
constexpr Both kLeft[] = {
    {keyword::Tray, "Tray", 6, 7},
    {keyword::ChgPrintPaperSizeType, "ChgPrintPaperSizeType", 2, 1},
    {keyword::OutputTray, "OutputTray", 4, 14},
    {keyword::StapleMode, "StapleMode", 10, 37},
    {keyword::Fold, "Fold", 6, 12},
    {keyword::DuplexMode, "DuplexMode", 1, 1},
    {keyword::Copies, "Copies", 99, 99},
};

using Values = std::map<std::string, std::uint32_t>;

class ShowJobProperty : public JobPropertyTest {
  protected:
    ShowJobProperty() {
        OpenPage();
        for (const Both& setting : kGiven)
            ExportedFunc_SetCurrent(setting.keyword, setting.option);
    }

    std::string CommandLine() const { return kApplication + " -show " + id + " " + key + " PDF "; }

    // The button of the application.
    LRESULT Press() { return PageTest::Command(page, 1035, BN_CLICKED); }

    static std::vector<std::uint32_t> WholeBank() {
        std::vector<std::uint32_t> values;
        for (int keyword = 0; keyword < kKeywordCount; ++keyword)
            values.push_back(Current(keyword));
        return values;
    }
    static void FillBank() {
        for (int keyword = 0; keyword < kKeywordCount; ++keyword)
            ExportedFunc_SetCurrent(keyword, static_cast<std::uint32_t>(keyword % 5 + 1));
    }
};

Values Options(std::span<const Both> settings) {
    Values values;
    for (const Both& setting : settings)
        values[setting.name] = setting.option;
    return values;
}

Values Tags(std::span<const Both> settings) {
    Values values;
    for (const Both& setting : settings)
        values[setting.name] = setting.tag;
    return values;
}

TEST_F(ShowJobProperty, StartsItWithAWindowWaitsForItAndClosesItsHandles) {
    EXPECT_EQ(dialog->DoModalPrintOptionUI(), 1);
    EXPECT_EQ(runner.calls,
              (Calls{"show: " + CommandLine(), "idle", "close thread", "wait for ever", "close process"}));
}

TEST_F(ShowJobProperty, LogsItsCommandLine) {
    dialog->DoModalPrintOptionUI();
    EXPECT_EQ(Logged("DoModalPrintOptionUI"),
              (Calls{"DoModalPrintOptionUI", "DoModalPrintOptionUI() コマンドライン:" + CommandLine()}));
}

TEST_F(ShowJobProperty, FillsTheKeyBeforeTheStartAndReadsItAfterTheEnd) {
    const Calls steps{"LoadCurrentSettingInfo", "AllCurrentToSession", "LoadRegistryToCurrentSettingInfo",
                      "SaveCurrentToSession"};
    const auto stepsLogged = [&] {
        Calls logged;
        for (const std::string& message : log->Messages())
            for (const std::string& step : steps)
                if (message.ends_with("行目 " + step) && (logged.empty() || logged.back() != step))
                    logged.push_back(step);
        return logged;
    };
    Calls beforeStart;
    Calls beforeEnd;
    runner.onStart = [&] { beforeStart = stepsLogged(); };
    runner.onWait = [&] { beforeEnd = stepsLogged(); };
    dialog->DoModalPrintOptionUI();
    EXPECT_EQ(beforeStart, (Calls{steps[0], steps[1]}));
    EXPECT_EQ(beforeEnd, beforeStart);
    EXPECT_EQ(stepsLogged(), steps);
}

TEST_F(ShowJobProperty, GivesTheApplicationTagNumbersBeforeItStarts) {
    Values seen;
    runner.onStart = [&] {
        for (const Both& setting : kGiven)
            seen[setting.name] = InKey(setting.name);
    };
    dialog->DoModalPrintOptionUI();
    EXPECT_EQ(seen, Tags(kGiven));
}

TEST_F(ShowJobProperty, HasTheOptionsBackAfterAnApplicationThatChangedNothing) {
    const std::vector<std::uint32_t> before = WholeBank();
    dialog->DoModalPrintOptionUI();
    Values after;
    for (const Both& setting : kGiven)
        after[setting.name] = Current(setting.keyword);
    EXPECT_EQ(after, Options(kGiven));
    EXPECT_EQ(WholeBank(), before);
}

TEST_F(ShowJobProperty, TakesWhatTheApplicationLeavesInTheBankWhateverItsEnd) {
    for (const DWORD end : {static_cast<DWORD>(WAIT_OBJECT_0), static_cast<DWORD>(WAIT_FAILED)}) {
        runner.waitResult = end;
        runner.onWait = [] {
            for (const Both& setting : kLeft)
                ExportedFunc_SetCurrent(setting.keyword, setting.tag);
        };
        EXPECT_EQ(dialog->DoModalPrintOptionUI(), 1);
        Values after;
        for (const Both& setting : kLeft)
            after[setting.name] = Current(setting.keyword);
        EXPECT_EQ(after, Options(kLeft)) << end;
    }
}

TEST_F(ShowJobProperty, TakesTheApplicationsNamedValues) {
    ExportedFunc_SetJobName("before");
    runner.onWait = [] { ExportedFunc_SetJobName("表の名前"); };
    dialog->DoModalPrintOptionUI();
    std::array<char, 260> name{};
    ExportedFunc_GetJobName(name.data());
    EXPECT_STREQ(name.data(), "表の名前");
}

TEST_F(ShowJobProperty, TakesWhatAnotherProcessHandsOverInTheKey) {
    runner.onWait = [this] {
        const DWORD duplex = 2;
        const DWORD generation = 1;
        RegSetKeyValueA(HKEY_CURRENT_USER, (key + "\\Current").c_str(), "DuplexMode", REG_DWORD, &duplex,
                        sizeof duplex);
        RegSetKeyValueA(HKEY_CURRENT_USER, key.c_str(), "Generation", REG_DWORD, &generation,
                        sizeof generation);
        Sleep(5); // the store asks at most every 100 microseconds
    };
    dialog->DoModalPrintOptionUI();
    EXPECT_EQ(Current(keyword::DuplexMode), 2u);
    EXPECT_EQ(Current(keyword::Tray), 7u);
}

TEST_F(ShowJobProperty, RestoresTheProfileWhateverTheApplicationDidToIt) {
    const std::string profile(259, 'p');
    for (const std::string& before : {std::string("chosen"), std::string(), profile}) {
        ExportedFunc_SetProfile(before.c_str());
        runner.onWait = [] { ExportedFunc_SetProfile("of the application"); };
        dialog->DoModalPrintOptionUI();
        std::array<char, 260> after{};
        ExportedFunc_GetProfile(after.data());
        EXPECT_EQ(after.data(), before);
        EXPECT_EQ(block.Profile, before) << "of the session";
    }
}

TEST_F(ShowJobProperty, Gives0AndLeavesTheWholeBankIfItCantStart) {
    FillBank();
    const std::vector<std::uint32_t> before = WholeBank();
    runner.startError = ERROR_FILE_NOT_FOUND;
    EXPECT_EQ(dialog->DoModalPrintOptionUI(), 0);
    EXPECT_EQ(WholeBank(), before);
    EXPECT_EQ(runner.calls, Calls{"show: " + CommandLine()});
    EXPECT_EQ(Logged("DoModalPrintOptionUI").back(), "DoModalPrintOptionUI() 起動失敗=2");
    EXPECT_EQ(InKey("StapleMode"), Current(keyword::StapleMode));
}

TEST_F(ShowJobProperty, Gives1AndLeavesTheWholeBankIfItNeverWaitsForInput) {
    FillBank();
    const std::vector<std::uint32_t> before = WholeBank();
    runner.becomesIdle = false;
    EXPECT_EQ(dialog->DoModalPrintOptionUI(), 1);
    EXPECT_EQ(WholeBank(), before);
    EXPECT_EQ(runner.calls, (Calls{"show: " + CommandLine(), "idle", "abandon"}));
    EXPECT_EQ(Logged("LoadRegistryToCurrentSettingInfo"), Calls{});
}

TEST_F(ShowJobProperty, ByTheButtonShowsWhatTheApplicationLeft) {
    Bind(keyword::DuplexMode, 5);
    dialog->Initialize(&block, 0);
    runner.onWait = [] { ExportedFunc_SetCurrent(keyword::DuplexMode, 1); };
    EXPECT_EQ(Press(), 1);
    EXPECT_EQ(SendMessageA(GetDlgItem(page, 6010), CB_GETCURSEL, 0, 0), 1);
}

TEST_F(ShowJobProperty, ByTheButtonLeavesTheControlsIfItCantStart) {
    Bind(keyword::DuplexMode, 5);
    dialog->Initialize(&block, 0);
    runner.startError = ERROR_FILE_NOT_FOUND;
    EXPECT_EQ(Press(), 0);
    EXPECT_EQ(SendMessageA(GetDlgItem(page, 6010), CB_GETCURSEL, 0, 0), 3);
    EXPECT_EQ(Current(keyword::DuplexMode), 3u);
}

TEST_F(ShowJobProperty, ByTheButtonReloadsTheControlsIfItNeverWaitsForInput) {
    Bind(keyword::DuplexMode, 5);
    dialog->Initialize(&block, 0);
    log->Forget();
    runner.becomesIdle = false;
    EXPECT_EQ(Press(), 1);
    EXPECT_EQ(Logged("LoadData").size(), 1u);
    EXPECT_EQ(SendMessageA(GetDlgItem(page, 6010), CB_GETCURSEL, 0, 0), 3);
}

TEST_F(ShowJobProperty, StartsAnotherProcessEachTime) {
    dialog->DoModalPrintOptionUI();
    dialog->DoModalPrintOptionUI();
    EXPECT_EQ(runner.CommandLines(), (Calls{CommandLine(), CommandLine()}));
}

} // namespace

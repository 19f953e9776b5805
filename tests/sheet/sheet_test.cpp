// The whole way with the real modules: driverhost.exe installs the printer "Orvane X100", opens its sheets
// and keeps the settings. Each test starts without printer and settings. 1363 is the print quality of the
// page 詳細設定, whose rows are those of keyword 305, and 1362 its button that restores the defaults.
#include "tests/sheet/program.h"
#include "tests/support/own_folder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <windows.h>

namespace {

class Sheet : public testing::Test {
  protected:
    void SetUp() override { Clear(); }
    void TearDown() override { Clear(); }

    static void Clear() {
        const ProgramResult removed = RunDriverhost({L"--remove"});
        ASSERT_EQ(removed.status, 0u) << removed.output;
    }

    static ProgramResult Play(const std::wstring& script) {
        return RunDriverhost({L"--script", ScriptFile(script)});
    }

    static void PlayWell(const std::wstring& script) {
        const ProgramResult result = Play(script);
        ASSERT_EQ(result.status, 0u) << result.output;
    }
};

#define PLAY(script) ASSERT_NO_FATAL_FAILURE(PlayWell(script))

TEST_F(Sheet, ShowsBothPages) {
    PLAY(L"pages.txt");
}

TEST_F(Sheet, BeginsInPortrait) {
    PLAY(L"orientation.txt");
}

TEST_F(Sheet, StoresSettingsThatWereAcceptedAsTheyAre) {
    PLAY(L"accept_unchanged.txt");
    EXPECT_EQ(RunDriverhost({L"--dump"}).status, 0u);
}

TEST_F(Sheet, KeepsAChosenPrintQualityForTheNextProcess) {
    PLAY(L"choose_quality.txt");
    PLAY(L"quality_is_kept.txt");
    PLAY(L"quality_is_kept.txt");
}

TEST_F(Sheet, RestoresTheDefaultByItsButton) {
    PLAY(L"choose_quality.txt");
    PLAY(L"restore_quality.txt");
    PLAY(L"quality_is_default.txt");
}

TEST_F(Sheet, ForgetsWhatIsCancelled) {
    PLAY(L"choose_and_cancel.txt");
    EXPECT_EQ(RunDriverhost({L"--dump"}).output, "driverhost: no settings are stored for Orvane X100\n");
    PLAY(L"quality_is_default.txt");
}

TEST_F(Sheet, KeepsTheFormerSettingsWhenALaterSheetIsCancelled) {
    PLAY(L"choose_quality.txt");
    PLAY(L"choose_and_cancel.txt");
    PLAY(L"quality_is_kept.txt");
}

TEST_F(Sheet, StaysOpenAfterApply) {
    PLAY(L"apply.txt");
    PLAY(L"quality_is_kept.txt");
}

TEST_F(Sheet, OpensAgainInTheSameProcess) {
    PLAY(L"reopen.txt");
}

TEST_F(Sheet, OpensThePrintersOwnProperties) {
    const ProgramResult result = RunDriverhost({L"--device", L"--script", ScriptFile(L"device.txt")});
    EXPECT_EQ(result.status, 0u) << result.output;
}

TEST_F(Sheet, IsCancelledByAFailingScriptThatTellsItsLine) {
    const ProgramResult result = Play(L"wrong_row.txt");
    EXPECT_EQ(result.status, 1u);
    EXPECT_NE(result.output.find("wrong_row.txt:3: the row of control 1363 is 1, expected 99"),
              std::string::npos)
        << result.output;
    PLAY(L"quality_is_default.txt");
}

TEST_F(Sheet, DumpsWhatIsStored) {
    PLAY(L"choose_quality.txt");
    const ProgramResult dump = RunDriverhost({L"--dump"});
    EXPECT_EQ(dump.status, 0u);
    for (const char* line :
         {"[public]\n", "dmDeviceName      \"Orvane X100\"\n", "dmSize            220\n", "[driver]\n",
          "[plug-in]\n", "dwSize            24112\n", "dwSignature       0x4d534654\n",
          "dwVersion         2\n", "\n000000  30 5e 00 00 54 46 53 4d 02 00 00 00 "})
        EXPECT_NE(dump.output.find(line), std::string::npos) << line << "\n" << dump.output;
}

TEST_F(Sheet, HasNothingToDumpBeforeTheFirstOk) {
    const ProgramResult dump = RunDriverhost({L"--dump"});
    EXPECT_EQ(dump.status, 1u);
    EXPECT_EQ(dump.output, "driverhost: no settings are stored for Orvane X100\n");
}

// Spoils the stored settings; the sheet must not open on them and must leave them as they are.
void ExpectRefusal(const std::vector<char>& bytes, const std::string& reason) {
    WriteBytes(SettingsPath(), bytes);
    for (const ProgramResult& result :
         {RunDriverhost({L"--script", ScriptFile(L"pages.txt")}), RunDriverhost({L"--dump"})}) {
        EXPECT_EQ(result.status, 1u);
        EXPECT_NE(result.output.find("Orvane X100.devmode can't be used: " + reason), std::string::npos)
            << result.output;
    }
    EXPECT_EQ(ReadBytes(SettingsPath()), bytes);
}

TEST_F(Sheet, RefusesStoredSettingsThatWereCutShort) {
    PLAY(L"choose_quality.txt");
    std::vector<char> bytes = ReadBytes(SettingsPath());
    ASSERT_GT(bytes.size(), 24112u);
    bytes.pop_back();
    ExpectRefusal(bytes, "dmSize and dmDriverExtra ask for ");
}

TEST_F(Sheet, RefusesEmptyStoredSettings) {
    PLAY(L"choose_quality.txt");
    ExpectRefusal({}, "0 bytes are too few for a DEVMODE");
}

TEST_F(Sheet, RefusesStoredSettingsThatAreLongerThanADevModeCanBe) {
    PLAY(L"choose_quality.txt");
    ExpectRefusal(std::vector<char>(2 * 65535 + 1), "it is longer than a DEVMODE can be");
}

TEST_F(Sheet, RefusesABrokenDescriptionAndInstallsNothing) {
    const std::wstring file = std::filesystem::temp_directory_path() / L"broken.ppd";
    const std::string text = "*PPD-Adobe: \"4.3\"\n*OpenUI *Duplex";
    WriteBytes(file, {text.begin(), text.end()});
    const ProgramResult result = RunDriverhost({L"--ppd", file, L"--script", ScriptFile(L"pages.txt")});
    EXPECT_EQ(result.status, 1u);
    EXPECT_NE(result.output.find("broken.ppd:"), std::string::npos) << result.output;
    EXPECT_EQ(RunDriverhost({L"--dump"}).status, 1u);
    DeleteFileW(file.c_str());
}

TEST_F(Sheet, OpensOnAnotherDescription) {
    const ProgramResult result =
        RunDriverhost({L"--ppd", OwnFolder() / L"x100.ppd", L"--script", ScriptFile(L"pages.txt")});
    EXPECT_EQ(result.status, 0u) << result.output;
}

TEST_F(Sheet, EndsWithAMessageWhenItIsOpenForTooLong) {
    const ProgramResult result = RunDriverhost({L"--timeout", L"2"});
    EXPECT_EQ(result.status, 1u);
    EXPECT_EQ(result.output, "the sheet is open for longer than 2 seconds\n");
}

} // namespace

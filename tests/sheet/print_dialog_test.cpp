// An ordinary program's print dialog leads to our sheet: its button プロパティ opens the printing preferences
// of "Orvane X100" in this process, which knows nothing of the driver.
#include "host/driverhost_player.h"
#include "tests/sheet/program.h"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include <windows.h>

#include <commdlg.h>
#include <dlgs.h>
#include <winspool.h>

namespace {

// What PrintDlg starts from: the printer by its name.
HGLOBAL NamesOfPrinter() {
    constexpr char kDriver[] = "winspool";
    constexpr char kDevice[] = "Orvane X100";
    const HGLOBAL memory = GlobalAlloc(GHND, sizeof(DEVNAMES) + sizeof kDriver + sizeof kDevice + 8);
    auto* names = static_cast<DEVNAMES*>(GlobalLock(memory));
    names->wDriverOffset = sizeof(DEVNAMES);
    names->wDeviceOffset = static_cast<WORD>(sizeof(DEVNAMES) + sizeof kDriver);
    names->wOutputOffset = static_cast<WORD>(names->wDeviceOffset + sizeof kDevice);
    std::memcpy(reinterpret_cast<char*>(names) + names->wDriverOffset, kDriver, sizeof kDriver);
    std::memcpy(reinterpret_cast<char*>(names) + names->wDeviceOffset, kDevice, sizeof kDevice);
    std::memcpy(reinterpret_cast<char*>(names) + names->wOutputOffset, "LPT1:", 6);
    GlobalUnlock(memory);
    return memory;
}

void OpenPrintDialog() {
    PRINTDLGA dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hDevNames = NamesOfPrinter();
    dialog.Flags = PD_NOPAGENUMS | PD_NOSELECTION;
    PrintDlgA(&dialog);
    GlobalFree(dialog.hDevNames);
    if (dialog.hDevMode)
        GlobalFree(dialog.hDevMode);
}

// Plays on what `open` shows.
std::string PlayOn(const std::function<void()>& open, const char8_t* text) {
    const script::Script script = script::Parse(reinterpret_cast<const char*>(text));
    EXPECT_FALSE(script.error) << script.error->message;
    driverhost::Show show;
    show.open = open;
    show.actions = &script.actions;
    show.file = "print_dialog";
    show.sheetLimit = std::chrono::seconds(60);
    return driverhost::RunSheet(show);
}

class PrintDialog : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_EQ(RunDriverhost({L"--remove"}).status, 0u);
        const ProgramResult installed = RunDriverhost({L"--script", ScriptFile(L"pages.txt")});
        ASSERT_EQ(installed.status, 0u) << installed.output;
    }
    void TearDown() override { RunDriverhost({L"--remove"}); }
};

static_assert(psh2 == 0x401); // the id of プロパティ, which the scripts write as 1025

TEST_F(PrintDialog, OpensOurSheetByItsPropertiesButton) {
    EXPECT_EQ(PlayOn(OpenPrintDialog, u8"screenshot print_dialog.png\n"
                                      u8"click 1025\n"
                                      u8"expect page 基本\n"
                                      u8"page 詳細設定\n"
                                      u8"choose 1363 1\n"
                                      u8"screenshot print_dialog_sheet.png\n"
                                      u8"press ok\n"
                                      u8"press cancel\n"),
              "");
}

TEST_F(PrintDialog, ShowsTheChangedValueWhenTheSheetIsOpenedAgain) {
    EXPECT_EQ(PlayOn(OpenPrintDialog, u8"click 1025\n"
                                      u8"page 詳細設定\n"
                                      u8"choose 1363 1\n"
                                      u8"press ok\n"
                                      u8"click 1025\n"
                                      u8"page 詳細設定\n"
                                      u8"expect row 1363 1\n"
                                      u8"press ok\n"
                                      u8"press cancel\n"),
              "");
}

TEST_F(PrintDialog, OutlivesASheetThatIsCancelled) {
    EXPECT_EQ(PlayOn(OpenPrintDialog, u8"click 1025\n"
                                      u8"page 詳細設定\n"
                                      u8"choose 1363 1\n"
                                      u8"press cancel\n"
                                      u8"click 1025\n"
                                      u8"page 詳細設定\n"
                                      u8"expect row 1363 0\n"
                                      u8"press ok\n"
                                      u8"press cancel\n"),
              "");
}

// Wine's client library takes the buffer for filled whenever a sheet is closed, and converts what stands
// there for ANSI programs such as the print dialog.
TEST_F(PrintDialog, IsGivenAWholeDevModeByASheetThatIsCancelled) {
    std::wstring name = L"Orvane X100";
    HANDLE printer = nullptr;
    ASSERT_TRUE(OpenPrinterW(name.data(), &printer, nullptr));
    const LONG size = DocumentPropertiesW(nullptr, printer, name.data(), nullptr, nullptr, 0);
    ASSERT_GT(size, 0);
    std::vector<BYTE> in(static_cast<std::size_t>(size));
    auto* given = reinterpret_cast<PDEVMODEW>(in.data());
    ASSERT_GE(DocumentPropertiesW(nullptr, printer, name.data(), given, nullptr, DM_OUT_BUFFER), 0);
    std::vector<BYTE> out(static_cast<std::size_t>(size), 0xEE);
    const auto open = [&] {
        DocumentPropertiesW(nullptr, printer, name.data(), reinterpret_cast<PDEVMODEW>(out.data()), given,
                            DM_IN_PROMPT | DM_IN_BUFFER | DM_OUT_BUFFER);
    };
    EXPECT_EQ(PlayOn(open, u8"page 詳細設定\nchoose 1363 1\npress cancel"), "");
    EXPECT_EQ(out, in);
    ClosePrinter(printer);
}

} // namespace

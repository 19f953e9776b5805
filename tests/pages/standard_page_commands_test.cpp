// What each control of the standard page sets off, beyond its own setting.
#include "pages/controls.h"
#include "pages/own_changes.h"
#include "pages/standardpage.h"
#include "resources/resource.h"
#include "tests/pages/page_test_resource.h"
#include "tests/pages/standard_page_driver.h"

#include <commctrl.h>

#include <algorithm>

namespace {

using namespace keyword;
using Calls = std::vector<std::string>;

const Calls kWatched{
    "OnDefault",
    "Initialize",
    "OnConfig",
    "SaveData",
    "LoadData",
    "DoModalPrintOptionUI",
    "IsSelectableOption",
    "ApplyPageSize",
    "ApplyOutputPaperSize",
    "ApplyFitSize",
    "ApplyOnCenter",
    "ApplyOrientation",
    "ApplyNUP",
    "ApplyCopies",
    "ApplySource",
    "ApplyOutputTray",
    "ApplyJog",
    "ApplySort",
    "ApplyPageOrder",
    "ApplyColorModel",
    "ApplyDuplex",
    "ApplyStaple",
    "ApplyPunch",
    "ApplyFold",
    "OnSavePreset",
    "OnDeletePreset",
    "OnFavoriteExportImport",
    "OnPresetSelChange",
    "DoModalJobName",
    "ShowJobName",
    "OnMediaType",
    "OnMediaTypeBypass",
    "UpdatePreview",
    "UpdateChangeItemPresetCombo",
};

constexpr char kPreview[] = "UpdatePreview";
constexpr char kMark[] = "UpdateChangeItemPresetCombo";
constexpr char kGate[] = "IsSelectableOption";

struct Effect {
    int controlId;
    Calls calls;
};

// Those that open no dialog. 1012 and 1035 have tests of their own.
const std::vector<Effect> kEffects{
    {1155, {kGate, "ApplyPunch", kPreview, kMark}},
    {1156, {kGate, "ApplyFold", kPreview, kMark}},
    {1214, {"OnSavePreset"}}, // a page without page sizes asks for nothing
    {1244, {"ApplyOnCenter", kMark}},
    {1257, {"ApplyJog", kMark}},
    {1273, {kGate, "ApplyStaple", kPreview, kMark}},
    {1275, {"ApplySort", kPreview, kMark}},
    {1277, {kGate, "ApplyOutputTray", kMark}},
    {1278, {"ApplyPageOrder", kPreview, kMark}},
    {1281, {kGate, "ApplySource", kMark}},
    {1291, {"ApplyColorModel", kPreview, kMark}},
    {5000, {"ApplyPageSize", kMark}},
    {5001, {"ApplyOutputPaperSize", kMark}},
    {5002, {"ApplyFitSize", kMark}},
    {6000, {"ApplyOrientation", kPreview, kMark}},
    {6001, {"ApplyOrientation", kPreview, kMark}},
    {6002, {"ApplyOrientation", kPreview, kMark}},
    {6004, {"ApplyCopies", kMark}},
    {6010, {"ApplyDuplex", kPreview, kMark}},
    {6014, {"ApplyNUP", kPreview, kMark}},
    // Controls without a command.
    {1, {}},
    {2, {}},
    {1225, {}},
    {1243, {}},
    {1300, {}},
    {6005, {}},
    {1336, {}},
    {9999, {}},
};

constexpr int kDialogButtons[] = {1215, 1216, 1279, 1280, 1329, 1337, 1398};

class StandardPageCommands : public LoggedStandardPage {};

TEST_F(StandardPageCommands, RunTheirActionsInOrderAndTellTheSheet) {
    OpenWith();
    for (const int code : {0, 1, 512, 768}) {
        for (const Effect& effect : kEffects) {
            ForgetChanges();
            ForgetCalls();
            EXPECT_EQ(Send(effect.controlId, code), 1) << effect.controlId;
            EXPECT_EQ(CallsAmong(kWatched), effect.calls) << effect.controlId << " code " << code;
            EXPECT_EQ(ChangesSeen(), 1) << effect.controlId << " code " << code;
            EXPECT_EQ(ChangedPage(), page);
            EXPECT_EQ(TakePosted().size(), 0u) << effect.controlId;
        }
    }
}

TEST_F(StandardPageCommands, RunWhateverWindowTheMessageNames) {
    OpenWith();
    for (const HWND handle : {HWND(nullptr), reinterpret_cast<HWND>(0x7fff1234), page, Sheet()}) {
        ForgetChanges();
        EXPECT_EQ(StandardPageProc(page, WM_COMMAND, MAKEWPARAM(1244, 0), reinterpret_cast<LPARAM>(handle)),
                  1);
        EXPECT_EQ(ChangesSeen(), 1);
    }
}

TEST_F(StandardPageCommands, AClickOnThePreviewChangesNothing) {
    OpenWith({{DuplexMode, 3}, {Copies, 9}, {Collate, 1}, {PageOrientation, 1}, {Tray, 2}});
    const CurrentBank before = WholeBank();
    ForgetChanges();
    ForgetCalls();
    for (const UINT message : {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP})
        SendMessageA(Control(1285), message, 0, MAKELPARAM(10, 10));
    for (int code = 0; code <= 0xFFFF; ++code)
        ASSERT_EQ(StandardPageProc(page, WM_COMMAND, MAKEWPARAM(1285, code), 0), 0) << code;
    EXPECT_EQ(ChangesSeen(), 0);
    EXPECT_EQ(CallsAmong(kWatched), Calls{});
    EXPECT_EQ(WholeBank(), before);
}

TEST_F(StandardPageCommands, ThatAreNoneRunNothing) {
    OpenWith();
    for (const int code : {2, 3, 4, 5, 6, 7, 8, 9, 10, 256, 1024, 1025, 1280, 0xFFFF})
        for (const Effect& effect : kEffects)
            if (effect.controlId != 1300)
                Send(effect.controlId, code);
    EXPECT_EQ(CallsAmong(kWatched), Calls{});
    EXPECT_EQ(ChangesSeen(), 0);
}

TEST_F(StandardPageCommands, OfTheFavoritesAreTheClosedListAndTheChoiceBoth) {
    OpenWith();
    for (const int code : {8, 9}) {
        ForgetCalls();
        EXPECT_EQ(Send(1300, code), 1);
        EXPECT_EQ(CallsAmong({"OnPresetSelChange"}), Calls{"OnPresetSelChange"});
        EXPECT_EQ(Send(1273, code), 0);
        EXPECT_EQ(CallsAmong({"OnPresetSelChange"}), Calls{"OnPresetSelChange"});
    }
    EXPECT_EQ(ChangesSeen(), 0);
}

TEST_F(StandardPageCommands, AreNoneWhileThePageItselfWritesToAnEdit) {
    OpenWith();
    const OwnChanges ownChanges;
    EXPECT_EQ(Send(6004, 768), 0);
    EXPECT_EQ(Send(6004, 512), 0);
    EXPECT_EQ(ChangesSeen(), 0);
    EXPECT_EQ(Send(6004, 0), 1);
    EXPECT_EQ(ChangesSeen(), 1);
}

TEST_F(StandardPageCommands, DoNotComeOfOpeningRefreshingAndRestoring) {
    OpenWith({{Copies, 12}});
    SetCurrent({{Copies, 34}});
    Notify(page, PSN_SETACTIVE);
    Send(1012, 0);
    EXPECT_EQ(ChangesSeen(), 0);
    Open(1066, StandardPageProc);
    EXPECT_EQ(ChangesSeen(), 0);
}

// Orientation brings N-up and duplex up to date.
TEST_F(StandardPageCommands, OfTheOrientationRefreshNUPAndDuplex) {
    OpenWith();
    SetCurrent({{NUP, 3}, {DuplexMode, 2}});
    EXPECT_EQ(Row(6014), 0);
    Click(6002, true);
    EXPECT_EQ(Row(6014), 3);
    EXPECT_EQ(Row(6010), 2);
}

TEST_F(StandardPageCommands, OfTheOutputPaperSizeRefreshTheCentre) {
    OpenWith();
    SetCurrent({{PagePrintOnCenter, 1}});
    Choose(5001, 0);
    EXPECT_TRUE(IsChecked(1244));
}

// Restore defaults.

TEST_F(StandardPageCommands, RestoreTheDefaultsWithoutTellingTheSheet) {
    OpenWith({{DuplexMode, 2}, {Copies, 7}, {Collate, 0}, {StapleMode, 3}},
             {{DuplexMode, 1}, {Copies, 1}, {Collate, 1}, {StapleMode, 0}});
    int other = 0;
    ExportedFunc_SetActive(&other);
    ForgetCalls();
    EXPECT_EQ(Send(1012, 0), 1);
    EXPECT_EQ(CallsAmong({"OnDefault", "Initialize", kPreview, kMark}),
              (Calls{"OnDefault", "Initialize", kPreview, kMark}));
    EXPECT_EQ(ChangesSeen(), 0);
    const Settings defaults{{DuplexMode, 1}, {Copies, 1}, {Collate, 1}, {StapleMode, 0}};
    EXPECT_EQ(ValuesOf(defaults), Text(defaults));
    EXPECT_EQ(Row(6010), 1);
    void* active = nullptr;
    ExportedFunc_GetActive(&active);
    EXPECT_EQ(active, page);
}

TEST_F(StandardPageCommands, AreNoneWithoutASession) {
    OpenWith();
    const CurrentBank before = WholeBank();
    EndSession();
    for (const Effect& effect : kEffects)
        EXPECT_EQ(Send(effect.controlId, 1), 0);
    EXPECT_EQ(WholeBank(), before);
    EXPECT_EQ(ChangesSeen(), 0);
}

// Messages that nobody sent for a reason.

bool OpensADialog(int id) {
    return std::ranges::find(kDialogButtons, id) != std::end(kDialogButtons);
}

class StandardPageMessages : public StandardPageDriver {};

TEST_F(StandardPageMessages, OfAnyNumberChangeNothingThatTheControlsDoNotShow) {
    const Settings shown{{Copies, 5},          {DuplexMode, 2}, {NUP, 3},           {Tray, 2},
                         {OutputTray, 1},      {OffsetMode, 1}, {FittenToPaper, 2}, {ColorMode, 1},
                         {PageOrientation, 1}, {Collate, 1},    {Punch, 1},         {PunchHoles, 2},
                         {Scale, 100}};
    OpenWith(shown, shown);
    const CurrentBank before = WholeBank();
    for (int code : {0, 1, 512, 768})
        for (int id = 0; id <= 0xFFFF; ++id)
            if (!OpensADialog(id))
                StandardPageProc(page, WM_COMMAND, MAKEWPARAM(id, code), 0);
    EXPECT_EQ(WholeBank(), before);
}

TEST_F(StandardPageMessages, OfAnyNumberAndNotificationDoNothingToAPageWithoutControls) {
    OpenWith({{Copies, 1}}); // what an application hands back for none
    page = Open(IDD_TEST_PAGE, StandardPageProc);
    const CurrentBank before = WholeBank();
    for (int id = 0; id <= 0xFFFF; ++id)
        if (!OpensADialog(id))
            StandardPageProc(page, WM_COMMAND, MAKEWPARAM(id, id % 2), static_cast<LPARAM>(id) << 20);
    EXPECT_EQ(WholeBank(), before);
}

TEST_F(StandardPageMessages, OfASingleMissingControlDoNothing) {
    OpenWith({{DuplexMode, 3}, {Copies, 9}, {Collate, 1}, {PageOrientation, 1}, {Tray, 2}});
    const CurrentBank before = WholeBank();
    for (const Effect& effect : kEffects) {
        DestroyWindow(Control(effect.controlId));
        EXPECT_EQ(Send(effect.controlId, 1), 1) << effect.controlId;
    }
    EXPECT_EQ(WholeBank(), before);
}

TEST_F(StandardPageMessages, OfTheDialogsOpenThemOnAPageWithoutControlsToo) {
    OpenWith({{Tray, 4}});
    page = Open(IDD_TEST_PAGE, StandardPageProc);
    auto dialog = CloseNextDialog(1286);
    EXPECT_EQ(Send(1279, 0), 1);
    EXPECT_TRUE(dialog.get());
}

TEST_F(StandardPageMessages, AreCommandsWithFourNotificationsOnly) {
    OpenWith();
    for (int code = 0; code <= 0xFFFF; ++code) {
        const bool isCommand = code == 0 || code == 1 || code == 512 || code == 768;
        ForgetChanges();
        const LRESULT result = StandardPageProc(page, WM_COMMAND, MAKEWPARAM(9999, code), 0);
        ASSERT_EQ(result, isCommand || code == 7 ? 1 : 0) << code;
        ASSERT_EQ(ChangesSeen(), isCommand ? 1 : 0) << code;
    }
}

} // namespace

#include "Common/win_handles.h"
#include "pages/own_changes.h"
#include "tests/pages/standard_page_fixture.h"

#include <algorithm>
#include <utility>

namespace {

TEST_F(StandardPageWhole, HasItsButtonsNamed) {
    const std::pair<int, const char*> kCaptions[] = {
        {1214, "保存(&V)..."},           {1215, "削除(&D)"},
        {1216, "ジョブ名(&B)..."},       {1329, "編集(&E)..."},
        {1337, "編集(&X)..."},           {1279, "手差し用紙の設定..."},
        {1280, "用紙種類の設定(&Y)..."}, {1035, "ジョブプロパティ(&G)..."},
        {1012, "標準に戻す(&Z)"},        {1398, "読み込み/保存(&W)..."},
    };
    for (const auto& [button, caption] : kCaptions)
        SetWindowTextA(Control(button), "雛形");
    ASSERT_EQ(Page().Initialize(&block, 0), 1);
    for (const auto& [button, caption] : kCaptions)
        EXPECT_EQ(CaptionOf(page, button), caption);
}

TEST_F(StandardPageWhole, NamesNoButtonBehindTheFirstThatIsMissing) {
    for (const int button : {1337, 1280, 1035})
        SetWindowTextA(Control(button), "雛形");
    Remove(1280);
    ASSERT_EQ(Page().Initialize(&block, 0), 1);
    EXPECT_EQ(CaptionOf(page, 1337), "編集(&X)...");
    EXPECT_EQ(CaptionOf(page, 1035), "雛形");
}

TEST_F(StandardPageWhole, HidesWhatItNeverShowsAndDisablesTheRotatedOrientation) {
    ShowWindow(Control(1279), SW_SHOW);
    ShowWindow(Control(1243), SW_SHOW);
    EnableWindow(Control(6000), TRUE);
    ASSERT_EQ(Page().Initialize(&block, 0), 1);
    EXPECT_FALSE(IsShown(1279));
    EXPECT_FALSE(IsShown(1243));
    EXPECT_FALSE(IsEnabled(6000));
}

TEST_F(StandardPageWhole, BuildsNothingWithoutOneOfThreeControls) {
    for (const int needed : {1279, 6000, 1243}) {
        page = Open(1066, StandardPageProc);
        Remove(needed);
        SendMessageA(Control(6010), CB_RESETCONTENT, 0, 0);
        SetWindowTextA(Control(1035), "雛形");
        EXPECT_EQ(Page().Initialize(&block, 0), 0) << needed;
        EXPECT_EQ(RowCount(6010), 0) << needed;
        EXPECT_EQ(CaptionOf(page, 1035), "雛形") << needed;
    }
}

TEST_F(StandardPageWhole, OpensWithoutAnyOtherControl) {
    FitWholeFinisher();
    std::vector<HWND> controls;
    for (HWND control = GetWindow(page, GW_CHILD); control; control = GetWindow(control, GW_HWNDNEXT))
        controls.push_back(control);
    for (HWND control : controls) {
        const int id = GetDlgCtrlID(control);
        if (id == 1279 || id == 6000 || id == 1243)
            continue;
        DestroyWindow(control);
        EXPECT_EQ(Page().Initialize(&block, 1), 1) << id;
    }
    EXPECT_EQ(Notify(page, PSN_SETACTIVE), 1);
    Page().LoadData();
    Page().SaveData();
}

TEST_F(StandardPageWhole, LeavesPaperAndTrayToAJobOfMixedSizes) {
    constexpr int kControls[] = {5001, 5002, 1244, 1281};
    ExportedFunc_SetCurrent(307, 1);
    ASSERT_EQ(Page().Initialize(&block, 0), 1);
    for (const int id : kControls)
        EXPECT_FALSE(IsEnabled(id)) << id;
    ExportedFunc_SetCurrent(307, 0);
    ASSERT_EQ(Page().Initialize(&block, 0), 1);
    for (const int id : kControls)
        EXPECT_TRUE(IsEnabled(id)) << id;
    ExportedFunc_SetCurrent(307, 0xFFFFFFFF);
    ASSERT_EQ(Page().Initialize(&block, 0), 1);
    for (const int id : kControls)
        EXPECT_FALSE(IsEnabled(id)) << id;
}

// Reading the device's data logs twice, as the page's step and as the profile's.
TEST_F(StandardPageWhole, BuildsItsControlsInThisOrder) {
    const std::vector<std::string> kOrder{"SetServerAddress",
                                          "LoadDeviceDataFiles",
                                          "LoadDeviceDataFiles",
                                          "InitPageSize",
                                          "InitOutputPaperSize",
                                          "InitOrientation",
                                          "InitColorModel",
                                          "InitDuplex",
                                          "InitNUP",
                                          "InitCopies",
                                          "InitOnCenter",
                                          "InitFitSize",
                                          "InitPresetCombo",
                                          "LoadWarningImage",
                                          "InitSource",
                                          "InitOutputTray",
                                          "InitJog",
                                          "InitSort",
                                          "InitStaple",
                                          "InitPunch",
                                          "InitFold",
                                          "InitPageOrder",
                                          "RevertToDefault",
                                          "ShowJobName"};
    const MainLog log;
    ASSERT_EQ(Page().Initialize(&block, 1), 1);
    EXPECT_EQ(Functions(log, kOrder), kOrder);
}

TEST_F(StandardPageWhole, RevertsToNothingUnlessItsDefaultsAreAskedFor) {
    const MainLog log;
    ASSERT_EQ(Page().Initialize(&block, 0), 1);
    EXPECT_TRUE(Functions(log, {"RevertToDefault"}).empty());
}

TEST_F(StandardPageWhole, OpensInThisOrder) {
    MainLog log;
    Open(1066, StandardPageProc);
    const std::vector<std::string> kOrder{
        "OnInitDialog", "CreatePrintOptionList", "CreateDataDirectories", "InitPresetCombo",
        "Initialize",   "InitPresetCombo",       "StartJobProperty"};
    EXPECT_EQ(Functions(log, kOrder), kOrder);
    const std::vector<std::string> messages = log.Messages();
    EXPECT_TRUE(std::ranges::any_of(messages, [](const std::string& m) { return m.ends_with("Japanese"); }));
}

TEST_F(StandardPageWhole, UpdatesItsControlsInThisOrder) {
    const std::vector<std::string> kOrder{"UpdatePageSize",
                                          "UpdateOutputPaperSize",
                                          "UpdateFitSize",
                                          "UpdateOnCenter",
                                          "UpdateDuplex",
                                          "UpdateColorModel",
                                          "UpdateNUP",
                                          "UpdateStaple",
                                          "UpdatePunch",
                                          "UpdateFold",
                                          "UpdateOrientation",
                                          "UpdateCopies",
                                          "UpdateSource",
                                          "UpdateOutputTray",
                                          "UpdateJog",
                                          "UpdateSort",
                                          "UpdatePageOrder",
                                          "UpdatePreview",
                                          "UpdateChangeItemPresetCombo"};
    const MainLog log;
    Page().UpdateControls(&block);
    EXPECT_EQ(Functions(log, kOrder), kOrder);
}

TEST_F(StandardPageWhole, BecomesActiveWithControlsThatShowTheBank) {
    FitWholeFinisher();
    ASSERT_EQ(Page().Initialize(&block, 0), 1);
    SetEach(1);
    ExportedFunc_SetCurrent(113, 2);
    const MainLog log;
    EXPECT_EQ(Notify(page, PSN_SETACTIVE), 1);
    void* active = nullptr;
    ExportedFunc_GetActive(&active);
    EXPECT_EQ(active, page);
    for (const int id : {5001, 5002, 6010, 1291, 6014, 1281, 1277, 1257, 1273, 1156})
        EXPECT_EQ(Row(id), 1) << id;
    EXPECT_EQ(Row(1155), 6);
    for (const int id : {1244, 1275, 1278, 6002})
        EXPECT_TRUE(IsChecked(id)) << id;
    EXPECT_EQ(Copies(), "1");
    EXPECT_EQ(Functions(log, {"UpdateChangeItemPresetCombo"}).size(), 2u) << "marks twice";
}

TEST_F(StandardPageWhole, TakesNothingFromItsControlsWhenItIsLeft) {
    ASSERT_EQ(Page().Initialize(&block, 0), 1);
    ExportedFunc_SetActive(page);
    Select(6010, 3);
    EXPECT_EQ(Notify(page, PSN_KILLACTIVE), 1);
    EXPECT_EQ(Notify(page, PSN_APPLY), 1);
    EXPECT_EQ(Current(104), 0u);
}

TEST_F(StandardPageWhole, WritesAndReportsNothingByOpening) {
    FitWholeFinisher();
    for (const std::uint32_t value : {0u, 1u, 22u, 10000u, 65535u, 0xFFFFFFFFu}) {
        SetEach(value);
        const Bank before = CurrentBank();
        ForgetChanges();
        page = Open(1066, StandardPageProc);
        ASSERT_EQ(Page().Initialize(&block, 0), 1);
        EXPECT_EQ(Notify(page, PSN_SETACTIVE), 1);
        EXPECT_EQ(CurrentBank(), before) << value;
        EXPECT_EQ(ChangesSeen(), 0) << value;
    }
}

TEST_F(StandardPageWhole, WritesAndReportsNothingByShowingOtherCopies) {
    ExportedFunc_SetActive(page);
    for (const std::uint32_t copies : {5u, 20000u, 0u, 9999u}) {
        ExportedFunc_SetCurrent(1, copies);
        Page().UpdateControls(&block);
        Page().LoadData();
        Page().SetCopies(7);
        EXPECT_EQ(Current(1), copies);
    }
    EXPECT_EQ(ChangesSeen(), 0);
    EXPECT_FALSE(OwnChanges::InProgress());
}

TEST_F(StandardPageWhole, TakesTheDefaultsOfAllKeywordsAndReportsNoChange) {
    FitWholeFinisher();
    Bank expected;
    for (int keyword = 0; keyword < 327; ++keyword) {
        const bool isShown = std::ranges::find(kKeywords, keyword) != kKeywords.end();
        expected[keyword] = isShown ? 1 : Current(keyword) + 9;
        ExportedFunc_SetDefault(keyword, expected[keyword]);
        ExportedFunc_SetCurrent(keyword, 0);
    }
    ForgetChanges();
    ASSERT_EQ(Page().Initialize(&block, 1), 1);
    EXPECT_EQ(CurrentBank(), expected);
    EXPECT_EQ(ChangesSeen(), 0);
}

TEST_F(StandardPageWhole, ChoosesNoPresetToDeleteWhileItIsTheStandardOrAChangedOne) {
    const auto canDelete = [this](const char* preset) {
        const HWND presets = Control(1300);
        SendMessageA(presets, CB_RESETCONTENT, 0, 0);
        COMBOBOXEXITEMA item{};
        item.mask = CBEIF_TEXT;
        item.iItem = -1;
        item.pszText = const_cast<char*>(preset);
        SendMessageA(presets, CBEM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item));
        Select(1300, 0);
        EXPECT_EQ(Page().Initialize(&block, 0), 1);
        return IsEnabled(1215);
    };
    EXPECT_FALSE(canDelete("標準"));
    EXPECT_FALSE(canDelete("<変更>標準"));
    EXPECT_FALSE(canDelete("A<変更>"));
    EXPECT_TRUE(canDelete("標準2"));
    EXPECT_TRUE(canDelete("変更"));
    Remove(1215);
    EXPECT_FALSE(canDelete("標準2"));
}

TEST_F(StandardPageWhole, DrawsItsPreviewOnly) {
    constexpr COLORREF kUntouched = RGB(0x12, 0x34, 0x56);
    const HDC screen = GetDC(nullptr);
    const UniqueMemoryContext target(CreateCompatibleDC(screen));
    const UniqueBitmap picture(CreateCompatibleBitmap(screen, 300, 300));
    ReleaseDC(nullptr, screen);
    const HGDIOBJ former = SelectObject(target.Get(), picture.Get());
    // Right of the symbols and left of the picture there is background only.
    const auto pixel = [&] { return GetPixel(target.Get(), 50, 5); };
    SetPixel(target.Get(), 50, 5, kUntouched);
    DRAWITEMSTRUCT item{};
    item.hwndItem = Control(1285);
    item.hDC = target.Get();
    EXPECT_EQ(Page().OnDrawItem(1284, &item), 0);
    EXPECT_EQ(Page().OnDrawItem(1285, nullptr), 0);
    EXPECT_EQ(pixel(), kUntouched);
    EXPECT_EQ(Page().OnDrawItem(1285, &item), 1);
    EXPECT_EQ(pixel(), RGB(0x99, 0x99, 0x99));
    SelectObject(target.Get(), former);
}

TEST_F(StandardPageWhole, AnswersItsOwnMessages) {
    EXPECT_EQ(StandardPageProc(page, 1124, 0, 0), 0);
    EXPECT_EQ(StandardPageProc(page, 1125, 0, 0), 1);
    EXPECT_EQ(StandardPageProc(page, 1224, 0, 0), 1);
    EXPECT_EQ(StandardPageProc(page, WM_CLOSE, 0, 0), 1);
}

TEST(OwnChangesGuard, HoldsAsLongAsOneOfThemLives) {
    EXPECT_FALSE(OwnChanges::InProgress());
    {
        const OwnChanges outer;
        {
            const OwnChanges inner;
            EXPECT_TRUE(OwnChanges::InProgress());
        }
        EXPECT_TRUE(OwnChanges::InProgress());
    }
    EXPECT_FALSE(OwnChanges::InProgress());
}

} // namespace

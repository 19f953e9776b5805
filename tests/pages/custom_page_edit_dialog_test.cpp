// What the dialog shows.
#include "pages/controls.h"
#include "tests/pages/custom_page_dialog_fixture.h"

namespace {

TEST_F(CustomPageDialog, HasTheCaptionsOfTheStringTable) {
    Look([](HWND dialog) {
        EXPECT_EQ(ControlText(dialog), "カスタムページサイズの設定");
        const std::vector<std::pair<int, std::string>> captions{{1404, "用紙サイズ"},
                                                                {1315, "幅:"},
                                                                {1406, "高さ:"},
                                                                {1405, "単位"},
                                                                {kInch, "インチ(&I)"},
                                                                {kMillimeter, "ミリメートル(&M)"},
                                                                {kPoint, "ポイント(&P)"},
                                                                {kDirectionLabel, "用紙の方向:"},
                                                                {kOk, "OK"},
                                                                {kCancel, "キャンセル"},
                                                                {kDefaults, "標準に戻す(&D)"}};
        for (const auto& [id, text] : captions)
            EXPECT_EQ(CaptionOf(dialog, id), text) << id;
    });
}

TEST_F(CustomPageDialog, HidesTheDirectionAndStillSelectsItsOneRow) {
    Look([](HWND dialog) {
        EXPECT_FALSE(IsWindowVisible(GetDlgItem(dialog, kDirectionLabel)));
        EXPECT_FALSE(IsWindowVisible(GetDlgItem(dialog, kDirection)));
        EXPECT_EQ(RowsOf(GetDlgItem(dialog, kDirection)).size(), 1u);
        EXPECT_EQ(SelectedRow(GetDlgItem(dialog, kDirection)), 0);
    });
}

TEST_F(CustomPageDialog, OpensInMillimetersWithTheDocumentsSize) {
    Look([](HWND dialog) {
        EXPECT_EQ(Edits(dialog), (Texts{"210.0", "297.0"}));
        EXPECT_EQ(Limits(dialog), (Texts{"(89.0, 320.0)", "(98.0, 1200.0)"}));
        EXPECT_EQ(IsDlgButtonChecked(dialog, kInch), BST_UNCHECKED);
        EXPECT_EQ(IsDlgButtonChecked(dialog, kMillimeter), BST_CHECKED);
        EXPECT_EQ(IsDlgButtonChecked(dialog, kPoint), BST_UNCHECKED);
    });
}

TEST_F(CustomPageDialog, OpensWithTheOutputsSize) {
    SetOutput(148000, 200000);
    Look([](HWND dialog) { EXPECT_EQ(Edits(dialog), (Texts{"148.0", "200.0"})); }, kOutput);
}

TEST_F(CustomPageDialog, ShowsASizeBeyondTheLimitsAsItIs) {
    SetDocument(0, 4294967295u);
    Look([](HWND dialog) { EXPECT_EQ(Edits(dialog), (Texts{"0.0", "4294967.5"})); });
}

TEST_F(CustomPageDialog, DoesNotExchangeTheSidesOfALyingPaper) {
    SetDocument(297000, 210000);
    Look([](HWND dialog) { EXPECT_EQ(Edits(dialog), (Texts{"297.0", "210.0"})); });
}

TEST_F(CustomPageDialog, HalvesTheWidthAfterADoubleWidthSheet) {
    SetOutput(594000, 420000);
    Look([](HWND dialog) { EXPECT_EQ(Edits(dialog), (Texts{"297.0", "420.0"})); }, kOutput, kTag30Option);
}

TEST_F(CustomPageDialog, LaysTheHalfOfADoubleWidthSheetByTheDirection) {
    SetOutput(900000, 300000, 1);
    Look([](HWND dialog) { EXPECT_EQ(Edits(dialog), (Texts{"300.0", "450.0"})); }, kOutput, kTag30Option);
    SetOutput(594000, 420000, 2);
    Look([](HWND dialog) { EXPECT_EQ(Edits(dialog), (Texts{"420.0", "297.0"})); }, kOutput, kTag30Option);
}

TEST_F(CustomPageDialog, HalvesNothingAfterAnyOtherSize) {
    SetOutput(594000, 420000);
    for (const std::uint32_t prior : {0u, 1u, 49u, 50u, 65535u, 0x80000000u, 0xFFFFFFFFu})
        Look([](HWND dialog) { EXPECT_EQ(Edits(dialog), (Texts{"594.0", "420.0"})); }, kOutput, prior);
    Look([](HWND dialog) { EXPECT_EQ(Edits(dialog), (Texts{"594.0", "420.0"})); }, kOutput);
}

TEST(CustomPageDialogTags, AreNoneWithoutAPriorSizeAndForOneThatIsNoOption) {
    EXPECT_EQ(CCustomPageEditDlg(kOutput, nullptr).fixedFormTag, 0u);
    EXPECT_EQ(CCustomPageEditDlg(kOutput, nullptr, 0xFFFFFFFF).fixedFormTag, 0u);
    EXPECT_EQ(CCustomPageEditDlg(kOutput, nullptr, 1).fixedFormTag, 18u);
    EXPECT_EQ(CCustomPageEditDlg(kOutput, nullptr, 47).fixedFormTag, 30u);
    EXPECT_EQ(CCustomPageEditDlg(kOutput, nullptr, 48).fixedFormTag, 38u);
    EXPECT_EQ(CCustomPageEditDlg(kOutput, nullptr, 49).fixedFormTag, 20u);
}

TEST_F(CustomPageDialog, KeepsEachUnitsTextOverAChangeAndBack) {
    SetDocument(100000, 200000);
    Look([](HWND dialog) {
        EXPECT_EQ(Edits(dialog), (Texts{"100.0", "200.0"}));
        ClickButton(dialog, kInch);
        EXPECT_EQ(Edits(dialog), (Texts{"3.9", "7.9"}));
        EXPECT_EQ(Limits(dialog), (Texts{"(3.5, 12.6)", "(3.9, 47.2)"}));
        ClickButton(dialog, kPoint);
        EXPECT_EQ(Edits(dialog), (Texts{"283.5", "566.9"}));
        EXPECT_EQ(Limits(dialog), (Texts{"(252.3, 907.1)", "(277.8, 3401.6)"}));
        ClickButton(dialog, kMillimeter);
        EXPECT_EQ(Edits(dialog), (Texts{"100.0", "200.0"}));
        EXPECT_EQ(Limits(dialog), (Texts{"(89.0, 320.0)", "(98.0, 1200.0)"}));
    });
}

TEST_F(CustomPageDialog, ChecksTheChosenUnitAndLeavesTheFocusOnIt) {
    Look([](HWND dialog) {
        ClickButton(dialog, kInch);
        EXPECT_EQ(IsDlgButtonChecked(dialog, kInch), BST_CHECKED);
        EXPECT_EQ(IsDlgButtonChecked(dialog, kMillimeter), BST_UNCHECKED);
        EXPECT_EQ(GetFocus(), GetDlgItem(dialog, kInch));
    });
}

TEST_F(CustomPageDialog, ChangesTheUnitByTheArrowKeys) {
    EXPECT_EQ(Run({[](HWND dialog) {
                       MoveFocus(dialog, kMillimeter);
                       PressKey(VK_DOWN);
                   },
                   [](HWND dialog) {
                       EXPECT_EQ(IsDlgButtonChecked(dialog, kPoint), BST_CHECKED);
                       EXPECT_EQ(Edits(dialog), (Texts{"595.3", "841.9"}));
                       EXPECT_EQ(GetFocus(), GetDlgItem(dialog, kPoint));
                       PressKey(VK_ESCAPE);
                   }}),
              kCancel);
}

TEST_F(CustomPageDialog, ClampsToTheOldUnitsLimitsWhenTheUnitChanges) {
    SetDocument(50000, 2000000);
    Look([](HWND dialog) {
        ClickButton(dialog, kPoint);
        EXPECT_EQ(Edits(dialog), (Texts{"252.3", "3401.6"})); // of 89 and 1200 mm
    });
}

TEST_F(CustomPageDialog, ConvertsATypedLengthFromItsUnit) {
    Look([](HWND dialog) {
        ClickButton(dialog, kInch);
        TypeInto(dialog, kWidth, "10");
        ClickButton(dialog, kMillimeter);
        EXPECT_EQ(Edits(dialog), (Texts{"254.0", "297.0"}));
        ClickButton(dialog, kInch);
        EXPECT_EQ(CaptionOf(dialog, kWidth), "10.0");
    });
}

TEST_F(CustomPageDialog, ClampsAWidthWhenItsEditIsLeft) {
    EXPECT_EQ(Left(kWidth, "88"), "89.0");
    EXPECT_EQ(Left(kWidth, "320.1"), "320.0");
    EXPECT_EQ(Left(kWidth, "99999999999999999999999999999999999999"), "320.0");
    EXPECT_EQ(Left(kWidth, "3", kInch), "3.5");
    EXPECT_EQ(Left(kWidth, "12.6", kInch), "12.6"); // 12.568
    EXPECT_EQ(Left(kWidth, "1000", kPoint), "907.1");
}

TEST_F(CustomPageDialog, ClampsAHeightWhenItsEditIsLeft) {
    EXPECT_EQ(Left(kHeight, "97.9"), "98.0");
    EXPECT_EQ(Left(kHeight, "1200.1"), "1200.0");
    EXPECT_EQ(Left(kHeight, "48", kInch), "47.2");
    EXPECT_EQ(Left(kHeight, "1", kPoint), "277.8");
}

TEST_F(CustomPageDialog, ClampsBothLengthsWhenOneEditIsLeft) {
    SetDocument(210000, 50000);
    Look([](HWND dialog) {
        TypeInto(dialog, kWidth, "200");
        MoveFocus(dialog, kDefaults);
        EXPECT_EQ(Edits(dialog), (Texts{"200", "98.0"}));
    });
    SetDocument(50000, 297000);
    Look([](HWND dialog) {
        SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(kHeight, EN_KILLFOCUS), 0);
        EXPECT_EQ(Edits(dialog), (Texts{"89.0", "297.0"}));
    });
}

TEST_F(CustomPageDialog, LeavesWhatIsWithinTheLimitsAsTyped) {
    for (const char* typed : {"89", "320", "123.45", "1e2", " 100"})
        EXPECT_EQ(Left(kWidth, typed), typed);
    for (const char* typed : {"98", "1200", "98.001"})
        EXPECT_EQ(Left(kHeight, typed), typed);
}

TEST_F(CustomPageDialog, ClampsWhatIsNoNumberToTheMinimum) {
    for (const char* typed : {"", "abc", "0", "-100", "inf", "nan", "0x100", "."}) {
        EXPECT_EQ(Left(kWidth, typed), "89.0") << typed;
        EXPECT_EQ(Left(kHeight, typed), "98.0") << typed;
    }
}

TEST_F(CustomPageDialog, ShowsZeroBeforeItClamps) {
    static std::vector<std::string> shown;
    shown.clear();
    Look([](HWND dialog) {
        TypeInto(dialog, kWidth, "0");
        const auto record = [](HWND edit, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                               DWORD_PTR) -> LRESULT {
            if (message == WM_SETTEXT)
                shown.emplace_back(reinterpret_cast<const char*>(lParam));
            return DefSubclassProc(edit, message, wParam, lParam);
        };
        SetWindowSubclass(GetDlgItem(dialog, kWidth), record, 1, 0);
        MoveFocus(dialog, kHeight);
        RemoveWindowSubclass(GetDlgItem(dialog, kWidth), record, 1);
    });
    EXPECT_EQ(shown, (std::vector<std::string>{"0.0", "89.0"}));
}

TEST_F(CustomPageDialog, TakesNoChangeWhileATextIsBeingTyped) {
    Look([](HWND dialog) {
        TypeInto(dialog, kWidth, "8");
        EXPECT_EQ(Edits(dialog), (Texts{"8", "297.0"}));
        MoveFocus(dialog, kHeight);
        EXPECT_EQ(Edits(dialog), (Texts{"89.0", "297.0"}));
    });
}

// What the edits show once a width has been typed and not left, and the direction tells of a choice.
Texts ShownByDirection(HWND dialog, int row) {
    TypeInto(dialog, kWidth, "5");
    SendDlgItemMessageA(dialog, kDirection, CB_SETCURSEL, static_cast<WPARAM>(row), 0);
    SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(kDirection, CBN_SELCHANGE), 0);
    return Edits(dialog);
}

TEST_F(CustomPageDialog, ShowsTheLengthsAnewWhereThePaperDoesNotLieAsItsDirectionSays) {
    SetDocument(297000, 210000);
    Look([](HWND dialog) { EXPECT_EQ(ShownByDirection(dialog, 0), (Texts{"297.0", "210.0"})); });
    SetDocument(210000, 297000);
    Look([](HWND dialog) { EXPECT_EQ(ShownByDirection(dialog, -1), (Texts{"210.0", "297.0"})); });
}

TEST_F(CustomPageDialog, LeavesTheTextsWhereThePaperLiesAsItsDirectionSays) {
    SetDocument(210000, 297000);
    Look([](HWND dialog) { EXPECT_EQ(ShownByDirection(dialog, 0), (Texts{"5", "297.0"})); });
    SetDocument(297000, 210000);
    Look([](HWND dialog) { EXPECT_EQ(ShownByDirection(dialog, -1), (Texts{"5", "210.0"})); });
    SetDocument(250000, 250000);
    for (const int row : {0, -1})
        Look([row](HWND dialog) { EXPECT_EQ(ShownByDirection(dialog, row), (Texts{"5", "250.0"})); });
}

TEST_F(CustomPageDialog, AnswersOnlyToClicksAndEdits) {
    CCustomPageEditDlg popup(kDocument, &block);
    for (const WORD code : {2, 3, 7, 8, 9, 0x201, 0x400})
        EXPECT_EQ(popup.OnCommand(code, kCancel, nullptr), 0) << code;
    EXPECT_EQ(popup.OnCommand(EN_CHANGE, kWidth, nullptr), 1);
    EXPECT_EQ(popup.OnCommand(0, 9999, nullptr), 0);
}

TEST_F(CustomPageDialog, IgnoresItsEditsWhileItRewritesThem) {
    CCustomPageEditDlg popup(kDocument, &block);
    popup.m_dCurrentWidth = popup.m_dCurrentHeight = 5;
    popup.settingText = 1;
    popup.OnCommand(EN_KILLFOCUS, kWidth, nullptr);
    popup.OnCommand(EN_KILLFOCUS, kHeight, nullptr);
    EXPECT_EQ(popup.m_dCurrentWidth, 5u);
    EXPECT_EQ(popup.m_dCurrentHeight, 5u);
}

} // namespace

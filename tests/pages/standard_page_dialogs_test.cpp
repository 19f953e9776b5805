// The dialogs and questions that the standard page's commands open.
#include "Common/strings.h"
#include "pages/controls.h"
#include "pages/standardpage.h"
#include "tests/pages/standard_page_driver.h"

#include <utility>

namespace {

using namespace keyword;
using Calls = std::vector<std::string>;

constexpr char kPreview[] = "UpdatePreview";
constexpr char kMark[] = "UpdateChangeItemPresetCombo";

class StandardPageDialogs : public LoggedStandardPage {};

TEST_F(StandardPageDialogs, OfTheEditButtonsAreForTheCustomSize) {
    OpenWith();
    for (const int button : {1329, 1337}) {
        ForgetChanges();
        ForgetCalls();
        auto dialog = CloseNextDialog(1330);
        EXPECT_EQ(Send(button, 0), 1);
        EXPECT_TRUE(dialog.get()) << button;
        EXPECT_EQ(CallsAmong({kPreview, kMark}), Calls{kMark});
        EXPECT_EQ(ChangesSeen(), 1);
    }
}

struct MediaButton {
    int button;
    const char* function;
    std::uint32_t tray; // that needs no question
    const char* question;
    bool isBypass;
};

const std::vector<MediaButton> kMediaButtons{
    {1279, "OnMediaTypeBypass", 4, "現在の用紙トレイは手差しではありません。\n用紙トレイを変更しますか？",
     true},
    {1280, "OnMediaType", 0,
     "現在の用紙トレイは自動選択ではありません。\n用紙トレイを自動選択に変更しますか？", false},
};

class MediaTypeButton : public LoggedStandardPage, public testing::WithParamInterface<MediaButton> {
  protected:
    MessageBoxSeen AnswerAndClose(int answer) {
        // The dialog comes once the box is gone.
        auto box = AnswerNextMessageBox(answer);
        bool hasBypassBox = false;
        auto dialog =
            CloseNextDialog(1286, [&](HWND window) { hasBypassBox = GetDlgItem(window, 1328) != nullptr; });
        EXPECT_EQ(Send(GetParam().button, 0), 1);
        EXPECT_TRUE(dialog.get());
        EXPECT_EQ(hasBypassBox, GetParam().isBypass);
        return box.get();
    }
};

INSTANTIATE_TEST_SUITE_P(StandardPage, MediaTypeButton, testing::ValuesIn(kMediaButtons),
                         [](const auto& test) { return std::string(test.param.function); });

TEST_P(MediaTypeButton, OpensItsDialogWithoutAQuestionForItsTray) {
    OpenWith({{Tray, GetParam().tray}});
    auto dialog = CloseNextDialog(1286);
    EXPECT_EQ(Send(GetParam().button, 0), 1);
    EXPECT_TRUE(dialog.get());
    EXPECT_EQ(Current(Tray), GetParam().tray);
    EXPECT_EQ(CallsAmong({GetParam().function, kPreview, kMark}), (Calls{GetParam().function, kMark}));
    EXPECT_EQ(ChangesSeen(), 1);
}

TEST_P(MediaTypeButton, ChangesToItsTrayOnYes) {
    OpenWith({{Tray, 2}});
    const MessageBoxSeen box = AnswerAndClose(IDYES);
    EXPECT_EQ(box.caption, "警告");
    EXPECT_EQ(box.text, GetParam().question);
    EXPECT_EQ(box.owner, GetAncestor(page, GA_ROOT));
    EXPECT_EQ(Current(Tray), GetParam().tray);
    EXPECT_EQ(Row(1281), static_cast<int>(GetParam().tray));
    EXPECT_EQ(ChangesSeen(), 1);
}

TEST_P(MediaTypeButton, OpensItsDialogOnNoToo) {
    OpenWith({{Tray, 2}});
    AnswerAndClose(IDNO);
    EXPECT_EQ(Current(Tray), 2u);
    EXPECT_EQ(Row(1281), 2);
    EXPECT_EQ(ChangesSeen(), 1);
}

// A non-zero result, which closing the dialog is, has the tray shown anew.
TEST_P(MediaTypeButton, ShowsTheTrayAnewAfterItsDialog) {
    OpenWith({{Tray, GetParam().tray}});
    auto dialog = CloseNextDialog(1286, [](HWND) { SetCurrent({{Tray, 3}}); });
    Send(GetParam().button, 0);
    EXPECT_TRUE(dialog.get());
    EXPECT_EQ(Row(1281), 3);
}

TEST_P(MediaTypeButton, OnlyLogsADialogThatIsNotThere) {
    OpenWith({{Tray, GetParam().tray}});
    SelectRow(Control(1281), 3);
    SetStringModule(GetModuleHandleA("kernel32"));
    EXPECT_EQ(Send(GetParam().button, 0), 1);
    SetStringModule(nullptr);
    EXPECT_EQ(Row(1281), 3) << "the tray is not shown anew";
    EXPECT_TRUE(HasLogged(std::string(GetParam().function) + "() dlg=0"));
}

// A session that ends while a box or dialog is open.

void CALLBACK EndSessionAndAnswer(HWND, UINT, UINT_PTR timer, DWORD) {
    HWND box = nullptr;
    EnumWindows(message_box_detail::FindBox, reinterpret_cast<LPARAM>(&box));
    if (!box)
        return;
    KillTimer(nullptr, timer);
    CSessionAccessor::Instance()->SetSession(nullptr);
    PostMessageA(box, WM_COMMAND, IDOK, 0);
    PostMessageA(box, WM_COMMAND, IDYES, 0);
}

TEST_F(StandardPageDialogs, StopTheCommandWhereTheSessionEndsDuringARestrictionsQuestion) {
    OpenWith({{Punch, 1}, {PunchHoles, 1}});
    ForgetCalls();
    SetTimer(nullptr, 0, 20, EndSessionAndAnswer);
    EXPECT_EQ(Choose(1156, 1), 0);
    EXPECT_EQ(ChangesSeen(), 0);
    EXPECT_EQ(Current(Punch), 1u);
    EXPECT_EQ(CallsAmong({kPreview, kMark}), Calls{});
}

TEST_F(StandardPageDialogs, StopTheCommandWhereTheSessionEndsDuringTheQuestionForATray) {
    OpenWith({{Tray, 2}});
    ForgetCalls();
    SetTimer(nullptr, 0, 20, EndSessionAndAnswer);
    EXPECT_EQ(Send(1279, 0), 0);
    EXPECT_EQ(ChangesSeen(), 0);
    EXPECT_EQ(Current(Tray), 2u);
    EXPECT_EQ(CallsAmong({kPreview, kMark}), Calls{});
}

TEST_F(StandardPageDialogs, StopTheCommandWhereTheSessionEndsBehindTheCustomDocumentSize) {
    OpenWith();
    const int formerCustomForm = std::exchange(CStandardPageDlg::m_customPageSizeIndex, 0);
    ClearRows(Control(5000));
    SendMessageA(Control(5000), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>("custom"));
    ForgetCalls();
    auto dialog = CloseNextDialog(1330, [this](HWND) { EndSession(); });
    EXPECT_EQ(Choose(5000, 0), 0);
    CStandardPageDlg::m_customPageSizeIndex = formerCustomForm;
    EXPECT_TRUE(dialog.get());
    EXPECT_FALSE(IsShown(1329));
    EXPECT_EQ(ChangesSeen(), 0);
    EXPECT_EQ(CallsAmong({kPreview, kMark}), Calls{});
}

// The last row of the output paper sizes.
constexpr std::uint32_t kCustomSize = 49;

class RestoringDefaults : public StandardPageDialogs {
  protected:
    // The default output paper size of `option` asks something, behind which the session ends.
    void OpenWithDefaultSize(const Settings& current, std::uint32_t option) {
        OpenWith(current, {{ChgPrintPaperSizeType, option}, {DuplexMode, 1}, {Copies, 5}});
        ExportedFunc_SetActive(&m_otherPage);
        ForgetCalls();
    }
    void ExpectItStoppedBehindTheOutputSize() {
        EXPECT_EQ(
            CallsAmong({"InitPageSize", "ApplyOutputPaperSize", "UpdateFinishedSize", "InitOrientation",
                        "InitDuplex", "InitPageOrder", "RevertToDefault", "ShowJobName", kPreview, kMark}),
            (Calls{"InitPageSize", "ApplyOutputPaperSize"}));
        const Settings others{{DuplexMode, 0}, {Copies, 0}};
        EXPECT_EQ(ValuesOf(others), Text(others));
        EXPECT_EQ(Row(6010), 0);
        void* active = nullptr;
        ExportedFunc_GetActive(&active);
        EXPECT_EQ(active, &m_otherPage);
        EXPECT_EQ(ChangesSeen(), 0);
    }

  private:
    int m_otherPage = 0;
};

TEST_F(RestoringDefaults, StopsWhereTheSessionEndsDuringARestrictionsQuestion) {
    OpenWithDefaultSize({{ChgPrintPaperSizeType, 3}, {ImpositionMode, 2}, {ImpositionCustomMode, 1}}, 0);
    SetTimer(nullptr, 0, 20, EndSessionAndAnswer);
    EXPECT_EQ(Send(1012, 0), 0);
    ExpectItStoppedBehindTheOutputSize();
    EXPECT_EQ(Current(ImpositionMode), 2u);
}

TEST_F(RestoringDefaults, StopsWhereTheSessionEndsBehindTheCustomSize) {
    OpenWithDefaultSize({}, kCustomSize);
    auto dialog = CloseNextDialog(1330, [this](HWND) { EndSession(); });
    EXPECT_EQ(Send(1012, 0), 0);
    EXPECT_TRUE(dialog.get());
    ExpectItStoppedBehindTheOutputSize();
}

TEST_F(RestoringDefaults, GoesOnBehindTheCustomSizeOfALiveSession) {
    OpenWithDefaultSize({}, kCustomSize);
    auto dialog = CloseNextDialog(1330);
    EXPECT_EQ(Send(1012, 0), 1);
    EXPECT_TRUE(dialog.get());
    const Settings defaults{{ChgPrintPaperSizeType, kCustomSize}, {DuplexMode, 1}, {Copies, 5}};
    EXPECT_EQ(ValuesOf(defaults), Text(defaults));
    EXPECT_EQ(CallsAmong({"RevertToDefault", kPreview, kMark}), (Calls{"RevertToDefault", kPreview, kMark}));
}

TEST_F(RestoringDefaults, MakesTheInitializationItselfGiveZero) {
    OpenWithDefaultSize({}, kCustomSize);
    auto dialog = CloseNextDialog(1330, [this](HWND) { EndSession(); });
    EXPECT_EQ(CStandardPageDlg(page, nullptr).Initialize(&block, 1), 0);
    EXPECT_TRUE(dialog.get());
}

} // namespace

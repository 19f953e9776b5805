#include "tests/pages/page_fixture.h"
#include "tests/pages/page_test_resource.h"
#include "tests/pages/test_page.h"

#include <stdexcept>

namespace {

using Calls = std::vector<std::string>;

class Frame : public PageTest {
  protected:
    Frame() {
        pageLog = {};
        page = Open(IDD_TEST_PAGE, TestPageProc);
        afterOpening = pageLog;
        pageLog = {};
    }

    INT_PTR Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return TestPageProc(page, message, wParam, lParam);
    }

    HWND page;
    PageLog afterOpening;
};

TEST_F(Frame, StoresTheSessionOfThePageAndInitializesFromTheCurrentSettings) {
    EXPECT_EQ(GetWindowLongPtrA(page, DWLP_USER), reinterpret_cast<LONG_PTR>(&block));
    EXPECT_EQ(afterOpening.calls, Calls{"Initialize 0"});
    EXPECT_EQ(afterOpening.session, &block);
}

TEST_F(Frame, GivesTheResultOfInitialize) {
    PROPSHEETPAGEA sheetPage{};
    sheetPage.lParam = reinterpret_cast<LPARAM>(&block);
    pageLog.result = 41;
    EXPECT_EQ(Send(WM_INITDIALOG, 0, reinterpret_cast<LPARAM>(&sheetPage)), 41);
}

TEST_F(Frame, LoadsTheWarningImageBeforeItInitializes) {
    EXPECT_NE(TestPage::m_hIconWarning_16, nullptr);
}

TEST_F(Frame, RoutesWmClose) {
    pageLog.result = 42;
    EXPECT_EQ(Send(WM_CLOSE), 42);
    EXPECT_EQ(pageLog.calls, Calls{"OnClose"});
}

TEST_F(Frame, RoutesWmDrawItem) {
    DRAWITEMSTRUCT item{};
    item.CtlID = 1285;
    pageLog.result = 43;
    EXPECT_EQ(Send(WM_DRAWITEM, 1285, reinterpret_cast<LPARAM>(&item)), 43);
    EXPECT_EQ(pageLog.calls, Calls{"OnDrawItem 1285 1285"});
}

TEST_F(Frame, RoutesWmCommandWithCodeAndIdApart) {
    pageLog.result = 44;
    EXPECT_EQ(Send(WM_COMMAND, MAKEWPARAM(IDC_TEST_COMBO, 9), reinterpret_cast<LPARAM>(Sheet())), 44);
    EXPECT_EQ(pageLog.calls, Calls{"OnCommand 9 902 control"});
}

TEST_F(Frame, RoutesMessages1124To1224AsUserMessages) {
    pageLog.result = 45;
    EXPECT_EQ(Send(1124, 7, 8), 45);
    EXPECT_EQ(Send(1170, 1, 2), 45);
    EXPECT_EQ(Send(1224, 9, 10), 45);
    EXPECT_EQ(pageLog.calls,
              (Calls{"OnUserMessage 1124 7 8", "OnUserMessage 1170 1 2", "OnUserMessage 1224 9 10"}));
}

TEST_F(Frame, LeavesMessages1123And1225Alone) {
    pageLog.result = 45;
    EXPECT_EQ(Send(1123), 0);
    EXPECT_EQ(Send(1225), 0);
    EXPECT_EQ(pageLog.calls, Calls{});
}

TEST_F(Frame, LeavesAnyOtherMessageAlone) {
    pageLog.result = 45;
    for (UINT message : {WM_NULL, WM_PAINT, WM_TIMER, WM_HSCROLL, WM_USER, WM_APP})
        EXPECT_EQ(Send(message), 0) << message;
    EXPECT_EQ(pageLog.calls, Calls{});
}

TEST_F(Frame, PassesTheResultOfSetActiveAndKillActiveOn) {
    pageLog.result = 46;
    EXPECT_EQ(Notify(page, PSN_SETACTIVE), 46);
    EXPECT_EQ(Notify(page, PSN_KILLACTIVE), 46);
    EXPECT_EQ(pageLog.calls, (Calls{"setActive", "killActive"}));
}

TEST_F(Frame, AppliesInAnOpenSheetWithoutEndingTheJobPropertyApplication) {
    pageLog.result = 47;
    EXPECT_EQ(Notify(page, PSN_APPLY, 0), 47);
    EXPECT_EQ(pageLog.calls, Calls{"apply 1"});
    EXPECT_EQ(pageLog.applicationsEnded, 0);
}

TEST_F(Frame, AppliesInAClosingSheetAndEndsTheJobPropertyApplication) {
    pageLog.result = 47;
    EXPECT_EQ(Notify(page, PSN_APPLY, 1), 47);
    EXPECT_EQ(pageLog.calls, Calls{"apply 0"});
    EXPECT_EQ(pageLog.applicationsEnded, 1);
}

TEST_F(Frame, EndsTheJobPropertyApplicationOnReset) {
    EXPECT_EQ(Notify(page, PSN_RESET), 0);
    EXPECT_EQ(pageLog.calls, Calls{});
    EXPECT_EQ(pageLog.applicationsEnded, 1);
}

TEST_F(Frame, LeavesAnyOtherNotificationAlone) {
    for (UINT code : {static_cast<UINT>(PSN_HELP), static_cast<UINT>(PSN_QUERYCANCEL), 0u})
        EXPECT_EQ(Notify(page, code), 0);
    EXPECT_EQ(pageLog.calls, Calls{});
    EXPECT_EQ(pageLog.applicationsEnded, 0);
}

TEST_F(Frame, LetsNoExceptionOut) {
    pageLog.onCommand = [] { throw std::runtime_error("broken"); };
    EXPECT_EQ(Send(WM_COMMAND, IDC_TEST_COMBO), 0);
    pageLog.onCommand = [] { throw 5; };
    EXPECT_EQ(Send(WM_COMMAND, IDC_TEST_COMBO), 0);
}

TEST_F(Frame, DoesNothingOnceItsSessionIsGone) {
    EndSession();
    for (UINT message :
         {static_cast<UINT>(WM_CLOSE), static_cast<UINT>(WM_DRAWITEM), static_cast<UINT>(WM_COMMAND), 1124u})
        EXPECT_EQ(Send(message), 0) << message;
    EXPECT_EQ(Notify(page, PSN_SETACTIVE), 0);
    EXPECT_EQ(Notify(page, PSN_KILLACTIVE), 0);
    EXPECT_EQ(Notify(page, PSN_APPLY, 1), 0);
    EXPECT_EQ(Notify(page, PSN_RESET), 0);
    EXPECT_EQ(pageLog.calls, Calls{});
    EXPECT_EQ(pageLog.applicationsEnded, 0);
}

TEST_F(Frame, DoesNothingWhenTheLiveSessionIsAnother) {
    SessionBlock other{};
    CSessionAccessor::Instance()->SetSession(&other);
    EXPECT_EQ(Send(WM_COMMAND, IDC_TEST_COMBO), 0);
    EXPECT_EQ(pageLog.calls, Calls{});
}

TEST_F(Frame, IsNotInitializedForASessionThatIsGone) {
    PROPSHEETPAGEA sheetPage{};
    sheetPage.lParam = reinterpret_cast<LPARAM>(&block);
    EndSession();
    EXPECT_EQ(Send(WM_INITDIALOG, 0, reinterpret_cast<LPARAM>(&sheetPage)), 0);
    EXPECT_EQ(pageLog.calls, Calls{});
}

TEST_F(Frame, TakesMessagesWithoutTheirData) {
    EXPECT_EQ(Send(WM_INITDIALOG), 0);
    EXPECT_EQ(Send(WM_NOTIFY), 0);
    EXPECT_EQ(pageLog.calls, Calls{});
}

TEST_F(Frame, RestoresDefaultsAndPaintsTheWholeDialogAnew) {
    ShowWindow(Sheet(), SW_SHOWNOACTIVATE);
    ShowWindow(page, SW_SHOWNOACTIVATE);
    UpdateWindow(page);
    ValidateRect(page, nullptr);
    EXPECT_EQ(TestPage(page, nullptr).OnDefault(), 1);
    EXPECT_EQ(pageLog.calls, Calls{"Initialize 1"});
    EXPECT_EQ(pageLog.session, &block);
    RECT update{};
    RECT client{};
    GetUpdateRect(page, &update, FALSE);
    GetClientRect(page, &client);
    EXPECT_TRUE(EqualRect(&update, &client));
}

TEST_F(Frame, AnswersOneToCloseAndUserMessagesByItself) {
    EXPECT_EQ(TestPage(page, nullptr).BaseOnClose(), 1);
    EXPECT_EQ(TestPage(page, nullptr).BaseOnUserMessage(), 1);
}

TEST(LiveSession, IsNeverNull) {
    CSessionAccessor::Instance()->SetSession(nullptr);
    EXPECT_FALSE(IsLiveSession(nullptr));
    CSessionAccessor::Release();
}

} // namespace

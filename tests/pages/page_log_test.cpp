// The lines that the pages leave in the main log.
#include "pages/advancedpage.h"
#include "tests/pages/page_fixture.h"
#include "tests/pages/page_test_resource.h"
#include "tests/pages/test_page.h"
#include "tests/support/main_log.h"

#include <algorithm>
#include <cctype>
#include <memory>
#include <string_view>
#include <utility>

namespace {

using Lines = std::vector<std::string>;

constexpr int kAdvancedTemplate = 4007;
constexpr int kResolution = 305;
constexpr int kResolutionLabel = 1399;

// True for "FILE.cpp LINE行目 FUNCTION" with `rest` behind it.
bool HasPlaceAnd(const std::string& line, const std::string& rest) {
    constexpr std::string_view kBehindNumber = "行目 ";
    constexpr std::string_view kBehindFile = ".cpp ";
    const std::size_t number = line.find(kBehindFile) + kBehindFile.size();
    const std::size_t function = line.find(kBehindNumber) + kBehindNumber.size();
    if (number < kBehindFile.size() || function < number + 1 + kBehindNumber.size())
        return false;
    const auto isIn = [&](std::size_t first, std::size_t last, auto isWanted) {
        return first < last && last <= line.size() &&
               std::all_of(line.begin() + static_cast<std::ptrdiff_t>(first),
                           line.begin() + static_cast<std::ptrdiff_t>(last), isWanted);
    };
    return line.ends_with(rest) &&
           isIn(number, function - kBehindNumber.size(), [](char c) { return c >= '0' && c <= '9'; }) &&
           isIn(function, line.size() - rest.size(),
                [](unsigned char c) { return c == '_' || std::isalnum(c); });
}

class PagesLog : public PageTest {
  protected:
    static void SetUpTestSuite() { log = std::make_unique<MainLog>(); }
    static void TearDownTestSuite() { log.reset(); }

    PagesLog() {
        pageLog = {};
        page = Open(IDD_TEST_PAGE, TestPageProc);
        log->Forget();
    }

    // What a message leaves; the operations of the test page itself leave nothing.
    Lines Of(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        log->Forget();
        TestPageProc(page, message, wParam, lParam);
        return log->Messages();
    }
    Lines OfNotification(UINT code, LPARAM lParam = 0) {
        log->Forget();
        Notify(page, code, lParam);
        return log->Messages();
    }

    static inline std::unique_ptr<MainLog> log;
    HWND page;
};

TEST_F(PagesLog, HasALineForEveryMessageThatIsRouted) {
    for (const UINT message :
         {static_cast<UINT>(WM_CLOSE), static_cast<UINT>(WM_DRAWITEM), static_cast<UINT>(WM_COMMAND)})
        EXPECT_EQ(Of(message).size(), 1u) << message;
    PROPSHEETPAGEA sheetPage{};
    sheetPage.lParam = reinterpret_cast<LPARAM>(&block);
    EXPECT_FALSE(Of(WM_INITDIALOG, 0, reinterpret_cast<LPARAM>(&sheetPage)).empty());
}

TEST_F(PagesLog, HasNoLineForAMessageThatIsNotRouted) {
    for (const UINT message : {static_cast<UINT>(WM_PAINT), 1123u, 1225u})
        EXPECT_EQ(Of(message), Lines{}) << message;
}

TEST_F(PagesLog, TellsTheNumberOfAMessageOfThePagesOwn) {
    for (const UINT message : {1124u, 1200u, 1224u}) {
        const Lines lines = Of(message);
        ASSERT_EQ(lines.size(), 1u) << message;
        EXPECT_TRUE(HasPlaceAnd(lines[0], "() WM_" + std::to_string(message))) << lines[0];
    }
}

TEST_F(PagesLog, HasALineForANotificationThatIsActedOnAndNoneForAnother) {
    EXPECT_EQ(OfNotification(PSN_SETACTIVE).size(), 1u);
    EXPECT_EQ(OfNotification(PSN_KILLACTIVE).size(), 1u);
    EXPECT_EQ(OfNotification(PSN_RESET).size(), 1u);
    EXPECT_EQ(OfNotification(PSN_HELP), Lines{});
}

TEST_F(PagesLog, TellsWhetherTheSheetClosesWhenItIsApplied) {
    for (const LPARAM closes : {0, 1}) {
        const Lines lines = OfNotification(PSN_APPLY, closes);
        ASSERT_EQ(lines.size(), 2u) << closes;
        EXPECT_TRUE(HasPlaceAnd(lines[1], " isApply=" + std::to_string(closes))) << lines[1];
    }
}

TEST_F(PagesLog, TellsThatThereIsNoListOfWarningImages) {
    const int enabled[] = {1, 0};
    int images[] = {0, 0};
    TestPage::SetWarningIndex(nullptr, 2, enabled, images, 0, nullptr);
    ASSERT_FALSE(log->Messages().empty());
    EXPECT_EQ(log->Messages().back(), "SetWarningIndex() OrgImgList=NULL");
}

TEST_F(PagesLog, TellsThatThereIsNoArrayOfFittedOptions) {
    TestPage::IsAllWarning(nullptr, 2);
    ASSERT_FALSE(log->Messages().empty());
    EXPECT_TRUE(HasPlaceAnd(log->Messages().back(), "() error outputconfig = 0")) << log->Messages().back();
}

TEST_F(PagesLog, TellsThatTheComboOfTheAdvancedPageIsMissing) {
    const HWND advanced = Open(kAdvancedTemplate, AdvancedPageProc);
    log->Forget();
    CAdvancedSettingPageDlg(advanced, nullptr).InitCmbBox(nullptr, kResolution, kResolutionLabel, &block, 0);
    EXPECT_EQ(log->Messages(), Lines{"InitCmbBox() ctl == NULL"});
}

TEST_F(PagesLog, NamesEachOperationThatTheAdvancedPageDoesForANotification) {
    const HWND advanced = Open(kAdvancedTemplate, AdvancedPageProc);
    const std::pair<UINT, std::string> operations[] = {{PSN_SETACTIVE, "OnNotify_setActive"},
                                                       {PSN_KILLACTIVE, "OnNotify_killActive"},
                                                       {PSN_APPLY, "OnNotify_apply"}};
    for (const auto& [code, operation] : operations) {
        log->Forget();
        Notify(advanced, code);
        const Lines lines = log->Messages();
        EXPECT_TRUE(std::ranges::any_of(lines, [&name = operation](const std::string& line) {
            return line.ends_with("行目 " + name);
        })) << operation;
    }
}

} // namespace

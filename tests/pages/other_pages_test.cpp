#include "pages/devicepage.h"
#include "pages/standardpage.h"
#include "tests/pages/page_fixture.h"

namespace {

constexpr int kResolution = 305;

class StandardPage : public PageTest {
  protected:
    HWND page = Open(1066, StandardPageProc);
};

TEST_F(StandardPage, BecomesTheActivePage) {
    EXPECT_EQ(Notify(page, PSN_SETACTIVE), 1);
    void* active = nullptr;
    ExportedFunc_GetActive(&active);
    EXPECT_EQ(active, page);
}

TEST_F(StandardPage, SendsEverythingToTheDriverWhenItIsLeft) {
    OPTITEM& item = Bind(kResolution, 2);
    ExportedFunc_SetCurrent(kResolution, 1);
    EXPECT_EQ(Notify(page, PSN_KILLACTIVE), 1);
    EXPECT_EQ(item.Sel, 1);
}

TEST_F(StandardPage, HandsTheSheetItsResultOnApply) {
    EXPECT_EQ(Notify(page, PSN_APPLY, 1), 1);
    ASSERT_EQ(SheetCalls().size(), 1u);
    EXPECT_EQ(SheetCalls()[0].function, 9u);
    EXPECT_EQ(SheetCalls()[0].second, 1);
}

class PageSizes : public PageTest {
  protected:
    RECT SizeOf(int templateId) {
        RECT size{};
        GetWindowRect(Open(templateId, DevicePropPageProc), &size);
        OffsetRect(&size, -size.left, -size.top);
        return size;
    }
};

TEST_F(PageSizes, AreTheSameForBothPagesOfTheSheet) {
    const RECT standard = SizeOf(1066);
    const RECT advanced = SizeOf(4007);
    EXPECT_TRUE(EqualRect(&standard, &advanced));
}

using DevicePage = PageTest;

TEST_F(DevicePage, OpensAndAnswersNothing) {
    const HWND page = Open(1121, DevicePropPageProc);
    EXPECT_EQ(Notify(page, PSN_APPLY, 1), 0);
    EXPECT_EQ(DevicePropPageProc(page, WM_INITDIALOG, 0, 0), 1);
}

} // namespace

// The document sheet's end, and a second sheet beside the first.
#include "tests/oemps/document_sheet_fixture.h"
#include "tests/support/message_box.h"

#include <thread>

namespace {

// A second sheet shows a message in place of its page.
class TwoDocumentSheets : public DocumentSheetTest {
  protected:
    void OpenBoth() {
        Open();
        auto box = AnswerNextMessageBox();
        second.Reason(PROPSHEETUI_REASON_INIT);
        box.get();
    }

    Driver second;
};
class EndOfADocumentSheet : public TwoDocumentSheets {};
class SecondDocumentSheet : public TwoDocumentSheets {};

} // namespace

TEST_F(EndOfADocumentSheet, FreesTheSession) {
    Open();
    EXPECT_EQ(driver.Reason(PROPSHEETUI_REASON_DESTROY), 1);
    EXPECT_EQ(g_SheetCount, 0);
    EXPECT_EQ(g_SessionBlock, nullptr);
    EXPECT_EQ(CSessionAccessor::Instance()->GetSession(), nullptr);
}

TEST_F(EndOfADocumentSheet, OnAnotherThreadFreesNothing) {
    Open();
    SessionBlock* const block = g_SessionBlock;
    std::thread([&] { driver.Reason(PROPSHEETUI_REASON_DESTROY); }).join();
    EXPECT_EQ(g_SheetCount, 0);
    EXPECT_EQ(g_SessionBlock, block);
    EXPECT_EQ(CSessionAccessor::Instance()->GetSession(), block);
}

TEST_F(EndOfADocumentSheet, DestroysTheSettingManager) {
    Open();
    CSettingManager::GetSettingManager();
    driver.Reason(PROPSHEETUI_REASON_DESTROY);
    EXPECT_EQ(CSettingManager::Existing(), nullptr);
}

TEST_F(EndOfADocumentSheet, OnAnotherThreadKeepsTheSettingManager) {
    Open();
    CSettingManager* const manager = CSettingManager::GetSettingManager();
    std::thread([&] { driver.Reason(PROPSHEETUI_REASON_DESTROY); }).join();
    EXPECT_EQ(CSettingManager::Existing(), manager);
}

// Only a manager that is made anew loads the standard settings.
TEST_F(EndOfADocumentSheet, OnAnotherThreadLeavesASettingManagerThatTheNextStartDestroys) {
    Open();
    CSettingManager::GetSettingManager();
    std::thread([&] { driver.Reason(PROPSHEETUI_REASON_DESTROY); }).join();
    ASSERT_NE(CSettingManager::Existing(), nullptr);
    Driver next;
    ASSERT_EQ(hrDocumentPropertyPage(&next.param), S_OK);
    EXPECT_NE(g_SessionBlock, nullptr);
    EXPECT_EQ(CSettingManager::Existing(), nullptr);
}

TEST_F(EndOfADocumentSheet, DestroysTheSettingManagerAlsoWithoutASession) {
    OpenBoth();
    second.Reason(PROPSHEETUI_REASON_DESTROY);
    ASSERT_EQ(g_SessionBlock, nullptr);
    // The first sheet's page goes on and makes it anew.
    CSettingManager::GetSettingManager();
    driver.Reason(PROPSHEETUI_REASON_DESTROY);
    EXPECT_EQ(CSettingManager::Existing(), nullptr);
}

TEST_F(EndOfADocumentSheet, AfterAFailedStartLeavesTheCountAt0) {
    EXPECT_EQ(driver.Reason(PROPSHEETUI_REASON_INIT), 0);
    driver.Reason(PROPSHEETUI_REASON_DESTROY);
    EXPECT_EQ(g_SheetCount, 0);
    Open();
    EXPECT_EQ(g_SheetCount, 1);
}

TEST_F(SecondDocumentSheet, StartingKeepsTheSettingManager) {
    Open();
    CSettingManager* const manager = CSettingManager::GetSettingManager();
    ASSERT_EQ(hrDocumentPropertyPage(&second.param), S_OK);
    EXPECT_EQ(CSettingManager::Existing(), manager);
}

TEST_F(SecondDocumentSheet, EndingOnAnotherThreadKeepsTheFirstSheetsSession) {
    OpenBoth();
    SessionBlock* const block = g_SessionBlock;
    std::thread([&] { second.Reason(PROPSHEETUI_REASON_DESTROY); }).join();
    EXPECT_EQ(g_SheetCount, 1);
    EXPECT_EQ(g_SessionBlock, block);
}

TEST_F(SecondDocumentSheet, ShowsTheMessageAndAddsNothing) {
    Open();
    EXPECT_EQ(hrDocumentPropertyPage(&second.param), S_OK);
    EXPECT_EQ(second.items[0].Flags & OPTIF_HIDE, 0u) << "the second sheet's items stay untouched";

    auto box = AnswerNextMessageBox();
    EXPECT_EQ(second.Reason(PROPSHEETUI_REASON_INIT), 0);
    EXPECT_EQ(second.status, S_OK);
    const MessageBoxSeen seen = box.get();
    EXPECT_EQ(seen.caption, "警告");
    EXPECT_EQ(seen.text, "PrintServerKXタブページは、既に使用されているため、表示することができません。");
    EXPECT_EQ(addedPages.size(), 2u);
    EXPECT_EQ(g_SheetCount, 2);
}

TEST_F(SecondDocumentSheet, EndingFreesTheFirstSheetsSessionAndASecondFreeFreesNothing) {
    OpenBoth();

    second.Reason(PROPSHEETUI_REASON_DESTROY);
    EXPECT_EQ(g_SheetCount, 1);
    EXPECT_EQ(g_SessionBlock, nullptr);
    EXPECT_EQ(driver.Reason(PROPSHEETUI_REASON_DESTROY), 1);
    EXPECT_EQ(g_SheetCount, 0);
}

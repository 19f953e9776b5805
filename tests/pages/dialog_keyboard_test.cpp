// The dialogs of the pages by keyboard alone: Tab reaches every control in the order in which they are read,
// each accelerator is there once, arrows move radio buttons, Enter and Esc end them.
#include "Common/ProfileInfo.h"
#include "pages/CustomPageEditDlg.h"
#include "pages/MediaTypeDlg.h"
#include "tests/pages/keyboard.h"
#include "tests/pages/modal_dialog.h"
#include "tests/pages/page_fixture.h"

namespace {

class DialogKeyboard : public PageTest {
  protected:
    // A4, in 1/1000 mm.
    DialogKeyboard() {
        ExportedFunc_SetCurrent(301, 210000);
        ExportedFunc_SetCurrent(302, 297000);
    }
};

// What a dialog is like while it is open.
struct DialogSeen {
    Ids walked;
    Ids workable;
    std::map<char, Ids> accelerators;
};

DialogSeen LookAt(HWND dialog, int templateId) {
    ExpectTextsOfTemplate(dialog, templateId);
    return {WalkByTab(dialog), Workable(dialog), Accelerators(dialog)};
}

void ExpectDialog(const DialogSeen& seen, const Ids& order, const std::string& letters) {
    EXPECT_EQ(seen.walked, order);
    EXPECT_EQ(seen.workable, Sorted(order));
    ExpectLettersOnce(seen.accelerators, letters);
}

TEST_F(DialogKeyboard, ReachesEverythingInTheCustomSizeDialog) {
    DialogSeen seen;
    CCustomPageEditDlg dialog(1329, &block);
    RunModal(dialog, {[&](HWND window) {
                 seen = LookAt(window, 102);
                 EndDialog(window, 0);
             }});
    ExpectDialog(seen, {1330, 1326, 1319, 1321, 1322, 1331}, "DIMP");
}

TEST_F(DialogKeyboard, ReachesEverythingInTheMediaDialogOfTheAutomaticTrays) {
    DialogSeen seen;
    CMediaTypeDlgAutoTrayPRMT dialog(&block, ProcessProfile(), 4006);
    RunModal(dialog, {[&](HWND window) {
                 seen = LookAt(window, 4006);
                 EndDialog(window, 0);
             }});
    ExpectDialog(seen, {1286, 1258, 1, 2, 1012}, "CTZ");
}

TEST_F(DialogKeyboard, ReachesEverythingInTheMediaDialogOfTheBypassTray) {
    DialogSeen seen;
    CMediaTypeBypassTrayDlgPRMT dialog(&block, ProcessProfile(), 4005);
    RunModal(dialog, {[&](HWND window) {
                 seen = LookAt(window, 4005);
                 EndDialog(window, 0);
             }});
    ExpectDialog(seen, {1328, 1286, 1258, 1, 2, 1012}, "CSTZ");
}

TEST_F(DialogKeyboard, MovesTheUnitByTheArrowKeys) {
    CCustomPageEditDlg dialog(1329, &block);
    int checked = 0;
    RunModal(dialog, {[&](HWND window) {
                 SetFocus(GetDlgItem(window, 1319));
                 Press(window, VK_DOWN);
                 checked = FocusedControl(window);
                 EXPECT_EQ(IsDlgButtonChecked(window, 1320), static_cast<UINT>(BST_CHECKED));
                 EndDialog(window, 0);
             }});
    EXPECT_EQ(checked, 1320);
}

TEST_F(DialogKeyboard, EndsTheCustomSizeDialogByEnterAndEsc) {
    CCustomPageEditDlg accepted(1329, &block);
    EXPECT_EQ(RunModal(accepted, {[](HWND window) {
                           SetFocus(GetDlgItem(window, 1330));
                           Press(window, VK_RETURN);
                       }}),
              1321);
    CCustomPageEditDlg left(1329, &block);
    EXPECT_EQ(RunModal(left, {[](HWND window) { Press(window, VK_ESCAPE); }}), 1322);
}

TEST_F(DialogKeyboard, EndsTheMediaDialogsByEnterAndEsc) {
    CMediaTypeDlgAutoTrayPRMT accepted(&block, ProcessProfile(), 4006);
    EXPECT_EQ(RunModal(accepted, {[](HWND window) { Press(window, VK_RETURN); }}), IDOK);
    CMediaTypeDlgAutoTrayPRMT left(&block, ProcessProfile(), 4006);
    EXPECT_EQ(RunModal(left, {[](HWND window) { Press(window, VK_ESCAPE); }}), IDCANCEL);
    CMediaTypeBypassTrayDlgPRMT bypass(&block, ProcessProfile(), 4005);
    EXPECT_EQ(RunModal(bypass, {[](HWND window) { Press(window, VK_ESCAPE); }}), IDCANCEL);
}

} // namespace

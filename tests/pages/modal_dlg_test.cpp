// The base of the small modal dialogs.
#include "pages/ModalDlg.h"

#include "tests/pages/modal_dialog.h"
#include "tests/pages/page_fixture.h"

#include <cstring>
#include <stdexcept>

namespace {

constexpr int kTemplate = 1028;

// Tells what it was asked, and answers with numbers of its own.
class TellingDialog final : public CModalDlg {
  public:
    using CModalDlg::CModalDlg;

    int OnInitDialog() override {
        calls += "init ";
        return 1;
    }
    int OnNotify() override {
        calls += "notify ";
        return 21;
    }
    int OnCommand(WORD notifyCode, WORD controlId, HWND control) override {
        if (notifyCode == 77) {
            calls += "command ";
            command = {notifyCode, controlId};
            commandControl = control;
        }
        return 22;
    }
    int OnDrawItem() override {
        calls += "draw ";
        return 23;
    }

    std::string calls;
    std::pair<WORD, WORD> command;
    HWND commandControl = nullptr;
};

class ModalDlg : public PageTest {
  protected:
    // The answers of the procedure itself; the dialog manager gives most of them away.
    static INT_PTR Ask(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
        const auto procedure = reinterpret_cast<DLGPROC>(GetWindowLongPtrA(dialog, DWLP_DLGPROC));
        return procedure(dialog, message, wParam, lParam);
    }
    static void Close(HWND dialog) { SendMessageA(dialog, WM_CLOSE, 0, 0); }

    template <class Dialog>
    INT_PTR Run(Dialog& dialog, std::vector<ModalDialog::Step> steps, int templateId = kTemplate) {
        const ModalDialog user(std::move(steps));
        return dialog.Run(Sheet(), templateId);
    }
};

TEST_F(ModalDlg, StandsBehindItsWindowAboveItsOwner) {
    TellingDialog telling(&block);
    Run(telling, {[&](HWND dialog) {
            EXPECT_EQ(telling.m_hwnd, dialog);
            EXPECT_EQ(reinterpret_cast<TellingDialog*>(GetWindowLongPtrA(dialog, DWLP_USER)), &telling);
            EXPECT_EQ(GetWindow(dialog, GW_OWNER), Sheet());
            EXPECT_FALSE(IsWindowEnabled(Sheet()));
            Close(dialog);
        }});
    EXPECT_TRUE(IsWindowEnabled(Sheet()));
}

TEST_F(ModalDlg, HandsItsMessagesOn) {
    TellingDialog telling(&block);
    Run(telling, {[&](HWND dialog) {
            telling.calls += "| ";
            const HWND edit = GetDlgItem(dialog, 1226);
            EXPECT_EQ(Ask(dialog, WM_COMMAND, MAKEWPARAM(1226, 77), reinterpret_cast<LPARAM>(edit)), 22);
            EXPECT_EQ(telling.command, std::pair(WORD{77}, WORD{1226}));
            EXPECT_EQ(telling.commandControl, edit);
            EXPECT_EQ(Ask(dialog, WM_NOTIFY, 0, 0), 21);
            EXPECT_EQ(Ask(dialog, WM_DRAWITEM, 0, 0), 23);
            EXPECT_EQ(Ask(dialog, WM_TIMER, 0, 0), 0);
            Close(dialog);
        }});
    EXPECT_EQ(telling.calls, "init | command notify draw ");
}

TEST_F(ModalDlg, HasItsOperationsInFourSlots) {
    using Slot = int (*)(CModalDlg*);
    using CommandSlot = int (*)(CModalDlg*, WORD, WORD, HWND);
    TellingDialog telling(&block);
    const Slot* slots = nullptr;
    std::memcpy(&slots, static_cast<CModalDlg*>(&telling), sizeof slots);
    EXPECT_EQ(slots[0](&telling), 1);
    EXPECT_EQ(slots[1](&telling), 21);
    CommandSlot command = nullptr;
    std::memcpy(&command, &slots[2], sizeof command);
    EXPECT_EQ(command(&telling, 77, 1226, Sheet()), 22);
    EXPECT_EQ(slots[3](&telling), 23);
    EXPECT_EQ(telling.calls, "init notify command draw ");
}

TEST_F(ModalDlg, AnswersNotificationsAndDrawingWithNothingOfItsOwn) {
    class Plain final : public CModalDlg {
      public:
        using CModalDlg::CModalDlg;
        int OnInitDialog() override { return 1; }
        int OnCommand(WORD, WORD, HWND) override { return 1; }
    } plain(&block);
    Run(plain, {[](HWND dialog) {
            EXPECT_EQ(Ask(dialog, WM_NOTIFY, 0, 0), 0);
            EXPECT_EQ(Ask(dialog, WM_DRAWITEM, 0, 0), 0);
            Close(dialog);
        }});
}

TEST_F(ModalDlg, IsCancelledByItsCloseBox) {
    TellingDialog telling(&block);
    EXPECT_EQ(Run(telling, {Close}), IDCANCEL);
}

TEST_F(ModalDlg, IsCancelledByAnyCommandOnceItsSheetHasGone) {
    TellingDialog telling(&block);
    EXPECT_EQ(Run(telling, {[this](HWND dialog) {
                      EndSession();
                      SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(1226, 77), 0);
                  }}),
              IDCANCEL);
    EXPECT_EQ(telling.calls, "init ");
}

TEST_F(ModalDlg, KeepsExceptionsFromTheOperatingSystem) {
    class Broken final : public CModalDlg {
      public:
        using CModalDlg::CModalDlg;
        int OnInitDialog() override { throw std::runtime_error("broken"); }
        int OnNotify() override { throw std::runtime_error("broken"); }
        int OnCommand(WORD, WORD, HWND) override { throw 5; }
        int OnDrawItem() override { throw 5; }
    } broken(&block);
    EXPECT_EQ(Run(broken, {[](HWND dialog) {
                      for (const UINT message : {WM_COMMAND, WM_NOTIFY, WM_DRAWITEM})
                          EXPECT_EQ(Ask(dialog, message, 0, 0), 0);
                      Close(dialog);
                  }}),
              IDCANCEL);
}

TEST_F(ModalDlg, IsNoneForATemplateThatIsNotThere) {
    TellingDialog telling(&block);
    EXPECT_LE(telling.Run(Sheet(), 31999), 0);
    EXPECT_EQ(telling.calls, "");
}

} // namespace

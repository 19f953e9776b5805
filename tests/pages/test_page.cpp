#include "tests/pages/test_page.h"

PageLog pageLog;

// In place of the pages' own link to the application.
void CPSPageDlg::DeleteRegistryKey() {
    ++pageLog.applicationsEnded;
}

namespace {

int Record(std::string call) {
    pageLog.calls.push_back(std::move(call));
    return pageLog.result;
}

std::string Joined(long long first, long long second) {
    return std::to_string(first) + " " + std::to_string(second);
}

} // namespace

INT_PTR CALLBACK TestPageProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return TestPage(dialog, nullptr).DlgProc(message, wParam, lParam);
}

int TestPage::OnCommand(WORD notifyCode, WORD controlId, HWND control) {
    if (pageLog.onCommand)
        pageLog.onCommand();
    return Record("OnCommand " + Joined(notifyCode, controlId) + (control ? " control" : ""));
}

int TestPage::OnNotify_apply(int sheetStaysOpen) {
    return Record("apply " + std::to_string(sheetStaysOpen));
}
int TestPage::OnNotify_setActive() {
    return Record("setActive");
}
int TestPage::OnNotify_killActive() {
    return Record("killActive");
}

int TestPage::Initialize(SessionBlock* session, int useDefault) {
    pageLog.session = session;
    pageLog.useDefault = useDefault;
    return Record("Initialize " + std::to_string(useDefault));
}

int TestPage::OnDrawItem(int controlId, const DRAWITEMSTRUCT* item) {
    return Record("OnDrawItem " + Joined(controlId, item ? static_cast<long long>(item->CtlID) : -1));
}

int TestPage::OnClose() {
    return Record("OnClose");
}

int TestPage::OnUserMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    return Record("OnUserMessage " + std::to_string(message) + " " +
                  Joined(static_cast<long long>(wParam), static_cast<long long>(lParam)));
}

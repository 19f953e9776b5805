// A sheet without a driver: a session with a few bound items, and a window that pages can stand on.
#pragma once

#include "pages/pspage.h"
#include "session/datamanager.h"
#include "session/session.h"
#include "tests/support/recording_runner.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

// What the common property sheet was told.
struct SheetCall {
    HANDLE sheet;
    UINT function;
    LPARAM first;
    LPARAM second;
};

class PageTest : public testing::Test {
  protected:
    PageTest();
    ~PageTest() override;

    // Binds an item with this many options to the keyword.
    OPTITEM& Bind(int keyword, WORD options);

    // Makes a page on the sheet's window and sends it WM_INITDIALOG with the session.
    HWND Open(int templateId, DLGPROC procedure);

    // Ends the session, as the destruction of the sheet does.
    void EndSession();

    HWND Sheet() const { return m_sheet; }
    // How often a page told the sheet of a change, and the last page that did.
    static int ChangesSeen();
    static HWND ChangedPage();
    static void ForgetChanges();
    static const std::vector<SheetCall>& SheetCalls();

    static std::uint32_t Current(int keyword);
    static std::uint32_t Default(int keyword);

    static LRESULT Command(HWND page, int controlId, int notifyCode);
    static LRESULT Notify(HWND page, UINT code, LPARAM lParam = 0);

    SessionBlock block{};
    // No page starts a process or waits for one: none runs, and each that is to start does.
    RecordingRunner runner;

  private:
    struct BoundItem {
        OPTTYPE type{};
        OPTITEM item{};
    };

    ReplacedProcessRunner m_replacedRunner{runner};
    PrivateDevMode m_record{};
    std::map<int, BoundItem> m_items;
    HWND m_sheet = nullptr;
    HWND m_page = nullptr;
};

std::string CaptionOf(HWND page, int controlId);
std::vector<std::string> RowsOf(HWND combo);

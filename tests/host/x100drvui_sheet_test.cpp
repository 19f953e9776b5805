// The module's exports with a real common property sheet and the test plug-in, without a spooler.
#include "host/report.h"
#include "x100drvui_fixture.h"

#include <commctrl.h>
#include <prsht.h>

namespace {

// They are called where an exception would leave the module.
static_assert(
    noexcept(Report("")) && noexcept(Remark("")) && noexcept(ClearReport()) && noexcept(LastReport()));

TEST_F(DocumentSheetTest, GoesThroughTheLifeCycleInOrder) {
    auto out = Default();
    ForgetCalls();
    EXPECT_EQ(OpenSheet(nullptr, out), static_cast<DWORD>(CPSUI_OK));
    EXPECT_EQ(Calls(), "DevMode1 DevMode2 Publish Items1a Items1b Doc0 Doc1 apply Doc3 Doc2 released ");
}

TEST_F(DocumentSheetTest, GivesCancelWhenTheUserCancels) {
    auto out = Default();
    auto before = out;
    m_hooks->press = IDCANCEL;
    EXPECT_EQ(OpenSheet(nullptr, out), static_cast<DWORD>(CPSUI_CANCEL));
    EXPECT_EQ(out, before);
}

TEST_F(DocumentSheetTest, GivesCancelWhenThePluginSetsNoResult) {
    auto out = Default();
    m_hooks->setResult = false;
    EXPECT_EQ(OpenSheet(nullptr, out), static_cast<DWORD>(CPSUI_CANCEL));
}

// A dialog of the calling program with tabs, which owns the sheet and counts the titles that it is sent.
class TabbedOwner {
  public:
    TabbedOwner() {
        INITCOMMONCONTROLSEX controls{sizeof controls, ICC_TAB_CLASSES};
        InitCommonControlsEx(&controls);
        s_titles = 0;
        m_window = CreateWindowExW(0, L"#32770", L"owner", WS_POPUP | WS_VISIBLE | WS_CAPTION, 0, 0, 300, 200,
                                   nullptr, nullptr, nullptr, nullptr);
        CreateWindowExW(0, WC_TABCONTROLW, L"", WS_CHILD, 0, 0, 10, 10, m_window, nullptr, nullptr, nullptr);
        s_former = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(m_window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Count)));
    }
    ~TabbedOwner() { DestroyWindow(m_window); }
    TabbedOwner(const TabbedOwner&) = delete;
    TabbedOwner& operator=(const TabbedOwner&) = delete;

    HWND Window() const { return m_window; }

    static int Titles() {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageW(&message);
        return s_titles;
    }

  private:
    static LRESULT CALLBACK Count(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        // Not passed on: to a window of another kind it may mean anything.
        if (message == PSM_SETTITLEW) {
            ++s_titles;
            return 0;
        }
        return CallWindowProcW(s_former, window, message, wParam, lParam);
    }

    static inline int s_titles = 0;
    static inline WNDPROC s_former = nullptr;
    HWND m_window;
};

std::wstring g_sheetTitle;

TEST_F(DocumentSheetTest, NamesTheSheetAndNoOtherWindowOfItsThread) {
    auto out = Default();
    g_sheetTitle.clear();
    m_hooks->onApply = [](OEMCUIPPARAM*, IPrintOemDriverUI*) {
        wchar_t title[128] = {};
        GetWindowTextW(GetActiveWindow(), title, 128);
        g_sheetTitle = title;
    };
    TabbedOwner owner;
    DOCUMENTPROPERTYHEADER header = Header(DM_IN_PROMPT | DM_OUT_BUFFER, nullptr, &out);
    DWORD result = 0;
    CommonPropertySheetUIW(owner.Window(), DocumentFunction(), reinterpret_cast<LPARAM>(&header), &result);
    EXPECT_EQ(result, static_cast<DWORD>(CPSUI_OK));
    EXPECT_EQ(g_sheetTitle, L" 印刷設定");
    EXPECT_EQ(owner.Titles(), 0);
}

TEST_F(DocumentSheetTest, FailsWithoutPagesWhenThePluginDoes) {
    auto out = Default();
    m_hooks->pagesStatus = E_FAIL;
    LONG status = 1;
    DWORD result = OpenSheet(nullptr, out, &status);
    EXPECT_TRUE(status < 0 || result == CPSUI_CANCEL) << status << " " << result;
    EXPECT_EQ(Message(), L"The plug-in adds no pages.");
    EXPECT_EQ(Calls().find("Doc2"), std::string::npos);
}

TEST_F(DocumentSheetTest, EndsASheetWithoutPagesAndTellsThePlugin) {
    auto out = Default();
    m_hooks->addPages = false;
    LONG status = 1;
    DWORD result = OpenSheet(nullptr, out, &status);
    EXPECT_TRUE(status < 0 || result == CPSUI_CANCEL) << status << " " << result;
    EXPECT_NE(Calls().find("Doc0"), std::string::npos);
    EXPECT_NE(Calls().find("Doc2 released"), std::string::npos) << Calls();
}

TEST_F(DocumentSheetTest, OpensNoSheetOnABrokenDevMode) {
    auto in = Default();
    auto out = Default();
    Area(in).nup = 6;
    LONG status = 1;
    DWORD result = OpenSheet(&in, out, &status);
    EXPECT_TRUE(status < 0 || result == CPSUI_CANCEL) << status << " " << result;
    EXPECT_EQ(Calls().find("Doc0"), std::string::npos);
    EXPECT_NE(Message(), L"");
}

TEST_F(DocumentSheetTest, RefusesABrokenDescriptionWithFileLineAndReason) {
    WriteDescription("*PPD-Adobe: \"4.3\"\n*OpenUI *PageSize: PickOne\n");
    EXPECT_EQ(Size(), -1);
    std::wstring message = Message();
    EXPECT_NE(message.find(L"x100.ppd, line 2: A feature is not closed."), std::wstring::npos);
}

TEST_F(DocumentSheetTest, SaysWhenThePluginIsNotThere) {
    WriteText(L"x100.ini", "[OEMFiles]\r\nOEMConfigFile1=absent.dll\r\n");
    EXPECT_EQ(Size(), -1);
    EXPECT_NE(Message().find(L"absent.dll can't be loaded"), std::wstring::npos);
}

TEST_F(DocumentSheetTest, LoadsNoPluginFromAnotherFolder) {
    WriteText(L"x100.ini", "[OEMFiles]\r\nOEMConfigFile1=..\\test_plugin.dll\r\n");
    EXPECT_EQ(Size(), -1);
    EXPECT_NE(Message().find(L"with a path"), std::wstring::npos);
}

TEST_F(DocumentSheetTest, FailsWhenThePluginRefusesItsBlock) {
    m_hooks->devModeStatus = E_FAIL;
    EXPECT_EQ(Size(), -1);
    EXPECT_EQ(Message(), L"The plug-in fails to tell the size of its settings, status 0x80004005.");
}

class DeviceSheetTest : public X100DrvUiTest {
  protected:
    DWORD Open(WORD flags) {
        DEVICEPROPERTYHEADER header{sizeof(DEVICEPROPERTYHEADER), flags, nullptr, nullptr};
        DWORD result = 0xCDCDCDCD;
        CommonPropertySheetUIW(nullptr, FunctionOf<PFNDRVPROPERTYSHEETS>(m_module, "DrvDevicePropertySheets"),
                               reinterpret_cast<LPARAM>(&header), &result);
        return result;
    }
};

TEST_F(DeviceSheetTest, GoesThroughTheLifeCycleInOrder) {
    m_hooks->oemItems = 1;
    EXPECT_EQ(Open(0), static_cast<DWORD>(CPSUI_OK));
    EXPECT_EQ(Calls(), "DevMode1 Publish Items2a Items2b Dev0 Dev1 apply Dev3 Applied6 Dev2 released ");
}

TEST_F(DeviceSheetTest, TellsThatSettingsMayOnlyBeLookedAt) {
    m_hooks->onItems = [](OEMCUIPPARAM* param, IPrintOemDriverUI*) { EXPECT_EQ(param->dwFlags, 1u); };
    Open(DPS_NOPERMISSION);
    EXPECT_NE(Calls().find("Items2b"), std::string::npos);
}

} // namespace

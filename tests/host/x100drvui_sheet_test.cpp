// The module's exports with a real common property sheet and the test plug-in, without a spooler.
#include "host/report.h"
#include "x100drvui_fixture.h"

#include <commctrl.h>
#include <prsht.h>

#include <algorithm>
#include <cstring>

namespace {

// They are called where an exception would leave the module.
static_assert(
    noexcept(Report("")) && noexcept(Remark("")) && noexcept(ClearReport()) && noexcept(LastReport()));

class DocumentSheetTest : public X100DrvUiTest {};

OPTITEM* FindItem(OEMCUIPPARAM* param, const char* keyword) {
    for (DWORD i = 0; i < param->cDrvOptItems; ++i) {
        auto* data = reinterpret_cast<USERDATA*>(param->pDrvOptItems[i].UserData);
        if (data && std::string_view(data->pKeyWordName) == keyword)
            return &param->pDrvOptItems[i];
    }
    return nullptr;
}

OPTITEM* FindPublic(OEMCUIPPARAM* param, BYTE id) {
    auto* end = param->pDrvOptItems + param->cDrvOptItems;
    auto* found =
        std::find_if(param->pDrvOptItems, end, [&](const OPTITEM& item) { return item.DMPubID == id; });
    return found == end ? nullptr : found;
}

std::uint16_t Selected(std::vector<std::byte>& devmode, std::size_t feature) {
    std::uint16_t option = 0;
    std::memcpy(&option, devmode.data() + kPublicSize + sizeof(DriverArea) + 2 * feature, sizeof option);
    return option;
}

// Of small.ppd, in file order.
constexpr std::size_t kStapleMode = 5;
constexpr std::size_t kMirroredImage = 7;

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

TEST_F(DocumentSheetTest, BringsAChangedItemIntoTheDevMode) {
    auto out = Default();
    EXPECT_EQ(Selected(out, kStapleMode), 0);
    m_hooks->onApply = [](OEMCUIPPARAM* param, IPrintOemDriverUI* helper) {
        OPTITEM* item = FindItem(param, "StapleMode");
        item->Sel = 2;
        EXPECT_EQ(helper->DrvUpdateUISetting(param->poemuiobj, item, 0, OEMCUIP_DOCPROP), S_OK);
        EXPECT_TRUE(item->Flags & OPTIF_CHANGED);
    };
    EXPECT_EQ(OpenSheet(nullptr, out), static_cast<DWORD>(CPSUI_OK));
    EXPECT_EQ(Selected(out, kStapleMode), 2);
    EXPECT_EQ(Selected(out, kMirroredImage), 1);
}

TEST_F(DocumentSheetTest, BringsPublicItemsIntoThePublicFields) {
    auto out = Default();
    m_hooks->onApply = [](OEMCUIPPARAM* param, IPrintOemDriverUI*) {
        FindPublic(param, DMPUB_ORIENTATION)->Sel = 1;
        FindPublic(param, DMPUB_SCALE)->Sel = 70;
        FindPublic(param, DMPUB_COPIES_COLLATE)->Sel = 12;
        FindPublic(param, DMPUB_COPIES_COLLATE)->Flags &= ~OPTIF_ECB_CHECKED;
        FindPublic(param, DMPUB_DEFSOURCE)->Sel = 2;
        FindPublic(param, DMPUB_PRINTQUALITY)->Sel = 1;
        FindPublic(param, DMPUB_FORMNAME)->Sel = 2;
        FindPublic(param, DMPUB_MEDIATYPE)->Sel = 1;
        FindPublic(param, DMPUB_NUP)->Sel = 3;
    };
    ASSERT_EQ(OpenSheet(nullptr, out), static_cast<DWORD>(CPSUI_OK));
    const DEVMODEW& dm = Public(out);
    EXPECT_EQ(dm.dmOrientation, DMORIENT_LANDSCAPE);
    EXPECT_EQ(dm.dmScale, 70);
    EXPECT_EQ(dm.dmCopies, 12);
    EXPECT_EQ(dm.dmCollate, DMCOLLATE_FALSE);
    EXPECT_EQ(dm.dmDefaultSource, DMBIN_USER + 2);
    EXPECT_EQ(dm.dmPrintQuality, 1200);
    EXPECT_EQ(dm.dmYResolution, 1200);
    EXPECT_EQ(dm.dmPaperSize, DMPAPER_LETTER);
    EXPECT_EQ(std::wstring(dm.dmFormName), L"8.5x11\"(レター)");
    EXPECT_EQ(dm.dmMediaType, static_cast<DWORD>(DMMEDIA_USER + 1));
    EXPECT_EQ(dm.dmNup, static_cast<DWORD>(DMNUP_SYSTEM));
    EXPECT_EQ(Area(out).nup, 3);
}

TEST_F(DocumentSheetTest, OpensAgainWithWhatWasStored) {
    auto out = Default();
    m_hooks->onApply = [](OEMCUIPPARAM* param, IPrintOemDriverUI*) {
        FindItem(param, "StapleMode")->Sel = 1;
        FindPublic(param, DMPUB_ORIENTATION)->Sel = 2;
        static_cast<TestBlock*>(param->pOEMDM)->value = 99;
    };
    ASSERT_EQ(OpenSheet(nullptr, out), static_cast<DWORD>(CPSUI_OK));
    m_hooks->onApply = nullptr;
    m_hooks->onItems = [](OEMCUIPPARAM* param, IPrintOemDriverUI*) {
        EXPECT_EQ(FindItem(param, "StapleMode")->Sel, 1);
        EXPECT_EQ(FindPublic(param, DMPUB_ORIENTATION)->Sel, 2);
        EXPECT_EQ(static_cast<TestBlock*>(param->pOEMDM)->value, 99u);
    };
    auto again = Default();
    ASSERT_EQ(OpenSheet(&out, again), static_cast<DWORD>(CPSUI_OK));
    EXPECT_EQ(Selected(again, kStapleMode), 1);
    EXPECT_EQ(Block(again).value, 99u);
}

TEST_F(DocumentSheetTest, MergesABlockOfThePluginsSizeAndConvertsAnother) {
    auto in = Default();
    Block(in).value = 5;
    auto out = Default();
    DOCUMENTPROPERTYHEADER header = Header(DM_IN_BUFFER | DM_OUT_BUFFER, &in, &out);
    ASSERT_EQ(DocumentFunction()(nullptr, reinterpret_cast<LPARAM>(&header)), IDOK);
    EXPECT_EQ(Block(out).value, 5u);
    EXPECT_EQ(Block(out).takenBy, OEMDM_MERGE);

    // The same settings with the block of a plug-in that had a smaller one.
    Block(in).header.dwSize -= 8;
    in.resize(in.size() - 8);
    Public(in).dmDriverExtra -= 8;
    Area(in).pluginSize -= 8;
    ASSERT_EQ(DocumentFunction()(nullptr, reinterpret_cast<LPARAM>(&header)), IDOK);
    EXPECT_EQ(Block(out).value, 5u);
    EXPECT_EQ(Block(out).takenBy, OEMDM_CONVERT);
}

TEST_F(DocumentSheetTest, ConvertsABlockOfAnotherVersion) {
    auto in = Default();
    Block(in).value = 5;
    ++Block(in).header.dwVersion;
    auto out = Default();
    DOCUMENTPROPERTYHEADER header = Header(DM_IN_BUFFER | DM_OUT_BUFFER, &in, &out);
    ASSERT_EQ(DocumentFunction()(nullptr, reinterpret_cast<LPARAM>(&header)), IDOK);
    EXPECT_EQ(Block(out).value, 5u);
    EXPECT_EQ(Block(out).takenBy, OEMDM_CONVERT);
}

TEST_F(DocumentSheetTest, RefusesABlockOfAnotherPlugin) {
    auto check = Function<PFNX100CHECKDEVMODE>(m_module, "X100CheckDevMode");
    auto in = Default();
    Block(in).header.dwSignature ^= 1;
    auto out = Default();
    DOCUMENTPROPERTYHEADER header = Header(DM_IN_BUFFER | DM_OUT_BUFFER, &in, &out);
    EXPECT_EQ(DocumentFunction()(nullptr, reinterpret_cast<LPARAM>(&header)), -1);
    EXPECT_EQ(Message(), L"The DEVMODE holds the settings of another plug-in.");
    ForgetCalls();
    EXPECT_FALSE(check(nullptr, in.data(), static_cast<DWORD>(in.size())));
    EXPECT_EQ(Message(), L"The DEVMODE holds the settings of another plug-in.");
}

// Plug-ins read as many bytes of a block as its head tells.
TEST_F(DocumentSheetTest, RefusesABlockWhoseHeadTellsAnotherLength) {
    auto in = Default();
    ++Block(in).header.dwSize;
    auto out = Default();
    DOCUMENTPROPERTYHEADER header = Header(DM_IN_BUFFER | DM_OUT_BUFFER, &in, &out);
    EXPECT_EQ(DocumentFunction()(nullptr, reinterpret_cast<LPARAM>(&header)), -1);
    EXPECT_EQ(Message(), L"The lengths inside the plug-in's part of the DEVMODE contradict each other.");
}

TEST_F(DocumentSheetTest, RefusesABlockThatIsShorterThanItsHead) {
    auto in = Default();
    in.resize(in.size() - sizeof(TestBlock) + 11);
    Public(in).dmDriverExtra = static_cast<WORD>(in.size() - kPublicSize);
    Area(in).pluginSize = 11;
    auto out = Default();
    DOCUMENTPROPERTYHEADER header = Header(DM_IN_BUFFER | DM_OUT_BUFFER, &in, &out);
    EXPECT_EQ(DocumentFunction()(nullptr, reinterpret_cast<LPARAM>(&header)), -1);
    EXPECT_EQ(Message(), L"The lengths inside the plug-in's part of the DEVMODE contradict each other.");
}

TEST_F(DocumentSheetTest, FailsOnACallersBlockThatThePluginDoesNotTake) {
    auto in = Default();
    auto out = Default();
    m_hooks->takeStatus = E_FAIL;
    DOCUMENTPROPERTYHEADER header = Header(DM_IN_BUFFER | DM_OUT_BUFFER, &in, &out);
    EXPECT_EQ(DocumentFunction()(nullptr, reinterpret_cast<LPARAM>(&header)), -1);
    EXPECT_EQ(Message(), L"The plug-in fails to take over stored settings, status 0x80004005.");
}

TEST_F(DocumentSheetTest, GivesPortraitAsTheFirstRowOfTheOrientationItem) {
    auto out = Default();
    ASSERT_EQ(Public(out).dmOrientation, DMORIENT_PORTRAIT);
    m_hooks->onItems = [](OEMCUIPPARAM* param, IPrintOemDriverUI*) {
        const OPTITEM* item = FindPublic(param, DMPUB_ORIENTATION);
        EXPECT_EQ(item->Sel, 0);
        std::vector<std::wstring> rows;
        for (WORD i = 0; i < item->pOptType->Count; ++i)
            rows.push_back(reinterpret_cast<wchar_t*>(item->pOptType->pOptParam[i].pData));
        EXPECT_EQ(rows, (std::vector<std::wstring>{L"たて原稿", L"よこ原稿", L"横置きに回転"}));
    };
    OpenSheet(nullptr, out);
    EXPECT_NE(Calls().find("Items1b"), std::string::npos);
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

TEST_F(DocumentSheetTest, ListsFeaturesWithoutAPublicFieldAsTheLastItemsAtLevelTwo) {
    auto out = Default();
    m_hooks->onItems = [](OEMCUIPPARAM* param, IPrintOemDriverUI*) {
        std::vector<std::string> tail;
        for (const OPTITEM* item = param->pDrvOptItems + param->cDrvOptItems; (--item)->Level == 2;) {
            auto* data = reinterpret_cast<USERDATA*>(item->UserData);
            EXPECT_EQ(data->dwSize, sizeof(USERDATA));
            tail.insert(tail.begin(), data->pKeyWordName);
        }
        EXPECT_EQ(tail, (std::vector<std::string>{"StapleMode", "Fold", "MirroredImage", "SecPrint"}));
    };
    OpenSheet(nullptr, out);
    EXPECT_NE(Calls().find("Items1b"), std::string::npos);
}

TEST_F(DocumentSheetTest, TellsEachFeaturesOptionCountAndDefault) {
    auto out = Default();
    m_hooks->onItems = [](OEMCUIPPARAM* param, IPrintOemDriverUI*) {
        const OPTITEM* item = FindItem(param, "MirroredImage");
        EXPECT_EQ(item->cbSize, 88);
        EXPECT_EQ(item->pOptType->Count, 2);
        EXPECT_EQ(item->Sel, 1);
        const auto* words =
            reinterpret_cast<const DWORD*>(reinterpret_cast<USERDATA*>(item->UserData)->dwItemID);
        EXPECT_EQ(words[3], 1u);
        EXPECT_EQ(FindItem(param, "StapleMode")->pOptType->Count, 3);
        EXPECT_EQ(std::wstring(reinterpret_cast<wchar_t*>(FindItem(param, "StapleMode")->pName)),
                  L"ホチキス");
    };
    OpenSheet(nullptr, out);
    EXPECT_NE(Calls().find("Items1b"), std::string::npos);
}

TEST_F(DocumentSheetTest, MarksTheHeaderOfTheFeaturesByItsNumber) {
    auto out = Default();
    m_hooks->onItems = [](OEMCUIPPARAM* param, IPrintOemDriverUI*) {
        const OPTITEM& header = param->pDrvOptItems[param->cDrvOptItems - 5];
        EXPECT_EQ(static_cast<DWORD>(reinterpret_cast<ULONG_PTR>(header.pName)), 418u);
        EXPECT_EQ(header.Level, 1);
        EXPECT_EQ((&header)[1].Level, 2);
    };
    OpenSheet(nullptr, out);
    EXPECT_NE(Calls().find("Items1b"), std::string::npos);
}

TEST_F(DocumentSheetTest, OffersTheCustomPageAsTheLastForm) {
    auto out = Default();
    m_hooks->onItems = [](OEMCUIPPARAM* param, IPrintOemDriverUI*) {
        const OPTITEM* form = FindPublic(param, DMPUB_FORMNAME);
        ASSERT_EQ(form->pOptType->Count, 5);
        EXPECT_EQ(std::wstring(reinterpret_cast<wchar_t*>(form->pOptType->pOptParam[4].pData)),
                  L"PostScript カスタム ページ サイズ");
    };
    OpenSheet(nullptr, out);
    EXPECT_NE(Calls().find("Items1b"), std::string::npos);
}

TEST_F(DocumentSheetTest, TakesTheCustomPageFromTheDriversAreaWithinItsLimits) {
    auto out = Default();
    m_hooks->onApply = [](OEMCUIPPARAM* param, IPrintOemDriverUI*) {
        auto* extra = reinterpret_cast<BYTE*>(param->pPublicDM) + 220;
        *reinterpret_cast<DWORD*>(extra + 152) = 123456;
        *reinterpret_cast<DWORD*>(extra + 156) = 99999999;
        *reinterpret_cast<WORD*>(extra + 168) = 1;
        FindPublic(param, DMPUB_FORMNAME)->Sel = 4;
    };
    ASSERT_EQ(OpenSheet(nullptr, out), static_cast<DWORD>(CPSUI_OK));
    EXPECT_EQ(Area(out).customWidth, 123456);
    EXPECT_EQ(Area(out).customHeight, 1200000);
    EXPECT_EQ(Area(out).customDirection, 1);
    EXPECT_EQ(Public(out).dmPaperSize, 0x7FFF);
    EXPECT_EQ(Public(out).dmPaperWidth, 1235);
}

TEST_F(DocumentSheetTest, RefusesToUpdateAForeignItemOrASelectionOutOfRange) {
    auto out = Default();
    m_hooks->onApply = [](OEMCUIPPARAM* param, IPrintOemDriverUI* helper) {
        OPTITEM foreign{};
        EXPECT_EQ(helper->DrvUpdateUISetting(param->poemuiobj, &foreign, 0, OEMCUIP_DOCPROP), E_INVALIDARG);
        OPTITEM* item = FindItem(param, "StapleMode");
        item->Sel = 3;
        EXPECT_EQ(helper->DrvUpdateUISetting(param->poemuiobj, item, 1, OEMCUIP_DOCPROP), E_INVALIDARG);
        EXPECT_EQ(item->Sel, 1);
    };
    EXPECT_EQ(OpenSheet(nullptr, out), static_cast<DWORD>(CPSUI_OK));
    EXPECT_NE(Calls().find("apply"), std::string::npos);
}

TEST_F(DocumentSheetTest, TellsAPluginWhichOptionAFeatureStandsAt) {
    auto out = Default();
    m_hooks->onApply = [](OEMCUIPPARAM* param, IPrintOemDriverUI* helper) {
        char option[8] = {};
        DWORD needed = 0;
        DWORD count = 0;
        EXPECT_EQ(helper->DrvGetDriverSetting(param->poemuiobj, "MirroredImage", option, sizeof option,
                                              &needed, &count),
                  S_OK);
        EXPECT_STREQ(option, "True");
        EXPECT_EQ(needed, 5u);
        EXPECT_EQ(count, 1u);
        EXPECT_EQ(helper->DrvGetDriverSetting(param->poemuiobj, "MirroredImage", option, 4, &needed, &count),
                  HRESULT_FROM_WIN32(ERROR_INSUFFICIENT_BUFFER));
        EXPECT_EQ(helper->DrvGetDriverSetting(param->poemuiobj, "Nothing", option, 8, &needed, &count),
                  E_NOTIMPL);
    };
    OpenSheet(nullptr, out);
    EXPECT_NE(Calls().find("apply"), std::string::npos);
}

TEST_F(DocumentSheetTest, TellsThePluginThatItsOwnItemsAreApplied) {
    auto out = Default();
    m_hooks->oemItems = 2;
    EXPECT_EQ(OpenSheet(nullptr, out), static_cast<DWORD>(CPSUI_OK));
    EXPECT_NE(Calls().find("Applied6"), std::string::npos);
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

TEST_F(DocumentSheetTest, RefusesABrokenDevModeWithAMessage) {
    auto in = Default();
    auto out = Default();
    Area(in).signature ^= 1;
    DOCUMENTPROPERTYHEADER header = Header(DM_IN_BUFFER | DM_OUT_BUFFER, &in, &out);
    EXPECT_EQ(DocumentFunction()(nullptr, reinterpret_cast<LPARAM>(&header)), -1);
    EXPECT_EQ(Message(), L"The DEVMODE is not one of this driver's: its signature differs.");
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

TEST_F(DocumentSheetTest, RefusesABlockThatADevModeCantHold) {
    m_hooks->blockSize = 0xFFFF;
    EXPECT_EQ(Size(), -1);
    m_hooks->blockSize = 4;
    EXPECT_EQ(Size(), -1);
}

TEST_F(DocumentSheetTest, RefusesABufferThatIsTooSmall) {
    std::vector<std::byte> out(Default().size() - 1);
    DOCUMENTPROPERTYHEADER header = Header(DM_OUT_BUFFER, nullptr, &out);
    EXPECT_EQ(DocumentFunction()(nullptr, reinterpret_cast<LPARAM>(&header)), -1);
    EXPECT_EQ(Message(), L"The caller's buffer is smaller than a whole DEVMODE.");
}

// The end of the buffer is the end of what may be read.
TEST_F(DocumentSheetTest, ReadsNothingBehindABufferThatIsTooSmallForASize) {
    SYSTEM_INFO system{};
    GetSystemInfo(&system);
    auto* pages = static_cast<std::byte*>(
        VirtualAlloc(nullptr, 2 * system.dwPageSize, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE));
    DWORD before = 0;
    ASSERT_TRUE(VirtualProtect(pages + system.dwPageSize, system.dwPageSize, PAGE_NOACCESS, &before));
    DOCUMENTPROPERTYHEADER header = Header(DM_OUT_BUFFER, nullptr, nullptr);
    header.cbOut = 69;
    header.pdmOut = reinterpret_cast<PDEVMODEW>(pages + system.dwPageSize - header.cbOut);
    EXPECT_EQ(DocumentFunction()(nullptr, reinterpret_cast<LPARAM>(&header)), -1);
    EXPECT_EQ(Message(), L"The caller's buffer is smaller than a whole DEVMODE.");
    VirtualFree(pages, 0, MEM_RELEASE);
}

TEST_F(DocumentSheetTest, LaysAHandMadeDevModeOverTheDefaults) {
    std::vector<std::byte> in(sizeof(DEVMODEW));
    Public(in).dmSize = sizeof(DEVMODEW);
    Public(in).dmFields = DM_COPIES | DM_PAPERSIZE;
    Public(in).dmCopies = 3;
    Public(in).dmPaperSize = DMPAPER_A3;
    auto out = Default();
    DOCUMENTPROPERTYHEADER header = Header(DM_IN_BUFFER | DM_OUT_BUFFER, &in, &out);
    ASSERT_EQ(DocumentFunction()(nullptr, reinterpret_cast<LPARAM>(&header)), IDOK);
    EXPECT_EQ(Public(out).dmCopies, 3);
    EXPECT_EQ(Public(out).dmPaperSize, DMPAPER_A3);
    EXPECT_EQ(Block(out).value, 7u);
}

TEST_F(DocumentSheetTest, ChecksADevModeAgainstItsTrueSize) {
    auto check = Function<PFNX100CHECKDEVMODE>(m_module, "X100CheckDevMode");
    auto in = Default();
    EXPECT_TRUE(check(nullptr, in.data(), static_cast<DWORD>(in.size())));
    EXPECT_FALSE(check(nullptr, in.data(), static_cast<DWORD>(in.size() - 1)));
    EXPECT_EQ(Message(), L"The DEVMODE says that it is longer than its buffer.");
}

class DeviceSheetTest : public X100DrvUiTest {
  protected:
    DWORD Open(WORD flags) {
        DEVICEPROPERTYHEADER header{sizeof(DEVICEPROPERTYHEADER), flags, nullptr, nullptr};
        DWORD result = 0xCDCDCDCD;
        CommonPropertySheetUIW(nullptr, Function<PFNDRVPROPERTYSHEETS>(m_module, "DrvDevicePropertySheets"),
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

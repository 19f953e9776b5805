// The document sheet's start and end, with a common property sheet of the test's own behind it.
#include "oemps/document_sheet.h"

#include "Common/ProfileInfo.h"
#include "oemps/devmode.h"
#include "oemps/module.h"
#include "oemps/sheet_state.h"
#include "pages/pspage.h"
#include "session/datamanager.h"
#include "session/session.h"
#include "settings/SettingManager.h"
#include "tests/support/message_box.h"
#include "tests/support/registry_override.h"
#include "tests/support/traces.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace {

struct AddedPage {
    WORD dialog;
    WORD title;
    DWORD flags;
    LPARAM param;
};

std::vector<AddedPage> addedPages;

LONG_PTR CALLBACK ComPropSheet(HANDLE, UINT function, LPARAM param1, LPARAM) {
    if (function != CPSFUNC_ADD_PROPSHEETPAGEA)
        return 0;
    const auto& page = *reinterpret_cast<const PROPSHEETPAGEA*>(param1);
    addedPages.push_back({LOWORD(page.pszTemplate), LOWORD(page.pszTitle), page.dwFlags, page.lParam});
    return static_cast<LONG_PTR>(0x100 + addedPages.size());
}

// A driver with a handful of items, as it stands before its sheet opens.
struct Driver {
    Driver() {
        heap = HeapCreate(0, 0, 0);
        CDevMode(record).SetDefault(kDevModeSize);
        record.dwSignature = kDevModeSignature;
        record.dwVersion = kDevModeVersion;
        std::strcpy(record.Profile, "office.cps");

        publicDM.devmode.dmSize = sizeof(DEVMODEW);
        publicDM.devmode.dmDriverVersion = 0x600;
        publicDM.devmode.dmDriverExtra = sizeof publicDM.extra;
        const DWORD width = 210000;
        std::memcpy(publicDM.extra + 152, &width, sizeof width);

        for (OPTITEM& item : items) {
            item = {};
            item.cbSize = sizeof item;
            item.Level = 1;
            item.pOptType = &optType;
        }
        optType.cbSize = sizeof optType;
        optType.Count = 2;

        param.cbSize = sizeof param;
        param.poemuiobj = reinterpret_cast<POEMUIOBJ>(0x77);
        param.hOEMHeap = heap;
        param.pPublicDM = &publicDM.devmode;
        param.pOEMDM = &record;
        param.pDrvOptItems = items.data();
        param.cDrvOptItems = static_cast<DWORD>(items.size());
        param.pOEMOptItems = &oemItem;

        sheet.cbSize = sizeof sheet;
        sheet.poemuiobj = param.poemuiobj;
        info.cbSize = sizeof info;
        info.Version = 0x100;
        info.hComPropSheet = reinterpret_cast<HANDLE>(0x55);
        info.pfnComPropSheet = ComPropSheet;
        info.lParamInit = reinterpret_cast<LPARAM>(&sheet);
    }
    ~Driver() { HeapDestroy(heap); }

    LONG_PTR Reason(WORD reason, LPARAM reasonParam = 0) {
        info.Reason = reason;
        info.Result = 0xBAD;
        status = hrOEMDocumentPropertySheets(&info, reasonParam, nullptr);
        return static_cast<LONG_PTR>(info.Result);
    }

    HANDLE heap;
    PrivateDevMode record{};
    struct {
        DEVMODEW devmode{};
        std::uint8_t extra[400] = {};
    } publicDM;
    OPTTYPE optType{};
    std::array<OPTITEM, 6> items;
    OPTITEM oemItem{};
    OEMCUIPPARAM param{};
    OEMUIPSPARAM sheet{};
    PROPSHEETUI_INFO info{};
    HRESULT status = E_UNEXPECTED;
};

class DocumentSheet : public testing::Test {
  protected:
    void SetUp() override {
        SetModuleHandle(GetModuleHandleA(nullptr));
        addedPages.clear();
        ASSERT_EQ(g_SheetCount, 0);
        ASSERT_EQ(g_SessionBlock, nullptr);
    }
    void TearDown() override {
        while (g_SheetCount > 0)
            driver.Reason(PROPSHEETUI_REASON_DESTROY);
        g_SheetCount = 0;
        g_SessionBlock = nullptr;
        CSessionAccessor::Release();
        CSettingManager::Destroy();
    }
    void Open() {
        ASSERT_EQ(hrDocumentPropertyPage(&driver.param), S_OK);
        driver.Reason(PROPSHEETUI_REASON_INIT);
        ASSERT_EQ(driver.status, S_OK);
    }
    // The path of a device profile, its directory made.
    std::string ProfilePath(std::string_view name) {
        return traces.MakeDirectories(FolderPath(CSIDL_COMMON_DOCUMENTS),
                                      {"Zephra", "KP Controller", "Orvane X100", "profile"}) +
               "\\" + std::string(name) + ".cps";
    }

    Traces traces;
    Driver driver;
};

std::vector<std::size_t> MarkedSlots() {
    std::vector<std::size_t> marked;
    for (std::size_t slot = 0; slot < ProcessProfile()->m_Item.size(); ++slot)
        if (ProcessProfile()->m_Item[slot].exists == 1)
            marked.push_back(slot);
    return marked;
}

// Gives the empty slots of the process's profile a name that no line has, so that lines reach the slots
// behind them.
class NamedEmptySlots {
  public:
    NamedEmptySlots() { SetNames("\x01"); }
    ~NamedEmptySlots() { SetNames(""); }
    NamedEmptySlots(const NamedEmptySlots&) = delete;
    NamedEmptySlots& operator=(const NamedEmptySlots&) = delete;

  private:
    static void SetNames(const char* name) {
        for (const std::size_t slot : {3, 5, 8, 9, 12, 13, 14, 15, 16, 17})
            ProcessProfile()->m_Item[slot].name = name;
    }
};

using Slots = std::vector<std::size_t>;

} // namespace

TEST_F(DocumentSheet, FirstCallWithoutItemsAsksForNone) {
    driver.param.pOEMOptItems = nullptr;
    driver.param.cOEMOptItems = 9;
    EXPECT_EQ(hrDocumentPropertyPage(&driver.param), S_OK);
    EXPECT_EQ(driver.param.cOEMOptItems, 0u);
    EXPECT_EQ(g_SessionBlock, nullptr);
    EXPECT_EQ(driver.items[0].Flags & OPTIF_HIDE, 0u);
}

TEST_F(DocumentSheet, SecondCallCreatesTheSessionAndHidesEveryItem) {
    ASSERT_EQ(hrDocumentPropertyPage(&driver.param), S_OK);
    ASSERT_NE(g_SessionBlock, nullptr);
    EXPECT_EQ(g_SessionBlock->hOEMHeap, driver.heap);
    EXPECT_EQ(g_SessionBlock->pOEMDM, &driver.record);
    EXPECT_EQ(g_SessionBlock->dmDriverVersion, 0x600);
    EXPECT_EQ(g_SessionBlock->pDrvExtra, driver.publicDM.extra);
    EXPECT_EQ(CSessionAccessor::Instance()->GetSession(), g_SessionBlock);
    for (const OPTITEM& item : driver.items)
        EXPECT_NE(item.Flags & OPTIF_HIDE, 0u);

    char key[260] = {};
    ExportedFunc_GetRegistryKeyName(key);
    EXPECT_STRNE(key, "");
    std::uint32_t width = 0;
    ExportedFunc_GetCurrent(keyword::CustomPaperWidth, &width);
    EXPECT_EQ(width, 210000u);
}

TEST_F(DocumentSheet, KeepsAwayFromADriverAreaThatIsTooSmall) {
    driver.publicDM.devmode.dmDriverExtra = 169;
    ASSERT_EQ(hrDocumentPropertyPage(&driver.param), S_OK);
    std::uint32_t width = 0;
    ExportedFunc_GetCurrent(keyword::CustomPaperWidth, &width);
    EXPECT_EQ(width, 0u);
}

TEST_F(DocumentSheet, WithoutAPrivateRecordHasNoSessionAndNoPages) {
    driver.param.pOEMDM = nullptr;
    EXPECT_EQ(hrDocumentPropertyPage(&driver.param), S_OK);
    EXPECT_EQ(g_SessionBlock, nullptr);
    EXPECT_EQ(driver.Reason(PROPSHEETUI_REASON_INIT), 0);
    EXPECT_TRUE(addedPages.empty());
}

TEST_F(DocumentSheet, AddsTheTwoPagesAndGivesTheSecondAsResult) {
    Open();
    ASSERT_EQ(addedPages.size(), 2u);
    const auto session = reinterpret_cast<LPARAM>(g_SessionBlock);
    EXPECT_EQ(addedPages[0].dialog, 1066);
    EXPECT_EQ(addedPages[0].title, 3131);
    EXPECT_EQ(addedPages[0].param, session);
    EXPECT_EQ(addedPages[1].dialog, 4007);
    EXPECT_EQ(addedPages[1].title, 2500);
    EXPECT_EQ(addedPages[1].param, session);
    for (const AddedPage& page : addedPages)
        EXPECT_EQ(page.flags, static_cast<DWORD>(PSP_USETITLE));
    EXPECT_EQ(driver.info.Result, 0x102u);
    EXPECT_EQ(g_SheetCount, 1);
    EXPECT_EQ(g_SheetThread, GetCurrentThreadId());
    EXPECT_EQ(g_SessionBlock->hResultPage, reinterpret_cast<HANDLE>(0x102));
    EXPECT_EQ(g_SessionBlock->hComPropSheet, reinterpret_cast<HANDLE>(0x55));
    EXPECT_EQ(g_SessionBlock->pfnComPropSheet, ComPropSheet);
    EXPECT_EQ(g_SessionBlock->poemuiobj, reinterpret_cast<POEMUIOBJ>(0x77));
    EXPECT_STREQ(g_SessionBlock->Profile, "office.cps");
}

TEST_F(DocumentSheet, ReadsTheDeviceProfileThatTheStoreNames) {
    traces.Write(ProfilePath("second office"), "HasOption_InputSlot=Tray2\r\n");
    std::strcpy(driver.record.Profile, "second office");
    Open();
    EXPECT_STREQ(g_SessionBlock->Profile, "second office");
    EXPECT_EQ(MarkedSlots(), Slots{1});
}

TEST_F(DocumentSheet, TakesADeviceWithoutAProfileFileForFullyFitted) {
    std::strcpy(driver.record.Profile, "missing");
    Open();
    EXPECT_EQ(MarkedSlots().size(), 149u);
}

TEST_F(DocumentSheet, OpensWithAProfileWhoseLineEndsWithATextsName) {
    const NamedEmptySlots named;
    traces.Write(ProfilePath("office"), "CustomPaperName2=Plain\nWatermark1\n");
    std::strcpy(driver.record.Profile, "office");
    Open();
    EXPECT_EQ(driver.status, S_OK);
    EXPECT_EQ(addedPages.size(), 2u);
    EXPECT_EQ(driver.info.Result, 0x102u);
    EXPECT_EQ(g_SheetCount, 1);
    EXPECT_EQ(ProcessProfile()->m_Item[30].value, "Plain") << "the line before";
    EXPECT_EQ(MarkedSlots(), Slots{});
}

TEST_F(DocumentSheet, OpensWhateverTheProfilesNameAndContent) {
    traces.Write(ProfilePath("hostile"), std::string(1 << 20, '?') + '\0' + "Watermark1");
    traces.MakeDirectory(ProfilePath("folder"));
    for (const std::string& name : {std::string("hostile"), std::string("folder"), std::string("..\\.."),
                                    std::string(255, 'n'), std::string("\x95")}) {
        driver.record.Profile[0] = '\0';
        std::strncat(driver.record.Profile, name.c_str(), sizeof driver.record.Profile - 1);
        Open();
        EXPECT_EQ(addedPages.size(), 2u) << name;
        EXPECT_EQ(g_SheetCount, 1) << name;
        if (name == "hostile")
            EXPECT_EQ(MarkedSlots(), Slots{3});
        else
            EXPECT_EQ(MarkedSlots().size(), 149u) << name;
        driver.Reason(PROPSHEETUI_REASON_DESTROY);
        addedPages.clear();
    }
}

TEST_F(DocumentSheet, AnswersTheReasonsThatOnlyAsk) {
    PROPSHEETUI_INFO_HEADER header{};
    EXPECT_EQ(driver.Reason(PROPSHEETUI_REASON_GET_INFO_HEADER, reinterpret_cast<LPARAM>(&header)), 1);
    EXPECT_STREQ(reinterpret_cast<const wchar_t*>(header.pTitle), L"OEM UI Page");
    SETRESULT_INFO given{};
    given.Result = 17;
    EXPECT_EQ(driver.Reason(PROPSHEETUI_REASON_SET_RESULT, reinterpret_cast<LPARAM>(&given)), 17);
    EXPECT_EQ(driver.Reason(PROPSHEETUI_REASON_GET_ICON), 0);
    EXPECT_EQ(driver.Reason(5), 0);
    EXPECT_EQ(driver.status, S_OK);
}

TEST_F(DocumentSheet, EndFreesTheSession) {
    Open();
    EXPECT_EQ(driver.Reason(PROPSHEETUI_REASON_DESTROY), 1);
    EXPECT_EQ(g_SheetCount, 0);
    EXPECT_EQ(g_SessionBlock, nullptr);
    EXPECT_EQ(CSessionAccessor::Instance()->GetSession(), nullptr);
}

TEST_F(DocumentSheet, EndOnAnotherThreadFreesNothing) {
    Open();
    SessionBlock* const block = g_SessionBlock;
    std::thread([&] { driver.Reason(PROPSHEETUI_REASON_DESTROY); }).join();
    EXPECT_EQ(g_SheetCount, 0);
    EXPECT_EQ(g_SessionBlock, block);
    EXPECT_EQ(CSessionAccessor::Instance()->GetSession(), block);
}

TEST_F(DocumentSheet, EndDestroysTheSettingManager) {
    Open();
    CSettingManager::GetSettingManager();
    driver.Reason(PROPSHEETUI_REASON_DESTROY);
    EXPECT_EQ(CSettingManager::Existing(), nullptr);
}

TEST_F(DocumentSheet, EndOnAnotherThreadKeepsTheSettingManager) {
    Open();
    CSettingManager* const manager = CSettingManager::GetSettingManager();
    std::thread([&] { driver.Reason(PROPSHEETUI_REASON_DESTROY); }).join();
    EXPECT_EQ(CSettingManager::Existing(), manager);
}

// Only a manager that is made anew loads the standard settings.
TEST_F(DocumentSheet, StartDestroysTheSettingManagerThatASheetLeftWhichEndedOnAnotherThread) {
    Open();
    CSettingManager::GetSettingManager();
    std::thread([&] { driver.Reason(PROPSHEETUI_REASON_DESTROY); }).join();
    ASSERT_NE(CSettingManager::Existing(), nullptr);
    Driver next;
    ASSERT_EQ(hrDocumentPropertyPage(&next.param), S_OK);
    EXPECT_NE(g_SessionBlock, nullptr);
    EXPECT_EQ(CSettingManager::Existing(), nullptr);
}

TEST_F(DocumentSheet, StartOfASecondSheetKeepsTheSettingManager) {
    Open();
    CSettingManager* const manager = CSettingManager::GetSettingManager();
    Driver second;
    ASSERT_EQ(hrDocumentPropertyPage(&second.param), S_OK);
    EXPECT_EQ(CSettingManager::Existing(), manager);
}

TEST_F(DocumentSheet, EndDestroysTheSettingManagerAlsoWithoutASession) {
    Open();
    Driver second;
    auto box = AnswerNextMessageBox();
    second.Reason(PROPSHEETUI_REASON_INIT);
    box.get();
    second.Reason(PROPSHEETUI_REASON_DESTROY);
    ASSERT_EQ(g_SessionBlock, nullptr);
    // The first sheet's page goes on and makes it anew.
    CSettingManager::GetSettingManager();
    driver.Reason(PROPSHEETUI_REASON_DESTROY);
    EXPECT_EQ(CSettingManager::Existing(), nullptr);
}

TEST_F(DocumentSheet, ForgetsASessionWhoseSheetNeverOpened) {
    ASSERT_EQ(hrDocumentPropertyPage(&driver.param), S_OK);
    driver.param.pOEMOptItems = nullptr;
    ASSERT_EQ(hrDocumentPropertyPage(&driver.param), S_OK);
    EXPECT_EQ(g_SessionBlock, nullptr);
    EXPECT_EQ(CSessionAccessor::Instance()->GetSession(), nullptr);
    EXPECT_EQ(driver.Reason(PROPSHEETUI_REASON_INIT), 0);
    EXPECT_TRUE(addedPages.empty());
}

TEST_F(DocumentSheet, EndAfterAFailedStartLeavesTheCountAt0) {
    EXPECT_EQ(driver.Reason(PROPSHEETUI_REASON_INIT), 0);
    driver.Reason(PROPSHEETUI_REASON_DESTROY);
    EXPECT_EQ(g_SheetCount, 0);
    Open();
    EXPECT_EQ(g_SheetCount, 1);
}

TEST_F(DocumentSheet, EndOfARefusedSecondSheetOnAnotherThreadKeepsTheFirstSheetsSession) {
    Open();
    Driver second;
    auto box = AnswerNextMessageBox();
    second.Reason(PROPSHEETUI_REASON_INIT);
    box.get();
    SessionBlock* const block = g_SessionBlock;
    std::thread([&] { second.Reason(PROPSHEETUI_REASON_DESTROY); }).join();
    EXPECT_EQ(g_SheetCount, 1);
    EXPECT_EQ(g_SessionBlock, block);
}

TEST_F(DocumentSheet, SecondSheetShowsTheMessageAndAddsNothing) {
    Open();
    Driver second;
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

TEST_F(DocumentSheet, EndOfARefusedSecondSheetFreesTheFirstSheetsSessionAndASecondFreeFreesNothing) {
    Open();
    Driver second;
    auto box = AnswerNextMessageBox();
    second.Reason(PROPSHEETUI_REASON_INIT);
    box.get();

    second.Reason(PROPSHEETUI_REASON_DESTROY);
    EXPECT_EQ(g_SheetCount, 1);
    EXPECT_EQ(g_SessionBlock, nullptr);
    EXPECT_EQ(driver.Reason(PROPSHEETUI_REASON_DESTROY), 1);
    EXPECT_EQ(g_SheetCount, 0);
}

TEST_F(DocumentSheet, WithoutDotNetCreatesNoSessionAndSaysWhy) {
    RegistryOverride machine(HKEY_LOCAL_MACHINE);
    driver.param.cOEMOptItems = 9;
    auto box = AnswerNextMessageBox();
    EXPECT_EQ(hrDocumentPropertyPage(&driver.param), S_OK);
    const MessageBoxSeen seen = box.get();
    EXPECT_EQ(seen.caption, "警告");
    EXPECT_EQ(seen.text, "Microsoft .Net Framework Version4.0 またはこれ以降のバージョンが見つかりません。\n"
                         "Microsoft .Net Framework4.0以降のバージョンをインストールしてください。");
    EXPECT_EQ(driver.param.cOEMOptItems, 0u);
    EXPECT_EQ(g_SessionBlock, nullptr);
}

TEST_F(DocumentSheet, WithoutDotNetAddsNoPages) {
    ASSERT_EQ(hrDocumentPropertyPage(&driver.param), S_OK);
    RegistryOverride machine(HKEY_LOCAL_MACHINE);
    auto box = AnswerNextMessageBox();
    driver.Reason(PROPSHEETUI_REASON_INIT);
    box.get();
    EXPECT_EQ(driver.status, static_cast<HRESULT>(0x80004005));
    EXPECT_TRUE(addedPages.empty());
}

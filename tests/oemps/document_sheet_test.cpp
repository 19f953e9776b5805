// The document sheet's start: its session, its pages and the device profile, and what it answers while it is
// open.
#include "Common/ProfileInfo.h"
#include "pages/pspage.h"
#include "session/datamanager.h"
#include "tests/oemps/document_sheet_fixture.h"
#include "tests/support/message_box.h"
#include "tests/support/registry_override.h"
#include "tests/support/traces.h"

#include <string>
#include <string_view>

namespace {

class DocumentSheet : public DocumentSheetTest {
  protected:
    // The path of a device profile, its directory made.
    std::string ProfilePath(std::string_view name) {
        return traces.MakeDirectories(FolderPath(CSIDL_COMMON_DOCUMENTS),
                                      {"Zephra", "KP Controller", "Orvane X100", "profile"}) +
               "\\" + std::string(name) + ".cps";
    }

    Traces traces;
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

TEST_F(DocumentSheet, ForgetsASessionWhoseSheetNeverOpened) {
    ASSERT_EQ(hrDocumentPropertyPage(&driver.param), S_OK);
    driver.param.pOEMOptItems = nullptr;
    ASSERT_EQ(hrDocumentPropertyPage(&driver.param), S_OK);
    EXPECT_EQ(g_SessionBlock, nullptr);
    EXPECT_EQ(CSessionAccessor::Instance()->GetSession(), nullptr);
    EXPECT_EQ(driver.Reason(PROPSHEETUI_REASON_INIT), 0);
    EXPECT_TRUE(addedPages.empty());
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

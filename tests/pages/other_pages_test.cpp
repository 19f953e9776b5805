#include "Common/ProfileInfo.h"
#include "pages/standardpage.h"
#include "tests/Common/short_memory.h"
#include "tests/pages/page_fixture.h"
#include "tests/support/main_log.h"
#include "tests/support/registry_override.h"
#include "tests/support/traces.h"

#include <set>
#include <string>
#include <vector>

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

class DeviceData : public PageTest {
  protected:
    // Writes a Feeder.dat for this print server, which the store then names.
    void WriteFeeder(const std::string& serverAddress, std::string_view content) {
        const std::string directory = traces.MakeDirectories(
            FolderPath(CSIDL_LOCAL_APPDATA), {"PrtSrv", "DriverResource", "10_" + serverAddress});
        traces.Write(directory + "\\Feeder.dat", content);
        ExportedFunc_SetServerAddress(serverAddress.c_str());
    }

    // A page that reads the device's data and then ends, so that no control needs memory.
    HWND PageThatBuildsNothing() {
        const HWND page = Open(1066, StandardPageProc);
        DestroyWindow(GetDlgItem(page, 1243));
        return page;
    }

    Traces traces;
};

TEST_F(DeviceData, OfTheStoresServerIsLoadedWhenTheStandardPageOpensAndAgainWithItsDefaults) {
    WriteFeeder("standard.page", "?Name?first\r\n");
    const HWND page = Open(1066, StandardPageProc);
    const DeviceRecordMap& feeder = ProcessProfile()->m_FeederInfo;
    EXPECT_EQ(feeder.All().at(0).at("Name"), "first");

    WriteFeeder("standard.page", "?Name?changed|?More?new\r\n");
    CStandardPageDlg(page, ProcessProfile()).OnDefault();
    EXPECT_EQ(feeder.All().at(0).at("Name"), "first");
    EXPECT_EQ(feeder.All().at(0).at("More"), "new");
}

TEST_F(DeviceData, HasADirectoryNamedByTheStoresServer) {
    ExportedFunc_SetServerAddress("192.168.0.9");
    PathBuffer path{};
    EXPECT_EQ(CPSPageDlg::GetDriverResourcePath(path), 1);
    EXPECT_EQ(path.data(), FolderPath(CSIDL_LOCAL_APPDATA) + "\\PrtSrv\\DriverResource\\10_192.168.0.9\\");
    ExportedFunc_SetServerAddress(std::string(259, 's').c_str());
    EXPECT_EQ(CPSPageDlg::GetDriverResourcePath(path), 1);
    EXPECT_EQ(std::string(path.data()).size(), 259u);
}

TEST_F(DeviceData, IsNotLoadedWithoutAProfileOrADirectory) {
    WriteFeeder("standard.page", "?Number?4\r\n");
    const HWND page = Open(1066, StandardPageProc);
    EXPECT_EQ(CStandardPageDlg(page, nullptr).Initialize(&block, 0), 1);

    RegistryOverride user(HKEY_CURRENT_USER);
    user.AddText("Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders",
                 "Local AppData", "C:\\no such folder");
    PathBuffer path{};
    ASSERT_EQ(CPSPageDlg::GetDriverResourcePath(path), 0);
    CProfileInfo fresh;
    EXPECT_EQ(CStandardPageDlg(page, &fresh).Initialize(&block, 0), 1);
    EXPECT_TRUE(fresh.m_FeederInfo.All().empty());
}

TEST_F(DeviceData, ThatMemoryDoesNotHoldLeavesThePageWithWhatWasRead) {
    WriteFeeder("standard.page", "?Number?4\n?Number?5|?Name?" + std::string(100, 'n') + "\n?Number?7\n");
    const HWND page = PageThatBuildsNothing();
    std::set<std::vector<int>> answers;
    for (std::size_t allocations = 0, records = 0; records < 3; ++allocations) {
        CProfileInfo fresh;
        {
            const ShortMemory memory(allocations);
            EXPECT_EQ(CStandardPageDlg(page, &fresh).Initialize(&block, 0), 0);
        }
        std::vector<int> trays(8);
        ASSERT_EQ(CProfileInfo::GetTrayConfig(trays.data(), 8, fresh.m_FeederInfo), 1);
        answers.insert(trays);
        records = fresh.m_FeederInfo.All().size();
        ASSERT_LT(allocations, 1000u);
    }
    EXPECT_TRUE(answers.contains({1, 1, 1, 1, 0, 0, 0, 1})) << "nothing read";
    EXPECT_TRUE(answers.contains({1, 1, 1, 1, 1, 0, 0, 1})) << "the first line";
    EXPECT_TRUE(answers.contains({1, 1, 1, 1, 1, 1, 0, 1})) << "two lines";
}

TEST_F(DeviceData, ThatMemoryDoesNotHoldIsLogged) {
    const MainLog log;
    WriteFeeder("standard.page", "?Number?4\n");
    const HWND page = PageThatBuildsNothing();
    CProfileInfo fresh;
    {
        const ShortMemory memory(0);
        CStandardPageDlg(page, &fresh).Initialize(&block, 0);
    }
    const std::vector<std::string> messages = log.Messages();
    ASSERT_FALSE(messages.empty());
    EXPECT_TRUE(messages.back().ends_with(" LoadDeviceDataFiles() std::bad_alloc")) << messages.back();
}

INT_PTR CALLBACK NoPageProc(HWND, UINT, WPARAM, LPARAM) {
    return 0;
}

class PageSizes : public PageTest {
  protected:
    RECT SizeOf(int templateId) {
        RECT size{};
        GetWindowRect(Open(templateId, NoPageProc), &size);
        OffsetRect(&size, -size.left, -size.top);
        return size;
    }
};

TEST_F(PageSizes, AreTheSameForBothPagesOfTheSheet) {
    const RECT standard = SizeOf(1066);
    const RECT advanced = SizeOf(4007);
    EXPECT_TRUE(EqualRect(&standard, &advanced));
}

} // namespace

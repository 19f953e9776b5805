// What callers give the module as a DEVMODE, and what it gives back.
#include "x100drvui_fixture.h"

namespace {

TEST_F(DocumentSheetTest, MergesABlockOfThePluginsSizeAndConvertsAnother) {
    auto in = Default();
    Block(in).value = 5;
    auto out = Default();
    ASSERT_EQ(TakeOver(in, out), IDOK);
    EXPECT_EQ(Block(out).value, 5u);
    EXPECT_EQ(Block(out).takenBy, OEMDM_MERGE);

    // The same settings with the block of a plug-in that had a smaller one.
    Block(in).header.dwSize -= 8;
    in.resize(in.size() - 8);
    Public(in).dmDriverExtra -= 8;
    Area(in).pluginSize -= 8;
    ASSERT_EQ(TakeOver(in, out), IDOK);
    EXPECT_EQ(Block(out).value, 5u);
    EXPECT_EQ(Block(out).takenBy, OEMDM_CONVERT);
}

TEST_F(DocumentSheetTest, ConvertsABlockOfAnotherVersion) {
    auto in = Default();
    Block(in).value = 5;
    ++Block(in).header.dwVersion;
    auto out = Default();
    ASSERT_EQ(TakeOver(in, out), IDOK);
    EXPECT_EQ(Block(out).value, 5u);
    EXPECT_EQ(Block(out).takenBy, OEMDM_CONVERT);
}

TEST_F(DocumentSheetTest, RefusesABlockOfAnotherPlugin) {
    auto check = FunctionOf<PFNX100CHECKDEVMODE>(m_module, "X100CheckDevMode");
    auto in = Default();
    Block(in).header.dwSignature ^= 1;
    auto out = Default();
    EXPECT_EQ(TakeOver(in, out), -1);
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
    EXPECT_EQ(TakeOver(in, out), -1);
    EXPECT_EQ(Message(), L"The lengths inside the plug-in's part of the DEVMODE contradict each other.");
}

TEST_F(DocumentSheetTest, RefusesABlockThatIsShorterThanItsHead) {
    auto in = Default();
    in.resize(in.size() - sizeof(TestBlock) + 11);
    Public(in).dmDriverExtra = static_cast<WORD>(in.size() - kPublicSize);
    Area(in).pluginSize = 11;
    auto out = Default();
    EXPECT_EQ(TakeOver(in, out), -1);
    EXPECT_EQ(Message(), L"The lengths inside the plug-in's part of the DEVMODE contradict each other.");
}

TEST_F(DocumentSheetTest, FailsOnACallersBlockThatThePluginDoesNotTake) {
    auto in = Default();
    auto out = Default();
    m_hooks->takeStatus = E_FAIL;
    EXPECT_EQ(TakeOver(in, out), -1);
    EXPECT_EQ(Message(), L"The plug-in fails to take over stored settings, status 0x80004005.");
}

TEST_F(DocumentSheetTest, RefusesABrokenDevModeWithAMessage) {
    auto in = Default();
    auto out = Default();
    Area(in).signature ^= 1;
    EXPECT_EQ(TakeOver(in, out), -1);
    EXPECT_EQ(Message(), L"The DEVMODE is not one of this driver's: its signature differs.");
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
    ASSERT_EQ(TakeOver(in, out), IDOK);
    EXPECT_EQ(Public(out).dmCopies, 3);
    EXPECT_EQ(Public(out).dmPaperSize, DMPAPER_A3);
    EXPECT_EQ(Block(out).value, 7u);
}

TEST_F(DocumentSheetTest, ChecksADevModeAgainstItsTrueSize) {
    auto check = FunctionOf<PFNX100CHECKDEVMODE>(m_module, "X100CheckDevMode");
    auto in = Default();
    EXPECT_TRUE(check(nullptr, in.data(), static_cast<DWORD>(in.size())));
    EXPECT_FALSE(check(nullptr, in.data(), static_cast<DWORD>(in.size() - 1)));
    EXPECT_EQ(Message(), L"The DEVMODE says that it is longer than its buffer.");
}

} // namespace

// The job owner's data in a driver's merge: how the printer's name leads to the user's key, and what is left
// where it leads nowhere.
#include "tests/Common/short_memory.h"
#include "tests/oemps/overlay_fixture.h"
#include "tests/support/main_log.h"
#include "tests/support/spooler_printer.h"

namespace {

class OwnerMerge : public OverlayFixture {
  protected:
    // Merges with memory for ever more allocations, till there is enough. None fails, and each leaves the
    // owner's fields cleared or as expected.
    void ExpectClearedOr(const OwnerFields& expected) const {
        const std::string cleared = With(BytesOf(StoredRecord()), {});
        const std::string whole = With(BytesOf(StoredRecord()), expected);
        constexpr std::size_t kEnough = 60;
        for (std::size_t allocations = 1; allocations <= kEnough; ++allocations) {
            PrivateDevMode target = PreparedRecord();
            HRESULT result = E_UNEXPECTED;
            {
                const ShortMemory memory(allocations);
                result = Request(OEMDM_MERGE, target);
            }
            EXPECT_EQ(result, S_OK) << allocations;
            const std::string bytes = BytesOf(target);
            const bool mayBeWhole = allocations > 1 && bytes == whole;
            EXPECT_EQ(Difference(bytes, mayBeWhole || allocations == kEnough ? whole : cleared), "")
                << allocations;
        }
    }

    // A user's data below the printer's name and this GUID are laid over what is merged for it.
    void ExpectOwnerOf(const SpoolerPrinter& named, const std::string& guid) {
        DWORD mode = 4;
        SetPrinterDataExA(named.Handle(), "PrinterDriverData", "ManageMethod", REG_DWORD,
                          reinterpret_cast<BYTE*>(&mode), sizeof mode);
        const std::string key =
            "Software\\Zephra\\ZR Print Driver Data\\" + named.Name() + guid + "\\UserInfo";
        for (const char* name : kOwnerValues)
            user.AddText(key.c_str(), name, name);
        printer = named.Handle();
        ExpectMerge({4, 1, "JobOwnerName_User", "JobOwnerNamePassword_User", "AccountID_User"});
    }
};

TEST_F(OwnerMerge, FindsTheKeyOfAPrinterWhoseNameHasBackslashesInItsCharactersAndCommas) {
    const SpoolerPrinter named("表示,予定表");
    user.AddText("Printers\\Connections\\,,server,別の表", "GuidPrinter", "{A}");
    user.AddText(("Printers\\Connections\\,,server," + named.Name()).c_str(), "GuidPrinter", "{B}");
    ExpectOwnerOf(named, "{B}");
}

TEST_F(OwnerMerge, FindsTheKeyOfAPrinterThatHasNoConnectionByItsNameAlone) {
    const SpoolerPrinter named("Owner Overlay Local");
    ExpectOwnerOf(named, "");
}

TEST_F(OwnerMerge, FindsTheKeyOfALongName) {
    const std::string name = "Owner Overlay " + std::string(180, 'n');
    const SpoolerPrinter named(name);
    ExpectOwnerOf(named, "");
}

// A registry key's name has at most 255 characters.
TEST_F(OwnerMerge, OfANameThatNoKeyCanHaveIsTheLoggedInUser) {
    std::string name(1000, 'n');
    std::string text;
    CDevMode::GetAuthenticatInfo(name, text);
    SetMode("\x01");
    PrivateDevMode record = StrangeRecord();
    const std::string wanted = With(BytesOf(record), {1, 0, LoggedInName(), "", ""});
    OverWriteRegistryAuthenticationInfo(record, printerInfo, printer, text);
    EXPECT_EQ(Difference(BytesOf(record), wanted), "");
}

TEST_F(OwnerMerge, OfARecordOfAnotherVersionIsLaidOverAllTheSame) {
    SetMode("\x01");
    SetAllValues();
    PrivateDevMode target = PreparedRecord();
    PrivateDevMode source = StoredRecord();
    source.dwVersion = 1;
    EXPECT_EQ(Request(OEMDM_MERGE, target, source), S_OK);
    EXPECT_STREQ(target.UserComment, "");
    EXPECT_EQ(target.ManageMethod + 0, 1u);
    EXPECT_EQ(target.SpecifyJobOwnerName + 0, 1u);
    EXPECT_STREQ(target.AuthJobUserId, "hanako");
}

TEST_F(OwnerMerge, WithoutPrinterInformationFailsAndLeavesTheMergedRecord) {
    SpoolerPrinter gone("Owner Overlay Gone");
    gone.Delete();
    HANDLE closed = nullptr;
    ASSERT_TRUE(OpenPrinterA(printerName.data(), &closed, nullptr));
    ClosePrinter(closed);
    for (HANDLE none : {gone.Handle(), closed, HANDLE{nullptr}}) {
        PrivateDevMode target = PreparedRecord();
        printer = none;
        EXPECT_EQ(Request(OEMDM_MERGE, target), static_cast<HRESULT>(0x80004005));
        EXPECT_EQ(Difference(BytesOf(target), BytesOf(StoredRecord())), "");
    }
}

TEST_F(OwnerMerge, WithoutMemoryForThePrinterInformationFailsAndLeavesTheMergedRecord) {
    PrivateDevMode target = PreparedRecord();
    HRESULT result = S_OK;
    {
        const ShortMemory none(0);
        result = Request(OEMDM_MERGE, target);
    }
    EXPECT_EQ(result, static_cast<HRESULT>(0x80004005));
    EXPECT_EQ(Difference(BytesOf(target), BytesOf(StoredRecord())), "");
}

TEST_F(OwnerMerge, LogsThatThePrinterCantBeAsked) {
    const MainLog log;
    printer = nullptr;
    PrivateDevMode target = PreparedRecord();
    Request(OEMDM_MERGE, target);
    EXPECT_TRUE(log.HasLogged("no printer information"));
}

TEST_F(OwnerMerge, WhoseMemoryEndsAnywhereLeavesNothingOfTheStoredOwner) {
    SetMode("\x01");
    ExpectClearedOr({1, 0, LoggedInName(), "", ""});
    SetAllValues();
    ExpectClearedOr({1, 1, "hanako", "s e c r e t", "A-17"});
    DeleteValue("AccountID_User");
    ExpectClearedOr({});
}

TEST_F(OwnerMerge, LogsThatItsMemoryEnded) {
    SetMode("\x01");
    const MainLog log;
    PrivateDevMode target = PreparedRecord();
    {
        const ShortMemory memory(1);
        Request(OEMDM_MERGE, target);
    }
    EXPECT_TRUE(log.HasLogged("no memory for the owner's data"));
}

TEST_F(OwnerMerge, CleansTheTextsThatAConversionLeaves) {
    PrivateDevMode source = PreparedRecord();
    std::strcpy(source.UserComment, "first\tsecond\n");
    source.Modified = 7;
    PrivateDevMode target = PreparedRecord();
    EXPECT_EQ(Request(OEMDM_CONVERT, target, source), S_OK);
    EXPECT_STREQ(target.UserComment, "first\tsecond\n");
    EXPECT_EQ(target.Modified + 0, 7u);
    EXPECT_EQ(Request(OEMDM_MERGE, target, source), S_OK);
    EXPECT_STREQ(target.UserComment, "firstsecond");
    EXPECT_EQ(target.Modified + 0, 1u);
}

TEST_F(OwnerMerge, AloneLaysTheOwnerOver) {
    SetMode("\x01");
    SetAllValues();
    PrivateDevMode target = PreparedRecord();
    EXPECT_EQ(Request(OEMDM_CONVERT, target), S_OK);
    EXPECT_EQ(Difference(BytesOf(target), BytesOf(StoredRecord())), "");
    EXPECT_EQ(Request(OEMDM_DEFAULT, target), S_OK);
    EXPECT_EQ(target.ManageMethod + 0, 0u);
}

} // namespace

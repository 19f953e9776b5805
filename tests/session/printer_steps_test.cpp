// What the start of a sheet takes from the spooler: features, form names, the stored DEVMODE.
#include "fake_spooler.h"
#include "sheet_fixture.h"

#include <cstring>

namespace {

class PrinterSteps : public SheetTest {
  protected:
    static std::string FormAt(std::uint32_t index) {
        const char* name = nullptr;
        EXPECT_EQ(CSession::GetFormsInfo(index, &name), 1);
        return name ? name : "";
    }

    static int AdvancedFeatures() { return ReadNumber(ExportedFunc_GetAdvancedPrinterFeatures); }

    // The bytes of a stored DEVMODE whose head tells these sizes.
    static std::vector<std::byte> DevModeBytes(WORD size, WORD extra, std::size_t bytes) {
        DEVMODEA head{};
        head.dmSize = size;
        head.dmDriverExtra = extra;
        std::vector<std::byte> all(bytes, std::byte{0x55});
        std::memcpy(all.data(), &head, std::min(bytes, sizeof head));
        return all;
    }
};

class FormNames : public PrinterSteps {};
class StoredDevMode : public PrinterSteps {};

TEST_F(PrinterSteps, WithoutAPrinterTheAdvancedFeaturesAreOffAndTheRestIsDone) {
    ExportedFunc_SetAdvancedPrinterFeatures(1);
    driver.AddFeature("StapleMode", 0, 3);
    Bind();
    EXPECT_EQ(AdvancedFeatures(), 0);
    EXPECT_EQ(Preview(111), 3u);
}

TEST_F(PrinterSteps, AnInvalidPrinterHandleIsSurvived) {
    block.hPrinter = INVALID_HANDLE_VALUE;
    driver.AddFeature("StapleMode", 0, 3);
    Bind();
    EXPECT_EQ(Preview(111), 3u);
}

TEST_F(PrinterSteps, AdvancedFeaturesAreOnUnlessThePrinterIsRawOnly) {
    FakeSpooler spooler;
    spooler.attributes = ~0x1000u;
    Bind();
    EXPECT_EQ(AdvancedFeatures(), 1);
    spooler.attributes = 0x1000;
    Bind();
    EXPECT_EQ(AdvancedFeatures(), 0);
}

TEST_F(PrinterSteps, WithoutMemoryForThePrintersInfoTheSheetGoesOn) {
    FakeSpooler spooler;
    spooler.hugePrinterInfo = true;
    driver.AddFeature("StapleMode", 0, 3);
    Bind();
    EXPECT_EQ(AdvancedFeatures(), 0);
    EXPECT_EQ(Preview(111), 3u);
}

TEST_F(FormNames, StandInSlotsOf64Bytes) {
    FakeSpooler spooler;
    spooler.forms = {"A4", "B5", "Letter"};
    Bind();
    EXPECT_EQ(CSession::GetFormsCount(), 3);
    EXPECT_EQ(FormAt(0), "A4");
    EXPECT_EQ(FormAt(2), "Letter");
    const char* first = nullptr;
    const char* second = nullptr;
    CSession::GetFormsInfo(0, &first);
    CSession::GetFormsInfo(1, &second);
    EXPECT_EQ(second - first, 64);
}

TEST_F(FormNames, OfALaterSheetReplaceThoseOfAnEarlierOne) {
    FakeSpooler spooler;
    spooler.forms = {"A4", "B5"};
    Bind();
    spooler.forms = {"Legal"};
    Bind();
    EXPECT_EQ(CSession::GetFormsCount(), 1);
    EXPECT_EQ(FormAt(0), "Legal");
    EXPECT_EQ(FormAt(1), "");
}

TEST_F(FormNames, AnEmptyListKeepsTheEarlierNamesWhileTheCountSays0) {
    FakeSpooler spooler;
    spooler.forms = {"A4", "B5"};
    Bind();
    spooler.forms.clear();
    Bind();
    EXPECT_EQ(CSession::GetFormsCount(), 0);
    EXPECT_EQ(FormAt(1), "B5");
}

TEST_F(FormNames, AFailingDriverCountsAs0) {
    FakeSpooler spooler;
    spooler.formCount = -1;
    Bind();
    EXPECT_EQ(CSession::GetFormsCount(), 0);
}

TEST_F(FormNames, TheIndexIsHeldAgainstTheBufferAndNotTheCount) {
    FakeSpooler spooler;
    spooler.forms = {"A4"};
    Bind();
    const char* name = nullptr;
    EXPECT_EQ(CSession::GetFormsInfo(1, &name), 1);
    EXPECT_EQ(CSession::GetFormsInfo(63, &name), 1); // one name has room for 64 slots
    EXPECT_EQ(CSession::GetFormsInfo(64, &name), 0);
    EXPECT_EQ(CSession::GetFormsInfo(0xFFFFFFFF, &name), 0);
}

TEST_F(FormNames, OfAPrinterThatCannotBeReadStayAsTheyAre) {
    FakeSpooler spooler;
    spooler.forms = {"A4"};
    Bind();
    spooler.attributes = std::nullopt;
    spooler.forms = {"B5"};
    Bind();
    EXPECT_EQ(FormAt(0), "A4");
}

TEST_F(StoredDevMode, OfTheUserIsEnough) {
    FakeSpooler spooler;
    spooler.perUserDevMode = DevModeBytes(156, 24112, 156 + 24112);
    Bind();
    EXPECT_EQ(spooler.documentPropertiesCalls, 1);
    EXPECT_EQ(spooler.levelsFetched, (std::vector<DWORD>{2, 9}));
}

TEST_F(StoredDevMode, OfThePrinterIsAskedForIfTheUserHasNone) {
    FakeSpooler spooler;
    spooler.printerDevMode = DevModeBytes(156, 24112, 156 + 24112);
    Bind();
    EXPECT_EQ(spooler.levelsFetched, (std::vector<DWORD>{2, 9, 8}));
}

TEST_F(StoredDevMode, WithSizesThatLieIsSurvived) {
    FakeSpooler spooler;
    for (const auto& bytes :
         {DevModeBytes(0xFFFF, 0xFFFF, 400), DevModeBytes(0, 0, 400), DevModeBytes(156, 24112, 157),
          DevModeBytes(0, 24112, 24112), DevModeBytes(1, 1, 3)}) {
        spooler.perUserDevMode = bytes;
        Bind();
    }
}

TEST_F(StoredDevMode, OutsideTheSpoolersAnswerIsNotRead) {
    FakeSpooler spooler;
    for (const std::uintptr_t address : {std::uintptr_t{0x10}, ~std::uintptr_t{0xFF}}) {
        spooler.perUserPointer = reinterpret_cast<DEVMODEA*>(address);
        Bind();
    }
    EXPECT_EQ(spooler.levelsFetched, (std::vector<DWORD>{2, 9, 2, 9}));
}

TEST_F(StoredDevMode, WithoutMemoryForThePrintersOneTheStartEndsEarly) {
    FakeSpooler spooler;
    spooler.hugeDefaultInfo = true;
    SetCustomPageOfDriver(210000, 297000, 1);
    driver.AddFeature("StapleMode", 0, 3);
    record->PrintPositionFrontWidth = 5;
    Bind();
    EXPECT_EQ(Current(111), 3u);
    EXPECT_EQ(ReadNumber(ExportedFunc_GetPrintPositionFrontWidth), 5);
    EXPECT_EQ(Current(301), 0u);
    EXPECT_EQ(Preview(111), 0u);
}

} // namespace

// The job owner's data from the spooler and the registry, each whole record being compared.
#include "oemps/authentication_overlay.h"

#include "Common/error_message.h"
#include "tests/Common/short_memory.h"
#include "tests/oemps/overlay_fixture.h"
#include "tests/support/handle_count.h"
#include "tests/support/main_log.h"

namespace {

using AuthenticationOverlay = OverlayFixture;

const OwnerFields kCleared{};
constexpr DWORD kTypes[] = {REG_SZ, REG_EXPAND_SZ, REG_BINARY, REG_DWORD, REG_MULTI_SZ};
const std::string kMegabyte(1 << 20, '\x07');

// The six outcomes.

TEST_F(AuthenticationOverlay, WithoutAPrintersNameIsCleared) {
    SetMode("\x01");
    SetAllValues();
    printerInfo.pPrinterName = nullptr;
    ExpectOverlay(kCleared);
}

TEST_F(AuthenticationOverlay, WithoutTheUsersKeyIsClearedInMode0) {
    SetMode(std::string(1, '\0'));
    ExpectBoth(kCleared);
}

TEST_F(AuthenticationOverlay, WithoutTheUsersKeyIsTheLoggedInUserInAnotherMode) {
    SetMode("\x01");
    ASSERT_NE(LoggedInName(), "");
    ExpectBoth({1, 0, LoggedInName(), "", ""});
}

TEST_F(AuthenticationOverlay, WithoutOneOfTheUsersValuesIsCleared) {
    SetMode("\x01");
    for (const char* name : kOwnerValues) {
        SetAllValues();
        DeleteValue(name);
        SCOPED_TRACE(name);
        ExpectBoth(kCleared);
    }
}

TEST_F(AuthenticationOverlay, WithAllValuesIsClearedInMode0) {
    SetMode(std::string(1, '\0'));
    SetAllValues();
    ExpectBoth(kCleared);
}

TEST_F(AuthenticationOverlay, WithAllValuesTakesThemInAnotherMode) {
    SetMode("\x01");
    SetAllValues();
    ExpectBoth({1, 1, "hanako", "s e c r e t", "A-17"});
}

// "SpecifyJobOwnerName_User" must be there, and what it says is passed over.
TEST_F(AuthenticationOverlay, TakesTheStoredOwnerEvenWhereTheUserWantsTheLoginName) {
    SetMode("\x02");
    SetAllValues();
    user.AddText(userKey.c_str(), "SpecifyJobOwnerName_User", "LoginName");
    ExpectBoth({2, 1, "hanako", "s e c r e t", "A-17"});
}

TEST_F(AuthenticationOverlay, WithoutAModeIsClearedEvenWithAllValues) {
    SetAllValues();
    ExpectBoth(kCleared);
}

TEST_F(AuthenticationOverlay, WithoutAModeAndAKeyIsClearedAsInMode0) {
    ExpectBoth(kCleared);
    PrivateDevMode record = StrangeRecord();
    EXPECT_EQ(OverWriteRegistryData(printerInfo, record, printer, keyText), 1);
    SetAllValues();
    EXPECT_EQ(OverWriteRegistryData(printerInfo, record, printer, keyText), 0);
}

// What the printer's data may hold.

TEST_F(AuthenticationOverlay, TakesTheFirstByteOfAModeOfAnyTypeAndSize) {
    SetAllValues();
    for (const DWORD type : {REG_BINARY, REG_DWORD})
        for (const std::string& mode : {std::string("\x07"), std::string("\x07\xFF\xFF\xFF"), kMegabyte}) {
            SetMode(mode, type);
            SCOPED_TRACE(std::to_string(type) + ", " + std::to_string(mode.size()));
            ExpectBoth({7, 1, "hanako", "s e c r e t", "A-17"});
        }
    SetMode("\xFF");
    ExpectBoth({255, 1, "hanako", "s e c r e t", "A-17"});
    SetMode(std::string("3") + '\0', REG_SZ);
    ExpectBoth({'3', 1, "hanako", "s e c r e t", "A-17"});
}

TEST_F(AuthenticationOverlay, TakesAModeOfNoBytesAs0) {
    SetAllValues();
    SetMode("");
    ExpectBoth(kCleared);
    PrivateDevMode record = StrangeRecord();
    EXPECT_EQ(OverWriteRegistryData(printerInfo, record, printer, keyText), 1);
}

TEST_F(AuthenticationOverlay, WhoseModeIs0InItsFirstByteAloneIsCleared) {
    SetAllValues();
    SetMode(std::string("\0\x01\x01\x01", 4), REG_DWORD);
    ExpectBoth(kCleared);
}

TEST_F(AuthenticationOverlay, WithoutMemoryForTheModeIsCleared) {
    SetMode("\x01");
    SetAllValues();
    PrivateDevMode record = StrangeRecord();
    const std::string wanted = With(BytesOf(record), kCleared);
    {
        const ShortMemory none(0);
        OverWriteRegistryAuthenticationInfo(record, printerInfo, printer, keyText);
    }
    EXPECT_EQ(Difference(BytesOf(record), wanted), "");
}

// What the user's key may hold.

TEST_F(AuthenticationOverlay, WithAValueThatDoesNotFitIsCleared) {
    SetMode("\x01");
    for (const char* name : kOwnerValues)
        for (const std::string& bytes : {std::string(257, 'x'), std::string(256, 'x') + '\0', kMegabyte}) {
            SetAllValues();
            SetValue(name, bytes);
            SCOPED_TRACE(std::string(name) + ", " + std::to_string(bytes.size()));
            ExpectBoth(kCleared);
        }
}

TEST_F(AuthenticationOverlay, TakesValuesOf256BytesWithoutANul) {
    SetMode("\x01");
    const std::string full(256, 'x');
    for (const DWORD type : {REG_BINARY, REG_SZ}) {
        SetAllValues();
        SetValue("SpecifyJobOwnerName_User", full, type);
        SetValue("JobOwnerName_User", full, type);
        ExpectBoth({1, 1, full, "s e c r e t", "A-17"});
        SetValue("JobOwnerNamePassword_User", full, type);
        ExpectBoth({1, 1, full, full, "A-17"});
        SetValue("AccountID_User", full, type);
        ExpectBoth({1, 1, full, full, full});
    }
}

TEST_F(AuthenticationOverlay, TakesValuesOfNoBytesAsEmpty) {
    SetMode("\x01");
    SetAllValues();
    SetValue("SpecifyJobOwnerName_User", "");
    SetValue("JobOwnerName_User", "");
    ExpectBoth({1, 1, "", "s e c r e t", "A-17"});
    SetValue("JobOwnerNamePassword_User", "");
    ExpectBoth({1, 1, "", "", "A-17"});
    SetValue("AccountID_User", "");
    ExpectBoth({1, 1, "", "", ""});
}

TEST_F(AuthenticationOverlay, TakesValuesOfAnyTypeAsText) {
    SetMode("\x01");
    for (const DWORD type : kTypes) {
        SCOPED_TRACE(type);
        SetAllValues();
        for (const char* name : kOwnerValues)
            SetValue(name, std::string("ab\0d", 4), type);
        ExpectBoth({1, 1, "ab", "ab", "ab"});
        for (const char* name : kOwnerValues)
            SetValue(name, "abcd", type);
        ExpectBoth({1, 1, "abcd", "abcd", "abcd"});
    }
}

TEST_F(AuthenticationOverlay, TakesTextsOfDoubleByteCharacters) {
    SetMode("\x01");
    SetAllValues();
    user.AddText(userKey.c_str(), "JobOwnerName_User", "表示 予定表");
    user.AddText(userKey.c_str(), "AccountID_User", "営業\\第ソ課");
    ExpectBoth({1, 1, "表示 予定表", "s e c r e t", "営業\\第ソ課"});
}

// The password is copied byte for byte.
TEST_F(AuthenticationOverlay, LeavesThePasswordAsItIsStored) {
    SetMode("\x01");
    SetAllValues();
    std::string bytes;
    for (int code = 1; code < 256; ++code)
        bytes += static_cast<char>(code);
    SetValue("JobOwnerNamePassword_User", bytes);
    ExpectBoth({1, 1, "hanako", bytes, "A-17"});
}

// Printers that go, and keys that can't be.

TEST_F(AuthenticationOverlay, OfAPrinterThatIsGoneIsCleared) {
    SetAllValues();
    SpoolerPrinter gone("Owner Overlay Gone");
    DWORD mode = 1;
    SetPrinterDataExA(gone.Handle(), "PrinterDriverData", "ManageMethod", REG_DWORD,
                      reinterpret_cast<BYTE*>(&mode), sizeof mode);
    printer = gone.Handle();
    ExpectOverlay({1, 1, "hanako", "s e c r e t", "A-17"});
    gone.Delete();
    ExpectOverlay(kCleared);
}

TEST_F(AuthenticationOverlay, OfAHandleThatIsNoneIsCleared) {
    SetAllValues();
    for (HANDLE none : {HANDLE{nullptr}, INVALID_HANDLE_VALUE, reinterpret_cast<HANDLE>(0x7777)}) {
        printer = none;
        ExpectOverlay(kCleared);
    }
}

TEST_F(AuthenticationOverlay, OfAKeyTextOfAnyLengthIsTheLoggedInUser) {
    SetMode("\x01");
    for (const std::string& text : {std::string(1000, 'k'), std::string(100000, 'k'), std::string("%s%n")}) {
        PrivateDevMode record = StrangeRecord();
        const std::string wanted = With(BytesOf(record), {1, 0, LoggedInName(), "", ""});
        EXPECT_EQ(OverWriteRegistryAuthenticationInfo(record, printerInfo, printer, text), 1);
        EXPECT_EQ(Difference(BytesOf(record), wanted), "") << text.size();
    }
}

// What stays behind.

class OverlayHandles : public OverlayFixture {
  protected:
    static constexpr int kOverlays = 25;

    int HandlesKept() {
        PrivateDevMode record = StrangeRecord();
        OverWriteRegistryAuthenticationInfo(record, printerInfo, printer, keyText);
        const int before = CountHandles();
        for (int i = 0; i < kOverlays; ++i)
            OverWriteRegistryAuthenticationInfo(record, printerInfo, printer, keyText);
        return CountHandles() - before;
    }
};

TEST_F(OverlayHandles, OfTheUsersKeyStayOpenWhereAllIsThere) {
    SetMode("\x01");
    SetAllValues();
    EXPECT_EQ(HandlesKept(), kOverlays);
    SetMode(std::string(1, '\0'));
    EXPECT_EQ(HandlesKept(), kOverlays);
}

TEST_F(OverlayHandles, AreClosedOnEveryOtherWay) {
    SetMode("\x01");
    EXPECT_EQ(HandlesKept(), 0) << "no key";
    SetAllValues();
    DeleteValue("AccountID_User");
    EXPECT_EQ(HandlesKept(), 0) << "a value is missing";
    SetAllValues();
    DeleteMode();
    EXPECT_EQ(HandlesKept(), 0) << "no mode";
    printer = nullptr;
    EXPECT_EQ(HandlesKept(), 0) << "no printer";
    printerInfo.pPrinterName = nullptr;
    EXPECT_EQ(HandlesKept(), 0) << "no name";
}

TEST_F(AuthenticationOverlay, LogsEachWayOnWhichTheOwnerCantBeTold) {
    MainLog log;
    const auto hasLogged = [&](const std::string& text) {
        log.Forget();
        PrivateDevMode record = StrangeRecord();
        OverWriteRegistryAuthenticationInfo(record, printerInfo, printer, keyText);
        return log.HasLogged(text);
    };
    EXPECT_TRUE(hasLogged("ManageMethod size, status=2"));
    EXPECT_TRUE(hasLogged("RegOpenKeyEx status=2"));
    SetAllValues();
    EXPECT_TRUE(hasLogged("the owner can't be told"));
    SetMode("\x01");
    EXPECT_FALSE(hasLogged("the owner can't be told"));
    DeleteValue("JobOwnerName_User");
    EXPECT_TRUE(hasLogged("JobOwnerName_User status=2"));
    EXPECT_TRUE(hasLogged(ErrorMessage(2)));
    EXPECT_TRUE(hasLogged("the owner can't be told"));
    {
        log.Forget();
        PrivateDevMode record = StrangeRecord();
        const ShortMemory none(0);
        OverWriteRegistryData(printerInfo, record, printer, keyText);
    }
    EXPECT_TRUE(log.HasLogged("no memory for 1 bytes"));
    printerInfo.pPrinterName = nullptr;
    EXPECT_TRUE(hasLogged("no printer name"));
}

TEST_F(AuthenticationOverlay, LogsTheKeyAndWhatFailedButNothingOfTheOwner) {
    SetMode("\x01");
    SetAllValues();
    const MainLog log;
    ExpectBoth({1, 1, "hanako", "s e c r e t", "A-17"});
    SetValue("AccountID_User", std::string(300, 'A'));
    ExpectBoth(kCleared);
    std::string all;
    for (const std::string& message : log.Messages())
        all += message + '\n';
    EXPECT_NE(all.find(userKey), all.npos);
    EXPECT_NE(all.find("AccountID_User status=234"), all.npos);
    for (const char* secret : {"hanako", "s e c r e t", "A-17", "AAA", "OwnerName\n"})
        EXPECT_EQ(all.find(secret), all.npos) << secret;
}

} // namespace

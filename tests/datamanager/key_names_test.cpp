#include "datamanager/key_names.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(DataSettingKeyName, TellsProcessAndStampInSixteenDigits) {
    EXPECT_EQ(DataSettingKeyName(0x1A4, 0xBEEF), "Software\\Zephra\\QPSP\\DataSet_000001A40000BEEF");
    EXPECT_EQ(DataSettingKeyName(0xFFFFFFFF, 0xFFFFFFFF), "Software\\Zephra\\QPSP\\DataSet_FFFFFFFFFFFFFFFF");
}

TEST(DataSettingKeyName, HasItsIdEightCharactersBehindTheLastBackslash) {
    const std::string key = DataSettingKeyName(0x1A4, 0xBEEF);
    const std::size_t n = key.rfind('\\') + 1;
    EXPECT_EQ(key.substr(n + 8), "000001A40000BEEF");
    EXPECT_LE(key.size() - (n + 8), n) << "the id's reader takes no more characters than the offset";
}

TEST(DataSettingKeyName, IsKnownAgain) {
    EXPECT_TRUE(IsDataSettingKeyName(DataSettingKeyName(0x1A4, 0xBEEF)));
}

TEST(DataSettingKeyName, IsNoOtherName) {
    for (const char* name :
         {"", "Software", "Software\\Zephra\\QPSP", "Software\\Zephra\\QPSP\\",
          "Software\\Zephra\\QPSP\\DataSet_", "Software\\Zephra\\QPSP\\DataSet_000001A40000BEE",
          "Software\\Zephra\\QPSP\\DataSet_000001A40000BEEF0",
          "Software\\Zephra\\QPSP\\DataSet_000001A40000BEEF\\",
          "Software\\Zephra\\QPSP\\DataSet_000001A4\\000BEEF",
          "Software\\Zephra\\QPSP\\DataSet_000001a40000beef",
          "Software\\Zephra\\QPSP\\..\\DataSet_000001A40000BEEF",
          "\\Software\\Zephra\\QPSP\\DataSet_000001A40000BEEF",
          "Software\\Zephra\\QPSP\\Dataset_000001A40000BEEF", "Software\\Wine\\DataSet_000001A40000BEEF",
          "DataSet_000001A40000BEEF"})
        EXPECT_FALSE(IsDataSettingKeyName(name)) << name;
}

TEST(DataSettingKeyName, GivesItsProcessBack) {
    EXPECT_EQ(ProcessOfKey("Software\\Zephra\\QPSP\\DataSet_000001A40000BEEF"), 0x1A4U);
    EXPECT_EQ(ProcessOfKey("Software\\Zephra\\QPSP\\DataSet_FFFFFFFE00000000"), 0xFFFFFFFEU);
}

TEST(DataSettingKeyName, OfAnotherNameThereIsNoProcess) {
    for (const char* name : {"", "000001A40000BEEF", "Software\\Zephra\\QPSP\\DataSet_000001A4"})
        EXPECT_EQ(ProcessOfKey(name), 0U) << name;
}

TEST(KeyStamp, NeverComesTwiceEvenIfTheClockStands) {
    const std::uint32_t first = NextKeyStamp(5'000'000'000'000);
    EXPECT_EQ(NextKeyStamp(5'000'000'000'000), first + 1);
    EXPECT_EQ(NextKeyStamp(1), first + 2);
    EXPECT_EQ(NextKeyStamp(5'000'000'001'000), first + 1000);
}

TEST(AuthenticationKeyPath, IsBelowItsParentWhetherToldByNameOrByPath) {
    const std::string path = "Software\\Zephra\\ZR Print Driver Data\\X100{0A}";
    EXPECT_EQ(AuthenticationKeyPath("X100{0A}"), path);
    EXPECT_EQ(AuthenticationKeyPath("Software\\Zephra\\ZR Print Driver Data\\X100{0A}"), path);
}

TEST(AuthenticationKeyPath, TakesABackslashByteInsideACharacterForNoSeparator) {
    EXPECT_EQ(AuthenticationKeyPath("\x95\x5C"), "Software\\Zephra\\ZR Print Driver Data\\\x95\x5C");
}

TEST(AuthenticationKeyPath, RefusesWhatIsNotOneKeyBelowTheParent) {
    for (const char* name :
         {"", "\\", "Software\\Zephra\\ZR Print Driver Data", "Software\\Zephra\\ZR Print Driver Data\\",
          "Software\\Zephra\\ZR Print Driver Data\\\\", "Software\\Zephra\\ZR Print Driver Data\\a\\b",
          "a\\b", "a\\", "\\a", "Software\\Zephra", "Software\\Zephra\\QPSP\\DataSet_000001A40000BEEF",
          "Software\\Wine"})
        EXPECT_EQ(AuthenticationKeyPath(name), "") << name;
    EXPECT_EQ(AuthenticationKeyPath(std::string(256, 'k')), "");
}

} // namespace

// How a printer's name leads to the key text of its user's data.
#include "oemps/devmode.h"
#include "oemps/printer_connections.h"
#include "oemps/printer_names.h"
#include "tests/support/main_log.h"
#include "tests/support/registry_override.h"

#include <gtest/gtest.h>

#include <string>

namespace {

class AuthenticationKey : public testing::Test {
  protected:
    static std::string KeyText(std::string printerName) {
        std::string keyText = "what stood here";
        CDevMode::GetAuthenticatInfo(printerName, keyText);
        EXPECT_EQ(printerName, "");
        return keyText;
    }
    void AddConnection(const std::string& name, const std::string& guid) const {
        user.AddText(("Printers\\Connections\\" + name).c_str(), "GuidPrinter", guid);
    }
    static std::string Guid(const char* key) {
        std::string guid = "what stood here";
        CDevMode::GetGuidPrinter(key, guid);
        return guid;
    }
    static std::string Subkey(const char* root, const char* shortName) {
        std::string subkey = "what stood here";
        CDevMode::GetSearchRegistryKeyServer(root, shortName, subkey);
        return subkey;
    }

    static constexpr char kConnection[] = "Printers\\Connections\\,,server,Orvane";
    RegistryOverride user{HKEY_CURRENT_USER};
};

TEST_F(AuthenticationKey, IsTheShortNameTheGuidAndUserInfo) {
    AddConnection(",,server,Orvane X100", "{12}");
    EXPECT_EQ(KeyText("\\\\server\\Orvane X100"), "Orvane X100{12}\\UserInfo");
    EXPECT_EQ(KeyText("Orvane X100"), "Orvane X100{12}\\UserInfo");
}

TEST_F(AuthenticationKey, IgnoresABackslashThatIsTheNamesFirstCharacter) {
    AddConnection(",,server,Orvane", "{12}");
    EXPECT_EQ(KeyText("\\Orvane"), "\\Orvane\\UserInfo");
}

TEST_F(AuthenticationKey, DoesNotTakeHalfACharacterForABackslash) {
    AddConnection(",,server,表示", "{12}");
    EXPECT_EQ(KeyText("表示"), "表示{12}\\UserInfo");
    EXPECT_EQ(KeyText("\\\\server\\予定表"), "予定表\\UserInfo");
}

TEST_F(AuthenticationKey, HasTheGuidOfTheFirstConnectionThatContainsTheName) {
    AddConnection(",,a,Other", "{1}");
    AddConnection(",,b,Orvane second", "{2}");
    AddConnection(",,c,Orvane", "{3}");
    EXPECT_EQ(KeyText("Orvane"), "Orvane{2}\\UserInfo");
}

TEST_F(AuthenticationKey, HasNoGuidWithoutAConnection) {
    EXPECT_EQ(KeyText("Orvane"), "Orvane\\UserInfo");
    AddConnection(",,server,Other", "{1}");
    EXPECT_EQ(KeyText("Orvane"), "Orvane\\UserInfo");
}

// The user of a local printer has no connection to it.
TEST_F(AuthenticationKey, WithoutAConnectionMakesAndReadsTheKeyAboveTheConnections) {
    KeyText("Orvane");
    EXPECT_TRUE(user.Has("Printers\\Connections"));
    user.AddText("Printers\\Connections", "GuidPrinter", "{ROOT}");
    EXPECT_EQ(KeyText("Orvane"), "Orvane{ROOT}\\UserInfo");
}

// What the device page writes is looked for there by the next merge.
TEST_F(AuthenticationKey, IsTheOneThatTheSheetsUse) {
    AddConnection(",,server,Orvane second", "{1}");
    AddConnection(",,server,表示", "{2}");
    AddConnection(",,server,Other", "");
    const std::string longName(1000, 'n');
    for (const std::string& name :
         {std::string("Orvane"), std::string("\\\\server\\Orvane"), std::string("\\Orvane"),
          std::string("\\\\server\\表示"), std::string("Other"), std::string("None"),
          std::string("\\\\server\\"), std::string(), longName})
        EXPECT_EQ(KeyText(name), UserInfoText(PrinterKeyName(name))) << name;
}

TEST_F(AuthenticationKey, TakesNamesOfAnyLength) {
    const std::string name(1000, 'n');
    EXPECT_EQ(KeyText("\\\\server\\" + name), name + "\\UserInfo");
    EXPECT_EQ(KeyText("\\\\server\\"), "\\UserInfo");
    EXPECT_EQ(KeyText(""), "\\UserInfo");
}

TEST_F(AuthenticationKey, IsSearchedForUnderARootThatIsNotMade) {
    EXPECT_EQ(Subkey("Printers\\Connections", "Orvane"), "");
    EXPECT_FALSE(user.Has("Printers"));
    user.AddKey("Elsewhere\\The Orvane");
    EXPECT_EQ(Subkey("Elsewhere", "Orvane"), "The Orvane");
    EXPECT_EQ(Subkey("Elsewhere", "X100"), "");
}

TEST_F(AuthenticationKey, LogsEachConnectionOfTheSearch) {
    AddConnection(",,a,Orvane", "{1}");
    AddConnection(",,b,Other%s", "{2}");
    const MainLog log;
    Subkey("Printers\\Connections", "Orvane");
    const auto messages = log.Messages();
    ASSERT_EQ(messages.size(), 2u);
    EXPECT_EQ(messages[0].rfind("SubkeyName: ,,a,Orvane, LastWriteTime: 20", 0), 0u) << messages[0];
    EXPECT_EQ(messages[1].rfind("SubkeyName: ,,b,Other%s, LastWriteTime: 20", 0), 0u) << messages[1];
    // "2026/11/21 21:42:56"
    EXPECT_EQ(messages[0].size(), std::string("SubkeyName: ,,a,Orvane, LastWriteTime: ").size() + 19);
}

TEST_F(AuthenticationKey, MakesTheConnectionThatItReads) {
    EXPECT_EQ(Guid(kConnection), "");
    EXPECT_TRUE(user.Has(kConnection));
}

TEST_F(AuthenticationKey, HasTheGuidThatStandsThere) {
    AddConnection(",,server,Orvane", "{1234}");
    EXPECT_EQ(Guid(kConnection), "{1234}");
}

TEST_F(AuthenticationKey, HasNoGuidFromAKeyThatCantBeMade) {
    EXPECT_EQ(Guid(("Printers\\Connections\\" + std::string(300, 'k')).c_str()), "");
}

} // namespace

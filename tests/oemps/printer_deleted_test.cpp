// Printers that go: the authentication keys that go with them.
#include "oemps/printer_event.h"

#include "session/datamanager.h"
#include "tests/oemps/printer_event_fixture.h"
#include "tests/support/registry_override.h"

#include <gtest/gtest.h>

#include <array>
#include <clocale>
#include <initializer_list>
#include <string>

namespace {

// The user's registry with authentication keys, in place of the real one.
class DeletedPrinter : public PrinterEvents {
  protected:
    static std::string PathOf(const std::string& name) {
        return "Software\\Zephra\\ZR Print Driver Data\\" + name;
    }
    void AddConnection(const std::string& name, const char* guid) {
        if (guid)
            user.AddText(("Printers\\Connections\\" + name).c_str(), "GuidPrinter", guid);
        else
            user.AddKey(("Printers\\Connections\\" + name).c_str());
    }
    void AddData(std::initializer_list<const char*> names) {
        for (const char* name : names)
            user.AddText((PathOf(name) + "\\UserInfo").c_str(), "JobOwnerName_User", "owner");
    }
    bool HasData(const std::string& name) const { return user.Has((PathOf(name) + "\\UserInfo").c_str()); }
    bool HasKey(const std::string& name) const { return user.Has(PathOf(name).c_str()); }

    HRESULT Delete(const std::string& name) { return Send(PRINTER_EVENT_DELETE, Wide(name)); }

    RegistryOverride user{HKEY_CURRENT_USER};
};

TEST_F(DeletedPrinter, LosesItsAuthenticationKeyAndNoOtherOne) {
    AddConnection(",,server,Orvane X100", "{11}");
    AddConnection(",,server,Other", "{22}");
    AddData({"Orvane X100{11}", "Orvane X100{11}2", "Orvane X100{22}", "Orvane X100", "Other{22}", "{11}"});
    EXPECT_EQ(Delete("\\\\server\\Orvane X100"), kNotImplemented);
    EXPECT_FALSE(HasKey("Orvane X100{11}"));
    for (const char* name : {"Orvane X100{11}2", "Orvane X100{22}", "Orvane X100", "Other{22}", "{11}"})
        EXPECT_TRUE(HasData(name)) << name;
    EXPECT_TRUE(Log().HasLogged("hrOEMPrinterEvent() \\server\\Orvane X100"));
    EXPECT_TRUE(Log().HasLogged("hrOEMPrinterEvent() Orvane X100{11}"));
    EXPECT_TRUE(Log().HasLogged("hrOEMPrinterEvent() the key is deleted"));
}

TEST_F(DeletedPrinter, IsToldWithTheComputersName) {
    std::array<char, MAX_COMPUTERNAME_LENGTH + 1> computer{};
    DWORD size = static_cast<DWORD>(computer.size());
    ASSERT_TRUE(GetComputerNameA(computer.data(), &size));
    EXPECT_EQ(Delete("Orvane X100"), kNotImplemented);
    EXPECT_TRUE(Log().HasLogged(std::string("() ") + computer.data()));
}

TEST_F(DeletedPrinter, GivesTheResultOfTheRemoval) {
    AddConnection(",,server,Orvane X100", "{11}");
    AddData({"Orvane X100{11}"});
    EXPECT_EQ(hrOEMPrinterEvent("\\\\server\\Orvane X100"), 1);
    EXPECT_EQ(hrOEMPrinterEvent("\\\\server\\Orvane X100"), 0);
    EXPECT_TRUE(Log().HasLogged("hrOEMPrinterEvent() no key is deleted"));
}

TEST_F(DeletedPrinter, WithoutAConnectionHasTheKeyOfItsShortNameAndAnEmptyGuid) {
    AddConnection(",,server,Other", "{22}");
    AddData({"Orvane X100", "Orvane X100{11}"});
    EXPECT_EQ(Delete("Orvane X100"), kNotImplemented);
    EXPECT_FALSE(HasKey("Orvane X100"));
    EXPECT_TRUE(HasData("Orvane X100{11}"));
}

TEST_F(DeletedPrinter, WithoutAConnectionLosesNoDataOfAGuid) {
    AddData({"Orvane X100{11}"});
    EXPECT_EQ(hrOEMPrinterEvent("\\\\server\\Orvane X100"), 0);
    EXPECT_TRUE(HasData("Orvane X100{11}"));
    EXPECT_TRUE(Log().HasLogged("hrOEMPrinterEvent() Orvane X100"));
}

TEST_F(DeletedPrinter, IsFoundByTheFirstConnectionWhoseNameContainsItsOwn) {
    AddConnection(",,a,Orvane X100 second", "{22}");
    AddConnection(",,b,Orvane X100", "{11}");
    AddData({"Orvane X100{11}", "Orvane X100{22}"});
    EXPECT_EQ(Delete("\\\\b\\Orvane X100"), kNotImplemented);
    EXPECT_FALSE(HasKey("Orvane X100{22}"));
    EXPECT_TRUE(HasData("Orvane X100{11}"));
}

TEST_F(DeletedPrinter, HasANameThatEndsAtTheLastCommaOfItsPart) {
    AddConnection(",,server,Orvane X100", "{11}");
    for (const char* name : {"\\\\server\\Orvane X100,LocalOnly", "\\\\a,b\\Orvane X100,LocalOnly",
                             "a,b\\Orvane X100", "Orvane X100,", "a,b\\\\c,d\\Orvane X100,x"}) {
        AddData({"Orvane X100{11}"});
        EXPECT_EQ(Delete(name), kNotImplemented);
        EXPECT_FALSE(HasKey("Orvane X100{11}")) << name;
    }
}

// Here the part begins behind the first backslash, so a comma in the server's name ends it.
TEST_F(DeletedPrinter, WithACommaInItsServersNameAloneIsNotFound) {
    AddConnection(",,server,Orvane X100", "{11}");
    AddData({"Orvane X100{11}"});
    EXPECT_EQ(Delete("\\\\a,b\\Orvane X100"), kNotImplemented);
    EXPECT_TRUE(HasData("Orvane X100{11}"));
    EXPECT_TRUE(Log().HasLogged("hrOEMPrinterEvent() \\a"));
}

TEST_F(DeletedPrinter, WithDoubleByteCharactersHasTheKeyOfThese) {
    AddConnection(",,server,表示予", "{11}");
    AddData({"表示予{11}", "示予{11}"});
    EXPECT_EQ(Delete("\\\\server\\表示予"), kNotImplemented);
    EXPECT_FALSE(HasKey("表示予{11}"));
    AddData({"表示予{11}"});
    EXPECT_EQ(Delete("表示予,x"), kNotImplemented);
    EXPECT_FALSE(HasKey("表示予{11}"));
    EXPECT_TRUE(HasData("示予{11}"));
}

TEST_F(DeletedPrinter, OfALongNameHasNoKey) {
    AddData({"Orvane X100"});
    EXPECT_EQ(Delete(std::string(1000, 'x')), kNotImplemented);
    EXPECT_TRUE(Log().HasLogged("hrOEMPrinterEvent() no key is deleted"));
    EXPECT_EQ(Delete("\\\\" + std::string(985, 's') + "\\Orvane X100"), kNotImplemented);
    EXPECT_FALSE(HasKey("Orvane X100"));
}

TEST_F(DeletedPrinter, WhoseNameDoesNotFit1024BytesKeepsItsData) {
    const std::string name = "Orvane X100";
    AddData({"Orvane X100"});
    EXPECT_EQ(Delete(std::string(1024 - 1 - name.size(), 's') + "\\" + name), kNotImplemented);
    EXPECT_TRUE(HasData("Orvane X100"));
    EXPECT_TRUE(Log().HasLogged("the name can't be converted, error="));
    EXPECT_EQ(Delete(std::string(1023 - 1 - name.size(), 's') + "\\" + name), kNotImplemented);
    EXPECT_FALSE(HasKey("Orvane X100"));
}

TEST_F(DeletedPrinter, WhoseNamesLastCharacterDoesNotFit1024BytesKeepsTheDataOfTheNameWithoutIt) {
    const std::string name = "Orvane X100";
    AddData({"Orvane X100"});
    EXPECT_EQ(Delete(std::string(1023 - 1 - name.size(), 's') + "\\" + name + "表"), kNotImplemented);
    EXPECT_TRUE(HasData("Orvane X100"));
    EXPECT_TRUE(Log().HasLogged("the name can't be converted, error="));
}

TEST_F(DeletedPrinter, WhoseNameCantBeConvertedKeepsItsData) {
    AddData({"Orvane X100"});
    EXPECT_EQ(Send(PRINTER_EVENT_DELETE, L"\x0E01\\Orvane X100"), kNotImplemented);
    EXPECT_EQ(plugIn->PrinterEvent(nullptr, PRINTER_EVENT_DELETE, 0, 0), kNotImplemented);
    EXPECT_TRUE(HasData("Orvane X100"));
    EXPECT_TRUE(Log().HasLogged("the name can't be converted, error="));
}

TEST_F(DeletedPrinter, WithoutANameLosesNothing) {
    AddConnection(",,server,Orvane X100", nullptr);
    AddData({"Orvane X100"});
    for (const char* name : {"", "\\", ",", "\\\\server\\"})
        EXPECT_EQ(hrOEMPrinterEvent(name), 0) << name;
    EXPECT_TRUE(HasData("Orvane X100"));
}

TEST_F(DeletedPrinter, ThatIsNoneLosesNothing) {
    EXPECT_EQ(hrOEMPrinterEvent(nullptr), 0);
    EXPECT_TRUE(Log().HasLogged("hrOEMPrinterEvent() no name"));
    std::array<char, 1024> key;
    key.fill('x');
    GetAuthenticatInfo(nullptr, key);
    EXPECT_STREQ(key.data(), "");
    key.fill('x');
    GetClientAuthenticatInfo(nullptr, key);
    EXPECT_STREQ(key.data(), "");
}

// Neither is there a GUID to compare.
TEST_F(DeletedPrinter, OfAClientSideConnectionWithoutAGuidIsNotTheConnectionWithoutOne) {
    AddConnection(",,server,Orvane X100", nullptr);
    AddConnection(",,server,Other", "");
    AddData({"Orvane X100", "Other"});
    for (const char* name : {"\\\\server\\CSR|\\", "\\\\server\\CSR|\\,LocalOnly"})
        EXPECT_EQ(hrOEMPrinterEvent(name), 0) << name;
    EXPECT_TRUE(HasData("Orvane X100"));
    EXPECT_TRUE(HasData("Other"));
}

TEST_F(DeletedPrinter, HasNoNameThatLeadsOutOfTheAuthenticationKeys) {
    AddData({"Orvane X100"});
    user.AddKey("Software\\Zephra\\Other");
    for (const char* name : {"..", "\\\\server\\..\\Other", "\\..\\Other", "%s%s%n"})
        EXPECT_EQ(hrOEMPrinterEvent(name), 0) << name;
    EXPECT_TRUE(HasData("Orvane X100"));
    EXPECT_TRUE(user.Has("Software\\Zephra\\Other"));
}

TEST_F(DeletedPrinter, OfAClientSideConnectionIsFoundByItsGuid) {
    AddConnection(",,a,Other", "{22}");
    AddConnection(",,server,Orvane X100", "{11}");
    for (const char* name : {"\\\\server\\CSR|server\\{11}", "\\\\server\\CSR|{11}\\{11},LocalOnly",
                             "\\\\CSR|\\{11}", "表\\\\CSR|表\\{11}"}) {
        AddData({"Orvane X100{11}", "Orvane X100{22}", "Other{22}", "{11}", "Orvane X100"});
        EXPECT_EQ(Delete(name), kNotImplemented);
        EXPECT_FALSE(HasKey("Orvane X100{11}")) << name;
        for (const char* other : {"Orvane X100{22}", "Other{22}", "{11}", "Orvane X100"})
            EXPECT_TRUE(HasData(other)) << other;
    }
}

TEST_F(DeletedPrinter, OfAClientSideConnectionMustHaveExactlyItsGuid) {
    AddConnection(",,server,Orvane X100", "{AB}");
    AddData({"Orvane X100{AB}", "Orvane X100{A}", "Orvane X100{ab}"});
    for (const char* name : {"\\\\server\\CSR|\\{A}", "\\\\server\\CSR|\\{ab}", "\\\\server\\CSR|\\{AB} ",
                             "\\\\server\\CSR|\\{AB}{AB}", "\\\\server\\CSR|{AB}"})
        EXPECT_EQ(hrOEMPrinterEvent(name), 0) << name;
    EXPECT_TRUE(HasData("Orvane X100{AB}"));
    EXPECT_TRUE(HasData("Orvane X100{A}"));
}

TEST_F(DeletedPrinter, OfAClientSideConnectionWithoutAMatchHasAnEmptyKey) {
    AddData({"Orvane X100"});
    EXPECT_EQ(hrOEMPrinterEvent("\\\\server\\CSR|\\Orvane X100"), 0);
    EXPECT_TRUE(HasData("Orvane X100"));
    std::array<char, 1024> key;
    key.fill('x');
    GetClientAuthenticatInfo("\\server\\CSR|\\{11}", key);
    EXPECT_STREQ(key.data(), "");
}

TEST_F(DeletedPrinter, OfAClientSideConnectionHasTheNameBehindTheConnectionsLastComma) {
    std::array<char, 1024> key{};
    AddConnection("Orvane", "{11}");
    GetClientAuthenticatInfo("\\server\\CSR|\\{11}", key);
    EXPECT_STREQ(key.data(), "Orvane{11}");
    AddConnection(",,server,表示", "{22}");
    GetClientAuthenticatInfo("{22}", key);
    EXPECT_STREQ(key.data(), "表示{22}");
}

// The mark has its backslash, and the name's first one is gone by then.
TEST_F(DeletedPrinter, IsNoClientSideConnectionByItsFirstBackslash) {
    AddConnection(",,server,Orvane X100", "{11}");
    AddData({"Orvane X100{11}", "{11}"});
    EXPECT_EQ(Delete("\\CSR|server\\{11}"), kNotImplemented);
    EXPECT_TRUE(HasData("Orvane X100{11}"));
    EXPECT_FALSE(HasKey("{11}"));
}

TEST_F(DeletedPrinter, HasAKeyNameOfItsShortNameAndItsGuid) {
    std::array<char, 1024> key{};
    AddConnection(",,server,Orvane X100", "{11}");
    GetAuthenticatInfo("\\server\\Orvane X100", key);
    EXPECT_STREQ(key.data(), "Orvane X100{11}");
    GetAuthenticatInfo("\\Orvane X100", key);
    EXPECT_STREQ(key.data(), "\\Orvane X100") << "a backslash that comes first parts nothing here";
}

// The store has one set of values in a process, and the event prepares it anew.
TEST_F(DeletedPrinter, ClearsTheValuesOfAnOpenSheetInTheSameProcess) {
    ExportedFunc_InitializeDataManager();
    ExportedFunc_SetCurrent(305, 7);
    EXPECT_EQ(Delete("Orvane X100"), kNotImplemented);
    std::uint32_t value = 7;
    ExportedFunc_GetCurrent(305, &value);
    EXPECT_EQ(value, 0u);
}

TEST_F(DeletedPrinter, SetsTheLocaleOfTheProcess) {
    std::setlocale(LC_CTYPE, "C");
    EXPECT_EQ(Delete("Orvane X100"), kNotImplemented);
    EXPECT_STREQ(std::setlocale(LC_CTYPE, nullptr), "Japanese_Japan.932");
}

TEST_F(DeletedPrinter, LosesItsDataByNoOtherEvent) {
    AddData({"Orvane X100"});
    for (const int event : {-1, 0, 2, 5, 6, 7, 8})
        EXPECT_EQ(Send(event, L"Orvane X100"), kNotImplemented) << event;
    EXPECT_TRUE(HasData("Orvane X100"));
}

} // namespace

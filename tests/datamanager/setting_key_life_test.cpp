// How data setting keys come and go, and which keys the store removes.
#include "tests/datamanager/setting_key_fixture.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

namespace {

using SettingKeyLife = SettingKeyTest;

DWORD RootNumber(const std::string& key, const char* name) {
    DWORD value = 0xDEAD;
    DWORD size = sizeof value;
    EXPECT_EQ(RegGetValueA(HKEY_CURRENT_USER, key.c_str(), name, RRF_RT_REG_DWORD, nullptr, &value, &size),
              ERROR_SUCCESS);
    return value;
}

void MakeKey(const std::string& path) {
    HKEY made = nullptr;
    ASSERT_EQ(RegCreateKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &made,
                              nullptr),
              ERROR_SUCCESS);
    RegCloseKey(made);
}

TEST_F(SettingKeyLife, TellsTheNameOfTheKeyInUse) {
    EXPECT_EQ(KeyInUse(), key);
    EXPECT_TRUE(key.starts_with("Software\\Zephra\\QPSP\\DataSet_"));
    EXPECT_TRUE(KeyExists(key));
}

TEST_F(SettingKeyLife, TellsKeywordCountGenerationAndProcess) {
    EXPECT_EQ(RootNumber(key, "KeywordCount"), 327u);
    EXPECT_EQ(RootNumber(key, "Generation"), 0u);
    EXPECT_EQ(RootNumber(key, "ProcessId"), GetCurrentProcessId());
}

TEST_F(SettingKeyLife, StaysEmptyUntilItsNameIsAskedFor) {
    ExportedFunc_InitializeDataManager();
    const std::string silent = CreateKey();
    ExportedFunc_SetCurrent(104, 2);
    ExportedFunc_SetSecPrintPassword("secret");
    EXPECT_TRUE(DumpByPeer(silent).empty());
    ExportedFunc_GetRegistryKeyName(nullptr);
    EXPECT_TRUE(DumpByPeer(silent).empty()) << "nobody was told";

    EXPECT_EQ(KeyInUse(), silent);
    EXPECT_EQ(DumpByPeer(silent), (KeyImage{{{"Current", "DuplexMode"}, NumberImage(2)},
                                            {{"Values", "SecPrintPassword"}, TextImage("secret")}}));
    EXPECT_EQ(ExportedFunc_DeleteRegistryKey(silent.c_str()), 1);
}

TEST_F(SettingKeyLife, GetsNoNameThatAKeyHasAlready) {
    std::array<char, 260> name{};
    ExportedFunc_CreateDataSettingRegistryKeyName(name.data());
    const std::string given = name.data();
    const std::string beginning = given.substr(0, given.size() - 8);
    const auto stamp = static_cast<std::uint32_t>(std::stoul(given.substr(given.size() - 8), nullptr, 16));
    std::vector<std::string> taken;
    for (std::uint32_t i = 1; i <= 3000; ++i) {
        std::array<char, 9> digits{};
        std::snprintf(digits.data(), digits.size(), "%08X", static_cast<unsigned>(stamp + i));
        taken.push_back(beginning + digits.data());
        MakeKey(taken.back());
    }
    ExportedFunc_CreateDataSettingRegistryKeyName(name.data());
    EXPECT_FALSE(KeyExists(name.data())) << name.data();
    for (const std::string& each : taken)
        RegDeleteKeyA(HKEY_CURRENT_USER, each.c_str());
}

// A link that leads nowhere can't be opened, so what holds it can't be deleted as a whole.
TEST_F(SettingKeyLife, GoesOnWhenTheKeyCannotBeDeleted) {
    ExportedFunc_SetCurrent(104, 1);
    HKEY link = nullptr;
    ASSERT_EQ(RegCreateKeyExA(HKEY_CURRENT_USER, (key + "\\A").c_str(), 0, nullptr,
                              REG_OPTION_VOLATILE | REG_OPTION_CREATE_LINK, KEY_ALL_ACCESS, nullptr, &link,
                              nullptr),
              ERROR_SUCCESS);
    EXPECT_EQ(ExportedFunc_DeleteRegistryKey(key.c_str()), 0);
    EXPECT_TRUE(KeyExists(key));
    EXPECT_EQ(KeyInUse(), key);

    const auto deleteKey = reinterpret_cast<LONG(NTAPI*)(HANDLE)>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("ntdll.dll"), "NtDeleteKey")));
    EXPECT_EQ(deleteKey(link), 0);
    RegCloseKey(link);
    EXPECT_EQ(ExportedFunc_DeleteRegistryKey(key.c_str()), 1);
    EXPECT_EQ(KeyInUse(), "");
}

// Handles are numbered from the lowest free place up, so the next one tells how many are open.
std::uintptr_t NextHandle() {
    const HANDLE event = CreateEventA(nullptr, FALSE, FALSE, nullptr);
    CloseHandle(event);
    return reinterpret_cast<std::uintptr_t>(event);
}

TEST_F(SettingKeyLife, LeaksNoHandleInTwoHundredStarts) {
    const auto start = [this] {
        ExportedFunc_InitializeDataManager();
        RegDeleteTreeA(HKEY_CURRENT_USER, key.c_str());
        key = CreateKey();
        generation = 0;
        KeyInUse();
        ExportedFunc_SetCurrent(104, 1);
        HandOver();
        EXPECT_EQ(Current(104), 1u);
    };
    start();
    const std::uintptr_t before = NextHandle();
    for (int i = 0; i < 200; ++i)
        start();
    EXPECT_LE(NextHandle(), before);
}

TEST_F(SettingKeyLife, IsVolatile) {
    for (const char* name : {"", "\\Current", "\\Default", "\\Favorite", "\\Preview", "\\Values"}) {
        HKEY child = nullptr;
        EXPECT_EQ(RegCreateKeyExA(HKEY_CURRENT_USER, (key + name + "\\Lasting").c_str(), 0, nullptr,
                                  REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS, nullptr, &child, nullptr),
                  ERROR_CHILD_MUST_BE_VOLATILE)
            << name;
    }
}

TEST_F(SettingKeyLife, EndsWithTheDeleteOperation) {
    ExportedFunc_SetCurrent(104, 1);
    EXPECT_EQ(ExportedFunc_DeleteRegistryKey(key.c_str()), 1);
    EXPECT_FALSE(KeyExists(key));
    EXPECT_EQ(KeyInUse(), "");
    EXPECT_EQ(Current(104), 1u);
    ExportedFunc_SetCurrent(104, 2);
    EXPECT_EQ(Current(104), 2u);
    EXPECT_FALSE(KeyExists(key));
    EXPECT_EQ(ExportedFunc_DeleteRegistryKey(key.c_str()), 0) << "already gone";
}

TEST_F(SettingKeyLife, IsLetGoButNotRemovedByANewStart) {
    ExportedFunc_SetCurrent(104, 1);
    ExportedFunc_InitializeDataManager();
    EXPECT_TRUE(KeyExists(key));
    EXPECT_EQ(KeyInUse(), "");
    EXPECT_EQ(Current(104), 0u);
    const std::string second = CreateKey();
    EXPECT_NE(second, key);
    EXPECT_EQ(KeyInUse(), second);
    EXPECT_EQ((DumpByPeer(key)), (KeyImage{{{"Current", "DuplexMode"}, NumberImage(1)}}));
    EXPECT_TRUE(DumpByPeer(second).empty());
    EXPECT_EQ(ExportedFunc_DeleteRegistryKey(second.c_str()), 1);
}

TEST_F(SettingKeyLife, IsNotSharedWithAKeyThatIsThereAlready) {
    ExportedFunc_InitializeDataManager();
    ExportedFunc_CreateDataSettingRegistryKey(key.c_str(), 327);
    EXPECT_EQ(KeyInUse(), "");
    ExportedFunc_SetCurrent(104, 1);
    EXPECT_EQ(Current(104), 1u);
    EXPECT_TRUE(DumpByPeer(key).empty());
}

TEST_F(SettingKeyLife, IsNotMadeOutsideItsParent) {
    const std::string foreign = "Software\\ZrStoreTest" + std::to_string(GetCurrentProcessId());
    ExportedFunc_InitializeDataManager();
    ExportedFunc_CreateDataSettingRegistryKey(foreign.c_str(), 327);
    EXPECT_FALSE(KeyExists(foreign));
    EXPECT_EQ(KeyInUse(), "");
}

TEST_F(SettingKeyLife, DeletesNoOtherKey) {
    const std::string outside = "Software\\ZrStoreTest" + std::to_string(GetCurrentProcessId());
    const std::string beside = "Software\\Zephra\\QPSP\\Other" + std::to_string(GetCurrentProcessId());
    MakeKey(outside);
    MakeKey(beside);
    for (const std::string& name : std::vector<std::string>{
             outside, beside, "", "\\", "Software", "Software\\Zephra", "Software\\Zephra\\QPSP",
             "Software\\Zephra\\QPSP\\", "Software\\Zephra\\QPSP\\DataSet_", key + "\\Current", key + "\\",
             std::string(5000, 'n')})
        EXPECT_EQ(ExportedFunc_DeleteRegistryKey(name.c_str()), 0) << name;
    EXPECT_TRUE(KeyExists(outside));
    EXPECT_TRUE(KeyExists(beside));
    EXPECT_TRUE(KeyExists(key + "\\Current"));
    EXPECT_EQ(KeyInUse(), key);
    RegDeleteTreeA(HKEY_CURRENT_USER, outside.c_str());
    RegDeleteTreeA(HKEY_CURRENT_USER, beside.c_str());
}

class AuthenticationKey : public testing::Test {
  protected:
    AuthenticationKey() {
        MakeKey(path + "\\UserInfo");
        MakeKey(sibling);
    }
    ~AuthenticationKey() override {
        RegDeleteTreeA(HKEY_CURRENT_USER, path.c_str());
        RegDeleteTreeA(HKEY_CURRENT_USER, sibling.c_str());
    }

    const std::string name = "X100{" + std::to_string(GetCurrentProcessId()) + "}";
    const std::string path = "Software\\Zephra\\ZR Print Driver Data\\" + name;
    const std::string sibling = path + "2";
};

TEST_F(AuthenticationKey, IsDeletedWithAllBelowItByItsName) {
    EXPECT_EQ(ExportedFunc_DeleteAuthMngRegistryKey(name.c_str()), 1);
    EXPECT_FALSE(KeyExists(path));
    EXPECT_TRUE(KeyExists(sibling));
}

TEST_F(AuthenticationKey, IsDeletedByItsPath) {
    EXPECT_EQ(ExportedFunc_DeleteAuthMngRegistryKey(path.c_str()), 1);
    EXPECT_FALSE(KeyExists(path));
}

TEST_F(AuthenticationKey, ThatIsNotThereGivesZero) {
    EXPECT_EQ(ExportedFunc_DeleteAuthMngRegistryKey((name + "3").c_str()), 0);
}

TEST_F(AuthenticationKey, IsTheOnlyKindOfKeyDeleted) {
    for (const std::string& other : std::vector<std::string>{
             "", "\\", "Software", "Software\\Zephra", "Software\\Zephra\\ZR Print Driver Data",
             "Software\\Zephra\\ZR Print Driver Data\\", "Software\\Wine", name + "\\UserInfo"})
        EXPECT_EQ(ExportedFunc_DeleteAuthMngRegistryKey(other.c_str()), 0) << other;
    EXPECT_TRUE(KeyExists(path + "\\UserInfo"));
    EXPECT_TRUE(KeyExists(sibling));
}

} // namespace

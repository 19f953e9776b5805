#include "oemps/dotnet.h"

#include "tests/support/registry_override.h"

#include <gtest/gtest.h>

#include <string>

namespace {

constexpr char kVersions[] = "Software\\Microsoft\\NET Framework Setup\\NDP\\";

class DotNet : public testing::Test {
  protected:
    void Install(const std::string& edition, const std::string& version, DWORD install) {
        const std::string key = kVersions + edition;
        machine.AddText(key.c_str(), "Version", version);
        RegSetKeyValueA(HKEY_LOCAL_MACHINE, key.c_str(), "Install", REG_DWORD, &install, sizeof install);
    }

    RegistryOverride machine{HKEY_LOCAL_MACHINE};
};

} // namespace

TEST_F(DotNet, IsMissingWithoutTheVersionsKey) {
    EXPECT_FALSE(IsDotNet4Present());
}

TEST_F(DotNet, BeforeVersion4IsNotEnough) {
    Install("v2.0.50727", "2.0.50727", 1);
    Install("v3.5\\Full", "3.5", 1);
    Install("CDF\\v4.0", "4.0", 1);
    EXPECT_FALSE(IsDotNet4Present());
}

TEST_F(DotNet, Version4IsFoundByItsFullOrItsClientEdition) {
    Install("v2.0.50727", "2.0.50727", 1);
    Install("v4\\Client", "4.0.30319", 1);
    EXPECT_TRUE(IsDotNet4Present());
    Install("v4\\Full", "4.8.03761", 1);
    EXPECT_TRUE(IsDotNet4Present());
}

TEST_F(DotNet, AKeyThatIsLeftBehindIsNotEnough) {
    machine.AddKey((std::string(kVersions) + "v4").c_str());
    EXPECT_FALSE(IsDotNet4Present());
    Install("v4\\Full", "4.8.03761", 0);
    EXPECT_FALSE(IsDotNet4Present());
}

TEST_F(DotNet, TheFullEditionIsReadLastAndCounts) {
    Install("v4\\Client", "4.0.30319", 1);
    Install("v4\\Full", "4.0.30319", 0);
    EXPECT_FALSE(IsDotNet4Present());
}

TEST_F(DotNet, GoesByTheFirstDigitAlone) {
    Install("v10\\Full", "10.0", 1);
    EXPECT_FALSE(IsDotNet4Present());
    Install("v5\\Full", "5.0", 1);
    EXPECT_TRUE(IsDotNet4Present());
}

TEST_F(DotNet, KeepsTheAnswerOfTheLastEditionThatIsThere) {
    Install("v4\\Full", "4.8.03761", 1);
    Install("v4.0\\Client", "4.0.0.0", 0);
    EXPECT_FALSE(IsDotNet4Present());
    Install("v4.0\\Client", "4.0.0.0", 1);
    EXPECT_TRUE(IsDotNet4Present());
    Install("v5", "5.0", 0); // neither edition
    EXPECT_TRUE(IsDotNet4Present());
}

TEST_F(DotNet, GoesByTheVersionOfTheEditionToo) {
    Install("v4\\Full", "3.5", 1);
    EXPECT_FALSE(IsDotNet4Present());
    Install("v4\\Full", "10.0", 1);
    EXPECT_FALSE(IsDotNet4Present());
    Install("v4\\Full", "", 1);
    EXPECT_FALSE(IsDotNet4Present());
}

TEST_F(DotNet, NamesItsVersionsByASmallVAndADigit) {
    for (const char* version : {"V4", "v", "4", "x4", " v4", "vv4", "v-4"})
        Install(std::string(version) + "\\Full", "4.8.03761", 1);
    EXPECT_FALSE(IsDotNet4Present());
}

TEST_F(DotNet, IsInstalledByANumber1Alone) {
    Install("v4\\Full", "4.8.03761", 2);
    EXPECT_FALSE(IsDotNet4Present());
    const std::string key = std::string(kVersions) + "v4\\Full";
    for (const DWORD type : {REG_SZ, REG_BINARY}) {
        RegSetKeyValueA(HKEY_LOCAL_MACHINE, key.c_str(), "Install", type, "\1\0\0", 4);
        EXPECT_FALSE(IsDotNet4Present()) << type;
    }
}

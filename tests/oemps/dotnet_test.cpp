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

#include "oemps/dotnet.h"

#include "tests/support/registry_override.h"

#include <gtest/gtest.h>

namespace {

constexpr char kVersions[] = "Software\\Microsoft\\NET Framework Setup\\NDP";

class DotNet : public testing::Test {
  protected:
    void Install(const char* version) { machine.AddKey((std::string(kVersions) + "\\" + version).c_str()); }

    RegistryOverride machine{HKEY_LOCAL_MACHINE};
};

} // namespace

TEST_F(DotNet, IsMissingWithoutTheVersionsKey) {
    EXPECT_FALSE(IsDotNet4Present());
}

TEST_F(DotNet, BeforeVersion4IsNotEnough) {
    Install("v2.0.50727");
    Install("v3.5");
    Install("CDF");
    EXPECT_FALSE(IsDotNet4Present());
}

TEST_F(DotNet, Version4OrLaterIsFoundAmongOthers) {
    Install("v2.0.50727");
    Install("v4.0");
    EXPECT_TRUE(IsDotNet4Present());
}

TEST_F(DotNet, LaterMajorVersionsCount) {
    Install("v10.1");
    EXPECT_TRUE(IsDotNet4Present());
}

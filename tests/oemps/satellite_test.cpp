// The satellite beside this program: satellite_testLOC.dll, which a process in another code page than 932
// finds by its fixed code.
#include "oemps/satellite.h"

#include "Common/strings.h"
#include "oemps/module.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

class Satellite : public testing::Test {
  protected:
    void SetUp() override {
        SetModuleHandle(GetModuleHandleA(nullptr));
        SetStringModule(nullptr);
        ASSERT_FALSE(IsLoaded());
    }
    static bool IsLoaded() { return GetModuleHandleA("satellite_testLOC.dll") != nullptr; }
    static bool IsExpected() { return GetACP() != 932; }
};

} // namespace

TEST_F(Satellite, IsTriedInTheCodePageThatTheTestIsRunFor) {
    EXPECT_EQ(GetACP(), std::getenv("ZR_WINE_LOCALE") ? 1252u : 932u);
}

TEST_F(Satellite, IsLoadedByTheFirstObjectOutsideTheJapaneseCodePage) {
    AcquireSatellite();
    EXPECT_EQ(IsLoaded(), IsExpected());
    EXPECT_EQ(ResourceModule() != ModuleHandle(), IsExpected());
    ReleaseSatellite();
}

TEST_F(Satellite, StringsComeFromItOrElseFromTheModule) {
    AcquireSatellite();
    EXPECT_EQ(LoadText(2500), IsExpected() ? "Advanced" : "");
    EXPECT_EQ(StringModule(), ResourceModule());
    ReleaseSatellite();
    EXPECT_EQ(LoadText(2500), "");
}

TEST_F(Satellite, IsFreedWithTheLastObject) {
    AcquireSatellite();
    AcquireSatellite();
    ReleaseSatellite();
    EXPECT_EQ(IsLoaded(), IsExpected());
    ReleaseSatellite();
    EXPECT_FALSE(IsLoaded());
    EXPECT_EQ(ResourceModule(), ModuleHandle());
}

TEST_F(Satellite, IsLookedForAgainByTheNextFirstObject) {
    for (int round = 0; round < 2; ++round) {
        AcquireSatellite();
        EXPECT_EQ(IsLoaded(), IsExpected());
        ReleaseSatellite();
        EXPECT_FALSE(IsLoaded());
    }
}

// Whose COM apartment a favourite is read in, and when the XML layer leaves its own. No test here holds a
// layer.
#include "tests/settings/favorite_samples.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <objbase.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace {

// Whether this thread is in no apartment: only then it can enter one of this model for the first time.
bool IsOutside() {
    const HRESULT entered = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    if (SUCCEEDED(entered))
        CoUninitialize();
    return entered == S_OK;
}

int LoadGood(CFavoriteFileManager& manager) {
    CFavoriteSetting setting;
    return LoadBytes(manager, FavoriteAround("<NumOfCopies>3</NumOfCopies>"), setting);
}

} // namespace

TEST(FavoriteApartment, IsLeftWhenAFavouriteHasBeenRead) {
    ASSERT_TRUE(IsOutside());
    CFavoriteFileManager manager({});
    EXPECT_EQ(LoadGood(manager), 1);
    EXPECT_TRUE(IsOutside());
}

// The layer stays started after a failed load until the manager goes.
TEST(FavoriteApartment, OfAFailedLoadIsLeftWithTheManager) {
    ASSERT_TRUE(IsOutside());
    std::optional<CFavoriteFileManager> manager(std::in_place, std::vector<std::string>());
    CFavoriteSetting setting;
    for (int time = 0; time < 3; ++time)
        EXPECT_EQ(LoadBytes(*manager, "<!DOCTYPE r><r/>", setting), -1);
    EXPECT_FALSE(IsOutside());
    EXPECT_EQ(LoadGood(*manager), 1);
    EXPECT_FALSE(IsOutside());
    manager.reset();
    EXPECT_TRUE(IsOutside());
}

TEST(FavoriteApartment, OfTheApplicationIsUsedWhateverItsModel) {
    for (const DWORD model : {COINIT_MULTITHREADED, COINIT_APARTMENTTHREADED}) {
        ASSERT_EQ(CoInitializeEx(nullptr, model), S_OK);
        {
            CFavoriteFileManager manager({});
            CFavoriteSetting setting;
            EXPECT_EQ(LoadGood(manager), 1);
            EXPECT_EQ(LoadBytes(manager, "no XML", setting), -1);
        }
        EXPECT_EQ(CoInitializeEx(nullptr, model), S_FALSE) << "it is still the application's";
        CoUninitialize();
        CoUninitialize();
        EXPECT_TRUE(IsOutside());
    }
}

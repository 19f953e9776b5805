// The module as others load it.
#include <gtest/gtest.h>
#include <windows.h>

#include <fstream>
#include <string>

namespace {

TEST(DataManagerModule, GivesEveryListedOperationByName) {
    const HMODULE module = LoadLibraryA("DataManager.dll");
    ASSERT_NE(module, nullptr);
    std::ifstream listing(ZR_TEST_DATA_DIR "/datamanager_ops.txt");
    int found = 0;
    for (std::string name; listing >> name; ++found)
        EXPECT_NE(GetProcAddress(module, name.c_str()), nullptr) << name;
    EXPECT_EQ(found, 501);
    FreeLibrary(module);
}

} // namespace

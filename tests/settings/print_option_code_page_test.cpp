#include "settings/Ddb_PrintOption.h"

#ifdef _WIN32
#include <windows.h>
#else
#include "settings/ansi_code_page_native.h"
#endif

#include <gtest/gtest.h>

#include <vector>

namespace ddb {
namespace {

#ifdef _WIN32

TEST(IsJapanese, TellsWhetherTheProcessRunsInCodePage932) {
    EXPECT_EQ(CPrintOptionBase().IsJapanese(), GetACP() == 932);
    EXPECT_EQ(CPrintOptionEx().IsJapanese(), GetACP() == 932);
}

#else

class IsJapanese : public testing::Test {
  protected:
    ~IsJapanese() override { SetAnsiCodePage(932); }
};

TEST_F(IsJapanese, IsTrueInCodePage932Only) {
    for (const unsigned codePage : {0u, 437u, 931u, 1252u, 65001u}) {
        SetAnsiCodePage(codePage);
        EXPECT_FALSE(CPrintOptionBase().IsJapanese()) << codePage;
        EXPECT_FALSE(CPrintOptionEx().IsJapanese()) << codePage;
    }
    SetAnsiCodePage(932);
    EXPECT_TRUE(CPrintOptionBase().IsJapanese());
    EXPECT_TRUE(CPrintOptionEx().IsJapanese());
}

TEST_F(IsJapanese, IsThatOfTheCodePageAtTheTimeOfTheConstruction) {
    const CPrintOptionBase option;
    SetAnsiCodePage(1252);
    EXPECT_TRUE(option.IsJapanese());
}

TEST_F(IsJapanese, IsNeitherSavedNorLoaded) {
    const CPrintOptionEx japanese;
    SetAnsiCodePage(1252);
    CPrintOptionEx western;
    std::vector<std::uint8_t> ofJapanese(24472);
    std::vector<std::uint8_t> ofWestern(24472);
    std::uint32_t size = 24472;
    japanese.Save(ofJapanese.data(), &size);
    western.Save(ofWestern.data(), &size);
    EXPECT_EQ(ofJapanese, ofWestern);
    western.Load(ofJapanese.data(), size);
    EXPECT_FALSE(western.IsJapanese());
}

TEST_F(IsJapanese, IsCopiedByTheFullCopyAndNotByThatOfTheBlocks) {
    const CPrintOptionEx japanese;
    SetAnsiCodePage(1252);
    CPrintOptionEx western;
    western.CopyBlocksFrom(japanese);
    EXPECT_FALSE(western.IsJapanese());
    western.CopyFrom(japanese);
    EXPECT_TRUE(western.IsJapanese());
}

#endif

} // namespace
} // namespace ddb

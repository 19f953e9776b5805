// Favourites that are cut, overwritten or something else altogether.
#include "tests/settings/favorite_hostile_fixture.h"

using namespace std::string_view_literals;

TEST_F(FavoriteHostile, WhatStandsBehindTheRootIsReadOverOrRefused) {
    for (const std::string_view rest :
         {"\0"sv, "\0x"sv, "\0<Favorite><NumOfCopies>3</NumOfCopies></Favorite>"sv})
        if (ExpectReadOrRefused(FavoriteAround("<NumOfCopies>2</NumOfCopies>").append(rest))) {
            EXPECT_EQ(Value("ONOC"), "2");
        }
    ExpectRefused(FavoriteAround("") + '\0' + "<!DOCTYPE r>");
}

TEST_F(FavoriteHostile, WhatHoldsNoDocumentIsRefused) {
    for (const std::string_view bytes :
         {""sv, " "sv, "\r\n\t \r\n"sv, "\xEF\xBB\xBF"sv, "\xFF\xFE"sv, "[Favorite]\r\nFileVer=2\r\n"sv,
          "<Favorite"sv, "<Favorite>"sv, "<Favorite></favorite>"sv, "<?xml version='1.0'?>"sv,
          "<Favorite/><Favorite/>"sv, "<Favorite/>text"sv, "<!--c-->"sv, "MZ\x90\0\3"sv})
        ExpectRefused(bytes);
}

TEST_F(FavoriteHostile, AFavouriteCutAtEvery97thByteIsRefused) {
    const std::string path = PathOf("whole.pfk");
    ASSERT_EQ(manager.SaveFavoriteFromPath(setting, path.c_str()), 1);
    std::string whole = Content(path);
    ASSERT_GT(whole.size(), 40'000u);
    ASSERT_EQ(LoadBytes(manager, whole, setting), 1);
    FillSample(setting);
    while (!whole.ends_with('>'))
        whole.pop_back(); // what stands behind the root may go
    for (std::size_t length = 0; length < whole.size(); length += 97)
        ExpectRefused(std::string_view(whole).substr(0, length));
    ExpectNextFileLoads();
}

TEST_F(FavoriteHostile, AFavouriteWithAnotherByteAnywhereIsReadOrRefusedWithoutHarm) {
    const std::string good =
        FavoriteAround("<NumOfCopies>9</NumOfCopies><!--c--><OptionMemoFile>a</OptionMemoFile>");
    for (std::size_t at = 0; at < good.size(); ++at)
        for (const char byte : {'\0', '<', '&', '"', '\x80', '\xFF'}) {
            std::string bytes = good;
            bytes[at] = byte;
            const int result = LoadBytes(manager, bytes, setting);
            ASSERT_TRUE(result == 1 || result == -1) << at;
        }
    EXPECT_EQ(TextWithoutEnd(setting), "");
    ExpectNextFileLoads();
}

TEST_F(FavoriteHostile, AFileThatCannotBeOpenedIsNotRead) {
    EXPECT_EQ(LoadPath(PathOf("none.pfk")), 0);
    std::filesystem::create_directory(folder / "x.pfk");
    EXPECT_EQ(LoadPath(PathOf("x.pfk")), 0);
    EXPECT_EQ(LoadPath(""), 0);
    EXPECT_EQ(LoadPath(std::string(5000, 'x')), 0);
    ExpectUntouched();
    ExpectNextFileLoads();
}

TEST_F(FavoriteHostile, AThousandBadFilesInARowDoNoHarm) {
    for (int time = 0; time < 1000; ++time)
        ExpectRefused("<!DOCTYPE r><r/>");
}

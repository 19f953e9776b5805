// Favourites in all encodings, wrong ones, and with characters that the code page lacks.
#include "tests/settings/encoded_text.h"
#include "tests/settings/favorite_hostile_fixture.h"

using namespace std::string_literals;
using namespace std::string_view_literals;

namespace {

std::u16string Widened(std::string_view ascii) {
    return {ascii.begin(), ascii.end()};
}

} // namespace

TEST_F(FavoriteHostile, AFavouriteInUtf16WithAMarkIsRead) {
    const std::u16string text =
        u"<?xml version='1.0' "
        u"encoding='UTF-16'?><Favorite><IotVer>10</IotVer><OptionMemoFile>a</OptionMemoFile>"
        u"</Favorite>";
    for (const Encoding encoding : {Encoding::Utf16Little, Encoding::Utf16Big}) {
        ExpectRead(Encoded(text, encoding, true));
        EXPECT_EQ(Value("OOMF"), "a");
    }
}

TEST_F(FavoriteHostile, OtherWideEncodingsAreReadOrRefusedWithoutHarm) {
    const std::u16string text = Widened(FavoriteAround("<NumOfCopies>5</NumOfCopies>").substr(38));
    ASSERT_TRUE(text.starts_with(u"<Favorite>"));
    for (const Encoding encoding : kEncodings)
        for (const bool hasMark : {false, true})
            if (ExpectReadOrRefused(Encoded(text, encoding, hasMark)))
                EXPECT_EQ(Value("ONOC"), "5");
            else
                EXPECT_NE(encoding, Encoding::Utf8);
}

TEST_F(FavoriteHostile, WrongEncodingsAreRefused) {
    const std::string rest = "<Favorite><Comment>\x95\x5C</Comment></Favorite>"; // in code page 932
    ExpectRefused(rest);
    ExpectRefused("<?xml version='1.0' encoding='UTF-8'?>" + rest);
    ExpectRefused("<?xml version='1.0' encoding='NoSuch'?><Favorite/>");
    ExpectRefused("<?xml version='1.0' encoding=''?><Favorite/>");
    ExpectRefused("<?xml version='1.0' encoding='" + std::string(100'000, 'x') + "'?><Favorite/>");
    for (const std::string_view bytes :
         {"\xED\xA0\x80"sv, "\xED\xB0\x80"sv, "\xC0\xBC"sv, "\xF8\x88\x80\x80\x80"sv, "\xF4\x90\x80\x80"sv,
          "\xE8\xA1"sv, "\xFF"sv, "\x80"sv})
        ExpectRefused(FavoriteAround("<OptionMemoFile>" + std::string(bytes) + "</OptionMemoFile>"));
}

TEST_F(FavoriteHostile, EncodingsThatAPlatformMayKnowAreReadOrRefusedWithoutHarm) {
    for (const std::string_view name : {"Shift_JIS", "windows-31j", "EUC-JP", "ISO-2022-JP", "UTF-16",
                                        "UTF-32", "UTF-7", "UCS-4", "EBCDIC-CP-US"})
        ExpectReadOrRefused("<?xml version='1.0' encoding='" + std::string(name) +
                            "'?><Favorite><OptionMemoFile>\x95\x5C</OptionMemoFile></Favorite>");
}

TEST_F(FavoriteHostile, AFavouriteInShiftJisIsReadRightWherePlatformsKnowIt) {
    if (ExpectReadOrRefused("<?xml version='1.0' encoding='Shift_JIS'?><Favorite><OptionMemoFile>\x95\x5C"
                            "</OptionMemoFile></Favorite>")) {
        EXPECT_EQ(Value("OOMF"), "\x95\x5C");
    }
}

TEST_F(FavoriteHostile, LoneSurrogatesOfUtf16AreReadOrRefusedWithoutHarm) {
    for (const char16_t unit :
         {char16_t{0xD800}, char16_t{0xDBFF}, char16_t{0xDC00}, char16_t{0xDFFF}, char16_t{0xFFFE}})
        for (const Encoding encoding : {Encoding::Utf16Little, Encoding::Utf16Big})
            ExpectReadOrRefused(Encoded(
                u"<Favorite><OptionMemoFile>a"s + unit + u"b</OptionMemoFile></Favorite>", encoding, true));
}

TEST_F(FavoriteHostile, NulBytesAreRefused) {
    ExpectRefused(FavoriteAround("<OptionMemoFile>a\0b</OptionMemoFile>"sv));
    ExpectRefused(FavoriteAround("<Option\0MemoFile>a</OptionMemoFile>"sv));
    ExpectRefused(std::string(1000, '\0'));
    ExpectRefused(FavoriteAround("<OptionMemoFile>a&#0;b</OptionMemoFile>"));
}

TEST_F(FavoriteHostile, UnknownElementsAndNamesOutsideTheCodePageAreLeftAlone) {
    const std::string known = "<NumOfCopies>2</NumOfCopies>";
    CFavoriteSetting plain;
    ASSERT_EQ(LoadBytes(manager, FavoriteAround(known), plain), 1);
    CFavoriteSetting read;
    ASSERT_EQ(LoadBytes(manager,
                        FavoriteAround(known +
                                       "<NoSuchOption>1</NoSuchOption><\xE8\xA1\xA8>2</\xE8\xA1\xA8>"
                                       "<\xF0\x9F\x98\x80>3</\xF0\x9F\x98\x80><numofcopies>4</numofcopies>"),
                        read),
              1);
    EXPECT_TRUE(ImageOf(read) == ImageOf(plain));
}

TEST_F(FavoriteHostile, CharactersOutsideTheCodePageAreReadAsQuestionMarks) {
    ExpectRead(FavoriteAround("<OptionMemoFile>a\xE0\xB8\x81"
                              "b</OptionMemoFile>"));
    EXPECT_EQ(Value("OOMF"), "a?b");
}

// Of é, ¥ and © the page has characters that look alike, of ¥ even a backslash.
TEST_F(FavoriteHostile, EachCharacterOutsideTheCodePageIsOneQuestionMark) {
    ExpectRead(FavoriteAround("<OptionMemoFile>a\xC3\xA9\xC2\xA5\xC2\xA9\xF0\x9F\x98\x80z</OptionMemoFile>"));
    EXPECT_EQ(Value("OOMF"), "a????z");
    ExpectRead("<Favorite><Comment>\xC2\xA5\xE8\xA1\xA8</Comment></Favorite>");
    EXPECT_STREQ(setting.Comment.data(), "?\x95\x5C");
}

TEST_F(FavoriteHostile, ANameThatOnlyLooksLikeAKnownOneIsAnother) {
    const std::string known = FavoriteAround("<NumOfCopies>2</NumOfCopies>");
    CFavoriteSetting plain;
    ASSERT_EQ(LoadBytes(manager, known, plain), 1);
    CFavoriteSetting read;
    ASSERT_EQ(
        LoadBytes(manager,
                  FavoriteAround("<NumOfCopies>2</NumOfCopies><NumOfCopi\xC3\xA9s>3</NumOfCopi\xC3\xA9s>"
                                 "<Comm\xC3\xA9nt>other</Comm\xC3\xA9nt><Iot\xE1\xB9\xBC"
                                 "er>9</Iot\xE1\xB9\xBC"
                                 "er>"),
                  read),
        1);
    EXPECT_TRUE(ImageOf(read) == ImageOf(plain));
}

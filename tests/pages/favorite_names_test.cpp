// What a favourite's name and comment may be, and which message tells what is wrong.
#include "pages/favorite_names.h"

#include "Common/text.h"
#include "tests/support/repeated.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

constexpr std::string_view kNine = "\\/:*?\"<>|";
constexpr NamePlace kPlaces[]{NamePlace::SaveDialog, NamePlace::FavoriteDialog, NamePlace::FileToSave,
                              NamePlace::FileToLoad};

std::string OneByte(int byte) {
    return std::string(1, static_cast<char>(byte));
}

std::vector<std::string> AllDoubleByteCharacters() {
    std::vector<std::string> all;
    for (int lead = 0; lead < 256; ++lead) {
        if (!IsLeadByte(static_cast<unsigned char>(lead)))
            continue;
        for (int trail = 1; trail < 256; ++trail)
            all.push_back(OneByte(lead) + OneByte(trail));
    }
    return all;
}

TEST(ForbiddenCharacters, AreNine) {
    EXPECT_EQ(kForbiddenInFavoriteName, kNine);
    EXPECT_EQ(kForbiddenInFavoriteName.size(), 9u);
}

TEST(ContainsChars, FindsTheNineAmongAllSingleBytes) {
    for (int byte = 1; byte < 256; ++byte) {
        const bool isOne = kNine.find(static_cast<char>(byte)) != std::string_view::npos;
        EXPECT_EQ(ContainsChars(OneByte(byte), kNine), isOne) << byte;
        EXPECT_EQ(ContainsChars("a" + OneByte(byte), kNine), isOne) << byte;
    }
}

TEST(ContainsChars, TakesNoSecondByteForACharacter) {
    for (const std::string& character : AllDoubleByteCharacters()) {
        EXPECT_FALSE(ContainsChars(character, kNine)) << character;
        EXPECT_FALSE(ContainsChars("x" + character + "y", kNine)) << character;
    }
}

TEST(ContainsChars, FindsWhatStandsBehindADoubleByteCharacter) {
    for (const std::string& character : AllDoubleByteCharacters())
        EXPECT_TRUE(ContainsChars(character + "\\", kNine)) << character;
}

TEST(ContainsChars, FindsEachOfTheNineAnywhere) {
    for (const char c : kNine) {
        const std::string one(1, c);
        EXPECT_TRUE(ContainsChars(one + "ab", kNine));
        EXPECT_TRUE(ContainsChars("a" + one + "b", kNine));
        EXPECT_TRUE(ContainsChars("ｱ" + one, kNine)) << "behind a half-width kana";
    }
}

TEST(ContainsChars, FindsNothingInNothingAndNothingOfNothing) {
    EXPECT_FALSE(ContainsChars("", kNine));
    EXPECT_FALSE(ContainsChars("\\", ""));
}

TEST(ContainsChars, TakesALeadByteAtTheEndForACharacter) {
    EXPECT_FALSE(ContainsChars("a\x95", kNine));
}

TEST(IsAllSpace, IsTrueForSixOfAllSingleBytes) {
    const std::string blanks = "\t\n\v\f\r ";
    for (int byte = 1; byte < 256; ++byte) {
        EXPECT_EQ(IsAllSpace(OneByte(byte)), blanks.find(static_cast<char>(byte)) != std::string::npos)
            << byte;
    }
}

TEST(IsAllSpace, IsTrueForOneOfAllDoubleByteCharacters) {
    for (const std::string& character : AllDoubleByteCharacters())
        EXPECT_EQ(IsAllSpace(character), character == "\x81\x40") << character;
}

TEST(IsAllSpace, IsTrueForAnEmptyText) {
    EXPECT_TRUE(IsAllSpace(""));
}

TEST(IsAllSpace, WalksTheWholeText) {
    EXPECT_TRUE(IsAllSpace(" 　\t　　 "));
    EXPECT_FALSE(IsAllSpace("　　a"));
    EXPECT_FALSE(IsAllSpace("a　　"));
    EXPECT_FALSE(IsAllSpace(" 表 "));
    EXPECT_FALSE(IsAllSpace("　\x81"));
    EXPECT_FALSE(IsAllSpace("\x81 ")) << "a second byte is no blank of its own";
}

// What is written out is the order in which a place asks.

const NameRefusal kLimits{6013, ""};
const NameRefusal kCharacters{6014, "\\/:*?\"<>|"};
const NameRefusal kStandardName{6014, "標準"};
const NameRefusal kFileTooLong{6015, ""};

struct NameCase {
    std::string name;
    std::optional<NameRefusal> inSaveDialog;
    std::optional<NameRefusal> inFavoriteDialog;
    std::optional<NameRefusal> ofFileToSave;
    std::optional<NameRefusal> ofFileToLoad;
};

const std::optional<NameRefusal> kTaken;
const std::string k26(26, 'n');
const std::string k27(27, 'n');
const std::string k28(28, 'n');
const std::string k13Wide = Repeated(13, "表"); // 26 bytes, each second one that of a backslash
const std::string k14Wide = Repeated(14, "表");

const std::vector<NameCase> kNames{
    {"a", kTaken, kTaken, kTaken, kTaken},
    {"年次報告 A4", kTaken, kTaken, kTaken, kTaken},
    {" a ", kTaken, kTaken, kTaken, kTaken},
    {"表", kTaken, kTaken, kTaken, kTaken},
    {"ソ能", kTaken, kTaken, kTaken, kTaken},
    {k26, kTaken, kTaken, kTaken, kTaken},
    {k27, kTaken, kTaken, kTaken, kFileTooLong},
    {k28, kLimits, kLimits, kLimits, kFileTooLong},
    {k13Wide, kTaken, kTaken, kTaken, kTaken},
    {k13Wide + "a", kTaken, kTaken, kTaken, kFileTooLong},
    {k14Wide, kLimits, kLimits, kLimits, kFileTooLong},
    {"", kLimits, kLimits, kCharacters, kTaken},
    {" ", kLimits, kLimits, kLimits, kTaken},
    {"　", kLimits, kLimits, kLimits, kTaken},
    {"　 \t　", kLimits, kLimits, kLimits, kTaken},
    {"標準", kStandardName, kStandardName, kStandardName, kStandardName},
    {"標準 ", kTaken, kTaken, kTaken, kTaken},
    {"<変更>標準", kLimits, kCharacters, kCharacters, kCharacters},
    {"a/b", kLimits, kCharacters, kCharacters, kCharacters},
    {k26 + "?", kLimits, kCharacters, kCharacters, kFileTooLong},
    {k27 + "?", kLimits, kCharacters, kLimits, kFileTooLong},
    {std::string(28, ' '), kLimits, kLimits, kLimits, kFileTooLong},
};

TEST(FavoriteName, IsRefusedByEachPlaceInItsOwnOrder) {
    for (const NameCase& test : kNames) {
        EXPECT_EQ(RefuseFavoriteName(NamePlace::SaveDialog, test.name), test.inSaveDialog) << test.name;
        EXPECT_EQ(RefuseFavoriteName(NamePlace::FavoriteDialog, test.name), test.inFavoriteDialog)
            << test.name;
        EXPECT_EQ(RefuseFavoriteName(NamePlace::FileToSave, test.name), test.ofFileToSave) << test.name;
        EXPECT_EQ(RefuseFavoriteName(NamePlace::FileToLoad, test.name), test.ofFileToLoad) << test.name;
    }
}

TEST(FavoriteName, MayHaveNoneOfTheNineAnywhere) {
    for (const char c : kNine) {
        const std::string name = "a" + std::string(1, c) + "b";
        EXPECT_EQ(RefuseFavoriteName(NamePlace::SaveDialog, name), kLimits) << name;
        for (const NamePlace place :
             {NamePlace::FavoriteDialog, NamePlace::FileToSave, NamePlace::FileToLoad})
            EXPECT_EQ(RefuseFavoriteName(place, name), kCharacters) << name;
    }
}

TEST(FavoriteName, MayHaveEveryDoubleByteCharacterButBlanksAlone) {
    for (const std::string& character : AllDoubleByteCharacters()) {
        for (const NamePlace place : kPlaces) {
            EXPECT_EQ(RefuseFavoriteName(place, "a" + character), kTaken) << character;
        }
        EXPECT_EQ(RefuseFavoriteName(NamePlace::SaveDialog, character),
                  character == "　" ? std::optional(kLimits) : kTaken);
    }
}

TEST(FavoriteName, HasLimitsOfBytes) {
    EXPECT_EQ(kMaxFavoriteName, 27u);
    EXPECT_EQ(kMaxFavoriteComment, 255u);
}

TEST(FavoriteComment, MayHave255Bytes) {
    const NameRefusal tooLong{6018, ""};
    EXPECT_EQ(RefuseFavoriteComment(""), kTaken);
    EXPECT_EQ(RefuseFavoriteComment(std::string(255, 'c')), kTaken);
    EXPECT_EQ(RefuseFavoriteComment(std::string(256, 'c')), tooLong);
    EXPECT_EQ(RefuseFavoriteComment(Repeated(127, "表")), kTaken);
    EXPECT_EQ(RefuseFavoriteComment(Repeated(128, "表")), tooLong);
    EXPECT_EQ(RefuseFavoriteComment(std::string(100000, 'c')), tooLong);
}

TEST(FavoriteComment, MayHaveAnyCharacter) {
    EXPECT_EQ(RefuseFavoriteComment("\\/:*?\"<>|　標準"), kTaken);
    EXPECT_EQ(RefuseFavoriteComment(" "), kTaken);
}

TEST(OneLineComment, HasABlankForEachLineEndAndTab) {
    EXPECT_EQ(OneLineComment("one\r\ntwo"), "one two");
    EXPECT_EQ(OneLineComment("one\ntwo\rthree\tfour"), "one two three four");
    EXPECT_EQ(OneLineComment("\r\n\r\n"), "  ");
    EXPECT_EQ(OneLineComment("one\r"), "one ");
}

TEST(OneLineComment, KeepsEverythingElse) {
    EXPECT_EQ(OneLineComment(""), "");
    EXPECT_EQ(OneLineComment(" コメント  <&> "), " コメント  <&> ");
    // No second byte lies below the printable characters.
    for (const std::string& character : AllDoubleByteCharacters()) {
        const bool isTrail = character[1] < '\0' || character[1] >= '@';
        EXPECT_TRUE(!isTrail || OneLineComment(character) == character) << character;
    }
}

TEST(RefusalText, IsTheMessage) {
    EXPECT_EQ(RefusalText({6013, ""}), "名前は1から27バイト(半角27/全角13文字)で指定してください。");
    EXPECT_EQ(RefusalText({6018, ""}), "コメントは255バイト(半角255/全角127文字)以内で指定してください。");
    EXPECT_EQ(RefusalText({6015, ""}),
              "ファイル名が長すぎます。\nファイル名が26バイト以内のファイルを選択して"
              "ください。");
    EXPECT_EQ(RefusalText({6014, "標準"}), "次の文字または名前は使用できません。\n標準");
    EXPECT_EQ(RefusalText({6014, "\\/:*?\"<>|"}), "次の文字または名前は使用できません。\n\\/:*?\"<>|");
    EXPECT_EQ(RefusalText({6011, "年次"}), "「年次」は既に存在します。\n別の名前を指定してください。");
}

TEST(RefusalText, TakesAPercentOfTheArgumentAsItIs) {
    EXPECT_EQ(RefusalText({6011, "100%s %n"}),
              "「100%s %n」は既に存在します。\n別の名前を指定してください。");
}

} // namespace

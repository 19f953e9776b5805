#include "companions/jobproperty/folded_text.h"
#include "tests/companions/jobproperty/x100_catalogue.h"

#include <algorithm>

namespace jobproperty {
namespace {

std::vector<std::string> Found(std::string_view query) {
    std::vector<std::string> names;
    for (const std::size_t setting : X100Catalogue().Search(query))
        names.push_back(X100Catalogue().Settings()[setting].name);
    return names;
}

bool Finds(std::string_view query, std::string_view name) {
    return std::ranges::count(Found(query), name) == 1;
}

using Names = std::vector<std::string>;

TEST(Search, FindsASettingByItsLabel) {
    EXPECT_EQ(Found("ホチキス"), (Names{"StapleMode", "StapleMechanism"}));
    EXPECT_TRUE(Finds("用紙トレイ", "Tray"));
}

TEST(Search, FindsASettingByItsNameInAnyCase) {
    EXPECT_EQ(Found("StapleMode"), (Names{"StapleMode"}));
    EXPECT_EQ(Found("staplemode"), (Names{"StapleMode"}));
    EXPECT_EQ(Found("STAPLEMODE"), (Names{"StapleMode"}));
}

TEST(Search, FindsASettingByAnOption) {
    EXPECT_EQ(Found("中とじ(内側"), (Names{"StapleMode"}));
    EXPECT_EQ(Found("インナー排出"), (Names{"OutputTray"}));
}

TEST(Search, FindsHalfWidthAndFullWidthFormsAlike) {
    EXPECT_EQ(Found("ﾎﾁｷｽ"), Found("ホチキス"));
    EXPECT_EQ(Found("ＳｔａｐｌｅＭｏｄｅ"), (Names{"StapleMode"}));
    EXPECT_EQ(Found("ｺｰﾄ紙"), Found("コート紙"));
    EXPECT_EQ(Found("ﾌﾟﾘﾝﾄ"), Found("プリント"));
    EXPECT_FALSE(Found("ﾌﾟﾘﾝﾄ").empty());
    // The table has "１ヵ所" with a full-width digit.
    EXPECT_TRUE(Finds("左上1ヵ所", "StapleMode"));
}

TEST(Search, WantsEveryWordSomewhere) {
    EXPECT_EQ(Found("staple 中とじ(内側"), (Names{"StapleMode"}));
    EXPECT_EQ(Found("中とじ(内側　ホチキス"), (Names{"StapleMode"}));
    EXPECT_EQ(Found("staple トレイ"), Names{});
}

TEST(Search, GivesTheSettingsInTheirOrder) {
    const auto found = X100Catalogue().Search("する");
    EXPECT_GT(found.size(), 100u);
    EXPECT_TRUE(std::ranges::is_sorted(found));
}

TEST(Search, FindsNothingForAnEmptyQueryOrBlanks) {
    EXPECT_EQ(Found(""), Names{});
    EXPECT_EQ(Found("  \t　"), Names{});
}

TEST(Search, FindsNoWordAcrossTwoPartsOfASetting) {
    EXPECT_EQ(Found("ホチキスStapleMode"), Names{});
    EXPECT_EQ(Found("ホチキス\nStapleMode"), (Names{"StapleMode"})) << "which are two words";
}

TEST(Search, TakesAnyBytes) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    EXPECT_EQ(Found(all), Names{});
    EXPECT_EQ(Found("\x83"), Names{});
    EXPECT_EQ(Found(std::string(1, '\0')), Names{});
    EXPECT_EQ(Found(std::string(100000, '\x81')), Names{});
}

TEST(FoldedText, KeepsAByteOfACharacterFromBeingALetter) {
    // The second byte of ア is that of A.
    EXPECT_EQ(FoldedText("ア").find(u'a'), std::u16string::npos);
    EXPECT_EQ(FoldedText("ア").size(), 1u);
}

TEST(FoldedText, FoldsTheFullWidthFormsOfAscii) {
    for (char ascii = 0x21; ascii < 0x7F; ++ascii)
        EXPECT_EQ(FoldedText(std::string(1, ascii)).size(), 1u);
    EXPECT_EQ(FoldedText("ＡＺａｚ０９－．／％＃（）～￥"), u"azaz09-./%#()~\\");
    EXPECT_EQ(FoldedText("AZaz09-./%#()~\\"), u"azaz09-./%#()~\\");
}

TEST(FoldedText, MakesHalfWidthKanaFullWidth) {
    EXPECT_EQ(
        FoldedText("ｱｲｳｴｵｶｷｸｹｺｻｼｽｾｿﾀﾁﾂﾃﾄﾅﾆﾇﾈﾉﾊﾋﾌﾍﾎﾏﾐﾑﾒﾓﾔﾕﾖﾗﾘﾙﾚﾛﾜｦﾝ"),
        FoldedText(
            "アイウエオカキクケコサシスセソタチツテトナニヌネノハヒフヘホマミムメモヤユヨラリルレロワヲン"));
    EXPECT_EQ(FoldedText("ｧｨｩｪｫｬｭｮｯｰ｡｢｣､･"), FoldedText("ァィゥェォャュョッー。「」、・"));
}

TEST(FoldedText, JoinsAVoicedMarkWithItsKana) {
    EXPECT_EQ(FoldedText("ｶﾞｷﾞｸﾞｹﾞｺﾞｻﾞｼﾞｽﾞｾﾞｿﾞﾀﾞﾁﾞﾂﾞﾃﾞﾄﾞﾊﾞﾋﾞﾌﾞﾍﾞﾎﾞｳﾞ"),
              FoldedText("ガギグゲゴザジズゼゾダヂヅデドバビブベボヴ"));
    EXPECT_EQ(FoldedText("ﾊﾟﾋﾟﾌﾟﾍﾟﾎﾟ"), FoldedText("パピプペポ"));
    EXPECT_EQ(FoldedText("ｱﾞｶﾟ"), FoldedText("ア゛カ゜"));
}

} // namespace
} // namespace jobproperty

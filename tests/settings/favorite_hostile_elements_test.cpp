// Favourites whose elements stand where the program never writes them.
#include "tests/settings/favorite_hostile_fixture.h"

TEST_F(FavoriteHostile, TheLastOfManyElementsCountsWhereverItStands) {
    ExpectRead(
        "<Favorite><PrintOption><IotVer>1</IotVer><x><NumOfCopies>1</NumOfCopies></x></PrintOption>"
        "<Comment>one</Comment><IotVer>2</IotVer><y><Comment>two<NumOfCopies>12</NumOfCopies></Comment>"
        "<IotVer>10</IotVer></y></Favorite>");
    EXPECT_EQ(setting.IotVer, 10u);
    EXPECT_STREQ(setting.Comment.data(), "two12") << "a text is that of the elements in it too";
    EXPECT_EQ(Value("ONOC"), "12");
}

TEST_F(FavoriteHostile, AnElementWithinItselfIsReadAsTheInnerOne) {
    ExpectRead(FavoriteAround("<OptionMemoFile>a<OptionMemoFile>b</OptionMemoFile>c</OptionMemoFile>"));
    EXPECT_EQ(Value("OOMF"), "b");
}

TEST_F(FavoriteHostile, ElementsInCommentsCDataAndInstructionsAreNone) {
    ExpectRead(FavoriteAround("<NumOfCopies>2</NumOfCopies><!--<NumOfCopies>3</NumOfCopies>-->"
                              "<![CDATA[<NumOfCopies>4</NumOfCopies>]]><?p <NumOfCopies>5</NumOfCopies>?>"));
    EXPECT_EQ(Value("ONOC"), "2");
}

TEST_F(FavoriteHostile, ARootThatBearsTheNameOfAnOptionIsReadAsOne) {
    ExpectRead("<NumOfCopies>11</NumOfCopies>");
    EXPECT_EQ(Value("ONOC"), "11");
    EXPECT_EQ(setting.IotVer, 0u);
    EXPECT_STREQ(setting.Comment.data(), "");
}

TEST_F(FavoriteHostile, CommentsWithinATextAreNoPartOfItAndCDataIs) {
    ExpectRead(FavoriteAround("<OptionMemoFile>a<!--no-->b<![CDATA[<c>&amp;]]>d<?p no?></OptionMemoFile>"));
    EXPECT_EQ(Value("OOMF"), "ab<c>&amp;d");
}

TEST_F(FavoriteHostile, APrefixedNameIsAnotherName) {
    ExpectRead(FavoriteAround("<NumOfCopies>2</NumOfCopies>"
                              "<p:NumOfCopies xmlns:p='urn:p'>3</p:NumOfCopies>"));
    EXPECT_EQ(Value("ONOC"), "2");
    ExpectReadOrRefused(FavoriteAround("<q:NumOfCopies>4</q:NumOfCopies>"));
    ExpectReadOrRefused(FavoriteAround("<:NumOfCopies>4</:NumOfCopies>"));
}

TEST_F(FavoriteHostile, ANameInANamespaceOfItsOwnIsTheSameName) {
    ExpectRead(
        "<Favorite xmlns='urn:a'><IotVer>10</IotVer><NumOfCopies xmlns='urn:b'>3</NumOfCopies></Favorite>");
    EXPECT_EQ(setting.IotVer, 10u);
    EXPECT_EQ(Value("ONOC"), "3");
}

// Favourites that declare document types and entities, in the open or behind an encoding.
#include "tests/settings/encoded_text.h"
#include "tests/settings/favorite_hostile_fixture.h"

#include <array>

using namespace std::string_literals;
using namespace std::string_view_literals;

TEST_F(FavoriteHostile, ExternalEntitiesAreRefused) {
    const std::string secret = Write("secret.txt", "secret");
    const std::array systems{"file:///"s + secret, secret, "\\\\192.0.2.1\\share\\x"s, "http://192.0.2.1/x"s,
                             "file://192.0.2.1/share/x"s};
    for (const std::string& system : systems) {
        ExpectRefused("<!DOCTYPE Favorite [<!ENTITY a SYSTEM '" + system +
                      "'>]><Favorite><Comment>&a;"
                      "</Comment><IotVer>10</IotVer></Favorite>");
        ExpectRefused("<!DOCTYPE Favorite [<!ENTITY a PUBLIC 'b' '" + system +
                      "'>]><Favorite>&a;</Favorite>");
        ExpectRefused("<!DOCTYPE Favorite SYSTEM '" + system + "'><Favorite/>");
        ExpectRefused("<!DOCTYPE Favorite [<!ENTITY % a SYSTEM '" + system + "'> %a;]><Favorite/>");
    }
}

TEST_F(FavoriteHostile, NestedEntitiesAreRefused) {
    std::string type = "<!DOCTYPE Favorite [<!ENTITY a0 'ha'>";
    for (int level = 1; level < 20; ++level)
        type += "<!ENTITY a" + std::to_string(level) + " '" +
                Repeated(10, "&a" + std::to_string(level - 1) + ";") + "'>";
    ExpectRefused(type + "]><Favorite><Comment>&a19;</Comment></Favorite>");
    ExpectRefused(type + "]><Favorite Comment='&a19;'/>");
    ExpectRefused("<!DOCTYPE Favorite [<!ENTITY a '&b;'><!ENTITY b '&a;'>]><Favorite>&a;</Favorite>");
}

TEST_F(FavoriteHostile, NestedEntitiesThatTheEncodingHidesAreRefused) {
    std::string bytes = "<?xml version='1.0' encoding='UTF-7'?><+ACE-DOCTYPE r [<+ACE-ENTITY a0 'ha'>";
    for (int level = 1; level < 20; ++level)
        bytes += "<+ACE-ENTITY a" + std::to_string(level) + " '" +
                 Repeated(10, "+ACY-a" + std::to_string(level - 1) + ";") + "'>";
    ExpectRefused(bytes + "]><Favorite><Comment>+ACY-a19;</Comment></Favorite>");
    ExpectRefused("<?xml version='1.0' encoding='ISO-2022-JP'?><!DOC\x1B(BTYPE r [<!ENT\x1B(BITY a 'b'>]>"
                  "<Favorite>&a;</Favorite>");
}

TEST_F(FavoriteHostile, ParameterEntitiesAreRefused) {
    ExpectRefused("<!DOCTYPE Favorite [<!ENTITY % a '<!ENTITY b \"c\">'> %a;]><Favorite>&b;</Favorite>");
}

TEST_F(FavoriteHostile, ADocumentTypeIsRefusedWhereverItStands) {
    const std::string good = FavoriteAround("");
    const std::size_t root = good.find("<Favorite>");
    for (const std::string_view type :
         {"<!DOCTYPE Favorite>"sv, "<!DOCTYPE Favorite []>"sv, "<!-- c -->\n<!DOCTYPE Favorite>"sv,
          "\r\n\t <!DOCTYPE\nFavorite>"sv, "<?p i?><!DOCTYPE Favorite><!-- c -->"sv,
          "<!--<!DOCTYPE Favorite>-->"sv})
        ExpectRefused(std::string(good).insert(root, type));
    ExpectRefused(FavoriteAround("<![CDATA[<!DOCTYPE r>]]>"));
    ExpectRefused(FavoriteAround("<!ENTITY a 'b'>"));
    ExpectRefused(good + "<!DOCTYPE Favorite>");
}

TEST_F(FavoriteHostile, ADocumentTypeIsRefusedInEveryWideEncodingWithAndWithoutMark) {
    const std::u16string text =
        u"<!DOCTYPE Favorite [<!ENTITY a 'b'>]><Favorite><Comment>&a;</Comment></Favorite>";
    for (const Encoding encoding : kEncodings)
        for (const bool hasMark : {false, true}) {
            ExpectRefused(Encoded(text, encoding, hasMark));
            for (const char16_t* name : {u"UTF-16", u"UTF-8", u"UTF-32", u"ISO-8859-1"})
                ExpectRefused(
                    Encoded(u"<?xml version='1.0' encoding='"s + name + u"'?>" + text, encoding, hasMark));
        }
}

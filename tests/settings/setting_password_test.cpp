#include "settings/password_scramble.h"

#include "Common/text.h"
#include "tests/settings/random_text.h"
#include "tests/settings/setting_fixture.h"

#include <memory>
#include <random>
#include <set>

namespace {

constexpr int kPassword = 384; // SecPrintPassword: 130 bytes
constexpr std::size_t kFlag = 21930;

// The byte of the kind's `kind` that became `byte` at a place: that of rank r, of n in all, became the one of
// rank r + 1 + (29 place + 16) mod (n - 1), counted round.
char BytePermutedTo(char byte, std::size_t place, const std::string& kind) {
    const std::size_t rank = kind.find(byte);
    if (rank == std::string::npos)
        return byte;
    const std::size_t shift = 1 + (29 * place + 16) % (kind.size() - 1);
    return kind[(rank + kind.size() - shift) % kind.size()];
}

std::string From(int first, int last) {
    std::string bytes;
    for (int byte = first; byte <= last; ++byte)
        bytes += static_cast<char>(byte);
    return bytes;
}

const std::string kPrintable = From(0x20, 0x7E);
const std::string kKatakana = From(0xA1, 0xDF);
const std::string kTrails = From(0x40, 0x7E) + From(0x80, 0xFC);
const std::string kLeads = From(0x81, 0x9F) + From(0xE0, 0xFC);

bool Contains(const std::string& bytes, char byte) {
    return bytes.find(byte) != std::string::npos;
}

bool IsLead(char byte) {
    return IsLeadByte(static_cast<unsigned char>(byte));
}

std::string Unscrambled(const std::string& scrambled) {
    std::string text = scrambled;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (!IsLead(text[i]))
            text[i] = BytePermutedTo(text[i], i, Contains(kPrintable, text[i]) ? kPrintable : kKatakana);
        else if (++i < text.size())
            text[i] = BytePermutedTo(text[i], i, kTrails);
    }
    return text;
}

// Bytes of any value but NUL: control bytes, and lead bytes before what is no trail byte, among them.
std::string RandomBytes(std::mt19937& random) {
    std::string text(1 + random() % 129, ' ');
    for (char& c : text)
        c = static_cast<char>(1 + random() % 255);
    return text;
}

class ScrambleDoubleBytes : public testing::Test {
  protected:
    void SetUp() override {
        for (const char lead : kLeads)
            if (!IsLead(lead))
                GTEST_SKIP() << "the code page is not 932";
    }
};

TEST(ScramblePassword, CanBeUndoneForEveryText) {
    std::mt19937 random(71);
    for (int round = 0; round < 5000; ++round) {
        for (const std::string& text : {RandomText(random, 129), RandomBytes(random)})
            ASSERT_EQ(Unscrambled(ScramblePassword(text)), text);
    }
}

// a: rank 65 of 95, shift 1 + 16, gives rank 82. B: 34 of 95, 1 + 45, 80.
// B1: 16 of 63, 1 + 74 mod 62, 29. z at place 3: 90 of 95, 1 + 103 mod 94, 100 - 95.
TEST(ScramblePassword, GivesTheTextThatTheRuleSays) {
    EXPECT_EQ(ScramblePassword("aB\xB1z\t"), "rp\xBE%\t");
}

// 88 F3 at places 1 and 2: F3 is of rank 178 of 188, shift 1 + 74, gives rank 253 - 188 = 65, which is 82.
// a at place 3: 65 of 95, 1 + 103 mod 94, 75.
TEST_F(ScrambleDoubleBytes, GivesTheTextThatTheRuleSays) {
    EXPECT_EQ(ScramblePassword("a\x88\xF3"
                               "a"),
              "r\x88\x82k");
}

TEST(ScramblePassword, ChangesEveryPrintableCharacterAndKatakanaAtEachPlaceToAnotherOfItsKind) {
    for (const std::string& kind : {kPrintable, kKatakana})
        for (std::size_t place = 0; place < 200; ++place) {
            const std::string before(place, 'x');
            std::set<char> scrambled;
            for (const char c : kind) {
                const std::string text = ScramblePassword(before + c);
                EXPECT_NE(text.back(), c) << place;
                EXPECT_TRUE(Contains(kind, text.back())) << place;
                scrambled.insert(text.back());
            }
            EXPECT_EQ(scrambled.size(), kind.size()) << place;
        }
}

TEST_F(ScrambleDoubleBytes, ChangeInTheirTrailByteAtEachPlaceAndKeepTheirLeadByte) {
    for (std::size_t place = 0; place < 200; ++place) {
        const std::string before(place, 'x');
        const char lead = kLeads[place % kLeads.size()];
        std::set<char> scrambled;
        for (const char trail : kTrails) {
            const std::string text = ScramblePassword(before + lead + trail);
            ASSERT_EQ(text[place], lead);
            ASSERT_NE(text.back(), trail);
            ASSERT_TRUE(Contains(kTrails, text.back()));
            scrambled.insert(text.back());
        }
        ASSERT_EQ(scrambled.size(), kTrails.size());
    }
}

TEST(ScramblePassword, DependsOnThePlaceOfACharacter) {
    for (const char c : {'a', '\xB1'}) {
        const std::string text = ScramblePassword(std::string(20, c));
        EXPECT_EQ(std::set<char>(text.begin(), text.end()).size(), 20u);
    }
}

// 95 printable characters cannot hold them too one for one.
TEST(ScramblePassword, LeavesControlBytesAlone) {
    const std::string controls = From(0x01, 0x1F) + '\x7F';
    EXPECT_EQ(ScramblePassword(controls), controls);
}

TEST(ScramblePassword, KeepsTheLengthAndAddsNoControlBytes) {
    std::mt19937 random(73);
    for (int round = 0; round < 1000; ++round) {
        const std::string text = RandomText(random, 129);
        const std::string scrambled = ScramblePassword(text);
        ASSERT_EQ(scrambled.size(), text.size());
        for (const char c : scrambled)
            ASSERT_TRUE(static_cast<unsigned char>(c) >= ' ' && c != '\x7F');
    }
}

TEST(ScramblePassword, IsTheSameEachTimeAndNotTheTextItself) {
    EXPECT_EQ(ScramblePassword("secret"), ScramblePassword("secret"));
    EXPECT_NE(ScramblePassword("secret"), "secret");
    EXPECT_EQ(ScramblePassword(""), "");
}

TEST_F(ScrambleDoubleBytes, AreLeftAloneWhereTheirTrailByteIsNone) {
    for (const std::string& none : {From(0x01, 0x3F), From(0x7F, 0x7F), From(0xFD, 0xFF)})
        for (const char trail : none) {
            const std::string text{'\x83', trail};
            EXPECT_EQ(ScramblePassword(text), text);
        }
}

TEST(ScramblePassword, TakesALeadByteAtTheEnd) {
    EXPECT_EQ(ScramblePassword("\x83"), "\x83");
    EXPECT_EQ(ScramblePassword("a\x83"), "r\x83");
}

class PreparePassword : public SettingTest {
  protected:
    std::uint8_t Flag() const { return setting->PrintOption().Bytes(ddb::Block::Record)[kFlag]; }
    void SetFlag(std::uint8_t flag) { setting->PrintOption().Bytes(ddb::Block::Record)[kFlag] = flag; }

    const std::unique_ptr<CFavoriteSetting> setting = std::make_unique<CFavoriteSetting>();
};

TEST_F(PreparePassword, ReplacesThePasswordAndSetsItsFlag) {
    PutFieldText(*setting, kPassword, "open sesame");
    SetFlag(0);
    const auto before = BytesOf(*setting);
    setting->PreparePassword();
    EXPECT_EQ(FieldTextOf(*setting, kPassword), ScramblePassword("open sesame"));
    EXPECT_EQ(Flag(), 1);
    // Nothing else of the record changes.
    PutFieldText(*setting, kPassword, "open sesame");
    SetFlag(0);
    EXPECT_EQ(BytesOf(*setting), before);
}

TEST_F(PreparePassword, LeavesAnEmptyPasswordAndItsFlagAlone) {
    for (const std::uint8_t flag : {0, 1}) {
        SetFlag(flag);
        const auto before = BytesOf(*setting);
        setting->PreparePassword();
        EXPECT_EQ(BytesOf(*setting), before);
    }
}

TEST_F(PreparePassword, KeepsAPasswordOf129BytesInItsField) {
    PutFieldText(*setting, kPassword, std::string(129, 'p'));
    setting->PreparePassword();
    EXPECT_EQ(FieldTextOf(*setting, kPassword), ScramblePassword(std::string(129, 'p')));
}

TEST_F(PreparePassword, CutsOneThatFillsItsFieldWithoutANul) {
    const ListedPlace& place = *PlaceOf(kPassword);
    ASSERT_EQ(place.width, 130u);
    for (std::size_t i = 0; i < place.width; ++i)
        setting->PrintOption().Bytes(place.block)[place.offset + i] = 'p';
    setting->PreparePassword();
    EXPECT_EQ(FieldTextOf(*setting, kPassword), ScramblePassword(std::string(129, 'p')));
}

TEST_F(PreparePassword, LeavesThePasswordsOfResourcesAndOfTheAuthenticationReadable) {
    for (const int readable : {385, 389, 390, 391})
        PutFieldText(*setting, readable, "open sesame");
    setting->PreparePassword();
    for (const int readable : {385, 389, 390, 391})
        EXPECT_EQ(FieldTextOf(*setting, readable), "open sesame") << readable;
}

TEST_F(PreparePassword, WorksInEveryKindOfSetting) {
    CCurrentSetting current;
    CDefaultSetting standard;
    for (CSettingInfo* one : {static_cast<CSettingInfo*>(&current), static_cast<CSettingInfo*>(&standard)}) {
        PutFieldText(*one, kPassword, "a");
        one->PreparePassword();
        EXPECT_EQ(FieldTextOf(*one, kPassword), ScramblePassword("a"));
    }
}

} // namespace

// One value out of a data setting key, whatever another process put there.
#include "datamanager/key_layout.h"

#include "datamanager/name_index.h"

#include <gtest/gtest.h>

#include <cctype>
#include <cstring>
#include <memory>
#include <string>

namespace {

constexpr std::uint32_t kNone = 0, kSz = 1, kExpandSz = 2, kBinary = 3, kDword = 4, kMultiSz = 7, kQword = 11;

class KeyLayout : public testing::Test {
  protected:
    Taken Take(Section section, std::string_view name, std::uint32_t type, std::string_view data) {
        return TakeKeyValue(*values, section, name, type, std::as_bytes(std::span(data)));
    }
    // Every bank value and named value that is not as it was before anything was taken.
    bool IsUntouched() const {
        const StoredValues fresh;
        return std::memcmp(values->banks.data(), fresh.banks.data(), sizeof fresh.banks) == 0 &&
               std::memcmp(&values->named, &fresh.named, sizeof fresh.named) == 0;
    }

    std::unique_ptr<StoredValues> values = std::make_unique<StoredValues>();
};

std::string Dword(unsigned char lowest) {
    return {static_cast<char>(lowest), '\0', '\0', '\0'};
}

std::string OtherCase(std::string name) {
    for (char& c : name) {
        const auto byte = static_cast<unsigned char>(c);
        c = static_cast<char>(std::isupper(byte) ? std::tolower(byte) : std::toupper(byte));
    }
    return name;
}

TEST_F(KeyLayout, TakesEveryKeywordOfEveryBankByName) {
    for (std::size_t bank = 0; bank < 4; ++bank)
        for (std::size_t keyword = 0; keyword < 327; ++keyword) {
            ASSERT_EQ(
                Take(static_cast<Section>(bank), kKeywordNames[keyword], kDword, Dword(1 + keyword % 250)),
                Taken::Yes);
            EXPECT_EQ(values->banks[bank][keyword], 1 + keyword % 250);
        }
}

TEST_F(KeyLayout, TakesEveryNamedValueByName) {
    std::size_t texts = 0;
    for (const ValueRow& row : kValueRows) {
        const std::string slot = [&]() -> std::string {
            switch (row.type) {
            case ValueType::Text: return "text" + std::string(1, '\0');
            case ValueType::U64: return "12345678";
            default: return "1234";
            }
        }();
        const std::uint32_t type = slot.size() == 4 ? kDword : slot.size() == 8 ? kQword : kSz;
        ASSERT_EQ(Take(Section::Values, row.name, type, slot), Taken::Yes) << row.name;
        const auto stored = SlotOf(values->named, row);
        EXPECT_EQ(std::string(reinterpret_cast<const char*>(stored.data()), slot.size()), slot) << row.name;
        texts += row.type == ValueType::Text;
    }
    EXPECT_EQ(texts, 83u);
}

TEST_F(KeyLayout, FindsNamesInAnyCaseAsTheRegistryDoes) {
    EXPECT_EQ(Take(Section::Current, OtherCase("DuplexMode"), kDword, Dword(3)), Taken::Yes);
    EXPECT_EQ(values->banks[0][104], 3u);
    EXPECT_EQ(Take(Section::Values, OtherCase("BleedSize"), kDword, Dword(4)), Taken::Yes);
    EXPECT_EQ(values->named.BleedSize, 4u);
}

TEST_F(KeyLayout, IgnoresUnknownNames) {
    for (const std::string_view name : {"", "DuplexMod", "DuplexModes", "BleedSize", "104"})
        EXPECT_EQ(Take(Section::Current, name, kDword, Dword(3)), Taken::UnknownName) << name;
    for (const std::string_view name : {"", "JobNam", "JobName2", "DuplexMode"})
        EXPECT_EQ(Take(Section::Values, name, kDword, Dword(3)), Taken::UnknownName) << name;
    EXPECT_EQ(Take(Section::Values, std::string(16383, 'n'), kSz, ""), Taken::UnknownName);
    EXPECT_TRUE(IsUntouched());
}

TEST_F(KeyLayout, IgnoresANumberOfAnotherTypeOrSize) {
    for (const std::uint32_t type : {kNone, kSz, kExpandSz, kBinary, kMultiSz, kQword, 0xFFFFFFFFu}) {
        EXPECT_EQ(Take(Section::Current, "DuplexMode", type, Dword(3)), Taken::WrongForm) << type;
        EXPECT_EQ(Take(Section::Values, "BleedSize", type, Dword(3)), Taken::WrongForm) << type;
    }
    for (const std::size_t size : {0u, 1u, 3u, 5u, 8u, 60000u}) {
        EXPECT_EQ(Take(Section::Current, "DuplexMode", kDword, std::string(size, 'x')), Taken::WrongForm)
            << size;
        EXPECT_EQ(Take(Section::Values, "BackMargin", kDword, std::string(size, 'x')), Taken::WrongForm)
            << size;
    }
    EXPECT_EQ(Take(Section::Values, "AutoJobStartSpecifiedDayAndTimeForDriver", kDword, Dword(3)),
              Taken::WrongForm);
    EXPECT_TRUE(IsUntouched());
}

TEST_F(KeyLayout, IgnoresATextOfAnotherType) {
    for (const std::uint32_t type : {kNone, kExpandSz, kBinary, kDword, kMultiSz, kQword})
        EXPECT_EQ(Take(Section::Values, "JobName", type, "name"), Taken::WrongForm) << type;
    EXPECT_TRUE(IsUntouched());
}

TEST_F(KeyLayout, TakesATextWithoutATerminator) {
    EXPECT_EQ(Take(Section::Values, "JobName", kSz, "name"), Taken::Yes);
    EXPECT_STREQ(values->named.JobName.data(), "name");
}

TEST_F(KeyLayout, EndsATextAtItsFirstNul) {
    EXPECT_EQ(Take(Section::Values, "JobName", kSz, std::string_view("ab\0cd", 5)), Taken::Yes);
    EXPECT_STREQ(values->named.JobName.data(), "ab");
    EXPECT_EQ(values->named.JobName[3], '\0');
}

TEST_F(KeyLayout, TakesAnEmptyText) {
    EXPECT_EQ(Take(Section::Values, "JobName", kSz, "before"), Taken::Yes);
    EXPECT_EQ(Take(Section::Values, "JobName", kSz, ""), Taken::Yes);
    EXPECT_STREQ(values->named.JobName.data(), "");
}

TEST_F(KeyLayout, CutsAHugeTextOnACharacterBoundary) {
    std::string huge;
    while (huge.size() < 60000)
        huge += "\x95\x5C";
    EXPECT_EQ(Take(Section::Values, "FormName", kSz, huge), Taken::Yes);
    EXPECT_EQ(values->named.FormName.data(), huge.substr(0, 98));
    EXPECT_STREQ(values->named.PaginationTemplate.data(), "") << "the slot behind";
}

TEST_F(KeyLayout, KeepsATextAsLongAsItsFieldUnchanged) {
    const std::string text(1023, 's');
    EXPECT_EQ(Take(Section::Values, "SPages", kSz, text + '\0'), Taken::Yes);
    EXPECT_EQ(values->named.SPages.data(), text);
}

TEST(NameIndexOf, TellsEqualNamesOfDifferentCaseAsDuplicates) {
    static constexpr NameIndex same(std::array{"Alpha", "beta", "ALPHA"});
    static constexpr NameIndex different(std::array{"Alpha", "beta", "Alph"});
    EXPECT_TRUE(same.HasDuplicates());
    EXPECT_FALSE(different.HasDuplicates());
    EXPECT_EQ(different.Find("BETA"), 1);
    EXPECT_EQ(different.Find("alph"), 2);
    EXPECT_EQ(different.Find("alphab"), -1);
}

} // namespace

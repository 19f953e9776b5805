#include "tests/oemps/devmode_records.h"
#include "tests/support/devmode_listing.h"
#include "tests/support/file_contents.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

namespace {

// What the driver hands over: a buffer that was never cleared.
std::unique_ptr<PrivateDevMode> MakeDefaultOverOldBytes() {
    auto record = std::make_unique<PrivateDevMode>();
    std::memset(record.get(), 0xCC, sizeof *record);
    CDevMode(*record).SetDefault(24112);
    return record;
}

unsigned ByteAt(const PrivateDevMode& record, std::size_t offset) {
    return static_cast<unsigned char>(ViewOf(record)[offset]);
}

// The bytes that the listing's column of defaults leaves in a buffer of 0xCC.
class ListedDefaults {
  public:
    ListedDefaults() : m_image(24112, '\xCC') {
        for (const ListedField& field : ListDevModeFields()) {
            Apply(field);
            ++m_rows;
        }
    }

    const std::string& Image() const { return m_image; }
    int Rows() const { return m_rows; }

  private:
    void Apply(const ListedField& field) {
        if (field.value == "not written")
            return;
        if (field.value == "bytes 13212 to 13244 set to 0")
            m_image.replace(13212, 33, 33, '\0');
        else if (field.IsText())
            ApplyTexts(field);
        else
            ApplyNumbers(field);
    }

    void ApplyTexts(const ListedField& field) {
        const std::size_t width = field.Width();
        if (field.value == "\"\"" || field.value.starts_with("first byte")) {
            for (std::size_t i = 0; i < field.count; ++i)
                m_image[field.offset + i * width] = '\0';
            return;
        }
        // The listing is in UTF-8, the record in code page 932.
        const std::string text = field.value.starts_with("\"JC2011")
                                     ? "JC2011(\x83\x52\x81\x5B\x83\x67\x8E\x86)_Uncoated"
                                     : field.value.substr(1, field.value.size() - 2);
        m_image.replace(field.offset, width, text + std::string(width - text.size(), '\0'));
    }

    void ApplyNumbers(const ListedField& field) {
        std::istringstream list(field.value);
        std::vector<unsigned long long> numbers;
        for (std::string number; std::getline(list, number, ',');)
            numbers.push_back(std::stoull(number, nullptr, 0));
        for (std::size_t i = 0; i < field.count; ++i) {
            unsigned long long number = numbers[numbers.size() == 1 ? 0 : i];
            for (std::size_t byte = 0; byte < field.Width(); ++byte, number >>= 8)
                m_image[field.offset + i * field.Width() + byte] = static_cast<char>(number & 0xFF);
        }
    }

    std::string m_image;
    int m_rows = 0;
};

TEST(SetDefault, WritesWhatTheListingTellsAndNothingElse) {
    const ListedDefaults listed;
    ASSERT_EQ(listed.Rows(), 287);
    const auto record = MakeDefaultOverOldBytes();
    const auto image = ViewOf(*record);
    for (std::size_t at = 0; at < 24112; ++at)
        ASSERT_EQ(image[at], listed.Image()[at]) << "at " << at;
}

TEST(SetDefault, Returns1AndPutsItsArgumentIntoDwSize) {
    PrivateDevMode record{};
    EXPECT_EQ(CDevMode(record).SetDefault(77), 1);
    EXPECT_EQ(record.dwSize, 77u);
}

TEST(SetDefault, GivesAValidHeaderToAnUninitialisedBuffer) {
    const auto record = MakeDefaultOverOldBytes();
    EXPECT_EQ(ViewOf(*record).substr(0, 12), std::string_view("\x30\x5E\x00\x00TFSM\x02\x00\x00\x00", 12));
}

TEST(SetDefault, EmptiesStringsButLeavesTheOldBytesInTheirTails) {
    const auto record = MakeDefaultOverOldBytes();
    EXPECT_EQ(ByteAt(*record, 12), 0u);
    EXPECT_EQ(ByteAt(*record, 13), 0xCCu);
    EXPECT_EQ(ByteAt(*record, 523), 0xCCu);
    EXPECT_STREQ(record->Profile, "");
    EXPECT_EQ(ByteAt(*record, 23812 + 259), 0xCCu);
}

TEST(SetDefault, LeavesTheOldBytesInReservedSlotsBehindTheirFirst) {
    const auto record = MakeDefaultOverOldBytes();
    for (std::size_t slot = 11712; slot < 13212; slot += 100) {
        EXPECT_EQ(ByteAt(*record, slot), 0u) << slot;
        EXPECT_EQ(ByteAt(*record, slot + 1), 0xCCu) << slot;
    }
    EXPECT_EQ(ByteAt(*record, 17744), 0u);
    EXPECT_EQ(ByteAt(*record, 17745), 0xCCu);
}

TEST(SetDefault, ClearsExactly33BytesOfTheRunOf33ReservedSlots) {
    const auto record = MakeDefaultOverOldBytes();
    const std::string_view run = ViewOf(*record).substr(13212, 3300);
    EXPECT_EQ(run.substr(0, 33), std::string(33, '\0'));
    EXPECT_EQ(run.substr(33), std::string(3267, '\xCC'));
}

TEST(SetDefault, LeavesPadsAndTheTwoUnusedWordsAlone) {
    const auto record = MakeDefaultOverOldBytes();
    for (const std::size_t at : {4703, 5453, 5454, 5455, 10435, 23767})
        EXPECT_EQ(ByteAt(*record, at), 0xCCu) << at;
    EXPECT_EQ(ViewOf(*record).substr(4768, 4), "\xCC\xCC\xCC\xCC");
    EXPECT_EQ(ViewOf(*record).substr(24108, 4), "\xCC\xCC\xCC\xCC");
}

TEST(SetDefault, NamesTheSystemFontInFiveFontFields) {
    const auto record = MakeDefaultOverOldBytes();
    EXPECT_STREQ(record->MemoFontName, "SYSTEM_DEFAULT");
    EXPECT_STREQ(record->PaginationFontName, "SYSTEM_DEFAULT");
    EXPECT_STREQ(record->ImpositionPaginationFontName, "SYSTEM_DEFAULT");
    EXPECT_STREQ(record->BackSignatureFontName, "SYSTEM_DEFAULT");
    EXPECT_STREQ(record->JobInformationFontName, "SYSTEM_DEFAULT");
}

TEST(SetDefault, NamesADeviceLinkProfileInCodePage932AndALayoutFile) {
    const auto record = MakeDefaultOverOldBytes();
    EXPECT_STREQ(record->CmykDeviceLinkProfile, "JC2011(\x83\x52\x81\x5B\x83\x67\x8E\x86)_Uncoated");
    EXPECT_STREQ(record->LayoutBaseFile, "Normal-1side.json");
}

TEST(SetDefault, LeavesEveryOtherTextEmpty) {
    const auto record = MakeDefaultOverOldBytes();
    int empty = 0;
#define ZR_TEXT(offset, name, width, value, travel, control) empty += record->name[0] == '\0';
#include "oemps/private_devmode.def"
    EXPECT_EQ(empty, 82 - 7);
}

TEST(SetDefault, ZeroFillsBehindADefaultText) {
    const auto record = MakeDefaultOverOldBytes();
    EXPECT_EQ(ViewOf(*record).substr(2212 + 14, 256 - 14), std::string(242, '\0'));
}

TEST(SetDefault, MakesFinishedSizeHeightOneLessThan297MillimetresElsewhere) {
    const auto record = MakeDefault();
    EXPECT_EQ(record->FinishedSizeHeight, 168377u);
    EXPECT_EQ(record->SheetSizeWidth, 168378u);
    EXPECT_EQ(record->CustomPaperWidth, 168378u);
    EXPECT_EQ(record->ChgPrintPaperSizeWidth, 168378u);
}

TEST(SetDefault, KeepsTheSecondAndSixthReservedEntryIrregular) {
    const auto record = MakeDefault();
    const auto wordAt = [&record](std::size_t offset) {
        std::uint32_t word;
        std::memcpy(&word, ViewOf(*record).data() + offset, 4);
        return word;
    };
    for (const std::size_t entry : {0, 2, 3, 4, 6, 7}) {
        EXPECT_EQ(wordAt(23180 + 16 * entry), 168378u) << entry;
        EXPECT_EQ(wordAt(23180 + 16 * entry + 4), 119055u) << entry;
    }
    EXPECT_EQ(wordAt(23196), 168378u);
    EXPECT_EQ(wordAt(23200), 0u);
    EXPECT_EQ(wordAt(23260), 118378u);
    EXPECT_EQ(wordAt(23264), 119055u);
    for (std::size_t entry = 0; entry < 8; ++entry) {
        EXPECT_EQ(wordAt(23180 + 16 * entry + 8), 0u) << entry;
        EXPECT_EQ(wordAt(23180 + 16 * entry + 12), 0u) << entry;
    }
}

TEST(SetDefault, IsStillTheBlockOfTheFirstRelease) {
    const std::string frozen = FileContents(ZR_TEST_DATA_DIR "/devmode_v2_default.bin");
    ASSERT_EQ(frozen.size(), 24112u);
    const auto record = MakeDefault();
    EXPECT_TRUE(ViewOf(*record) == frozen);

    // The frozen file itself, where a wrong byte would hurt most.
    EXPECT_EQ(frozen.substr(0, 8), std::string("\x30\x5E\x00\x00TFSM", 8));
    EXPECT_EQ(frozen.substr(2212, 15), std::string("SYSTEM_DEFAULT\0", 15));
    EXPECT_EQ(frozen.substr(4716, 4), std::string("\xBA\x91\x02\x00", 4)); // 168378
    EXPECT_EQ(frozen.substr(4916, 4), std::string("\xE8\x03\x00\x00", 4)); // Magnification 1000
    EXPECT_EQ(frozen.substr(5964, 8), "JC2011(\x83");
    EXPECT_EQ(frozen.substr(16720, 4), std::string("\xB9\x91\x02\x00", 4)); // 168377
    EXPECT_EQ(frozen.substr(23768, 4), std::string(4, '\0'));               // Modified
    EXPECT_EQ(frozen.substr(24100, 4), std::string("\x02\x00\x00\x00", 4)); // ImageBacklightCorrectionLevel
}

TEST(SetModified, Sets1AndNothingElse) {
    const auto record = MakeDefault();
    const PrivateDevMode before = *record;
    CDevMode(*record).SetModified();
    EXPECT_EQ(record->Modified, 1u);
    record->Modified = 0;
    EXPECT_EQ(FirstDifference(*record, before), kDevModeSize);
}

} // namespace

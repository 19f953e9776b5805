#include "settings/print_option_access.h"

#include "tests/settings/option_bytes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace ddb {
namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes BytesOf(const CPrintOptionEx& option, Block block) {
    const auto bytes = option.Bytes(block);
    return {bytes.begin(), bytes.end()};
}

Bytes FieldBytes(const CPrintOptionEx& option, const FieldDescriptor& field) {
    const auto bytes = option.Bytes(field.block).subspan(field.offset, field.width);
    return {bytes.begin(), bytes.end()};
}

// A cleared set in which `change` may alter the field's own bytes and its flag only.
template <class Change>
void ExpectChangesItsOwnBytesOnly(const FieldDescriptor& field, Change change) {
    CPrintOptionEx option;
    for (const Block block : kAllBlocks)
        std::ranges::fill(option.Bytes(block), std::uint8_t{0x5A});
    change(option);
    const auto block = option.Bytes(field.block);
    std::ranges::fill(block.subspan(field.offset, field.width), std::uint8_t{0x5A});
    if (field.flag)
        block[field.flag] = 0x5A;
    EXPECT_EQ(AllBytesOf(option), Bytes(22120 + 2352 + 44, 0x5A)) << field.name;
}

TEST(PrintOptionNumber, OfEveryFieldIsWrittenLittleEndianAndReadBack) {
    for (const FieldDescriptor& field : kFields) {
        if (field.IsText() || field.width != 4)
            continue;
        CPrintOptionEx option;
        EXPECT_TRUE(SetI32(option, field, -2));
        EXPECT_EQ(FieldBytes(option, field), (Bytes{0xFE, 0xFF, 0xFF, 0xFF})) << field.name;
        EXPECT_EQ(GetI32(option, field), -2) << field.name;
        EXPECT_EQ(GetU32(option, field), 0xFFFFFFFEu) << field.name;
        EXPECT_TRUE(SetU32(option, field, 0x89ABCDEF));
        EXPECT_EQ(FieldBytes(option, field), (Bytes{0xEF, 0xCD, 0xAB, 0x89})) << field.name;
        EXPECT_EQ(GetU32(option, field), 0x89ABCDEFu) << field.name;
        ExpectChangesItsOwnBytesOnly(field, [&](CPrintOptionEx& changed) { SetI32(changed, field, 0); });
    }
}

TEST(PrintOptionNumber, OfTheDayAndTimeHas64Bits) {
    const FieldDescriptor& field = FieldAt(FieldId::AutoJobStartSpecifiedDayAndTime);
    CPrintOptionEx option;
    EXPECT_EQ(GetI64(option, field), -1);
    EXPECT_TRUE(SetI64(option, field, 0x0123456789ABCDEF));
    EXPECT_EQ(GetI64(option, field), 0x0123456789ABCDEF);
    EXPECT_EQ(FieldBytes(option, field), (Bytes{0xEF, 0xCD, 0xAB, 0x89, 0x67, 0x45, 0x23, 0x01}));
    ExpectChangesItsOwnBytesOnly(field, [&](CPrintOptionEx& changed) { SetI64(changed, field, 0); });
}

TEST(PrintOptionNumber, OfAnotherWidthOrATextReadsAs0AndIsNotWritten) {
    CPrintOptionEx option;
    const Bytes before = AllBytesOf(option);
    const FieldDescriptor& wide = FieldAt(FieldId::AutoJobStartSpecifiedDayAndTime);
    const FieldDescriptor& narrow = FieldAt(FieldId::RipMode);
    const FieldDescriptor& text = FieldAt(FieldId::SPages);
    EXPECT_EQ(GetI32(option, wide), 0);
    EXPECT_EQ(GetU32(option, text), 0u);
    EXPECT_EQ(GetI64(option, narrow), 0);
    EXPECT_EQ(GetText(option, narrow), "");
    EXPECT_FALSE(SetI32(option, wide, 5));
    EXPECT_FALSE(SetU32(option, text, 5));
    EXPECT_FALSE(SetI64(option, narrow, 5));
    EXPECT_FALSE(SetText(option, narrow, "5"));
    EXPECT_EQ(AllBytesOf(option), before);
}

TEST(PrintOptionField, OfABlockThatTheClassDoesNotHaveIsNeitherReadNorWritten) {
    CPrintOptionBase option;
    const auto record = option.Bytes(Block::Record);
    const Bytes before(record.begin(), record.end());
    EXPECT_FALSE(SetI32(option, FieldAt(FieldId::PageOrientation), 7));
    EXPECT_FALSE(SetText(option, FieldAt(FieldId::JobInfoUserName), "suzuki"));
    EXPECT_EQ(GetI32(option, FieldAt(FieldId::PageOrientation)), 0);
    EXPECT_EQ(GetText(option, FieldAt(FieldId::JobInfoUserName)), "");
    EXPECT_EQ(Bytes(record.begin(), record.end()), before);
}

TEST(PrintOptionField, ThatLeavesItsBlockIsNeitherReadNorWritten) {
    Bytes block(16, 0xFF);
    const FieldDescriptor number{"", "", 0, Block::Ex, FieldType::I32, 13, 4, 0, 0};
    const FieldDescriptor farNumber{"", "", 0, Block::Ex, FieldType::I32, 0xFFFF, 4, 0, 0};
    const FieldDescriptor text{"", "", 0, Block::Ex, FieldType::Text, 8, 9, 0, 0};
    const FieldDescriptor flag{"", "", 0, Block::Ex, FieldType::Text, 0, 8, 16, 0};
    const FieldDescriptor noWidth{"", "", 0, Block::Ex, FieldType::Text, 4, 0, 0, 0};
    EXPECT_EQ(GetI32(block, number), 0);
    EXPECT_EQ(GetI32(block, farNumber), 0);
    EXPECT_FALSE(SetI32(block, number, 0));
    EXPECT_FALSE(SetI32(block, farNumber, 0));
    EXPECT_EQ(GetText(block, text), "");
    for (const FieldDescriptor& field : {text, flag, noWidth})
        EXPECT_FALSE(SetText(block, field, "x"));
    EXPECT_EQ(block, Bytes(16, 0xFF));
}

TEST(PrintOptionText, OfEveryFieldHoldsOneByteLessThanItsWidthAndSetsItsFlag) {
    for (const FieldDescriptor& field : kFields) {
        if (!field.IsText())
            continue;
        for (const std::size_t excess : {0u, 1u, 2u, 2000u}) {
            CPrintOptionEx option;
            EXPECT_TRUE(SetText(option, field, std::string(field.width - 1u + excess, 'x')));
            EXPECT_EQ(GetText(option, field), std::string(field.width - 1u, 'x')) << field.name;
            EXPECT_EQ(FieldBytes(option, field).back(), 0) << field.name;
            if (field.flag) {
                EXPECT_EQ(option.Bytes(field.block)[field.flag], 1) << field.name;
            }
        }
        ExpectChangesItsOwnBytesOnly(
            field, [&](CPrintOptionEx& option) { SetText(option, field, std::string(3000, 'x')); });
    }
}

TEST(PrintOptionText, Of300BytesIsCutTo256InAFieldOf257AndTheFlagIsStillSet) {
    CPrintOptionEx option;
    const FieldDescriptor& field = FieldAt(FieldId::MailAddress);
    ASSERT_EQ(field.width, 257);
    EXPECT_TRUE(SetText(option, field, std::string(300, 'm')));
    EXPECT_EQ(GetText(option, field), std::string(256, 'm'));
    EXPECT_EQ(option.Bytes(Block::Record)[21932], 1);
}

TEST(PrintOptionText, OfTheJobInformationIsLimitedTo66And33BytesAndHasNoFlag) {
    CPrintOptionEx option;
    const Bytes record = BytesOf(option, Block::Record);
    SetText(option, FieldAt(FieldId::JobInfoUserName), std::string(100, 'u'));
    SetText(option, FieldAt(FieldId::JobInfoAccount), std::string(100, 'a'));
    EXPECT_EQ(GetText(option, FieldAt(FieldId::JobInfoUserName)), std::string(66, 'u'));
    EXPECT_EQ(GetText(option, FieldAt(FieldId::JobInfoAccount)), std::string(33, 'a'));
    EXPECT_EQ(BytesOf(option, Block::Record), record);
}

TEST(PrintOptionText, ThatIsEmptySetsTheFlagToo) {
    CPrintOptionEx option;
    EXPECT_TRUE(SetText(option, FieldAt(FieldId::Folder), ""));
    EXPECT_EQ(GetText(option, FieldAt(FieldId::Folder)), "");
    EXPECT_EQ(option.Bytes(Block::Record)[21948], 1);
}

TEST(PrintOptionText, SetsAFlagThatHoldsAnotherValueTo1) {
    CPrintOptionEx option;
    option.Bytes(Block::Record)[21948] = 0xFF;
    SetText(option, FieldAt(FieldId::Folder), "a");
    EXPECT_EQ(option.Bytes(Block::Record)[21948], 1);
}

// "印" is the bytes 88 F3, "ア" 83 41, "ソ" 83 5C; the field takes 32 bytes.
TEST(PrintOptionText, IsNeverCutWithinADoubleByteCharacter) {
    const FieldDescriptor& field = FieldAt(FieldId::Folder);
    for (const std::string character : {"\x88\xF3", "\x83\x41", "\x83\x5C"}) {
        CPrintOptionEx option;
        SetText(option, field, std::string(30, 'x') + character + "y");
        EXPECT_EQ(GetText(option, field), std::string(30, 'x') + character);
        SetText(option, field, std::string(31, 'x') + character);
        EXPECT_EQ(GetText(option, field), std::string(31, 'x'));
        SetText(option, field, std::string(31, 'x') + character + "y");
        EXPECT_EQ(GetText(option, field), std::string(31, 'x'));
        SetText(option, field, std::string(32, 'x') + character);
        EXPECT_EQ(GetText(option, field), std::string(32, 'x'));
    }
}

TEST(PrintOptionText, OfDoubleByteCharactersOnlyIsCutToWholeOnes) {
    const FieldDescriptor& even = FieldAt(FieldId::JobRscSetName); // 100 bytes and the NUL
    const FieldDescriptor& odd = FieldAt(FieldId::UserComment);    // 63 bytes and the NUL
    std::string text;
    for (int i = 0; i < 200; ++i)
        text += "\x82\xA0";
    CPrintOptionEx option;
    SetText(option, even, text);
    EXPECT_EQ(GetText(option, even), text.substr(0, 100));
    SetText(option, odd, text);
    EXPECT_EQ(GetText(option, odd), text.substr(0, 62));
}

TEST(PrintOptionText, LeavesNothingOfAnEarlierLongerTextBehind) {
    const FieldDescriptor& field = FieldAt(FieldId::SecPrintPassword);
    CPrintOptionEx once;
    SetText(once, field, "ab");
    CPrintOptionEx twice;
    SetText(twice, field, std::string(129, 's'));
    SetText(twice, field, "ab");
    EXPECT_EQ(AllBytesOf(twice), AllBytesOf(once));
}

TEST(PrintOptionText, EndsAtItsFirstNul) {
    const FieldDescriptor& field = FieldAt(FieldId::Folder);
    CPrintOptionEx option;
    SetText(option, field, std::string_view("ab\0cd", 5));
    EXPECT_EQ(FieldBytes(option, field), [] {
        Bytes bytes(33, 0);
        bytes[0] = 'a';
        bytes[1] = 'b';
        return bytes;
    }());
}

TEST(PrintOptionText, WithoutANulInALoadedImageIsTheWholeFieldAndNoMore) {
    CPrintOptionEx option;
    const Bytes image(24472, 'z');
    option.Load(image.data(), 24472);
    for (const FieldDescriptor& field : kFields)
        if (field.IsText()) {
            EXPECT_EQ(GetText(option, field), std::string(field.width, 'z')) << field.name;
        }
}

} // namespace
} // namespace ddb

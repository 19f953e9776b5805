#include "settings/Ddb_PrintOption.h"
#include "tests/oemps/guarded_block.h"
#include "tests/settings/option_bytes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <random>
#include <vector>

namespace ddb {
namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes RandomBytes(std::size_t size, std::uint32_t seed) {
    std::mt19937 random(seed);
    Bytes bytes(size);
    std::ranges::generate(bytes, [&] { return static_cast<std::uint8_t>(random()); });
    return bytes;
}

template <class Option>
Bytes BytesOf(const Option& option, Block block) {
    const auto bytes = option.Bytes(block);
    return {bytes.begin(), bytes.end()};
}

template <class Option>
void FillRandomly(Option& option, std::uint32_t seed) {
    for (const Block block : kAllBlocks)
        std::ranges::copy(RandomBytes(option.Bytes(block).size(), seed++), option.Bytes(block).begin());
}

Bytes ImageOf(const CPersistent& option) {
    Bytes image(option.GetSize());
    std::uint32_t size = option.GetSize();
    option.Save(image.data(), &size);
    EXPECT_EQ(size, image.size());
    return image;
}

// The thrown value, 0 if nothing was.
int Thrown(const std::function<void()>& action) {
    try {
        action();
    } catch (DdbErrT error) {
        return error;
    }
    return 0;
}

int SaveInto(const CPersistent& option, Bytes& buffer, std::uint32_t size) {
    return Thrown([&] { option.Save(buffer.data(), &size); });
}

int LoadFrom(CPersistent& option, const Bytes& buffer, std::uint32_t size) {
    return Thrown([&] { option.Load(buffer.data(), size); });
}

TEST(PrintOptionImage, Has22120BytesInTheBaseAnd24472InTheOthers) {
    EXPECT_EQ(CPrintOptionBase().GetSize(), 22120u);
    EXPECT_EQ(CPrintOption().GetSize(), 24472u);
    EXPECT_EQ(CPrintOptionEx().GetSize(), 24472u);
}

TEST(PrintOptionImage, QueryIsFalseInAllClasses) {
    EXPECT_FALSE(CPrintOptionBase().Query());
    EXPECT_FALSE(CPrintOption().Query());
    EXPECT_FALSE(CPrintOptionEx().Query());
}

TEST(PrintOptionImage, OfTheBaseIsSavedWithExactly22120BytesAndThrows6With22119) {
    const CPrintOptionBase option;
    Bytes buffer(22120);
    EXPECT_EQ(SaveInto(option, buffer, 22120), 0);
    EXPECT_EQ(buffer, BytesOf(option, Block::Record));
    EXPECT_EQ(SaveInto(option, buffer, 22119), 6);
}

TEST(PrintOptionImage, OfTheExtendedClassThrowsWithTheSizeOfTheBase) {
    const CPrintOptionEx option;
    Bytes buffer(24472);
    EXPECT_EQ(SaveInto(option, buffer, 22120), 6);
    EXPECT_EQ(SaveInto(option, buffer, 24471), 6);
    EXPECT_EQ(SaveInto(option, buffer, 24472), 0);
}

TEST(PrintOptionImage, IsLoadedWithExactlyItsSizeAndThrows6WithOneByteLess) {
    CPrintOptionBase base;
    CPrintOption option;
    CPrintOptionEx extended;
    const Bytes buffer(24472);
    EXPECT_EQ(LoadFrom(base, buffer, 22119), 6);
    EXPECT_EQ(LoadFrom(base, buffer, 22120), 0);
    EXPECT_EQ(LoadFrom(option, buffer, 24471), 6);
    EXPECT_EQ(LoadFrom(option, buffer, 24472), 0);
    EXPECT_EQ(LoadFrom(extended, buffer, 24471), 6);
    EXPECT_EQ(LoadFrom(extended, buffer, 24472), 0);
}

TEST(PrintOptionImage, StartsWithTheJobInformationAndEndsWithTheRecord) {
    CPrintOption option;
    FillRandomly(option, 1);
    Bytes expected = BytesOf(option, Block::JobInfo);
    const Bytes record = BytesOf(option, Block::Record);
    expected.insert(expected.end(), record.begin(), record.end());
    EXPECT_EQ(ImageOf(option), expected);
}

TEST(PrintOptionImage, BeginsWithTheUserName) {
    CPrintOption option;
    std::memcpy(option.Bytes(Block::JobInfo).data(), "suzuki", 7);
    EXPECT_EQ(std::memcmp(ImageOf(option).data(), "suzuki", 7), 0);
}

TEST(PrintOptionImage, IsTheSameForBothLargerClasses) {
    CPrintOption option;
    CPrintOptionEx extended;
    FillRandomly(option, 7);
    extended.Load(ImageOf(option).data(), 24472);
    EXPECT_EQ(ImageOf(extended), ImageOf(option));
}

TEST(PrintOptionImage, SetsALargerSizeToItsOwnAndLeavesTheRestOfTheBuffer) {
    Bytes buffer(30000, 0xAA);
    std::uint32_t size = 30000;
    CPrintOptionBase().Save(buffer.data(), &size);
    EXPECT_EQ(size, 22120u);
    EXPECT_EQ(Bytes(buffer.begin() + 22120, buffer.end()), Bytes(30000 - 22120, 0xAA));

    std::ranges::fill(buffer, std::uint8_t{0xAA});
    size = 30000;
    CPrintOptionEx().Save(buffer.data(), &size);
    EXPECT_EQ(size, 24472u);
    EXPECT_EQ(Bytes(buffer.begin() + 24472, buffer.end()), Bytes(30000 - 24472, 0xAA));
}

TEST(PrintOptionImage, ThatDoesNotFitLeavesBufferAndSizeAlone) {
    Bytes buffer(24472, 0xAA);
    std::uint32_t size = 24471;
    EXPECT_EQ(Thrown([&] { CPrintOptionEx().Save(buffer.data(), &size); }), 6);
    EXPECT_EQ(size, 24471u);
    EXPECT_EQ(buffer, Bytes(24472, 0xAA));
}

TEST(PrintOptionImage, ThatIsTooShortLeavesTheSetAlone) {
    CPrintOptionEx option;
    FillRandomly(option, 3);
    const Bytes before = ImageOf(option);
    EXPECT_EQ(LoadFrom(option, Bytes(24472, 0xAA), 24471), 6);
    EXPECT_EQ(ImageOf(option), before);
}

TEST(PrintOptionImage, ThrowsForNullBuffersAndANullSizeInEveryClass) {
    CPrintOptionBase base;
    CPrintOption option;
    CPrintOptionEx extended;
    for (CPersistent* persistent : std::initializer_list<CPersistent*>{&base, &option, &extended}) {
        std::uint32_t size = 0xFFFFFFFF;
        EXPECT_EQ(Thrown([&] { persistent->Save(nullptr, &size); }), 6);
        EXPECT_EQ(size, 0xFFFFFFFF);
        EXPECT_EQ(Thrown([&] { persistent->Load(nullptr, size); }), 6);
        Bytes buffer(24472, 0xAA);
        EXPECT_EQ(Thrown([&] { persistent->Save(buffer.data(), nullptr); }), 6);
        EXPECT_EQ(buffer, Bytes(24472, 0xAA));
    }
}

TEST(PrintOptionImage, ThrowsForEverySizeBelowItsOwn) {
    CPrintOptionBase base;
    CPrintOptionEx extended;
    Bytes buffer(24472);
    for (const std::uint32_t size : {0u, 1u, 44u, 2351u, 2352u, 22118u, 22119u}) {
        EXPECT_EQ(SaveInto(base, buffer, size), 6) << size;
        EXPECT_EQ(LoadFrom(base, buffer, size), 6) << size;
        EXPECT_EQ(SaveInto(extended, buffer, size), 6) << size;
        EXPECT_EQ(LoadFrom(extended, buffer, size), 6) << size;
    }
}

// The size is the caller's word; never more than the image is touched.
TEST(PrintOptionImage, TouchesNothingBehindItselfWhateverTheSizeSays) {
    const GuardedBlock small(22120);
    const GuardedBlock large(24472);
    CPrintOptionBase base;
    CPrintOptionEx extended;
    for (const std::uint32_t said : {24472u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
        std::uint32_t size = said;
        base.Save(small.Bytes().data(), &size);
        base.Load(small.Bytes().data(), said);
        size = said;
        extended.Save(large.Bytes().data(), &size);
        extended.Load(large.Bytes().data(), said);
    }
    EXPECT_EQ(BytesOf(base, Block::Record), BytesOf(CPrintOptionBase(), Block::Record));
    EXPECT_EQ(ImageOf(extended), ImageOf(CPrintOptionEx()));
}

TEST(PrintOptionImage, OfRandomBytesSurvivesLoadAndSave) {
    for (std::uint32_t seed = 0; seed < 100; ++seed) {
        CPrintOptionBase base;
        const Bytes small = RandomBytes(22120, seed);
        base.Load(small.data(), 22120);
        EXPECT_EQ(BytesOf(base, Block::Record), small);
        EXPECT_EQ(ImageOf(base), small);

        CPrintOptionEx extended;
        const Bytes large = RandomBytes(24472, seed);
        extended.Load(large.data(), 24472);
        EXPECT_EQ(BytesOf(extended, Block::JobInfo), Bytes(large.begin(), large.begin() + 2352));
        EXPECT_EQ(BytesOf(extended, Block::Record), Bytes(large.begin() + 2352, large.end()));
        EXPECT_EQ(ImageOf(extended), large);
    }
}

TEST(PrintOptionImage, HasNothingOfTheThirdBlock) {
    CPrintOptionEx saved;
    FillRandomly(saved, 11);
    const Bytes before = ImageOf(saved);
    std::ranges::fill(saved.Bytes(Block::Ex), std::uint8_t{0x5A});
    EXPECT_EQ(ImageOf(saved), before);

    CPrintOptionEx loaded;
    loaded.Load(before.data(), 24472);
    EXPECT_EQ(BytesOf(loaded, Block::Ex), BytesOf(CPrintOptionEx(), Block::Ex));
}

TEST(PrintOptionImage, HasNothingOfTheMarkOfAJapaneseCodePage) {
    CPrintOptionEx unmarked;
    unmarked.Clear();
    CPrintOptionEx option;
    const bool fresh = option.IsJapanese();
    unmarked.Load(ImageOf(option).data(), 24472);
    EXPECT_FALSE(unmarked.IsJapanese());
    EXPECT_EQ(ImageOf(unmarked), ImageOf(option));
    option.Load(ImageOf(unmarked).data(), 24472);
    EXPECT_EQ(option.IsJapanese(), fresh);
}

TEST(PrintOptionBytes, AreThoseOfTheClassAndNoneOfABlockBelowIt) {
    CPrintOptionBase base;
    CPrintOption option;
    CPrintOptionEx extended;
    EXPECT_EQ(base.Bytes(Block::Record).size(), 22120u);
    EXPECT_TRUE(base.Bytes(Block::JobInfo).empty());
    EXPECT_TRUE(base.Bytes(Block::Ex).empty());
    EXPECT_EQ(option.Bytes(Block::Record).size(), 22120u);
    EXPECT_EQ(option.Bytes(Block::JobInfo).size(), 2352u);
    EXPECT_TRUE(option.Bytes(Block::Ex).empty());
    EXPECT_EQ(extended.Bytes(Block::Record).size(), 22120u);
    EXPECT_EQ(extended.Bytes(Block::JobInfo).size(), 2352u);
    EXPECT_EQ(extended.Bytes(Block::Ex).size(), 44u);
}

void ExpectSameBlocks(const CPrintOptionEx& one, const CPrintOptionEx& other) {
    EXPECT_EQ(AllBytesOf(one), AllBytesOf(other));
}

TEST(PrintOptionCopy, TakesAllThreeBlocksInBothForms) {
    CPrintOptionEx source;
    FillRandomly(source, 21);
    CPrintOptionEx full;
    full.CopyFrom(source);
    ExpectSameBlocks(full, source);
    CPrintOptionEx blocks;
    blocks.CopyBlocksFrom(source);
    ExpectSameBlocks(blocks, source);
}

TEST(PrintOptionCopy, TakesTheMarkOfAJapaneseCodePageInItsFullFormOnly) {
    CPrintOptionEx source;
    source.Clear();
    ASSERT_FALSE(source.IsJapanese());
    const bool fresh = CPrintOptionEx().IsJapanese();

    CPrintOptionEx blocks;
    blocks.CopyBlocksFrom(source);
    EXPECT_EQ(blocks.IsJapanese(), fresh);
    CPrintOptionEx full;
    full.CopyFrom(source);
    EXPECT_FALSE(full.IsJapanese());
}

TEST(PrintOptionCopy, OfASetOntoItselfChangesNothing) {
    CPrintOptionEx option;
    FillRandomly(option, 31);
    const CPrintOptionEx before = option;
    option.CopyFrom(option);
    option.CopyBlocksFrom(option);
    ExpectSameBlocks(option, before);
}

// Callers reach the four operations by their place.
TEST(PrintOptionSlots, StandInTheOrderSaveLoadGetSizeQuery) {
    using Slot = void (*)();
    const CPrintOptionEx option;
    const Slot* slots = nullptr;
    static_assert(sizeof slots == sizeof(void*));
    std::memcpy(&slots, &option, sizeof slots);

    Bytes image(24472, 0xAA);
    std::uint32_t size = 24472;
    reinterpret_cast<void (*)(const void*, void*, std::uint32_t*)>(slots[0])(&option, image.data(), &size);
    EXPECT_EQ(image, ImageOf(option));
    CPrintOptionEx loaded;
    const Bytes random = RandomBytes(24472, 41);
    reinterpret_cast<void (*)(void*, const void*, std::uint32_t)>(slots[1])(&loaded, random.data(), 24472);
    EXPECT_EQ(ImageOf(loaded), random);
    EXPECT_EQ(reinterpret_cast<std::uint32_t (*)(const void*)>(slots[2])(&option), 24472u);
    EXPECT_FALSE(reinterpret_cast<bool (*)(const void*)>(slots[3])(&option));
}

} // namespace
} // namespace ddb

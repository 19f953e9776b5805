// The data setting key with a real second process on its other side.
#include "session/keyword.h"
#include "tests/datamanager/setting_key_fixture.h"

#include <array>
#include <cstring>
#include <string>
#include <thread>

namespace {

// A number that no other row of the table has, and for each way a value passes another one.
std::uint32_t NumberFor(std::uint32_t row, std::uint32_t way) {
    return 0x40000000 + 0x10000 * way + row;
}

std::string TextFor(std::uint32_t row, std::uint32_t way, std::size_t width) {
    std::string text = std::to_string(NumberFor(row, way)) + "\x95\x5C\x8E\x86"; // hyoshi, a cover
    text.resize(width - 1, 'e');
    return text;
}

#define ZR_FOR_TEXT(width) TextFor(row, way, width)

// Sets every bank value and every named value there is.
void SetEverything(std::uint32_t way) {
    for (int keyword = 0; keyword < 327; ++keyword) {
        const std::uint32_t value = NumberFor(static_cast<std::uint32_t>(keyword), way);
        ExportedFunc_SetCurrent(keyword, value);
        ExportedFunc_SetDefault(keyword, value + 1000);
        ExportedFunc_SetFavorite(keyword, value + 2000);
        ExportedFunc_SetPreview(keyword, value + 3000);
    }
    std::uint32_t row = 0;
#define ZR_U32(name) ExportedFunc_Set##name(NumberFor(row++, way));
#define ZR_I32(name) ExportedFunc_Set##name(-static_cast<std::int32_t>(NumberFor(row++, way)));
#define ZR_U64(name) ExportedFunc_Set##name(std::uint64_t{NumberFor(row++, way)} << 32);
#define ZR_TEXT_VALUE(name, width)                                                                           \
    ExportedFunc_Set##name(ZR_FOR_TEXT(width).c_str());                                                      \
    ++row;
#define ZR_U32_SET_ONLY ZR_U32
#define ZR_TEXT_SET_ONLY ZR_TEXT_VALUE
#include "session/named_values.def"
}

// The same in the key.
KeyImage ImageOfEverything(std::uint32_t way) {
    KeyImage image;
    for (std::uint32_t keyword = 0; keyword < 327; ++keyword) {
        const std::uint32_t value = NumberFor(keyword, way);
        image[{"Current", kKeywordNames[keyword]}] = NumberImage(value);
        image[{"Default", kKeywordNames[keyword]}] = NumberImage(value + 1000);
        image[{"Favorite", kKeywordNames[keyword]}] = NumberImage(value + 2000);
        image[{"Preview", kKeywordNames[keyword]}] = NumberImage(value + 3000);
    }
    std::uint32_t row = 0;
#define ZR_U32(name) image[{"Values", #name}] = NumberImage(NumberFor(row++, way));
#define ZR_I32(name) image[{"Values", #name}] = NumberImage(0u - NumberFor(row++, way));
#define ZR_U64(name) image[{"Values", #name}] = LongNumberImage(std::uint64_t{NumberFor(row++, way)} << 32);
#define ZR_TEXT_VALUE(name, width)                                                                           \
    image[{"Values", #name}] = TextImage(ZR_FOR_TEXT(width));                                                \
    ++row;
#define ZR_U32_SET_ONLY ZR_U32
#define ZR_TEXT_SET_ONLY ZR_TEXT_VALUE
#include "session/named_values.def"
    return image;
}

// Reads by every getter there is and compares.
void ExpectEverything(std::uint32_t way) {
    for (int keyword = 0; keyword < 327; ++keyword) {
        const std::uint32_t value = NumberFor(static_cast<std::uint32_t>(keyword), way);
        std::array<std::uint32_t, 4> found{};
        ExportedFunc_GetCurrent(keyword, &found[0]);
        ExportedFunc_GetDefault(keyword, &found[1]);
        ExportedFunc_GetFavorite(keyword, &found[2]);
        ExportedFunc_GetPreview(keyword, &found[3]);
        EXPECT_EQ(found, (std::array{value, value + 1000, value + 2000, value + 3000}))
            << kKeywordNames[keyword];
    }
    std::uint32_t row = 0;
    std::uint32_t number = 0;
    std::int32_t signedNumber = 0;
    std::uint64_t longNumber = 0;
    std::array<char, 1024> text{};
#define ZR_U32(name)                                                                                         \
    ExportedFunc_Get##name(&number);                                                                         \
    EXPECT_EQ(number, NumberFor(row++, way)) << #name;
#define ZR_I32(name)                                                                                         \
    ExportedFunc_Get##name(&signedNumber);                                                                   \
    EXPECT_EQ(signedNumber, -static_cast<std::int32_t>(NumberFor(row++, way))) << #name;
#define ZR_U64(name)                                                                                         \
    ExportedFunc_Get##name(&longNumber);                                                                     \
    EXPECT_EQ(longNumber, std::uint64_t{NumberFor(row++, way)} << 32) << #name;
#define ZR_TEXT_VALUE(name, width)                                                                           \
    ExportedFunc_Get##name(text.data());                                                                     \
    EXPECT_EQ(text.data(), ZR_FOR_TEXT(width)) << #name;                                                     \
    ++row;
#define ZR_U32_SET_ONLY(name) ++row;
#define ZR_TEXT_SET_ONLY(name, width) ++row;
#include "session/named_values.def"
}

using SettingKeyExchange = SettingKeyTest;

TEST_F(SettingKeyExchange, ShowsAnotherProcessEveryKeywordAndEveryNamedValueByName) {
    SetEverything(1);
    const KeyImage image = DumpByPeer(key);
    EXPECT_EQ(image.size(), 4u * 327 + 242);
    EXPECT_EQ(image, ImageOfEverything(1));
}

TEST_F(SettingKeyExchange, GettersSeeEveryChangeOfAProcessThatEnded) {
    SetEverything(1);
    ExpectEverything(1);
    ChangeByPeer("apply", ImageOfEverything(2));
    ExpectEverything(2);
}

TEST_F(SettingKeyExchange, GoesBothWaysMoreThanOnce) {
    for (std::uint32_t round = 1; round <= 3; ++round) {
        ExportedFunc_SetCurrent(104, round);
        EXPECT_EQ((DumpByPeer(key)[{"Current", "DuplexMode"}]), NumberImage(round));
        ChangeByPeer("apply", {{{"Current", "DuplexMode"}, NumberImage(100 + round)}});
        EXPECT_EQ(Current(104), 100 + round);
    }
}

TEST_F(SettingKeyExchange, LeavesAFreshKeyEmpty) {
    ExportedFunc_SetCurrent(104, 0);
    ExportedFunc_SetJobName("");
    EXPECT_TRUE(DumpByPeer(key).empty());
}

TEST_F(SettingKeyExchange, TakesAChangeOverOnlyWhenItIsHandedOver) {
    ExportedFunc_SetCurrent(104, 1);
    ChangeByPeer("write", {{{"Current", "DuplexMode"}, NumberImage(2)},
                           {{"Values", "JobName"}, TextImage("from outside")}});
    EXPECT_EQ(Current(104), 1u);
    EXPECT_EQ(JobName(), "");
    ChangeByPeer("apply", {});
    EXPECT_EQ(Current(104), 2u);
    EXPECT_EQ(JobName(), "from outside");
}

TEST_F(SettingKeyExchange, DoesNotTakeItsOwnWritesForAHandOver) {
    ChangeByPeer("write", {{{"Current", "DuplexMode"}, NumberImage(2)}});
    for (std::uint32_t i = 1; i <= 50; ++i) {
        ExportedFunc_SetBleedSize(i);
        ExportedFunc_SetCurrent(0, i);
        Sleep(1);
        ASSERT_EQ(Current(104), 0u);
    }
}

// A getter has asked just before the hand-over; a millisecond later a setter asks again.
TEST_F(SettingKeyExchange, KeepsWhatASetterSetsSoonAfterAHandOver) {
    ExportedFunc_SetCurrent(104, 2);
    for (int round = 0; round < 100; ++round) {
        ASSERT_EQ(Current(104), 2u) << round;
        Put("Current", "DuplexMode", REG_DWORD, std::string("\7\0\0\0", 4));
        Current(104);
        HandOverAtOnce();
        Sleep(1);
        ExportedFunc_SetCurrent(104, 2);
        Sleep(2);
    }
    EXPECT_EQ((DumpByPeer(key)[{"Current", "DuplexMode"}]), NumberImage(2));
}

TEST_F(SettingKeyExchange, TakesAProgramsValueIfTheSameAsBeforeIsSetBetweenItsWriteAndItsHandOver) {
    ExportedFunc_SetCurrent(104, 2);
    ExportedFunc_SetCurrent(0, 2);
    ChangeByPeer("write",
                 {{{"Current", "DuplexMode"}, NumberImage(7)}, {{"Current", "PageSize"}, NumberImage(7)}});
    ExportedFunc_SetCurrent(104, 2);
    ExportedFunc_SetCurrent(0, 3);
    ChangeByPeer("apply", {});
    EXPECT_EQ(Current(104), 7u);
    EXPECT_EQ(Current(0), 3u);
}

// On code page 932 none of these is what it becomes by way of UTF-16.
TEST_F(SettingKeyExchange, LeavesATextAloneThatNobodyChanged) {
    for (const char* text : {"\x61\x62\x63\x81", "\x81\x20\x7A", "\x85\x40\x78", "\xFA\x4A"}) {
        ExportedFunc_SetJobName(text);
        ChangeByPeer("apply", {{{"Current", "DuplexMode"}, NumberImage(7)}});
        EXPECT_EQ(Hex(JobName().data(), JobName().size()), Hex(text, std::strlen(text)));
        EXPECT_EQ(Current(104), 7u);
        ExportedFunc_SetCurrent(104, 0);
    }
}

TEST_F(SettingKeyExchange, LeavesATextAloneThatAnotherProcessOnlyReadAndWroteBack) {
    for (const char* text : {"\x61\x62\x63\x81", "\x81\x20\x7A", "\x85\x40\x78", "\xFA\x4A"}) {
        ExportedFunc_SetJobName(text);
        ChangeByPeer("apply", DumpByPeer(key));
        EXPECT_EQ(Hex(JobName().data(), JobName().size()), Hex(text, std::strlen(text)));
    }
}

TEST_F(SettingKeyExchange, TakesATextThatReplacesOneThatIsAlteredOnItsWay) {
    ExportedFunc_SetJobName("\x61\x62\x63\x81");
    ChangeByPeer("apply", {{{"Values", "JobName"}, TextImage("abcd")}});
    EXPECT_EQ(JobName(), "abcd");
}

TEST_F(SettingKeyExchange, LosesNoValueWhileAnotherProcessRemovesOthers) {
    ExportedFunc_SetCurrent(104, 2);
    HKEY current = nullptr;
    ASSERT_EQ(RegOpenKeyExA(HKEY_CURRENT_USER, (key + "\\Current").c_str(), 0, KEY_WRITE, &current),
              ERROR_SUCCESS);
    for (int round = 0; round < 40; ++round) {
        for (int i = 0; i < 200; ++i)
            RegSetValueExA(current, ("A" + std::to_string(i)).c_str(), 0, REG_DWORD,
                           reinterpret_cast<const BYTE*>(&i), sizeof i);
        HandOver();
        std::thread other([current] {
            for (int i = 0; i < 200; ++i)
                RegDeleteValueA(current, ("A" + std::to_string(i)).c_str());
        });
        const std::uint32_t read = Current(104);
        other.join();
        ASSERT_EQ(read, 2u) << round;
    }
    RegCloseKey(current);
}

TEST_F(SettingKeyExchange, KeepsTheValuesWhenAnotherProcessRemovesTheKey) {
    ExportedFunc_SetCurrent(104, 1);
    ExportedFunc_SetJobName("job");
    EXPECT_TRUE(RunPeer("delete " + key));
    Sleep(2);
    EXPECT_EQ(Current(104), 1u);
    EXPECT_EQ(JobName(), "job");
    ExportedFunc_SetCurrent(104, 2);
    EXPECT_EQ(Current(104), 2u);
    EXPECT_EQ(KeyInUse(), "");
}

TEST_F(SettingKeyExchange, DoesNotMixTheStoresOfTwoProcesses) {
    ExportedFunc_SetCurrent(104, 1);
    ExportedFunc_SetJobName("mine");
    EXPECT_TRUE(RunPeer("store " + file));
    std::string otherKey;
    std::string readThere;
    std::ifstream(file) >> otherKey >> readThere;
    EXPECT_EQ(readThere, "0") << "the other store's value before it set one";
    EXPECT_NE(otherKey, key);
    EXPECT_EQ(Current(104), 1u);
    EXPECT_EQ(JobName(), "mine");

    const KeyImage others = DumpByPeer(otherKey);
    EXPECT_EQ(others, (KeyImage{{{"Current", "DuplexMode"}, NumberImage(77)},
                                {{"Values", "JobName"}, TextImage("of the other process")}}));
    EXPECT_EQ((DumpByPeer(key)[{"Current", "DuplexMode"}]), NumberImage(1));
    EXPECT_EQ(ExportedFunc_DeleteRegistryKey(otherKey.c_str()), 1);
}

} // namespace

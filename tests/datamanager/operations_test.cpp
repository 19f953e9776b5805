// The exported operations, as the plug-in calls them.
#include "session/datamanager.h"
#include "tests/support/devmode_listing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <climits>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

namespace {

class Operations : public testing::Test {
  protected:
    Operations() { ExportedFunc_InitializeDataManager(); }
    ~Operations() override { ExportedFunc_InitializeDataManager(); }
};

template <typename T>
struct NumberPair {
    const char* name;
    void (*get)(T*);
    void (*set)(T);
};

struct TextPair {
    const char* name;
    void (*get)(char*);
    void (*set)(const char*);
    std::size_t width;
};

struct Table {
    std::vector<NumberPair<std::uint32_t>> unsigneds;
    std::vector<NumberPair<std::int32_t>> signeds;
    std::vector<TextPair> texts;
};

Table MakeTable() {
    Table table;
#define ZR_U32(name) table.unsigneds.push_back({#name, ExportedFunc_Get##name, ExportedFunc_Set##name});
#define ZR_I32(name) table.signeds.push_back({#name, ExportedFunc_Get##name, ExportedFunc_Set##name});
#define ZR_TEXT_VALUE(name, width)                                                                           \
    table.texts.push_back({#name, ExportedFunc_Get##name, ExportedFunc_Set##name, width});
#include "session/named_values.def"
    return table;
}

const Table kTable = MakeTable();

// The buffer of a text getter, with bytes behind the field that must stay as they are.
class TextBuffer {
  public:
    explicit TextBuffer(std::size_t width) : m_bytes(width + 16, '#') {}
    char* data() { return m_bytes.data(); }
    bool IsIntactBehind(std::size_t width) const {
        return std::all_of(m_bytes.begin() + static_cast<std::ptrdiff_t>(width), m_bytes.end(),
                           [](char c) { return c == '#'; });
    }

  private:
    std::vector<char> m_bytes;
};

std::string TextOf(const TextPair& pair) {
    TextBuffer buffer(pair.width);
    pair.get(buffer.data());
    EXPECT_TRUE(buffer.IsIntactBehind(pair.width)) << pair.name;
    return buffer.data();
}

// A text of `length` bytes that no other row with the same length gets.
std::string TextFor(std::size_t row, std::size_t length) {
    std::string text = std::to_string(row) + ':';
    text.resize(length, static_cast<char>('a' + row % 26));
    return text;
}

TEST_F(Operations, ReadEveryValueThatWasNeverSetAsZeroOrEmpty) {
    for (const auto& pair : kTable.unsigneds) {
        std::uint32_t value = 99;
        pair.get(&value);
        EXPECT_EQ(value, 0u) << pair.name;
    }
    for (const auto& pair : kTable.signeds) {
        std::int32_t value = 99;
        pair.get(&value);
        EXPECT_EQ(value, 0) << pair.name;
    }
    for (const auto& pair : kTable.texts)
        EXPECT_EQ(TextOf(pair), "") << pair.name;
    std::uint64_t time = 99;
    ExportedFunc_GetAutoJobStartSpecifiedDayAndTimeForDriver(&time);
    EXPECT_EQ(time, 0u);
}

TEST_F(Operations, GiveEveryUnsignedValueASlotOfItsOwn) {
    ASSERT_EQ(kTable.unsigneds.size(), 116u);
    for (std::size_t i = 0; i < kTable.unsigneds.size(); ++i)
        kTable.unsigneds[i].set(0xFFFFFFFF - static_cast<std::uint32_t>(i));
    for (std::size_t i = 0; i < kTable.unsigneds.size(); ++i) {
        std::uint32_t value = 0;
        kTable.unsigneds[i].get(&value);
        EXPECT_EQ(value, 0xFFFFFFFF - i) << kTable.unsigneds[i].name;
    }
}

TEST_F(Operations, GiveEverySignedValueASlotOfItsOwn) {
    ASSERT_EQ(kTable.signeds.size(), 41u);
    for (std::size_t i = 0; i < kTable.signeds.size(); ++i)
        kTable.signeds[i].set(INT_MIN + static_cast<int>(i));
    for (std::size_t i = 0; i < kTable.signeds.size(); ++i) {
        std::int32_t value = 0;
        kTable.signeds[i].get(&value);
        EXPECT_EQ(value, INT_MIN + static_cast<int>(i)) << kTable.signeds[i].name;
    }
}

TEST_F(Operations, KeepEveryTextAsLongAsItsFieldUnchanged) {
    ASSERT_EQ(kTable.texts.size(), 81u);
    for (std::size_t i = 0; i < kTable.texts.size(); ++i)
        kTable.texts[i].set(TextFor(i, kTable.texts[i].width - 1).c_str());
    for (std::size_t i = 0; i < kTable.texts.size(); ++i)
        EXPECT_EQ(TextOf(kTable.texts[i]), TextFor(i, kTable.texts[i].width - 1)) << kTable.texts[i].name;
}

TEST_F(Operations, CutEveryLongerTextToItsField) {
    for (std::size_t i = 0; i < kTable.texts.size(); ++i) {
        kTable.texts[i].set(TextFor(i, kTable.texts[i].width + 7).c_str());
        EXPECT_EQ(TextOf(kTable.texts[i]), TextFor(i, kTable.texts[i].width - 1)) << kTable.texts[i].name;
    }
}

// The record's listing tells the widths independently of the store's table.
TEST_F(Operations, HaveTextsAsWideAsTheRecordsFieldOfTheSameName) {
    std::vector<std::pair<std::string, std::string>> fields;
    for (const ListedField& field : ListDevModeFields())
        fields.emplace_back(field.name, field.type);
    for (const auto& pair : kTable.texts) {
        if (std::string(pair.name) == "ServerAddress") {
            EXPECT_EQ(pair.width, 260u);
            continue;
        }
        const std::pair<std::string, std::string> expected(pair.name,
                                                           "char[" + std::to_string(pair.width) + "]");
        EXPECT_TRUE(std::ranges::find(fields, expected) != fields.end())
            << expected.first << ' ' << expected.second;
    }
}

TEST_F(Operations, ReadBackTheWidestAndTheNarrowestText) {
    std::array<char, 1024> pages{};
    ExportedFunc_SetSPages(std::string(1023, 's').c_str());
    ExportedFunc_GetSPages(pages.data());
    EXPECT_EQ(pages.data(), std::string(1023, 's'));

    std::array<char, 32> font{};
    ExportedFunc_SetPaginationPreString(std::string(31, 'p').c_str());
    ExportedFunc_GetPaginationPreString(font.data());
    EXPECT_EQ(font.data(), std::string(31, 'p'));
}

TEST_F(Operations, KeepAllBitsOfTheOneLongNumber) {
    ExportedFunc_SetAutoJobStartSpecifiedDayAndTimeForDriver(0xFEDCBA9876543210);
    std::uint64_t time = 0;
    ExportedFunc_GetAutoJobStartSpecifiedDayAndTimeForDriver(&time);
    EXPECT_EQ(time, 0xFEDCBA9876543210u);
}

TEST_F(Operations, KeepFourBanksApart) {
    ExportedFunc_SetCurrent(104, 1);
    ExportedFunc_SetDefault(104, 2);
    ExportedFunc_SetFavorite(104, 3);
    ExportedFunc_SetPreview(104, 4);
    std::array<std::uint32_t, 4> values{};
    ExportedFunc_GetCurrent(104, &values[0]);
    ExportedFunc_GetDefault(104, &values[1]);
    ExportedFunc_GetFavorite(104, &values[2]);
    ExportedFunc_GetPreview(104, &values[3]);
    EXPECT_EQ(values, (std::array<std::uint32_t, 4>{1, 2, 3, 4}));
}

TEST_F(Operations, DoNotFailOnAKeyOutsideTheTable) {
    for (const int key : {-1, 327, 512, 513, INT_MIN, INT_MAX}) {
        std::uint32_t value = 99;
        ExportedFunc_GetCurrent(key, &value);
        EXPECT_EQ(value, 0u) << key;
        ExportedFunc_SetCurrent(key, 1);
        ExportedFunc_SetDefault(key, 1);
        ExportedFunc_SetFavorite(key, 1);
        ExportedFunc_SetPreview(key, 1);
    }
}

TEST_F(Operations, KeepTheActiveWindow) {
    int window = 0;
    void* active = &active;
    ExportedFunc_GetActive(&active);
    EXPECT_EQ(active, nullptr);
    ExportedFunc_SetActive(&window);
    ExportedFunc_GetActive(&active);
    EXPECT_EQ(active, &window);
}

TEST_F(Operations, IgnoreNullPointers) {
    for (const auto& pair : kTable.unsigneds)
        pair.get(nullptr);
    for (const auto& pair : kTable.signeds)
        pair.get(nullptr);
    ExportedFunc_SetJobName("stays");
    for (const auto& pair : kTable.texts) {
        pair.get(nullptr);
        pair.set(nullptr);
    }
    ExportedFunc_GetAutoJobStartSpecifiedDayAndTimeForDriver(nullptr);
    ExportedFunc_SetFavoriteName(nullptr);
    ExportedFunc_SetFrontCoverStkName(nullptr);
    for (const auto get : {ExportedFunc_GetCurrent, ExportedFunc_GetDefault, ExportedFunc_GetFavorite,
                           ExportedFunc_GetPreview})
        get(104, nullptr);
    ExportedFunc_GetActive(nullptr);
    ExportedFunc_GetCommunicationMode(nullptr, nullptr);
    ExportedFunc_GetStarttupMode(nullptr, nullptr);
    EXPECT_EQ(ExportedFunc_GetPrinterPortAddress(nullptr, nullptr), 0);
    ExportedFunc_CreateDataSettingRegistryKeyName(nullptr);
    ExportedFunc_CreateDataSettingRegistryKey(nullptr, 327);
    ExportedFunc_GetRegistryKeyName(nullptr);
    EXPECT_EQ(ExportedFunc_DeleteRegistryKey(nullptr), 0);
    EXPECT_EQ(ExportedFunc_DeleteAuthMngRegistryKey(nullptr), 0);

    std::array<char, 512> name{};
    ExportedFunc_GetJobName(name.data());
    EXPECT_STREQ(name.data(), "stays");
}

TEST_F(Operations, StartAgainWithNothingSet) {
    ExportedFunc_SetCurrent(104, 1);
    ExportedFunc_SetJobName("job");
    ExportedFunc_InitializeDataManager();
    std::uint32_t value = 99;
    ExportedFunc_GetCurrent(104, &value);
    EXPECT_EQ(value, 0u);
    std::array<char, 512> name{};
    ExportedFunc_GetJobName(name.data());
    EXPECT_STREQ(name.data(), "");
}

TEST_F(Operations, GiveAFreshKeyNameOnEveryCall) {
    std::array<char, 260> first{};
    std::array<char, 260> second{};
    ExportedFunc_CreateDataSettingRegistryKeyName(first.data());
    ExportedFunc_CreateDataSettingRegistryKeyName(second.data());
    EXPECT_EQ(std::string(first.data()).size(), std::string("Software\\Zephra\\QPSP\\DataSet_").size() + 16);
    EXPECT_STRNE(first.data(), second.data());
}

TEST_F(Operations, TellNoKeyNameBeforeTheKeyIsCreated) {
    std::array<char, 260> name;
    name.fill('#');
    ExportedFunc_GetRegistryKeyName(name.data());
    EXPECT_STREQ(name.data(), "");
}

TEST_F(Operations, AreTheListedOnes) {
    std::vector<std::string> table{
        "ExportedFunc_InitializeDataManager",
        "ExportedFunc_CreateDataSettingRegistryKeyName",
        "ExportedFunc_CreateDataSettingRegistryKey",
        "ExportedFunc_GetRegistryKeyName",
        "ExportedFunc_DeleteRegistryKey",
        "ExportedFunc_DeleteAuthMngRegistryKey",
        "ExportedFunc_GetStarttupMode",
        "ExportedFunc_GetPrinterPortAddress",
        "ExportedFunc_SetUseIcCard",
        "ExportedFunc_SetFavoriteName",
        "ExportedFunc_SetFrontCoverStkName",
    };
    const auto addPair = [&](const std::string& name) {
        table.push_back("ExportedFunc_Get" + name);
        table.push_back("ExportedFunc_Set" + name);
    };
    for (const char* name : {"Current", "Default", "Favorite", "Preview", "Active", "CommunicationMode",
                             "AutoJobStartSpecifiedDayAndTimeForDriver"})
        addPair(name);
    for (const auto& pair : kTable.unsigneds)
        addPair(pair.name);
    for (const auto& pair : kTable.signeds)
        addPair(pair.name);
    for (const auto& pair : kTable.texts)
        addPair(pair.name);

    std::ifstream listing(ZR_TEST_DATA_DIR "/datamanager_ops.txt");
    std::vector<std::string> listed;
    for (std::string name; listing >> name;)
        listed.push_back(name);
    std::ranges::sort(table);
    std::ranges::sort(listed);
    EXPECT_EQ(listed.size(), 501u);
    EXPECT_EQ(table, listed);
}

} // namespace

// A fresh store, and its values and a setting's fields as the listings tell them, independently of the code.
#pragma once

#include "settings/setting_info.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

// Where a value number's field stands.
struct ListedPlace {
    ddb::Block block;
    std::size_t offset;
    std::size_t width;
    std::size_t flag; // 0 without one
    bool isText;
};

// Null for a number without a field.
const ListedPlace* PlaceOf(int number);

// The numbers of the fields of creases and of the trimming of two sides, which move nowhere.
bool IsCreaseOrTrim(int number);

// The name that the store has for a value number, "" for one that moves nowhere.
std::string StoreNameOf(int number);

// All bytes of a setting's record.
std::vector<std::uint8_t> BytesOf(const CSettingInfo& setting);

// The field's bytes as a number; the text up to its NUL.
std::uint64_t FieldNumber(const CSettingInfo& setting, int number);
std::string FieldTextOf(const CSettingInfo& setting, int number);
void PutFieldNumber(CSettingInfo& setting, int number, std::uint64_t value);
// With its flag, as every write of a text.
void PutFieldText(CSettingInfo& setting, int number, const std::string& text);

enum class StoreBank { Current, Default, Favorite, Preview };
std::uint32_t GetBank(StoreBank bank, int keyword);
void SetBank(StoreBank bank, int keyword, std::uint32_t value);
// All keywords of all banks.
std::vector<std::uint32_t> AllBanks();

// A named value of the store.
struct NamedSlot {
    std::string name;
    std::size_t width; // of a text, with its NUL; else 0
    bool isReadable;
    std::uint64_t (*getNumber)();
    void (*setNumber)(std::uint64_t);
    std::string (*getText)();
    void (*setText)(const char*);

    bool IsText() const { return width != 0; }
    // A number in decimal.
    std::string Get() const { return IsText() ? getText() : std::to_string(getNumber()); }
};
const std::vector<NamedSlot>& NamedSlots();
const NamedSlot& SlotNamed(const std::string& name);
// What each readable named value holds, in the order of NamedSlots().
std::vector<std::string> AllNamedValues();

// Of ASCII characters without blanks.
std::string TextOfLength(std::size_t length, std::mt19937& random);

// Puts a value of its own into each named value, a text as long as its slot takes, and each keyword of each
// bank.
void FillStore(std::uint32_t seed);
void FillRecord(CSettingInfo& setting, std::uint32_t seed);

class SettingTest : public testing::Test {
  protected:
    SettingTest();
    ~SettingTest() override;
};

#include "tests/settings/setting_fixture.h"

#include "session/datamanager.h"
#include "session/initialize_data_manager.h"
#include "tests/settings/option_bytes.h"
#include "tests/settings/print_option_listing.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <random>
#include <sstream>
#include <stdexcept>

namespace {

std::map<int, ListedPlace> ReadPlaces() {
    std::map<int, ListedPlace> places;
    auto fields = ListedRecordFields();
    const auto extra = ListedExtraFields();
    fields.insert(fields.end(), extra.begin(), extra.end());
    for (const ListedOptionField& field : fields)
        if (field.number >= 0)
            places[field.number] = {field.Block(), field.offset, field.width, field.flag,
                                    field.type == "text"};
    return places;
}

const ListedPlace& At(int number) {
    const ListedPlace* place = PlaceOf(number);
    if (!place)
        throw std::out_of_range("no field " + std::to_string(number));
    return *place;
}

std::map<int, std::string> ReadNames() {
    std::ifstream file(ZR_TEST_DATA_DIR "/valuenumbers.tsv");
    std::string line;
    std::getline(file, line);
    std::map<int, std::string> names;
    while (std::getline(file, line)) {
        std::istringstream row(line);
        int number = 0;
        row >> number >> names[number];
    }
    return names;
}

std::span<std::uint8_t> BytesAt(CSettingInfo& setting, const ListedPlace& place) {
    return setting.PrintOption().Bytes(place.block).subspan(place.offset, place.width);
}

std::span<const std::uint8_t> BytesAt(const CSettingInfo& setting, const ListedPlace& place) {
    return setting.PrintOption().Bytes(place.block).subspan(place.offset, place.width);
}

} // namespace

const ListedPlace* PlaceOf(int number) {
    static const std::map<int, ListedPlace> places = ReadPlaces();
    const auto found = places.find(number);
    return found == places.end() ? nullptr : &found->second;
}

bool IsCreaseOrTrim(int number) {
    return number >= 518 && number <= 542;
}

std::string StoreNameOf(int number) {
    static const std::map<int, std::string> names = ReadNames();
    switch (number) {
    case 349: return "CustomMemoFile";
    case 517: return "AutoJobStartSpecifiedDayAndTimeForDriver";
    case 553: return "FolderName";
    default: return number < 328 || IsCreaseOrTrim(number) ? "" : names.at(number);
    }
}

std::vector<std::uint8_t> BytesOf(const CSettingInfo& setting) {
    return AllBytesOf(setting.PrintOption());
}

std::uint64_t FieldNumber(const CSettingInfo& setting, int number) {
    return LittleEndianIn(BytesAt(setting, At(number)));
}

std::string FieldTextOf(const CSettingInfo& setting, int number) {
    return TextIn(BytesAt(setting, At(number)));
}

void PutFieldNumber(CSettingInfo& setting, int number, std::uint64_t value) {
    PutLittleEndian(BytesAt(setting, At(number)), value);
}

void PutFieldText(CSettingInfo& setting, int number, const std::string& text) {
    const ListedPlace& place = At(number);
    PutTextInto(BytesAt(setting, place), text);
    if (place.flag)
        setting.PrintOption().Bytes(place.block)[place.flag] = 1;
}

std::uint32_t GetBank(StoreBank bank, int keyword) {
    std::uint32_t value = 0;
    switch (bank) {
    case StoreBank::Current: ExportedFunc_GetCurrent(keyword, &value); break;
    case StoreBank::Default: ExportedFunc_GetDefault(keyword, &value); break;
    case StoreBank::Favorite: ExportedFunc_GetFavorite(keyword, &value); break;
    case StoreBank::Preview: ExportedFunc_GetPreview(keyword, &value); break;
    }
    return value;
}

void SetBank(StoreBank bank, int keyword, std::uint32_t value) {
    switch (bank) {
    case StoreBank::Current: return ExportedFunc_SetCurrent(keyword, value);
    case StoreBank::Default: return ExportedFunc_SetDefault(keyword, value);
    case StoreBank::Favorite: return ExportedFunc_SetFavorite(keyword, value);
    case StoreBank::Preview: return ExportedFunc_SetPreview(keyword, value);
    }
}

std::vector<std::uint32_t> AllBanks() {
    std::vector<std::uint32_t> values;
    for (const StoreBank bank :
         {StoreBank::Current, StoreBank::Default, StoreBank::Favorite, StoreBank::Preview})
        for (int keyword = 0; keyword <= 326; ++keyword)
            values.push_back(GetBank(bank, keyword));
    return values;
}

#define ZR_SET(name, type) [](std::uint64_t value) { ExportedFunc_Set##name(static_cast<type>(value)); }
#define ZR_SET_TEXT(name) [](const char* text) { ExportedFunc_Set##name(text); }
#define ZR_NUMBER_SLOT(name, type)                                                                           \
    {#name,                                                                                                  \
     0,                                                                                                      \
     true,                                                                                                   \
     []() -> std::uint64_t {                                                                                 \
         type value{};                                                                                       \
         ExportedFunc_Get##name(&value);                                                                     \
         return static_cast<std::make_unsigned_t<type>>(value);                                              \
     },                                                                                                      \
     ZR_SET(name, type),                                                                                     \
     nullptr,                                                                                                \
     nullptr},

const std::vector<NamedSlot>& NamedSlots() {
    static const std::vector<NamedSlot> slots{
#define ZR_U32(name) ZR_NUMBER_SLOT(name, std::uint32_t)
#define ZR_I32(name) ZR_NUMBER_SLOT(name, std::int32_t)
#define ZR_U64(name) ZR_NUMBER_SLOT(name, std::uint64_t)
#define ZR_TEXT_VALUE(name, width)                                                                           \
    {#name,                                                                                                  \
     width,                                                                                                  \
     true,                                                                                                   \
     nullptr,                                                                                                \
     nullptr,                                                                                                \
     []() -> std::string {                                                                                   \
         std::array<char, width> text{};                                                                     \
         ExportedFunc_Get##name(text.data());                                                                \
         return text.data();                                                                                 \
     },                                                                                                      \
     ZR_SET_TEXT(name)},
#define ZR_U32_SET_ONLY(name) {#name, 0, false, nullptr, ZR_SET(name, std::uint32_t), nullptr, nullptr},
#define ZR_TEXT_SET_ONLY(name, width) {#name, width, false, nullptr, nullptr, nullptr, ZR_SET_TEXT(name)},
#include "session/named_values.def"
    };
    return slots;
}

const NamedSlot& SlotNamed(const std::string& name) {
    const auto found = std::ranges::find(NamedSlots(), name, &NamedSlot::name);
    if (found == NamedSlots().end())
        throw std::out_of_range("no named value " + name);
    return *found;
}

std::vector<std::string> AllNamedValues() {
    std::vector<std::string> values;
    for (const NamedSlot& slot : NamedSlots())
        if (slot.isReadable)
            values.push_back(slot.Get());
    return values;
}

std::string TextOfLength(std::size_t length, std::mt19937& random) {
    std::string text(length, ' ');
    for (char& c : text)
        c = static_cast<char>('!' + random() % 94);
    return text;
}

void FillStore(std::uint32_t seed) {
    std::mt19937 random(seed);
    for (const NamedSlot& slot : NamedSlots()) {
        if (slot.IsText())
            slot.setText(TextOfLength(slot.width - 1, random).c_str());
        else
            slot.setNumber(std::uint64_t{random()} << 32 | random());
    }
    for (const StoreBank bank :
         {StoreBank::Current, StoreBank::Default, StoreBank::Favorite, StoreBank::Preview})
        for (int keyword = 0; keyword <= 326; ++keyword)
            SetBank(bank, keyword, static_cast<std::uint32_t>(random()));
}

void FillRecord(CSettingInfo& setting, std::uint32_t seed) {
    std::mt19937 random(seed);
    for (int number = 0; number <= 562; ++number) {
        const ListedPlace* place = PlaceOf(number);
        if (place && place->isText)
            PutFieldText(setting, number, TextOfLength(random() % place->width, random));
        else if (place)
            PutFieldNumber(setting, number, std::uint64_t{random()} << 32 | random());
    }
}

SettingTest::SettingTest() {
    InitializeDataManager();
}

SettingTest::~SettingTest() {
    char key[260] = {};
    ExportedFunc_GetRegistryKeyName(key);
    ExportedFunc_DeleteRegistryKey(key);
}

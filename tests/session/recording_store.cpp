#include "recording_store.h"

#include "session/datamanager.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace recording_store {

std::vector<Call>& Calls() {
    static std::vector<Call> calls;
    return calls;
}

} // namespace recording_store

namespace {

void Note(const char* operation, std::string argument = "") {
    recording_store::Calls().push_back({operation, std::move(argument)});
}

} // namespace

void ExportedFunc_InitializeDataManager() {
    Note("InitializeDataManager");
}
void ExportedFunc_CreateDataSettingRegistryKeyName(char* name) {
    const bool isZeroed = std::all_of(name, name + 260, [](char c) { return c == 0; });
    Note("CreateDataSettingRegistryKeyName", isZeroed ? "zeroed" : "");
    std::strcpy(name, "a key");
}
void ExportedFunc_CreateDataSettingRegistryKey(const char* name, int keywordCount) {
    Note("CreateDataSettingRegistryKey", std::string(name) + " " + std::to_string(keywordCount));
}

#define ZR_RECORD_BANK(bank)                                                                                 \
    void ExportedFunc_Get##bank(int, std::uint32_t* value) {                                                 \
        Note("Get" #bank);                                                                                   \
        *value = 0;                                                                                          \
    }                                                                                                        \
    void ExportedFunc_Set##bank(int keyword, std::uint32_t value) {                                          \
        Note("Set" #bank, std::to_string(keyword) + " " + std::to_string(value));                            \
    }
ZR_RECORD_BANK(Current)
ZR_RECORD_BANK(Default)
ZR_RECORD_BANK(Favorite)

#define ZR_RECORD_NUMBER(name, type)                                                                         \
    void ExportedFunc_Get##name(type* value) {                                                               \
        Note("Get" #name);                                                                                   \
        *value = 0;                                                                                          \
    }                                                                                                        \
    void ExportedFunc_Set##name(type value) {                                                                \
        Note("Set" #name, std::to_string(value));                                                            \
    }
#define ZR_U32(name) ZR_RECORD_NUMBER(name, std::uint32_t)
#define ZR_I32(name) ZR_RECORD_NUMBER(name, std::int32_t)
#define ZR_U64(name) ZR_RECORD_NUMBER(name, std::uint64_t)
#define ZR_TEXT_VALUE(name, width)                                                                           \
    void ExportedFunc_Get##name(char* text) {                                                                \
        Note("Get" #name);                                                                                   \
        *text = '\0';                                                                                        \
    }                                                                                                        \
    void ExportedFunc_Set##name(const char* text) {                                                          \
        Note("Set" #name, text);                                                                             \
    }
#define ZR_U32_SET_ONLY(name)                                                                                \
    void ExportedFunc_Set##name(std::uint32_t value) {                                                       \
        Note("Set" #name, std::to_string(value));                                                            \
    }
#define ZR_TEXT_SET_ONLY(name, width)                                                                        \
    void ExportedFunc_Set##name(const char* text) {                                                          \
        Note("Set" #name, text);                                                                             \
    }
#include "session/named_values.def"

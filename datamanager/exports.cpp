#include "session/datamanager.h"

#include "Common/log.h"
#include "Common/text.h"
#include "datamanager/key_names.h"
#include "datamanager/printer_settings.h"
#include "datamanager/store.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <exception>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>

namespace {

constinit ValueStore store;

constexpr std::size_t kNameLength = 260;

void GiveName(char* buffer, std::string_view name) {
    if (buffer)
        CopyText({buffer, kNameLength}, name);
}

std::string TakenName(const char* name) {
    return name ? std::string(name, strnlen(name, kNameLength)) : std::string();
}

void GiveText(char* buffer, const char* slot) {
    if (buffer)
        std::memcpy(buffer, slot, std::strlen(slot) + 1);
}

void GiveNumber(Bank bank, int keyword, std::uint32_t* value) {
    if (value)
        *value = store.Get(bank, keyword);
}

bool Refused(const std::string& name) {
    ZR_LOG("refused=%s\n", name.c_str());
    return false;
}

// 1 if the operation succeeded. No exception leaves the module.
template <typename Operation>
int Guarded(Operation operation) {
    try {
        return operation() ? 1 : 0;
    } catch (const std::exception& error) {
        ZR_LOG("%s\n", error.what());
        return 0;
    }
}

} // namespace

void ExportedFunc_InitializeDataManager() {
    ZR_LOG_ENTRY();
    store.Reset();
}

void ExportedFunc_CreateDataSettingRegistryKeyName(char* name) {
    ZR_LOG_ENTRY();
    Guarded([&] {
        std::string key;
        do {
            key = DataSettingKeyName(ProcessNumber(), NextKeyStamp(TimeNow()));
        } while (UserKeyExists(key));
        GiveName(name, key);
        return true;
    });
}

void ExportedFunc_CreateDataSettingRegistryKey(const char* name, int keywordCount) {
    ZR_LOG_ENTRY();
    Guarded([&] {
        store.Detach();
        const std::string key = TakenName(name);
        if (!IsDataSettingKeyName(key))
            return Refused(key);
        store.Attach(MakeSettingKey(key, static_cast<std::uint32_t>(keywordCount)));
        return true;
    });
}

void ExportedFunc_GetRegistryKeyName(char* name) {
    ZR_LOG_ENTRY();
    if (name)
        GiveName(name, store.HandOutKeyName());
}

int ExportedFunc_DeleteRegistryKey(const char* name) {
    ZR_LOG_ENTRY();
    return Guarded([&] {
        const std::string key = TakenName(name);
        if (!IsDataSettingKeyName(key))
            return Refused(key);
        if (!DeleteUserKey(key))
            return false;
        if (key == store.KeyName())
            store.Detach();
        return true;
    });
}

int ExportedFunc_DeleteAuthMngRegistryKey(const char* name) {
    ZR_LOG_ENTRY();
    return Guarded([&] {
        const std::string told = TakenName(name);
        const std::string path = AuthenticationKeyPath(told);
        return path.empty() ? Refused(told) : DeleteUserKey(path);
    });
}

void ExportedFunc_GetCurrent(int keyword, std::uint32_t* value) {
    GiveNumber(Bank::Current, keyword, value);
}
void ExportedFunc_SetCurrent(int keyword, std::uint32_t value) {
    store.Set(Bank::Current, keyword, value);
}
void ExportedFunc_GetDefault(int keyword, std::uint32_t* value) {
    GiveNumber(Bank::Default, keyword, value);
}
void ExportedFunc_SetDefault(int keyword, std::uint32_t value) {
    store.Set(Bank::Default, keyword, value);
}
void ExportedFunc_GetFavorite(int keyword, std::uint32_t* value) {
    GiveNumber(Bank::Favorite, keyword, value);
}
void ExportedFunc_SetFavorite(int keyword, std::uint32_t value) {
    store.Set(Bank::Favorite, keyword, value);
}
void ExportedFunc_GetPreview(int keyword, std::uint32_t* value) {
    GiveNumber(Bank::Preview, keyword, value);
}
void ExportedFunc_SetPreview(int keyword, std::uint32_t value) {
    store.Set(Bank::Preview, keyword, value);
}

void ExportedFunc_GetActive(void** window) {
    if (window)
        *window = store.active;
}

void ExportedFunc_SetActive(void* window) {
    store.active = window;
}

void ExportedFunc_GetCommunicationMode(void* printer, std::uint32_t* mode) {
    if (mode)
        *mode = printer_settings::ReadNumber(printer, printer_settings::kCommunicationMode);
}

void ExportedFunc_SetCommunicationMode(void* printer, std::uint32_t mode) {
    printer_settings::WriteNumber(printer, printer_settings::kCommunicationMode, mode);
}

void ExportedFunc_GetStarttupMode(void* printer, std::uint32_t* mode) {
    if (mode)
        *mode = printer_settings::ReadNumber(printer, printer_settings::kStarttupMode);
}

int ExportedFunc_GetPrinterPortAddress(void* printer, wchar_t* address) {
    std::array<wchar_t, printer_settings::kAddressLength> found{};
    const bool isThere = printer_settings::ReadAddress(printer, found);
    if (address)
        std::ranges::copy(found, address);
    return isThere ? 1 : 0;
}

#define ZR_GET_NUMBER(name, type)                                                                            \
    void ExportedFunc_Get##name(type* value) {                                                               \
        if (value)                                                                                           \
            *value = store.Named().name;                                                                     \
    }
#define ZR_SET_NUMBER(name, type)                                                                            \
    void ExportedFunc_Set##name(type value) {                                                                \
        static_assert(std::is_same_v<type, decltype(NamedValues::name)>);                                    \
        store.SetNumber(NamedValue::name, value);                                                            \
    }
#define ZR_U32(name) ZR_GET_NUMBER(name, std::uint32_t) ZR_SET_NUMBER(name, std::uint32_t)
#define ZR_I32(name) ZR_GET_NUMBER(name, std::int32_t) ZR_SET_NUMBER(name, std::int32_t)
#define ZR_U64(name) ZR_GET_NUMBER(name, std::uint64_t) ZR_SET_NUMBER(name, std::uint64_t)
#define ZR_U32_SET_ONLY(name) ZR_SET_NUMBER(name, std::uint32_t)
#define ZR_TEXT_SET_ONLY(name, width)                                                                        \
    void ExportedFunc_Set##name(const char* text) {                                                          \
        if (text)                                                                                            \
            store.SetText(NamedValue::name, text);                                                           \
    }
#define ZR_TEXT_VALUE(name, width)                                                                           \
    void ExportedFunc_Get##name(char* text) {                                                                \
        GiveText(text, store.Named().name.data());                                                           \
    }                                                                                                        \
    ZR_TEXT_SET_ONLY(name, width)
#include "session/named_values.def"

// The value store's exported operations. A process has one store; there is no handle. Before any value is
// touched the order is ExportedFunc_InitializeDataManager, ExportedFunc_CreateDataSettingRegistryKeyName,
// ExportedFunc_CreateDataSettingRegistryKey.
//
// A value that was never set reads as 0 or "". Text is in the process's ANSI code page; a text getter fills a
// buffer of the width of the named value's row in named_values.def and never writes more, a setter cuts at
// that width on a character boundary.
#pragma once

#include <cstdint>

#if defined(_WIN32)
#if defined(ZR_BUILD_DATAMANAGER)
#define ZR_STORE_API extern "C" __declspec(dllexport)
#elif defined(ZR_STATIC_DATAMANAGER)
#define ZR_STORE_API extern "C"
#else
#define ZR_STORE_API extern "C" __declspec(dllimport)
#endif
#else
#define ZR_STORE_API extern "C"
#endif

// Prepares the store; called once per sheet before everything else.
ZR_STORE_API void ExportedFunc_InitializeDataManager();
// Writes the name of a fresh data setting key, below HKEY_CURRENT_USER, into a buffer of 260 bytes.
ZR_STORE_API void ExportedFunc_CreateDataSettingRegistryKeyName(char* name);
// Creates that key for this many keywords; it stays empty until its name is asked for. A name that
// CreateDataSettingRegistryKeyName did not give, or a key that is there already, leaves the store without a
// key.
ZR_STORE_API void ExportedFunc_CreateDataSettingRegistryKey(const char* name, int keywordCount);
// Fills a buffer of 260 bytes with the name of the key in use, "" if there is none. From now on every value
// stands in the key, and what another process hands over there is taken; so ask only for another process.
ZR_STORE_API void ExportedFunc_GetRegistryKeyName(char* name);
// Removes a data setting key: 1 if it is gone, 0 if not, or if the name is no data setting key's.
ZR_STORE_API int ExportedFunc_DeleteRegistryKey(const char* name);
// Removes a printer's authentication management key, told by the key's own name or by its path below
// HKEY_CURRENT_USER, with all below it: 1 if it is gone, 0 if not, or if the name is no such key's.
ZR_STORE_API int ExportedFunc_DeleteAuthMngRegistryKey(const char* name);

// The banks. Any int is a possible keyword; what lies outside the table is kept without effect on anything
// else.
ZR_STORE_API void ExportedFunc_GetCurrent(int keyword, std::uint32_t* value);
ZR_STORE_API void ExportedFunc_SetCurrent(int keyword, std::uint32_t value);
ZR_STORE_API void ExportedFunc_GetDefault(int keyword, std::uint32_t* value);
ZR_STORE_API void ExportedFunc_SetDefault(int keyword, std::uint32_t value);
ZR_STORE_API void ExportedFunc_GetFavorite(int keyword, std::uint32_t* value);
ZR_STORE_API void ExportedFunc_SetFavorite(int keyword, std::uint32_t value);
ZR_STORE_API void ExportedFunc_GetPreview(int keyword, std::uint32_t* value);
ZR_STORE_API void ExportedFunc_SetPreview(int keyword, std::uint32_t value);

// The window of the active page, as an HWND.
ZR_STORE_API void ExportedFunc_GetActive(void** window);
ZR_STORE_API void ExportedFunc_SetActive(void* window);

// What is kept per printer handle.
ZR_STORE_API void ExportedFunc_GetCommunicationMode(void* printer, std::uint32_t* mode);
ZR_STORE_API void ExportedFunc_SetCommunicationMode(void* printer, std::uint32_t mode);
ZR_STORE_API void ExportedFunc_GetStarttupMode(void* printer, std::uint32_t* mode);
// Fills a buffer of 260 wide characters with the stored print server address: 1 if there is one, else 0 and
// "".
ZR_STORE_API int ExportedFunc_GetPrinterPortAddress(void* printer, wchar_t* address);

#define ZR_U32(name)                                                                                         \
    ZR_STORE_API void ExportedFunc_Get##name(std::uint32_t* value);                                          \
    ZR_STORE_API void ExportedFunc_Set##name(std::uint32_t value);
#define ZR_I32(name)                                                                                         \
    ZR_STORE_API void ExportedFunc_Get##name(std::int32_t* value);                                           \
    ZR_STORE_API void ExportedFunc_Set##name(std::int32_t value);
#define ZR_U64(name)                                                                                         \
    ZR_STORE_API void ExportedFunc_Get##name(std::uint64_t* value);                                          \
    ZR_STORE_API void ExportedFunc_Set##name(std::uint64_t value);
#define ZR_TEXT_VALUE(name, width)                                                                           \
    ZR_STORE_API void ExportedFunc_Get##name(char* text);                                                    \
    ZR_STORE_API void ExportedFunc_Set##name(const char* text);
#define ZR_U32_SET_ONLY(name) ZR_STORE_API void ExportedFunc_Set##name(std::uint32_t value);
#define ZR_TEXT_SET_ONLY(name, width) ZR_STORE_API void ExportedFunc_Set##name(const char* text);
#include "session/named_values.def"

#include "resource_module.h"

#include <gtest/gtest.h>

#include <array>

ResourceModule::ResourceModule(const char* name)
    : m_module(LoadLibraryExA(name, nullptr, LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE)) {}

ResourceModule::~ResourceModule() {
    FreeLibrary(m_module);
}

std::set<int> ResourceModule::Types() const {
    std::set<int> types;
    EnumResourceTypesA(
        m_module,
        [](HMODULE, LPSTR type, LONG_PTR list) -> BOOL {
            reinterpret_cast<std::set<int>*>(list)->insert(static_cast<int>(LOWORD(type)));
            return TRUE;
        },
        reinterpret_cast<LONG_PTR>(&types));
    return types;
}

std::set<int> ResourceModule::Numbers(LPCSTR type) const {
    std::set<int> numbers;
    EnumResourceNamesA(
        m_module, type,
        [](HMODULE, LPCSTR, LPSTR name, LONG_PTR list) -> BOOL {
            EXPECT_TRUE(IS_INTRESOURCE(name));
            reinterpret_cast<std::set<int>*>(list)->insert(static_cast<int>(LOWORD(name)));
            return TRUE;
        },
        reinterpret_cast<LONG_PTR>(&numbers));
    return numbers;
}

std::set<WORD> ResourceModule::Languages(LPCSTR type, int number) const {
    std::set<WORD> languages;
    EnumResourceLanguagesA(
        m_module, type, MAKEINTRESOURCEA(number),
        [](HMODULE, LPCSTR, LPCSTR, WORD language, LONG_PTR list) -> BOOL {
            reinterpret_cast<std::set<WORD>*>(list)->insert(language);
            return TRUE;
        },
        reinterpret_cast<LONG_PTR>(&languages));
    return languages;
}

std::string ResourceModule::Bytes(LPCSTR type, int number) const {
    const HRSRC place = FindResourceA(m_module, MAKEINTRESOURCEA(number), type);
    const void* data = place ? LockResource(LoadResource(m_module, place)) : nullptr;
    EXPECT_TRUE(data) << number;
    return data ? std::string(static_cast<const char*>(data), SizeofResource(m_module, place)) : "";
}

std::wstring ResourceModule::String(unsigned number) const {
    std::array<wchar_t, 512> text{};
    LoadStringW(m_module, number, text.data(), static_cast<int>(text.size()));
    return text.data();
}

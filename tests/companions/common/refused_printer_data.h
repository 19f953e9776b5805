// Has the spooler refuse one value of a printer's data to a module of the test's process, while it lives.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <winspool.h>

#include <string>
#include <string_view>

class RefusedPrinterData {
  public:
    RefusedPrinterData(const char* module, std::wstring name, DWORD status)
        : m_place(PlaceIn(module)), m_before(m_place ? *m_place : nullptr) {
        s_name = std::move(name);
        s_status = status;
        EXPECT_NE(m_place, nullptr);
        Put(SetOrRefuse);
    }
    ~RefusedPrinterData() { Put(m_before); }
    RefusedPrinterData(const RefusedPrinterData&) = delete;
    RefusedPrinterData& operator=(const RefusedPrinterData&) = delete;

  private:
    using Setter = decltype(&SetPrinterDataExW);

    static DWORD WINAPI SetOrRefuse(HANDLE printer, LPCWSTR key, LPCWSTR name, DWORD type, LPBYTE data,
                                    DWORD size) {
        return name == s_name ? s_status : SetPrinterDataExW(printer, key, name, type, data, size);
    }

    // Among the addresses that the module has imported.
    static Setter* PlaceIn(const char* module) {
        auto* const base = reinterpret_cast<BYTE*>(GetModuleHandleA(module));
        const auto setter = reinterpret_cast<Setter>(
            reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("winspool.drv"), "SetPrinterDataExW")));
        if (!base || !setter)
            return nullptr;
        const auto* const header = reinterpret_cast<const IMAGE_NT_HEADERS*>(
            base + reinterpret_cast<const IMAGE_DOS_HEADER*>(base)->e_lfanew);
        const IMAGE_DATA_DIRECTORY& table = header->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IAT];
        auto* const begin = reinterpret_cast<Setter*>(base + table.VirtualAddress);
        for (Setter* place = begin; place < begin + table.Size / sizeof(Setter); ++place) {
            if (*place == setter)
                return place;
        }
        return nullptr;
    }

    void Put(Setter setter) const {
        DWORD access = 0;
        if (!m_place || !VirtualProtect(m_place, sizeof *m_place, PAGE_READWRITE, &access))
            return;
        *m_place = setter;
        VirtualProtect(m_place, sizeof *m_place, access, &access);
    }

    inline static std::wstring s_name;
    inline static DWORD s_status = ERROR_SUCCESS;
    Setter* m_place;
    Setter m_before;
};

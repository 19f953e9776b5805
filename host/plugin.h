// The driver's plug-in, known by its class id and the contract only.
#pragma once

#include "Common/unique_com.h"
#include "Common/win_handles.h"
#include "host/driver_files.h"
#include "oemps/printoem.h"

#include <cstddef>
#include <span>
#include <string>

// What stands behind the opaque driver object that a plug-in hands back.
struct OEMUIOBJ {
    DWORD cbSize;
};

class Plugin {
  public:
    // Throws Failure if the plug-in is not there or does not answer as one.
    explicit Plugin(const DriverFiles& files);

    // The bytes of its DEVMODE block.
    std::size_t BlockSize(HANDLE printer);

    // Fills the block that stands at the end of `out`.
    void DefaultBlock(HANDLE printer, std::span<std::byte> out, std::size_t blockSize);

    // Why a stored block is not one of this plug-in's, or ""; the plug-in relies on what it is given as such.
    std::string Trouble(std::span<const std::byte> block) const;

    // Brings a stored block without trouble into the default one at the end of `out`: merged if its head is
    // that of this plug-in's own, converted if it was made by another version.
    void TakeBlock(HANDLE printer, std::span<std::byte> out, std::size_t blockSize, PDEVMODEW publicIn,
                   std::span<const std::byte> block);

    // What a plug-in declines is the driver's to do; throws Failure if it fails otherwise.
    void PrinterEvent(LPWSTR printerName, int event, DWORD flags, LPARAM param);
    void DriverEvent(DWORD event, DWORD level, LPBYTE driverInfo, LPARAM param);

    IPrintOemUI& Interface() const { return *m_ui; }
    POEMUIOBJ Object() { return &m_object; }
    HMODULE Module() const { return m_module.Get(); }

  private:
    DWORD Ask(DWORD mode, const char* what);
    void LoadFromFolder(const DriverFiles& files, const std::wstring& name);
    void CreateRegistered();
    void Call(DWORD mode, OEMDMPARAM& param, const char* what);
    OEMDMPARAM Param(HANDLE printer, std::span<std::byte> out, std::size_t blockSize);

    UniqueModule m_module; // outlives the object in it
    UniqueCom<IPrintOemUI> m_ui;
    OEMUIOBJ m_object{sizeof(OEMUIOBJ)};
    DWORD m_signature = 0; // of its blocks
    DWORD m_version = 0;
};

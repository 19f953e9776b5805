#include "host/driver.h"

#include "host/failure.h"
#include "host/report.h"
#include "host/wide.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace {

static_assert(sizeof(DEVMODEW) == sizeof(PublicDevMode));
static_assert(offsetof(DEVMODEW, dmFields) == offsetof(PublicDevMode, dmFields));
static_assert(offsetof(DEVMODEW, dmFormName) == offsetof(PublicDevMode, dmFormName));
static_assert(offsetof(DEVMODEW, dmNup) == offsetof(PublicDevMode, dmNup));
static_assert(offsetof(DEVMODEW, dmMediaType) == offsetof(PublicDevMode, dmMediaType));

std::span<const std::byte> BytesOf(const DEVMODEW* devmode) {
    if (!devmode)
        return {};
    return std::as_bytes(std::span(reinterpret_cast<const BYTE*>(devmode),
                                   std::size_t{devmode->dmSize} + devmode->dmDriverExtra));
}

// The DEVMODE in a PRINTER_INFO of this level, as far as the buffer reaches.
DevModeBytes StoredAt(HANDLE printer, DWORD level) {
    DWORD needed = 0;
    GetPrinterW(printer, level, nullptr, 0, &needed);
    std::vector<BYTE> buffer(needed);
    std::size_t head = level == 2 ? sizeof(PRINTER_INFO_2W) : sizeof(PRINTER_INFO_9W);
    if (needed < head || !GetPrinterW(printer, level, buffer.data(), needed, &needed))
        return {};
    const auto* devmode = reinterpret_cast<const BYTE*>(
        level == 2 ? reinterpret_cast<const PRINTER_INFO_2W*>(buffer.data())->pDevMode
                   : reinterpret_cast<const PRINTER_INFO_9W*>(buffer.data())->pDevMode);
    if (!devmode)
        return {};
    auto bytes = std::as_bytes(std::span(devmode, buffer.data() + buffer.size()));
    return {bytes.begin(), bytes.end()};
}

} // namespace

PrinterRef::PrinterRef(HANDLE printer, PCWSTR name) : m_printer(printer), m_name(name ? name : L"") {
    if (printer || m_name.empty())
        return;
    if (!OpenPrinterW(m_name.data(), m_owned.Receive(), nullptr))
        throw Failure("The printer " + Utf8(m_name) + " can't be opened, error " +
                      std::to_string(GetLastError()) + ".");
    m_printer = m_owned.Get();
}

Driver::Driver(HANDLE printer, PCWSTR name)
    : m_printer(printer, name), m_files(FindDriverFiles(m_printer.Get())),
      m_model(LoadModel(m_files.description)), m_plugin(m_files),
      m_blockSize(m_plugin.BlockSize(m_printer.Get())), m_size(DevModeSize(*m_model, m_blockSize)) {
    if (m_size == 0)
        throw Failure("The settings of the description and the plug-in are more than a DEVMODE holds.");
}

// The user's own DEVMODE, then the printer's, then the one its information shows.
DevModeBytes Driver::Stored() const {
    for (DWORD level : {9u, 8u, 2u})
        if (m_printer.Get())
            if (DevModeBytes stored = StoredAt(m_printer.Get(), level); !stored.empty())
                return stored;
    return {};
}

// Throws Failure for what can't be used.
DevModeReading Driver::Read(std::span<const std::byte> bytes, const Settings& base) const {
    DevModeReading reading = ReadDevMode(bytes, *m_model, base);
    if (!reading.trouble.empty())
        throw Failure(reading.trouble);
    if (!reading.pluginBlock.empty())
        if (std::string trouble = m_plugin.Trouble(reading.pluginBlock); !trouble.empty())
            throw Failure(trouble);
    if (!reading.remark.empty())
        Remark(reading.remark);
    return reading;
}

Settings Driver::MakeDefault(DevModeBytes& devmode) {
    devmode.assign(m_size, std::byte{0});
    Settings settings = DefaultSettings(*m_model);
    Write(devmode, settings);
    m_plugin.DefaultBlock(m_printer.Get(), devmode, m_blockSize);
    return settings;
}

// Lays a DEVMODE over the one that stands in `devmode`. A DEVMODE made by hand brings no block; the one that
// is there stays.
void Driver::Take(std::span<const std::byte> bytes, PDEVMODEW publicIn, DevModeBytes& devmode,
                  Settings& settings) {
    const DevModeReading reading = Read(bytes, settings);
    if (!reading.pluginBlock.empty()) {
        MakeDefault(devmode);
        Write(devmode, reading.settings);
        m_plugin.TakeBlock(m_printer.Get(), devmode, m_blockSize, publicIn, reading.pluginBlock);
    }
    settings = reading.settings;
    Write(devmode, settings);
}

// Stored settings that are of no use must not make the printer useless.
Settings Driver::MakeStored(DevModeBytes& devmode) {
    Settings settings = MakeDefault(devmode);
    DevModeBytes stored = Stored();
    if (stored.empty())
        return settings;
    try {
        Take(stored, reinterpret_cast<PDEVMODEW>(stored.data()), devmode, settings);
        return settings;
    } catch (const Failure& failure) {
        Remark(std::string("The stored settings were not taken: ") + failure.what());
    }
    return MakeDefault(devmode);
}

DevModeBytes Driver::Make(const DEVMODEW* in) {
    DevModeBytes devmode;
    Settings settings = MakeStored(devmode);
    if (in)
        Take(BytesOf(in), const_cast<PDEVMODEW>(in), devmode, settings);
    return devmode;
}

void Driver::Check(std::span<const std::byte> in) const {
    Read(in, DefaultSettings(*m_model));
}

void Driver::Write(DevModeBytes& devmode, const Settings& settings) const {
    WriteDevMode(devmode, settings, *m_model, m_blockSize, Narrow16(m_printer.Name()));
}

std::span<std::byte> Driver::Block(DevModeBytes& devmode) const {
    return std::span(devmode).last(m_blockSize);
}

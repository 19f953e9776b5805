// What is kept with a printer rather than with the store: printer data of the handle's printer, written by
// the device sheet and by the server address code. A build without a spooler keeps the numbers by handle in
// memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace printer_settings {

inline constexpr std::size_t kAddressLength = 260;

// Printer data of type REG_DWORD below "PrinterDriverData".
inline constexpr const wchar_t* kCommunicationMode = L"CommunicationMode";
inline constexpr const wchar_t* kStarttupMode = L"StarttupMode";
// REG_SZ there.
inline constexpr const wchar_t* kPrinterPortAddress = L"PrinterPortAddress";

// 0 if the printer has no such number.
std::uint32_t ReadNumber(void* printer, const wchar_t* name);
// 0, or why the spooler did not store it.
std::uint32_t WriteNumber(void* printer, const wchar_t* name, std::uint32_t value);

// Fills `address`, which is then always terminated. False and "" if the printer has no address, or one that
// does not fit.
bool ReadAddress(void* printer, std::span<wchar_t, kAddressLength> address);
// 0, or why the spooler did not store it. With "" the printer has no address.
std::uint32_t WriteAddress(void* printer, const std::wstring& address);

// Printer data as the spooler has them, to be put back as they were.
struct RawData {
    std::uint32_t type = 0;
    std::vector<std::byte> bytes;
};

// 0 with the data, or with nothing if the printer has none of that name; else why the spooler did not give
// them. Throws std::bad_alloc.
std::uint32_t ReadRaw(void* printer, const wchar_t* name, std::optional<RawData>& data);
// For nothing it removes the data, or makes them the number 0 where the spooler removes none. 0, or why the
// spooler did not put them back.
std::uint32_t PutBack(void* printer, const wchar_t* name, const std::optional<RawData>& data);

} // namespace printer_settings

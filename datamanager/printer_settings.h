// What is kept with a printer rather than with the store: printer data of the handle's printer, written by
// the device sheet and by the server address code. A build without a spooler keeps the numbers by handle in
// memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace printer_settings {

inline constexpr std::size_t kAddressLength = 260;

// Printer data of type REG_DWORD below "PrinterDriverData".
inline constexpr const wchar_t* kCommunicationMode = L"CommunicationMode";
inline constexpr const wchar_t* kStarttupMode = L"StarttupMode";
// REG_SZ there.
inline constexpr const wchar_t* kPrinterPortAddress = L"PrinterPortAddress";

// 0 if the printer has no such number.
std::uint32_t ReadNumber(void* printer, const wchar_t* name);
void WriteNumber(void* printer, const wchar_t* name, std::uint32_t value);

// Fills `address`, which is then always terminated. False and "" if the printer has no address, or one that
// does not fit.
bool ReadAddress(void* printer, std::span<wchar_t, kAddressLength> address);

} // namespace printer_settings

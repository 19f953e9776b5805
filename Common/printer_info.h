// Printer information from the spooler, in a buffer of the size that a first call asks for.
#pragma once

#include <windows.h>

#include <winspool.h>

#include <cstddef>
#include <vector>

// The structure of a level as the spooler filled it: PrinterInfo<PRINTER_INFO_2A>(printer, 2). Its texts
// point into the buffer and live as long as this object.
template <typename Info>
class PrinterInfo;

namespace printer_info {
// The filled buffer of GetPrinterA, empty if a call failed or gave less than `minimum` bytes. GetLastError
// tells why.
std::vector<std::byte> Fetch(HANDLE printer, DWORD level, std::size_t minimum);
} // namespace printer_info

template <typename Info>
class PrinterInfo {
  public:
    PrinterInfo(HANDLE printer, DWORD level) : m_buffer(printer_info::Fetch(printer, level, sizeof(Info))) {}

    explicit operator bool() const { return !m_buffer.empty(); }
    const Info* operator->() const { return reinterpret_cast<const Info*>(m_buffer.data()); }

  private:
    std::vector<std::byte> m_buffer;
};

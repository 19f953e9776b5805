// What the spooler tells about a printer.
#pragma once

#include <windows.h>

#include <winspool.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

// One PRINTER_INFO_* structure with the text and records that it points to, in a buffer of its own.
class PrinterInfo {
  public:
    enum class Result { Fetched, Failed, NoMemory };

    // Asks the spooler for the size and then for the structure.
    Result Fetch(HANDLE printer, DWORD level);

    // The fetched structure; the type goes with the level. Null if nothing was fetched.
    template <typename Info>
    const Info* As() const {
        return m_size < sizeof(Info) ? nullptr : reinterpret_cast<const Info*>(m_buffer.get());
    }

    // From `begin`, a pointer out of the structure, to the buffer's end; empty for a pointer that leads
    // elsewhere.
    std::span<const std::byte> BytesFrom(const void* begin) const;

  private:
    std::unique_ptr<std::byte[]> m_buffer;
    std::size_t m_size = 0;
};

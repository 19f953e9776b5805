// Memory that ends where no access is allowed, so that one byte too many ends the test.
#pragma once

#include <cstddef>
#include <span>

class GuardedBlock {
  public:
    explicit GuardedBlock(std::size_t size);
    ~GuardedBlock();
    GuardedBlock(const GuardedBlock&) = delete;
    GuardedBlock& operator=(const GuardedBlock&) = delete;

    // Zeros at first. The byte behind the last can't be read or written.
    std::span<unsigned char> Bytes() const { return m_bytes; }

  private:
    void* m_pages;
    std::size_t m_pagesSize;
    std::span<unsigned char> m_bytes;
};

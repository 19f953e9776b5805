// Memory for what may be a password: nothing of it is left when it goes.
#pragma once

#include <windows.h>

#include <cstddef>
#include <memory>
#include <span>
#include <utility>

template <typename Unit>
class SecretBuffer {
  public:
    SecretBuffer() = default;
    // Zeroed. Throws std::bad_alloc.
    explicit SecretBuffer(std::size_t size)
        : m_units(std::make_unique<Unit[]>(size)), m_size(size), m_used(size) {}
    SecretBuffer(SecretBuffer&& other) noexcept
        : m_units(std::move(other.m_units)), m_size(std::exchange(other.m_size, 0)),
          m_used(std::exchange(other.m_used, 0)) {}
    SecretBuffer& operator=(SecretBuffer&& other) noexcept {
        std::swap(m_units, other.m_units);
        std::swap(m_size, other.m_size);
        std::swap(m_used, other.m_used);
        return *this;
    }
    ~SecretBuffer() {
        if (m_units)
            SecureZeroMemory(m_units.get(), m_size * sizeof(Unit));
    }

    std::span<Unit> Units() { return {m_units.get(), m_used}; }
    std::span<const Unit> Units() const { return {m_units.get(), m_used}; }
    // Leaves the first of them in use.
    void Shorten(std::size_t used) { m_used = used; }

  private:
    std::unique_ptr<Unit[]> m_units;
    std::size_t m_size = 0;
    std::size_t m_used = 0;
};

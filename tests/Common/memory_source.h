// A file's bytes that stand in memory.
#pragma once

#include "Common/platform_files.h"

#include <algorithm>
#include <string_view>

class MemorySource : public ByteSource {
  public:
    // Gives at most `most` bytes a read.
    explicit MemorySource(std::string_view bytes, std::size_t most = 4096) : m_rest(bytes), m_most(most) {}

    std::size_t Read(std::span<char> buffer) override {
        const std::size_t count = std::min({buffer.size(), m_rest.size(), m_most});
        std::copy_n(m_rest.data(), count, buffer.data());
        m_rest.remove_prefix(count);
        return count;
    }

  private:
    std::string_view m_rest;
    std::size_t m_most;
};

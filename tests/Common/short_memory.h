// Memory that ends. A program that links short_memory.cpp has its allocations counted.
#pragma once

#include <cstddef>

// While it lives, this thread gets so many allocations and then std::bad_alloc.
class ShortMemory {
  public:
    explicit ShortMemory(std::size_t allocations);
    ~ShortMemory();
    ShortMemory(const ShortMemory&) = delete;
    ShortMemory& operator=(const ShortMemory&) = delete;
};

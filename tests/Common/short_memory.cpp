#include "tests/Common/short_memory.h"

#include <cstdint>
#include <cstdlib>
#include <new>

namespace {

constexpr std::size_t kUnlimited = SIZE_MAX;
thread_local std::size_t allocationsLeft = kUnlimited;

void* Allocate(std::size_t size) noexcept {
    if (allocationsLeft == 0)
        return nullptr;
    if (allocationsLeft != kUnlimited)
        --allocationsLeft;
    return std::malloc(size ? size : 1);
}

} // namespace

ShortMemory::ShortMemory(std::size_t allocations) {
    allocationsLeft = allocations;
}

ShortMemory::~ShortMemory() {
    allocationsLeft = kUnlimited;
}

void* operator new(std::size_t size) {
    if (void* memory = Allocate(size))
        return memory;
    throw std::bad_alloc();
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return Allocate(size);
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

void operator delete(void* memory, const std::nothrow_t&) noexcept {
    std::free(memory);
}

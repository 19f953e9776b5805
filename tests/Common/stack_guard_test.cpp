// The stack protector's own guard, linked in place of the compiler's.
#include <windows.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

extern "C" std::uintptr_t __stack_chk_guard;

namespace {

constexpr std::uintptr_t kWithoutRandomBytes = 0x00000AFF;

// Not inlined, and through a pointer that the compiler can't see through.
[[gnu::noinline]] char Fill(std::size_t size) {
    char buffer[16] = {};
    char* volatile begin = buffer;
    for (std::size_t index = 0; index < size; ++index)
        begin[index] = 'x';
    return begin[0];
}

} // namespace

TEST(StackGuard, IsRandom) {
    EXPECT_NE(__stack_chk_guard, 0u);
    EXPECT_NE(__stack_chk_guard, kWithoutRandomBytes);
}

TEST(StackGuard, LetsAFunctionReturnThatStaysInItsBuffer) {
    EXPECT_EQ(Fill(16), 'x');
}

TEST(StackGuardDeathTest, EndsTheProcessWhenABufferIsOverrun) {
    EXPECT_DEATH(Fill(64), "stack smashing detected");
}

TEST(StackGuard, NeedsNoCryptographicProvider) {
    EXPECT_EQ(GetModuleHandleA("rsaenh.dll"), nullptr);
    EXPECT_EQ(GetModuleHandleA("crypt32.dll"), nullptr);
}

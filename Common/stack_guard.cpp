// The value that functions with buffers keep behind them and look for before they return, in place of the one
// of the compiler's library. That one asks a cryptographic provider for it, for whose sake a process without
// windows loads the libraries of windows and lists the fonts.
#include <windows.h>

#include <ntsecapi.h>

#include <cstdint>
#include <string_view>

extern "C" {
// The names are the compiler's. Unless there are random bytes the guard holds those that end a text, which no
// overrun by a text writes.
extern std::uintptr_t __stack_chk_guard;
std::uintptr_t __stack_chk_guard = 0x00000AFF;

[[noreturn]] void __stack_chk_fail() {
    constexpr std::string_view kMessage = "*** stack smashing detected ***: terminated\n";
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_ERROR_HANDLE), kMessage.data(), static_cast<DWORD>(kMessage.size()), &written,
              nullptr);
    __builtin_trap();
}
}

namespace {

// Before all other constructors, and not guarded itself, since it changes the guard.
[[gnu::constructor(101), gnu::no_stack_protector]] void TakeRandomGuard() {
    std::uintptr_t random = 0;
    if (RtlGenRandom(&random, sizeof random))
        __stack_chk_guard = random;
}

} // namespace

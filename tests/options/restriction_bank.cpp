#include "tests/options/restriction_bank.h"

#include "session/datamanager.h"

Banks banks;

// An item outside the banks ends the test.
extern "C" void ExportedFunc_GetCurrent(int keyword, std::uint32_t* value) {
    *value = static_cast<std::uint32_t>(banks.current.at(static_cast<std::size_t>(keyword)));
}
extern "C" void ExportedFunc_GetDefault(int keyword, std::uint32_t* value) {
    *value = static_cast<std::uint32_t>(banks.defaults.at(static_cast<std::size_t>(keyword)));
}

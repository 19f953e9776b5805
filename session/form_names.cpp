#include "session/form_names.h"

#include "Common/log.h"
#include "session/session.h"

#include <windows.h>

#include <winspool.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace {

// Far more than the slot that a name takes: the second call fills the buffer without being told its size.
constexpr std::size_t kRoomPerName = 4096;

struct Free {
    void operator()(char* buffer) const { std::free(buffer); }
};

std::unique_ptr<char, Free> formNames;
std::size_t formNamesSize = 0;
int formCount = 0;

} // namespace

void ReadFormNames(const char* printerName) {
    ZR_LOG_ENTRY();
    formCount = std::max(
        0, static_cast<int>(DeviceCapabilitiesA(printerName, nullptr, DC_PAPERNAMES, nullptr, nullptr)));
    ZR_LOG("forms=%d\n", formCount);
    if (formCount == 0)
        return;
    const auto count = static_cast<std::size_t>(formCount);
    formNames.reset(static_cast<char*>(std::calloc(count, kRoomPerName))); // null if the product overflows
    formNamesSize = formNames ? count * kRoomPerName : 0;
    if (formNames)
        DeviceCapabilitiesA(printerName, nullptr, DC_PAPERNAMES, formNames.get(), nullptr);
}

// The index is not held against the count, which is that of the last sheet; the names may be those of an
// earlier one.
int CSession::GetFormsInfo(std::uint32_t index, const char** name) {
    if (index >= formNamesSize / kFormNameSize)
        return 0;
    *name = formNames.get() + index * kFormNameSize;
    return 1;
}

int CSession::GetFormsCount() {
    return formCount;
}

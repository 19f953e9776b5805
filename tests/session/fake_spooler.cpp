#include "fake_spooler.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>
#include <span>

namespace {

FakeSpooler* current = nullptr;
char printerName[] = "Orvane X100";

// The head of the structure, filled, with `tail` behind it.
template <typename Info>
BOOL Answer(const Info& info, std::span<const std::byte> tail, BYTE* buffer, DWORD size, DWORD* needed) {
    *needed = static_cast<DWORD>(sizeof info + tail.size());
    if (size < *needed) {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return FALSE;
    }
    std::memcpy(buffer, &info, sizeof info);
    std::ranges::copy(tail, reinterpret_cast<std::byte*>(buffer) + sizeof info);
    return TRUE;
}

BOOL AnswerDevMode(std::span<const std::byte> devMode, DEVMODEA* pointer, BYTE* buffer, DWORD size,
                   DWORD* needed) {
    PRINTER_INFO_9A info{};
    info.pDevMode = pointer;
    if (buffer && !pointer && !devMode.empty())
        info.pDevMode = reinterpret_cast<DEVMODEA*>(buffer + sizeof info);
    return Answer(info, devMode, buffer, size, needed);
}

BOOL Refuse(DWORD* needed) {
    *needed = kRefusedSize;
    SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return FALSE;
}

} // namespace

FakeSpooler::FakeSpooler() {
    current = this;
}
FakeSpooler::~FakeSpooler() {
    current = nullptr;
}

// The linker takes these before it looks into the import library.
extern "C" {

BOOL WINAPI GetPrinterA(HANDLE, DWORD level, BYTE* buffer, DWORD size, DWORD* needed) {
    *needed = 0;
    SetLastError(ERROR_INVALID_HANDLE);
    if (!current)
        return FALSE;
    if (buffer)
        current->levelsFetched.push_back(level);
    switch (level) {
    case 2: {
        if (current->hugePrinterInfo)
            return Refuse(needed);
        if (!current->attributes)
            return FALSE;
        PRINTER_INFO_2A info{};
        info.pPrinterName = printerName;
        info.Attributes = *current->attributes;
        return Answer(info, {}, buffer, size, needed);
    }
    case 8:
        if (current->hugeDefaultInfo)
            return Refuse(needed);
        return AnswerDevMode(current->printerDevMode, nullptr, buffer, size, needed);
    case 9: return AnswerDevMode(current->perUserDevMode, current->perUserPointer, buffer, size, needed);
    default: return FALSE;
    }
}

static int WINAPI FakeDeviceCapabilitiesA(LPCSTR, LPCSTR, WORD capability, LPSTR output, const DEVMODEA*) {
    if (!current || capability != DC_PAPERNAMES)
        return -1;
    if (output)
        for (std::size_t i = 0; i < current->forms.size(); ++i)
            std::strncpy(output + 64 * i, current->forms[i].c_str(), 64);
    return current->formCount.value_or(static_cast<int>(current->forms.size()));
}

LONG WINAPI DocumentPropertiesA(HWND, HANDLE, LPSTR, DEVMODEA*, DEVMODEA*, DWORD) {
    if (!current)
        return -1;
    ++current->documentPropertiesCalls;
    return 156 + 24112;
}

// This one is declared as imported, and so reached through a pointer.
decltype(&FakeDeviceCapabilitiesA) __imp_DeviceCapabilitiesA = FakeDeviceCapabilitiesA;

} // extern "C"

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return size == kRefusedSize ? nullptr : std::malloc(size ? size : 1);
}
void operator delete[](void* block) noexcept {
    std::free(block);
}
void operator delete[](void* block, std::size_t) noexcept {
    std::free(block);
}
void* operator new[](std::size_t size) {
    if (void* block = std::malloc(size ? size : 1))
        return block;
    throw std::bad_alloc();
}

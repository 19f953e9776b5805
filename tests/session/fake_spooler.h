// Stands in for the spooler in a test program: the program's calls of GetPrinterA, DeviceCapabilitiesA and
// DocumentPropertiesA land here.
#pragma once

#include <windows.h>

#include <winspool.h>

#include <optional>
#include <string>
#include <vector>

// A buffer of this size cannot be allocated in the test program.
inline constexpr DWORD kRefusedSize = 0x7FFF0123;

// Describes the printer while it lives; one at a time. Without one every call fails.
class FakeSpooler {
  public:
    FakeSpooler();
    ~FakeSpooler();
    FakeSpooler(const FakeSpooler&) = delete;
    FakeSpooler& operator=(const FakeSpooler&) = delete;

    std::optional<DWORD> attributes = 0; // of level 2, which fails without a value
    // The DEVMODE of levels 9 and 8 as bytes: none for a null pDevMode.
    std::vector<std::byte> perUserDevMode;
    std::vector<std::byte> printerDevMode;
    DEVMODEA* perUserPointer = nullptr; // what level 9 gives for pDevMode instead of the bytes' place
    bool hugePrinterInfo = false;       // level 2 asks for kRefusedSize bytes
    bool hugeDefaultInfo = false;       // level 8 asks for kRefusedSize bytes
    std::vector<std::string> forms;     // of at most 64 bytes
    std::optional<int> formCount;       // what DeviceCapabilitiesA answers instead of their number

    std::vector<DWORD> levelsFetched;
    int documentPropertiesCalls = 0;
};

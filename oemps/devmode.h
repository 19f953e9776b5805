// The plug-in's private block behind the public DEVMODE: its layout and the operations on it. The spooler
// keeps such blocks per user and printer, so a block that comes in may hold anything.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

inline constexpr std::uint32_t kDevModeSize = 24112;
inline constexpr std::uint32_t kDevModeSignature = 0x4D534654; // the bytes "TFSM"
inline constexpr std::uint32_t kDevModeVersion = 2;
inline constexpr std::size_t kDevModeHeaderSize = 12;

namespace devmode {
using U32 = std::uint32_t;
using I32 = std::int32_t;
using U64 = std::uint64_t;
} // namespace devmode

// Text fields are NUL-terminated in the process's ANSI code page when the plug-in wrote them, lengths are in
// 1/14400 inch. A block stands behind a public DEVMODE, where only an alignment on 4 bytes is certain.
#pragma pack(push, 4)
struct PrivateDevMode {
#define ZR_NUMBER(offset, type, name, value, route, travel) devmode::type name;
#define ZR_TEXT(offset, name, width, value, travel, control) char name[width];
#define ZR_SPARE_NUMBERS(offset, count, value) std::uint32_t reserved##offset[count];
#define ZR_SPARE_TEXTS(offset, count, width, cleared, control) char reserved##offset[count][width];
#define ZR_UNUSED(offset, bytes) unsigned char unused##offset[bytes];
#include "oemps/private_devmode.def"
};
#pragma pack(pop)

#define ZR_NUMBER(offset, type, name, value, route, travel)                                                  \
    static_assert(offsetof(PrivateDevMode, name) == offset);
#define ZR_TEXT(offset, name, width, value, travel, control)                                                 \
    static_assert(offsetof(PrivateDevMode, name) == offset);
#define ZR_SPARE_NUMBERS(offset, count, value)                                                               \
    static_assert(offsetof(PrivateDevMode, reserved##offset) == offset);
#define ZR_SPARE_TEXTS(offset, count, width, cleared, control)                                               \
    static_assert(offsetof(PrivateDevMode, reserved##offset) == offset);
#define ZR_UNUSED(offset, bytes) static_assert(offsetof(PrivateDevMode, unused##offset) == offset);
#include "oemps/private_devmode.def"
static_assert(sizeof(PrivateDevMode) == kDevModeSize);
static_assert(alignof(PrivateDevMode) == 4);

// The operations on a record. It owns nothing; the record is the driver's.
//
// A target is a whole record of kDevModeSize bytes, whatever its dwSize says. A source is a stored block, of
// which kDevModeHeaderSize bytes can always be read and beyond them as many as its dwSize says, at most
// kDevModeSize. Any content is taken, and nothing outside the two is touched. A source may be its own target,
// but not overlap another.
class CDevMode {
  public:
    explicit CDevMode(PrivateDevMode& record) : m_record(record) {}

    // Writes the defaults, `size` into dwSize. What has no default keeps the bytes that the driver's buffer
    // held. Returns 1.
    int SetDefault(std::uint32_t size);

    // Marks the record as changed by the user.
    void SetModified();

    // Copies the source field by field if its header equals the target's, else does nothing. Returns 1.
    static int Convert(PrivateDevMode& target, const void* source);

    // Converts, cleans the target's text of control characters and takes some numbers from the source even if
    // its header does not fit. Returns 1.
    static int Merge(PrivateDevMode& target, const void* source);

    // Forms the text under which the user's data for a printer stand in the registry: its short name, its
    // GUID and "\UserInfo". Clears the printer's name on the way out.
    static void GetAuthenticatInfo(std::string& printerName, std::string& keyText);

    // The first subkey of `rootKey`, below HKEY_CURRENT_USER, whose name contains the short name; "" if none
    // does.
    static void GetSearchRegistryKeyServer(const char* rootKey, std::string_view shortName,
                                           std::string& subkey);

    // The value "GuidPrinter" of a key below HKEY_CURRENT_USER, which is made if it is not there; "" if it
    // can't be read.
    static void GetGuidPrinter(const char* key, std::string& guid);

  private:
    PrivateDevMode& m_record;
};

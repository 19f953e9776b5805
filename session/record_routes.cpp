#include "session/record_routes.h"

#include "Common/log.h"
#include "oemps/devmode_fields.h"
#include "session/units.h"

#include <algorithm>
#include <cstring>
#include <span>

namespace {

constexpr int kFirstRoute = 4303;
constexpr int kLastRoute = 4633;

// The custom page goes by the numbers of its two keywords, all other fields by one between the first and the
// last.
constexpr int kCustomPaperWidth = 301;
constexpr int kCustomPaperHeight = 302;
constexpr int kChgPrintPaperSizeWidth = 4308;
constexpr int kChgPrintPaperSizeLength = 4309;

constexpr bool IsInRange(int id, int first, int last) {
    return id >= first && id <= last;
}

constexpr bool IsCustomPaper(int id) {
    return id == kCustomPaperWidth || id == kCustomPaperHeight;
}

constexpr bool IsPaperSize(int id) {
    return IsCustomPaper(id) || id == kChgPrintPaperSizeWidth || id == kChgPrintPaperSizeLength;
}

constexpr bool IsRefused(int id) {
    return IsInRange(id, 4581, 4585);
}

constexpr bool IsLogged(int id) {
    return id == 4458 || IsInRange(id, 4613, 4615) || IsInRange(id, 4621, 4629);
}

// Offsets by route id from kFirstRoute on; 0, where the header stands, means no field.
constexpr auto kOffsets = [] {
    std::array<std::uint16_t, kLastRoute - kFirstRoute + 1> offsets{};
    for (const devmode::FieldDescriptor& field : devmode::kFields)
        if (field.route != 0 && !IsCustomPaper(field.route))
            offsets[static_cast<std::size_t>(field.route - kFirstRoute)] = field.offset;
    return offsets;
}();

constexpr std::size_t OffsetOf(int id) {
    if (id == kCustomPaperWidth)
        return offsetof(PrivateDevMode, CustomPaperWidth);
    if (id == kCustomPaperHeight)
        return offsetof(PrivateDevMode, CustomPaperHeight);
    return IsInRange(id, kFirstRoute, kLastRoute) ? kOffsets[static_cast<std::size_t>(id - kFirstRoute)] : 0;
}

static_assert(std::ranges::all_of(devmode::kFields, [](const devmode::FieldDescriptor& field) {
    return field.route == 0 || OffsetOf(field.route) == field.offset;
}));

} // namespace

RouteResult StoreByRoute(PrivateDevMode& record, int id, std::uint32_t value) {
    if (IsRefused(id)) {
        ZR_LOG("id=%d refused\n", id);
        return RouteResult::Refused;
    }
    const std::size_t offset = OffsetOf(id);
    if (offset == 0)
        return RouteResult::NotAField;
    if (IsLogged(id))
        ZR_LOG("id=%d value=%u\n", id, static_cast<unsigned>(value));
    const std::uint32_t stored = IsPaperSize(id) ? MicronsToInch14400(value) : value;
    std::memcpy(reinterpret_cast<char*>(&record) + offset, &stored, sizeof stored);
    return RouteResult::Stored;
}

#include "session/record_transfer.h"

#include "Common/text.h"
#include "session/datamanager.h"
#include "session/record_routes.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace {

using single_value::kScratchSize;
using single_value::Scratch;

// How one field of the record moves; null where it does not.
struct Transfer {
    std::size_t offset;
    void (*send)(const PrivateDevMode&);          // into the store, when the sheet opens
    void (*fetch)(PrivateDevMode&, Scratch) = {}; // straight back from it
};

template <std::size_t Width>
void SendText(const char (&field)[Width], void (*set)(const char*)) {
    char text[Width + 1]; // a field without a NUL counts to its end
    CopyText(text, FieldText(field));
    set(text);
}

template <std::size_t Width>
void FetchText(char (&field)[Width], Scratch scratch, void (*get)(char*)) {
    static_assert(Width <= kScratchSize);
    get(scratch.data());
    CopyText(field, FieldText(scratch));
}

#define ZR_SEND(name) [](const PrivateDevMode& record) { ExportedFunc_Set##name(record.name); }
// By way of a variable, since a record behind a public DEVMODE is aligned on four bytes only.
#define ZR_FETCH(name)                                                                                       \
    [](PrivateDevMode& record, Scratch) {                                                                    \
        decltype(record.name) value{};                                                                       \
        ExportedFunc_Get##name(&value);                                                                      \
        record.name = value;                                                                                 \
    }
#define ZR_SEND_TEXT(name) [](const PrivateDevMode& record) { SendText(record.name, ExportedFunc_Set##name); }
#define ZR_FETCH_TEXT(name)                                                                                  \
    [](PrivateDevMode& record, Scratch scratch) { FetchText(record.name, scratch, ExportedFunc_Get##name); }

#define ZR_MOVES_Header(name) nullptr
#define ZR_MOVES_Stays(name) nullptr
#define ZR_MOVES_Paper(name) nullptr
#define ZR_MOVES_Routed(name) ZR_SEND(name)
#define ZR_MOVES_Direct(name) ZR_SEND(name), ZR_FETCH(name)
#define ZR_MOVES_Twice(name) ZR_SEND(name), ZR_FETCH(name)
#define ZR_MOVES_Both(name) ZR_SEND_TEXT(name), ZR_FETCH_TEXT(name)
#define ZR_MOVES_StoreOnly(name) ZR_SEND_TEXT(name)
// The store has no getter for the name of the front cover's stock, so the field takes the physical page
// range, and the next sheet sends that text as the stock's name.
#define ZR_MOVES_FrontCover(name)                                                                            \
    ZR_SEND_TEXT(name), [](PrivateDevMode& record, Scratch scratch) {                                        \
        FetchText(record.name, scratch, ExportedFunc_GetPhysicalPageRange);                                  \
    }

void SendJobStartTimes(const PrivateDevMode& record) {
    ExportedFunc_SetAutoJobStartSpecifiedHour(record.AutoJobStartSpecifiedHour);
    ExportedFunc_SetAutoJobStartSpecifiedMinute(record.AutoJobStartSpecifiedMinute);
    ExportedFunc_SetAutoJobStartElapsedDays(record.AutoJobStartElapsedDays);
    ExportedFunc_SetAutoJobStartElapsedHours(record.AutoJobStartElapsedHours);
    ExportedFunc_SetAutoJobStartElapsedMinutes(record.AutoJobStartElapsedMinutes);
}

// The rows in the record's order, with the fields that are moved in their own way.
constexpr auto kTransfers = [] {
    auto rows = std::to_array<Transfer>({
#define ZR_NUMBER(offset, type, name, value, route, travel) {offset, ZR_MOVES_##travel(name)},
#define ZR_TEXT(offset, name, width, value, travel, control) {offset, ZR_MOVES_##travel(name)},
#include "oemps/private_devmode.def"
    });
    const auto row = [&](std::size_t offset) -> Transfer& {
        return *std::ranges::find(rows, offset, &Transfer::offset);
    };

    // The job's name comes back last of all.
    row(offsetof(PrivateDevMode, JobName)).fetch = nullptr;

    row(offsetof(PrivateDevMode, RecordSpecNumber)).fetch = nullptr;
    row(offsetof(PrivateDevMode, RscRegistName)).fetch = [](PrivateDevMode& record, Scratch scratch) {
        FetchText(record.RscRegistName, scratch, ExportedFunc_GetRscRegistName);
        single_value::SaveRecordSpecNumber(record, scratch);
    };

    row(offsetof(PrivateDevMode, FolderName)).send = [](const PrivateDevMode& record) {
        SendText(record.FolderName, ExportedFunc_SetFolderName);
        SendJobStartTimes(record);
    };

    row(offsetof(PrivateDevMode, CmykKPreservation)).send = [](const PrivateDevMode& record) {
        single_value::SetCmykKPreservation(record.CmykKPreservation);
    };

    Transfer& pages = row(offsetof(PrivateDevMode, SPages));
    pages.send = [](const PrivateDevMode& record) { SendText(record.SPages, single_value::SetSPages); };
    pages.fetch = single_value::SaveSPages;
    return rows;
}();

struct Getter {
    int id;
    std::uint32_t (*read)();
};

// The getters of all values with a route id, in the record's order.
constexpr auto kGetters = std::to_array<Getter>({
#define ZR_READ(type, name)                                                                                  \
    [] {                                                                                                     \
        devmode::type value{};                                                                               \
        ExportedFunc_Get##name(&value);                                                                      \
        return static_cast<std::uint32_t>(value);                                                            \
    }
#define ZR_ROUTE_Header(type, name, route)
#define ZR_ROUTE_Stays(type, name, route)
#define ZR_ROUTE_Paper(type, name, route)
#define ZR_ROUTE_Direct(type, name, route)
#define ZR_ROUTE_Routed(type, name, route) {route, ZR_READ(type, name)},
#define ZR_ROUTE_Twice(type, name, route) {route, ZR_READ(type, name)},
#define ZR_NUMBER(offset, type, name, value, route, travel) ZR_ROUTE_##travel(type, name, route)
#include "oemps/private_devmode.def"
});

static_assert(std::size(kApplyRouteOrder) == kGetters.size(), "every value with a route id is applied once");

constexpr auto kRoutedValues = [] {
    std::array<RoutedValue, kGetters.size()> values{};
    for (std::size_t i = 0; i < values.size(); ++i) {
        const Getter* getter = std::ranges::find(kGetters, kApplyRouteOrder[i], &Getter::id);
        values[i] = {getter->id, getter->read};
    }
    return values;
}();

} // namespace

void LoadStoreFromRecord(const PrivateDevMode& record) {
    SendText(record.Profile, ExportedFunc_SetProfile);
    for (const Transfer& row : kTransfers)
        if (row.send && row.offset != offsetof(PrivateDevMode, Profile))
            row.send(record);
}

void LoadStoreAgain(const PrivateDevMode& record) {
    ExportedFunc_SetPrintPositionFrontWidth(record.PrintPositionFrontWidth);
    ExportedFunc_SetPrintPositionFrontLength(record.PrintPositionFrontLength);
    ExportedFunc_SetPrintPositionBackWidth(record.PrintPositionBackWidth);
    ExportedFunc_SetPrintPositionBackLength(record.PrintPositionBackLength);
    ExportedFunc_SetPrintPositionFrontWidthMag(record.PrintPositionFrontWidthMag);
    ExportedFunc_SetPrintPositionFrontLengthMag(record.PrintPositionFrontLengthMag);
    ExportedFunc_SetPrintPositionBackWidthMag(record.PrintPositionBackWidthMag);
    ExportedFunc_SetPrintPositionBackLengthMag(record.PrintPositionBackLengthMag);
    SendText(record.MailAddress, ExportedFunc_SetMailAddress);
    ExportedFunc_SetSpecificJobName(record.SpecificJobName);
    ExportedFunc_SetCustomCoverPageNum(record.CustomCoverPageNum);
    SendText(record.JobName, ExportedFunc_SetJobName);
    SendText(record.FavoriteName, ExportedFunc_SetFavoriteName);
}

std::span<const RoutedValue> RoutedValues() {
    return kRoutedValues;
}

void SaveUnroutedValues(PrivateDevMode& record, Scratch scratch) {
    for (const Transfer& row : kTransfers)
        if (row.fetch)
            row.fetch(record, scratch);
    single_value::SaveJobName(record, scratch);
}

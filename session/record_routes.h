// The way of one number into its field of the private DEVMODE, by route id.
#pragma once

#include "oemps/devmode.h"

#include <array>
#include <cstddef>
#include <cstdint>

enum class RouteResult {
    NotAField, // the id names no field; the record is as it was
    Stored,
    Refused, // an id that is known and has no target
};

// Stores `value` into the field with this route id. Paper sizes come in thousandths of a millimetre and are
// stored in 1/14400 inch. Any int is a possible id. The record's Modified stays as it is.
RouteResult StoreByRoute(PrivateDevMode& record, int id, std::uint32_t value);

namespace record_routes {

struct IdRange {
    int first, last;
};

// The order in which an apply takes the numbers with a plain route from the store.
inline constexpr auto kApplyRanges = std::to_array<IdRange>({
    {4303, 4303}, {4312, 4318}, {4322, 4326}, {4329, 4329}, {4335, 4335}, {4556, 4556}, {4346, 4346},
    {4358, 4362}, {4364, 4366}, {4399, 4407}, {4415, 4416}, {4418, 4420}, {4422, 4426}, {4430, 4435},
    {4438, 4439}, {4447, 4447}, {4451, 4451}, {4457, 4458}, {4613, 4615}, {4616, 4619}, {4630, 4633},
    {4620, 4629}, {4337, 4338}, {4340, 4342}, {4347, 4348}, {4350, 4357}, {4427, 4429}, {4436, 4437},
    {4441, 4443}, {4448, 4449}, {4452, 4455}, {4507, 4510}, {4512, 4513},
});

constexpr std::size_t CountIds() {
    std::size_t count = 0;
    for (const IdRange& range : kApplyRanges)
        count += static_cast<std::size_t>(range.last - range.first + 1);
    return count;
}

constexpr auto ExpandIds() {
    std::array<int, CountIds()> ids{};
    std::size_t at = 0;
    for (const IdRange& range : kApplyRanges)
        for (int id = range.first; id <= range.last; ++id)
            ids[at++] = id;
    return ids;
}

} // namespace record_routes

// Every route id but those of the paper sizes and the paper direction, which an apply stores at other places.
inline constexpr auto kApplyRouteOrder = record_routes::ExpandIds();

#include "pages/media_weight_table.h"

#include <array>
#include <cstddef>

namespace {

constexpr WeightRows kAll{0, 12, 2};
constexpr WeightRows kLight{1, 4, 2};
constexpr WeightRows kHeavy{4, 12, 4};
constexpr WeightRows kNone{};

// By paper type; 16 to 58 have no weight.
constexpr std::array<WeightRows, 59> kRowsOfPaperType{
    kAll,   kAll,   kAll,   kAll,  kAll, kLight, kNone,  kHeavy,
    kHeavy, kHeavy, kHeavy, kNone, kAll, kAll,   kHeavy, kAll,
};

} // namespace

WeightRows WeightRowsOf(int paperType) {
    const auto index = static_cast<std::size_t>(paperType);
    return paperType >= 0 && index < kRowsOfPaperType.size() ? kRowsOfPaperType[index] : kNone;
}

int ChooseWeight(const WeightRows& rows, std::uint32_t current) {
    const bool isOpen =
        current >= static_cast<std::uint32_t>(rows.first) && current < static_cast<std::uint32_t>(rows.end);
    return isOpen ? static_cast<int>(current) : rows.defaultRow;
}

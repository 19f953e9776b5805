#include "pages/media_paper_types.h"

#include "Common/ProfileInfo.h"
#include "settings/InterchangeOptionTag.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace {

// By paper type. The list shows them in their own order, but need not.
constexpr std::array<int, 59> kRows{
    0,  1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12, 13, 14, 15, 16, 17, 18, 19, //
    20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31, 32, 33, 34, 35, 36, 37, 38, 39, //
    40, 41, 42, 43, 44, 45, 46, 47, 48, 49, 50, 51, 52, 53, 54, 55, 56, 57, 58,
};

constexpr std::int32_t kFirstCustomPaperTag = 9;

} // namespace

std::optional<int> RowOfPaperType(std::uint32_t paperType) {
    if (paperType >= kRows.size())
        return std::nullopt;
    return kRows[paperType];
}

std::optional<int> PaperTypeOfRow(int row) {
    const auto found = std::ranges::find(kRows, row);
    if (found == kRows.end())
        return std::nullopt;
    return static_cast<int>(found - kRows.begin());
}

void PutCustomPaperNames(std::span<std::string> rows, int paperTypeKeyword, int count,
                         const CProfileInfo& profile) {
    int first = 0;
    if (!GetOptionIndexFromTagNumber(paperTypeKeyword, kFirstCustomPaperTag, &first))
        return;
    for (int number = 0; number < count; ++number) {
        const auto row = static_cast<std::size_t>(first + number);
        if (row >= rows.size())
            return;
        std::string name;
        if (profile.GetCustomPaperNameConfig(&name, number) && !name.empty())
            rows[row] = std::move(name);
    }
}

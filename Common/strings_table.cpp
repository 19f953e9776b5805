// The string table where there are no resources.
#include "Common/strings.h"
#include "Common/text.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace {

struct Row {
    unsigned id;
    std::string_view text;
};

constexpr Row kRows[] = {
#define ZR_STRING(number, text) {number, text},
#include "resources/strings.def"
#undef ZR_STRING
};

static_assert(std::ranges::is_sorted(kRows, {}, &Row::id));
static_assert(std::ranges::adjacent_find(kRows, {}, &Row::id) == std::ranges::end(kRows),
              "a number stands twice");

} // namespace

std::size_t LoadText(unsigned id, std::span<char> buffer) {
    const Row* row = std::ranges::lower_bound(kRows, id, {}, &Row::id);
    const bool found = row != std::end(kRows) && row->id == id;
    return CopyText(buffer, found ? row->text : std::string_view{});
}

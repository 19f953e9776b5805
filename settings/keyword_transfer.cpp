#include "settings/keyword_transfer.h"

#include "session/keyword.h"
#include "settings/InterchangeOptionTag.h"
#include "settings/print_option_fields.h"

#include <array>
#include <cstddef>

namespace {

struct Row {
    int keyword;
    KeywordMoves moves;
};

constexpr KeywordMoves kNone{};

constexpr auto kMoves = [] {
    using enum KeywordMove;
    constexpr Row rows[]{
#define ZR_CONVERTED(name) {keyword::name, {Converted, Converted, AsIs, AsIs}},
#define ZR_KEYWORD_MOVES(name, printOption, favorite, toSession, toCurrent)                                  \
    {keyword::name, {printOption, favorite, toSession, toCurrent}},
#include "settings/keyword_transfer.def"
    };

    std::array<KeywordMoves, kKeywordCount> moves{};
    moves.fill({AsIs, AsIs, AsIs, AsIs});
    std::array<bool, kKeywordCount> seen{};
    for (const Row& row : rows) {
        const auto place = static_cast<std::size_t>(row.keyword);
        if (seen[place])
            throw "a keyword has two rows";
        seen[place] = true;
        moves[place] = row.moves;
    }
    return moves;
}();

constexpr bool Moves(int keyword) {
    const KeywordMoves& moves = kMoves[static_cast<std::size_t>(keyword)];
    return moves.printOptionFromSession != KeywordMove::None ||
           moves.favoriteFromSession != KeywordMove::None || moves.currentToSession != KeywordMove::None ||
           moves.sessionToCurrent != KeywordMove::None;
}

consteval bool AllMovingKeywordsHaveAField() {
    std::array<bool, kKeywordCount> hasField{};
    for (const ddb::FieldDescriptor& field : ddb::kFields)
        if (field.number >= 0 && field.number < kKeywordCount && !field.IsText() && field.width == 4)
            hasField[static_cast<std::size_t>(field.number)] = true;
    for (int keyword = 0; keyword < kKeywordCount; ++keyword)
        if (Moves(keyword) && !hasField[static_cast<std::size_t>(keyword)])
            return false;
    return true;
}
static_assert(AllMovingKeywordsHaveAField(), "what moves has 32 bits in the record to move to");

} // namespace

const KeywordMoves& MovesOf(int keyword) {
    if (keyword < 0 || keyword >= kKeywordCount)
        return kNone;
    return kMoves[static_cast<std::size_t>(keyword)];
}

std::uint32_t TagNumberOrSame(int keyword, std::uint32_t optionIndex) {
    auto tagNumber = static_cast<std::int32_t>(optionIndex);
    GetTagNumberFromPreset(keyword, static_cast<int>(optionIndex), &tagNumber);
    return static_cast<std::uint32_t>(tagNumber);
}

std::uint32_t OptionIndexOrSame(int keyword, std::uint32_t tagNumber) {
    auto optionIndex = static_cast<int>(tagNumber);
    GetOptionIndexFromTagNumber(keyword, static_cast<std::int32_t>(tagNumber), &optionIndex);
    return static_cast<std::uint32_t>(optionIndex);
}

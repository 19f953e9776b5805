#include "pages/punch_rows.h"

#include "Common/strings.h"
#include "options/PrintOptionSetting.h"
#include "resources/resource.h"

namespace {

constexpr int kMixedSizesByText = 13; // finds the text of mixed sizes
constexpr int kMixedSizes = 5;        // is what the setting holds for it

std::optional<std::string> OptionText(int keyword, int option) {
    std::array<char, 256> text;
    if (!GetPrintOptionStringList(&keyword, text.data(), text.size(), &option))
        return std::nullopt;
    return text.data();
}

// By holes, then by place.
constexpr std::array<std::array<std::uint8_t, 6>, 5> kControlRows{{
    {0, 0, 0, 0, 0, 0},
    {0, 1, 2, 3, 4, 5},
    {0, 6, 7, 8, 9, 10},
    {0, 11, 12, 13, 14, 15},
    {0, 16, 17, 18, 19, 0}, // four turned holes, which the control has no rows for
}};

} // namespace

std::string PunchTable::TakeRowText(std::size_t row) {
    if (row >= m_rows.size())
        return {};
    PunchRow& pair = m_rows[row];
    const std::optional<std::string> punch = OptionText(keyword::Punch, pair.punch);
    if (!punch)
        return {};
    // 13 only selects the text. The settings keep 5, so the table must hold it from the first listing on.
    if (pair.punch == kMixedSizesByText)
        pair.punch = kMixedSizes;
    const std::optional<std::string> holes = OptionText(keyword::PunchHoles, pair.holes);
    if (!holes || row == 0)
        return *punch;
    return *punch == LoadText(IDS_MIXED_SIZES) ? *holes + *punch : *punch + *holes;
}

std::optional<std::uint32_t> PunchControlRow(std::uint32_t punch, std::uint32_t holes) {
    if (holes >= kControlRows.size() || punch >= kControlRows[holes].size())
        return std::nullopt;
    return kControlRows[holes][punch];
}

PunchTable& ProcessPunchTable() {
    static PunchTable table;
    return table;
}

#include "pages/punch_rows.h"

#include "Common/strings.h"
#include "options/PrintOptionSetting.h"
#include "resources/resource.h"

#include <optional>

namespace {

constexpr int kMixedSizesByText = 13; // finds the text of mixed sizes
constexpr int kMixedSizes = 5;        // is what the setting holds for it

std::optional<std::string> OptionText(int keyword, int option) {
    std::array<char, 256> text;
    if (!GetPrintOptionStringList(&keyword, text.data(), text.size(), &option))
        return std::nullopt;
    return text.data();
}

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

PunchTable& ProcessPunchTable() {
    static PunchTable table;
    return table;
}

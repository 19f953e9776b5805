// The device's rules a second time, in the words of paper: which edges staples and folds leave free, what is
// made for mixed sizes. Judges banks without any of the code that the checks use.
#pragma once

#include "tests/options/restriction_bank.h"

namespace restriction_rules {

// Fold 11 by staple 22 by punch 7.
const std::array<bool, 1694>& FinishingTable();

enum class Rule { None, Finishing, MixedSizes, Holes, SpotColor, TwoColor, Imposition };

inline constexpr int kNoneInTheWay = -1;

struct Verdict {
    Rule rule;    // the first that is broken
    int inTheWay; // the keyword that the caller with this row is told of
    bool operator==(const Verdict&) const = default;
};
Verdict Judge(const Bank& bank, int group);

} // namespace restriction_rules

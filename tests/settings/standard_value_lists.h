// The constants of the standard settings that a reset leaves alone, written out.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

// Named values with a value number that a reset leaves alone: the defaults of the private DEVMODE, and
// nothing where that has no such field.
inline const std::vector<std::pair<std::string, std::string>> kTextsBesideTheReset{
    {"PaperTypeCustomName", ""}, {"JobRscSetName", ""},  {"MemoFontName", "SYSTEM_DEFAULT"},
    {"JobInfoUserName", ""},     {"JobInfoAccount", ""},
};

inline const std::vector<std::pair<std::string, std::int64_t>> kNumbersBesideTheReset{
    {"SeparatorsSets", 1},
    {"TrimmerCutSize", 4535},
    {"KOverPrintThreshold", 100},
    {"CmykKReset", 1},
    {"CmykK100Reset", 0},
    {"FinishBoxType", 0},
    {"CpsiVersion", 0},
    {"AppeVersion", 2},
    {"ImpositionOtherStkSequence", 0},
    {"ImpositionOtherStkWeight", 0},
};

// Which satellite modules are tried for a user, as data.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// A platform language id: the primary language in the low 10 bits, the sublanguage above.
using LanguageId = std::uint16_t;

// One candidate: a language, or the fixed code "LOC" where `language` is 0.
struct SatelliteCandidate {
    LanguageId language;
    friend bool operator==(const SatelliteCandidate&, const SatelliteCandidate&) = default;
};
inline constexpr SatelliteCandidate kFixedCandidate{0};
inline constexpr std::string_view kFixedCandidateCode = "LOC";

// The candidates in the order in which they are tried. There is none with ANSI code page 932: the module's
// own strings are Japanese.
std::vector<SatelliteCandidate> SatelliteCandidates(LanguageId user, LanguageId system,
                                                    unsigned ansiCodePage);

// The module's path without its extension, to which a language code and ".dll" are appended.
std::string_view SatelliteStem(std::string_view modulePath);

#include "oemps/satellite_names.h"

#include "Common/text.h"

namespace {

constexpr unsigned kJapaneseCodePage = 932;
constexpr LanguageId kPrimaryJapanese = 17;
constexpr LanguageId kEnglish = 1033;

constexpr LanguageId PrimaryOf(LanguageId language) {
    return language & 0x3FF;
}

} // namespace

std::vector<SatelliteCandidate> SatelliteCandidates(LanguageId user, LanguageId system,
                                                    unsigned ansiCodePage) {
    if (ansiCodePage == kJapaneseCodePage)
        return {};
    std::vector<SatelliteCandidate> candidates{
        {user}, {PrimaryOf(user)}, {system}, {PrimaryOf(system)}, kFixedCandidate};
    if (PrimaryOf(user) != kPrimaryJapanese)
        candidates.push_back({kEnglish});
    return candidates;
}

std::string_view SatelliteStem(std::string_view modulePath) {
    const std::size_t dot = FindLastCharacter(modulePath, '.');
    const std::size_t backslash = FindLastCharacter(modulePath, '\\');
    if (dot == std::string_view::npos || (backslash != std::string_view::npos && dot < backslash))
        return modulePath;
    return modulePath.substr(0, dot);
}

// Puts a conflict into words.
#pragma once

#include "Common/ask_user.h"
#include "options/restriction_conflict.h"
#include "resources/resource.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

// The string numbers of the formats.
enum class RestrictionMessageId : unsigned {
    OfferChange = IDS_RESTRICTION_OFFER,
    // Only says what to change in the job property application, since the pages cannot set MixSizePrint.
    TellChange = IDS_RESTRICTION_TELL,
};

// All texts are cut on a character boundary.
struct RestrictionMessage {
    using Argument = std::array<char, 64>;

    RestrictionMessageId id = RestrictionMessageId::OfferChange;
    Argument nameOther{}; // empty, like the two others, if no other setting takes part
    Argument valueOther{};
    Argument changeTo{}; // what the other setting would become
    Argument nameOwn{};  // empty, like its value, for a caller without a row
    Argument valueOwn{};

    std::array<char, 512> text{};
    std::array<char, 20> title{};
    AskButtons buttons = AskButtons::OkCancel;
};

// Which message it is about MixSizePrint, by the setting that the user has just changed and the tag number of
// its option; 0 stands for an option without one.
RestrictionMessageId MixSizePrintMessage(bool mixSizePrintOn, int ownKeyword, std::int32_t tag);

// `defaultOf` gives the default option of a keyword.
RestrictionMessage ComposeRestrictionMessage(const RestrictionValues& values,
                                             const RestrictionConflict& conflict,
                                             std::int32_t (*defaultOf)(int keyword));

// Puts the texts in place of the format's "%s" in turn. All else stands for itself, and a "%s" without a text
// stays, so that no translation of a format can ask for more than there is.
std::string FillPlaceholders(std::string_view format, std::span<const std::string_view> texts);

#include "pages/favorite_names.h"

#include "Common/ask_user.h"
#include "Common/strings.h"
#include "Common/text.h"
#include "options/restriction_message.h"
#include "resources/resource.h"

#include <array>
#include <span>

namespace {

bool IsLead(char byte) {
    return IsLeadByte(static_cast<unsigned char>(byte));
}

// The runtime's _SPACE class.
bool IsBlank(char byte) {
    return byte == ' ' || (byte >= '\t' && byte <= '\r');
}

// Code page 932's, whatever double-byte code page IsLead goes by; another's blank counts as a character.
constexpr std::string_view kDoubleByteBlank = "　";

bool IsEmpty(std::string_view name) {
    return name.empty();
}
bool IsTooLong(std::string_view name) {
    return name.size() > kMaxFavoriteName;
}
// A file that is read may have a byte less than one that is written.
bool IsTooLongToLoad(std::string_view name) {
    return name.size() >= kMaxFavoriteName;
}
bool HasForbidden(std::string_view name) {
    return ContainsChars(name, kForbiddenInFavoriteName);
}
bool IsStandard(std::string_view name) {
    return name == LoadText(IDS_PRESET_STANDARD);
}
bool IsNameOfNone(std::string_view name) {
    return name == LoadText(IDS_NAME_OF_NONE);
}

enum class Argument { None, Name, Characters };

struct NameRule {
    bool (*isBroken)(std::string_view name);
    unsigned text;
    Argument argument = Argument::None;
};

// An empty name counts as one of blanks alone.
constexpr NameRule kSaveDialogRules[]{{IsTooLong, IDS_NAME_LIMITS},
                                      {HasForbidden, IDS_NAME_LIMITS},
                                      {IsAllSpace, IDS_NAME_LIMITS},
                                      {IsStandard, IDS_NAME_NOT_USABLE, Argument::Name},
                                      {IsNameOfNone, IDS_NAME_NOT_USABLE, Argument::Name}};
constexpr NameRule kFavoriteDialogRules[]{{HasForbidden, IDS_NAME_NOT_USABLE, Argument::Characters},
                                          {IsStandard, IDS_NAME_NOT_USABLE, Argument::Name},
                                          {IsAllSpace, IDS_NAME_LIMITS},
                                          {IsTooLong, IDS_NAME_LIMITS}};
constexpr NameRule kFileToSaveRules[]{{IsEmpty, IDS_NAME_NOT_USABLE, Argument::Characters},
                                      {IsTooLong, IDS_NAME_LIMITS},
                                      {HasForbidden, IDS_NAME_NOT_USABLE, Argument::Characters},
                                      {IsStandard, IDS_NAME_NOT_USABLE, Argument::Name},
                                      {IsAllSpace, IDS_NAME_LIMITS}};
constexpr NameRule kFileToLoadRules[]{{IsTooLongToLoad, IDS_FILE_NAME_TOO_LONG},
                                      {HasForbidden, IDS_NAME_NOT_USABLE, Argument::Characters},
                                      {IsStandard, IDS_NAME_NOT_USABLE, Argument::Name}};

std::span<const NameRule> RulesOf(NamePlace place) {
    switch (place) {
    case NamePlace::SaveDialog: return kSaveDialogRules;
    case NamePlace::FavoriteDialog: return kFavoriteDialogRules;
    case NamePlace::FileToSave: return kFileToSaveRules;
    case NamePlace::FileToLoad: return kFileToLoadRules;
    }
    return {};
}

std::string ArgumentText(Argument argument, std::string_view name) {
    switch (argument) {
    case Argument::None: return {};
    case Argument::Name: return std::string(name);
    case Argument::Characters: return std::string(kForbiddenInFavoriteName);
    }
    return {};
}

} // namespace

bool ContainsChars(std::string_view text, std::string_view characters) {
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (IsLead(text[at]))
            ++at;
        else if (characters.find(text[at]) != std::string_view::npos)
            return true;
    }
    return false;
}

bool IsAllSpace(std::string_view text) {
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (IsLead(text[at])) {
            if (text.substr(at, 2) != kDoubleByteBlank)
                return false;
            ++at;
        } else if (!IsBlank(text[at])) {
            return false;
        }
    }
    return true;
}

std::optional<NameRefusal> RefuseFavoriteName(NamePlace place, std::string_view name) {
    for (const NameRule& rule : RulesOf(place)) {
        if (rule.isBroken(name))
            return NameRefusal{rule.text, ArgumentText(rule.argument, name)};
    }
    return {};
}

std::optional<NameRefusal> RefuseFavoriteComment(std::string_view comment) {
    if (comment.size() > kMaxFavoriteComment)
        return NameRefusal{IDS_COMMENT_LIMIT, {}};
    return {};
}

std::string OneLineComment(std::string_view typed) {
    std::string line;
    for (std::size_t at = 0; at < typed.size(); ++at) {
        if (typed.substr(at, 2) == "\r\n")
            continue;
        const bool isBreak = typed[at] == '\r' || typed[at] == '\n' || typed[at] == '\t';
        line += isBreak ? ' ' : typed[at];
    }
    return line;
}

std::string RefusalText(const NameRefusal& refusal) {
    const std::string_view argument = refusal.argument;
    return FillPlaceholders(LoadText(refusal.text), std::span(&argument, 1));
}

void ShowRefusal(void* owner, const NameRefusal& refusal) {
    AskUser(owner, RefusalText(refusal).c_str(), LoadText(IDS_WARNING_TITLE).c_str(), AskButtons::Ok);
}

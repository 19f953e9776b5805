#include "options/restriction_message.h"

#include "Common/strings.h"
#include "Common/text.h"
#include "options/PrintOptionSetting.h"
#include "session/keyword.h"
#include "settings/InterchangeOptionTag.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace {

using Argument = RestrictionMessage::Argument;

// The item that names the bypass tray in front of its paper type. It has no label, so nothing is put there.
constexpr int kBypassName = 582;

// An option outside the list has the empty text.
Argument OptionText(int keyword, std::int32_t option) {
    Argument text{};
    UICommon::GetKeywordOptionString(keyword, text.data(), text.size(), option);
    return text;
}

Argument Label(int item) {
    Argument text{};
    UICommon::GetKeywordTranslation(item, text.data(), text.size());
    return text;
}

Argument Joined(const Argument& first, const Argument& second) {
    Argument text{};
    CopyText(text, std::string(FieldText(first)).append(FieldText(second)));
    return text;
}

Argument NameOf(const RestrictionRow& row) {
    const Argument label = Label(row.keyword);
    return row.keyword == keyword::PaperTypeBypass ? Joined(Label(kBypassName), label) : label;
}

Argument ValueOf(const RestrictionRow& row, const RestrictionValues& values) {
    const Argument text = OptionText(row.keyword, values.*row.value);
    return row.keyword == keyword::Punch ? Joined(text, OptionText(keyword::PunchHoles, values.PunchHoles))
                                         : text;
}

bool IsMixSizePrintOn(const RestrictionValues& values) {
    return values.MixSizePrint > 0;
}

Argument ChangeTo(int keyword, const RestrictionValues& values, std::int32_t (*defaultOf)(int keyword)) {
    switch (keyword) {
    case keyword::SpotColorCorrection: return OptionText(keyword, 0);
    // Without the imposition mode its custom mode has no effect, so it is the mode that gives way.
    case keyword::ImpositionCustomMode: return OptionText(keyword::ImpositionMode, 0);
    case keyword::MixSizePrint: return OptionText(keyword, IsMixSizePrintOn(values) ? 0 : 1);
    default: return OptionText(keyword, defaultOf(keyword));
    }
}

// Whether MixSizePrint has to be changed in the job property application, by the setting that the user has
// just changed and the tag number of its option.
struct TellRule {
    bool mixSizePrintOn;
    int ownKeyword;
    bool (*applies)(std::int32_t tag);
};
constexpr TellRule kTellRules[] = {
    {true, keyword::StapleMode, [](std::int32_t tag) { return tag >= 1 && tag <= 35; }},
    {true, keyword::Punch, [](std::int32_t tag) { return (tag >= 1 && tag <= 12) || tag > 15; }},
    {true, keyword::Fold, [](std::int32_t) { return true; }}, // whatever the fold
    {false, keyword::StapleMode, [](std::int32_t tag) { return tag >= 36; }},
    {false, keyword::Punch, [](std::int32_t) { return true; }}, // whatever the punch
    {false, keyword::Fold, [](std::int32_t tag) { return tag == 12; }},
};

// The tag numbers of all three finishers are looked up, whichever of them has been changed: each one without
// a tag leaves a line in the log. 0 for another keyword.
std::int32_t FinisherTag(const RestrictionValues& values, int ownKeyword) {
    const auto preset = [](int keyword, std::int32_t option) {
        std::int32_t tag = 0; // stays for an option outside the list
        GetTagNumberFromPreset(keyword, option, &tag);
        return tag;
    };
    const std::int32_t staple = preset(keyword::StapleMode, values.StapleMode);
    const std::int32_t punch = preset(keyword::Punch, values.Punch);
    const std::int32_t fold = preset(keyword::Fold, values.Fold);
    switch (ownKeyword) {
    case keyword::StapleMode: return staple;
    case keyword::Punch: return punch;
    case keyword::Fold: return fold;
    default: return 0;
    }
}

std::string FilledMessage(const RestrictionMessage& message) {
    std::array<char, 256> buffer;
    const std::string_view format(buffer.data(), LoadText(static_cast<unsigned>(message.id), buffer));
    const std::string_view nameOther = FieldText(message.nameOther);
    const std::string_view valueOther = FieldText(message.valueOther);
    const std::string_view nameOwn = FieldText(message.nameOwn);
    const std::string_view valueOwn = FieldText(message.valueOwn);
    const std::string_view changeTo = FieldText(message.changeTo);
    if (message.id == RestrictionMessageId::OfferChange)
        return FillPlaceholders(
            format, std::array{nameOther, valueOther, nameOwn, valueOwn, nameOther, valueOther, changeTo});
    return FillPlaceholders(format,
                            std::array{nameOther, valueOther, nameOwn, valueOwn, nameOther, changeTo});
}

} // namespace

RestrictionMessageId MixSizePrintMessage(bool mixSizePrintOn, int ownKeyword, std::int32_t tag) {
    const bool tells = std::ranges::any_of(kTellRules, [&](const TellRule& rule) {
        return rule.mixSizePrintOn == mixSizePrintOn && rule.ownKeyword == ownKeyword && rule.applies(tag);
    });
    return tells ? RestrictionMessageId::TellChange : RestrictionMessageId::OfferChange;
}

RestrictionMessage ComposeRestrictionMessage(const RestrictionValues& values,
                                             const RestrictionConflict& conflict,
                                             std::int32_t (*defaultOf)(int keyword)) {
    RestrictionMessage message;
    if (const RestrictionRow* other = conflict.other) {
        message.nameOther = NameOf(*other);
        message.valueOther = ValueOf(*other, values);
        message.changeTo = ChangeTo(other->keyword, values, defaultOf);
        if (other->keyword == keyword::MixSizePrint) {
            const int ownKeyword = conflict.own ? conflict.own->keyword : -1;
            message.id =
                MixSizePrintMessage(IsMixSizePrintOn(values), ownKeyword, FinisherTag(values, ownKeyword));
        }
    }
    if (conflict.own) {
        message.nameOwn = NameOf(*conflict.own);
        message.valueOwn = ValueOf(*conflict.own, values);
    }
    message.buttons = message.id == RestrictionMessageId::OfferChange ? AskButtons::OkCancel : AskButtons::Ok;
    CopyText(message.text, FilledMessage(message));
    LoadText(IDS_RESTRICTION_TITLE, message.title);
    return message;
}

std::string FillPlaceholders(std::string_view format, std::span<const std::string_view> texts) {
    std::string filled;
    for (const std::string_view text : texts) {
        const std::size_t place = format.find("%s");
        if (place == std::string_view::npos)
            break;
        filled.append(format.substr(0, place)).append(text);
        format.remove_prefix(place + 2);
    }
    return filled.append(format);
}

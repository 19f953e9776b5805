#include "companions/jobproperty/edited_settings.h"

#include <algorithm>
#include <ranges>

namespace jobproperty {

void EditedSettings::TypeNumber(std::size_t setting, const std::string& text) {
    const SettingInfo& info = catalogue.Settings()[setting];
    const std::optional<std::int64_t> number = ParseNumber(info, text);
    // A number that was out of range from the start may be left again as it was.
    if ((number && settings.Set(setting, {.number = *number, .text = {}})) ||
        text == FormatNumber(info, settings.Current(setting).number))
        m_drafts.erase(setting);
    else
        m_drafts[setting] = text;
}

const std::string* EditedSettings::Draft(std::size_t setting) const {
    const auto draft = m_drafts.find(setting);
    return draft == m_drafts.end() ? nullptr : &draft->second;
}

std::optional<std::size_t> EditedSettings::FirstDraft() const {
    if (m_drafts.empty())
        return std::nullopt;
    return m_drafts.begin()->first;
}

bool EditedSettings::IsMarked(std::size_t setting) const {
    return Draft(setting) || settings.DiffersFromDefault(setting);
}

bool EditedSettings::IsMarked(Subject subject) const {
    const std::size_t first = FirstOf(subject);
    return std::ranges::any_of(std::views::iota(first, first + CountOf(subject)),
                               [this](std::size_t setting) { return IsMarked(setting); });
}

bool EditedSettings::IsAnyMarked() const {
    return std::ranges::any_of(std::views::iota(std::size_t{0}, catalogue.Settings().size()),
                               [this](std::size_t setting) { return IsMarked(setting); });
}

std::string EditedSettings::Shown(std::size_t setting) const {
    const std::string* draft = Draft(setting);
    return draft ? *draft : settings.Shown(setting);
}

void EditedSettings::Revert(std::size_t setting) {
    m_drafts.erase(setting);
    settings.Revert(setting);
}

void EditedSettings::Revert(Subject subject) {
    const std::size_t first = FirstOf(subject);
    m_drafts.erase(m_drafts.lower_bound(first), m_drafts.lower_bound(first + CountOf(subject)));
    settings.Revert(subject);
}

void EditedSettings::RevertAll() {
    m_drafts.clear();
    settings.RevertAll();
}

std::size_t EditedSettings::FirstOf(Subject subject) const {
    return static_cast<std::size_t>(catalogue.Of(subject).data() - catalogue.Settings().data());
}

} // namespace jobproperty

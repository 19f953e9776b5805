#include "companions/jobproperty/catalogue.h"

#include "Common/strings.h"
#include "companions/jobproperty/folded_text.h"
#include "companions/jobproperty/key_value.h"
#include "companions/jobproperty/setting_choices.h"
#include "companions/jobproperty/setting_label.h"
#include "companions/jobproperty/setting_rows.h"

#include <algorithm>
#include <utility>

namespace jobproperty {
namespace {

constexpr unsigned kFirstSubjectName = 24300;

constexpr SettingKind KindOf(Source source) {
    switch (source) {
    case Source::Number: return SettingKind::Number;
    case Source::Text: return SettingKind::Text;
    case Source::Password: return SettingKind::Password;
    case Source::Options:
    case Source::Switch:
    case Source::ItemOptions:
    case Source::Values: break;
    }
    return SettingKind::Choice;
}

SettingInfo Describe(const SettingRow& row, const ppd::PpdFile& device) {
    const KeyValue value = DescribeKeyValue(row.name);
    SettingInfo setting;
    setting.number = value.number;
    setting.name = row.name;
    setting.isKeyword = value.isKeyword;
    setting.isSigned = value.isSigned;
    setting.subject = row.subject;
    setting.kind = KindOf(row.source);
    setting.label = LabelOf(row.name, device);
    setting.choices = ChoicesOf(row, device);
    setting.least = row.least;
    setting.most = row.most;
    setting.limit = value.textLimit;
    DescribeUnit(setting, row.unit);
    return setting;
}

// Parts of it are kept apart, since no word has a line end.
std::u16string SearchedText(const SettingInfo& setting) {
    std::string text = setting.label + '\n' + setting.name;
    for (const Choice& choice : setting.choices)
        text.append(1, '\n').append(choice.text);
    return FoldedText(text);
}

bool ContainsAll(std::u16string_view text, std::span<const std::u16string> words) {
    return std::ranges::all_of(words,
                               [text](const std::u16string& word) { return text.find(word) != text.npos; });
}

} // namespace

std::string SubjectName(Subject subject) {
    return subject < Subject::Count ? LoadText(kFirstSubjectName + static_cast<unsigned>(subject))
                                    : std::string();
}

Catalogue::Catalogue(const ppd::PpdFile& device) {
    m_settings.reserve(SettingRows().size());
    m_searched.reserve(SettingRows().size());
    for (const SettingRow& row : SettingRows()) {
        SettingInfo setting = Describe(row, device);
        if (setting.kind == SettingKind::Choice && setting.choices.empty())
            continue;
        m_searched.push_back(SearchedText(setting));
        m_positions.emplace(row.name, m_settings.size());
        m_settings.push_back(std::move(setting));
    }
}

std::span<const SettingInfo> Catalogue::Of(Subject subject) const {
    return std::ranges::equal_range(m_settings, subject, {}, &SettingInfo::subject);
}

std::size_t Catalogue::Find(std::string_view name) const {
    const auto found = m_positions.find(name);
    return found == m_positions.end() ? npos : found->second;
}

std::vector<std::size_t> Catalogue::Search(std::string_view query) const {
    const std::vector<std::u16string> words = FoldedWords(query);
    std::vector<std::size_t> found;
    if (words.empty())
        return found;
    for (std::size_t setting = 0; setting < m_searched.size(); ++setting)
        if (ContainsAll(m_searched[setting], words))
            found.push_back(setting);
    return found;
}

} // namespace jobproperty

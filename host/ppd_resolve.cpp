// The last steps over a description: what its statements say about each other.
#include "host/ppd_parser.h"

namespace ppd {

void Parser::Finish() {
    std::size_t end = m_reader.Line();
    if (m_openFeature)
        Fail(m_featureLines[*m_openFeature], "A feature is not closed.");
    if (!m_openGroups.empty())
        Fail(end, "The group " + Quoted(m_openGroups.back()) + " is not closed.");
    ResolveDefaults();
    ResolveTexts();
    ResolvePapers();
    ResolveCustomPage();
    CheckConstraints();
}

void Parser::ResolveDefaults() {
    for (std::size_t i = 0; i < m_file.features.size(); ++i) {
        Feature& feature = m_file.features[i];
        if (feature.options.empty())
            Fail(m_featureLines[i], "The feature " + Quoted(feature.keyword) + " has no options.");
        auto found = m_defaults.find(feature.keyword);
        // The format has no room for the default of so long a keyword; its first option stands in.
        if (found == m_defaults.end() && kDefaultPrefix.size() + feature.keyword.size() > kMaxKeywordLength)
            continue;
        if (found == m_defaults.end())
            Fail(m_featureLines[i], "The feature " + Quoted(feature.keyword) + " has no default.");
        auto option = m_optionIndex[i].find(found->second.value);
        if (option == m_optionIndex[i].end())
            Fail(found->second.line,
                 "The default of " + Quoted(feature.keyword) + " is not one of its options.");
        feature.defaultOption = option->second;
    }
}

std::string Parser::TakeJapanese(const std::string& key) {
    auto found = m_japanese.find(key);
    return found == m_japanese.end() ? std::string() : std::move(found->second.value);
}

// Texts of what the file has no feature or option for are of no use and passed over.
void Parser::ResolveTexts() {
    for (Feature& feature : m_file.features) {
        feature.japanese = TakeJapanese(feature.keyword + " ");
        for (Option& option : feature.options)
            option.japanese = TakeJapanese(feature.keyword + " " + option.keyword);
    }
    if (m_file.customPage)
        m_file.customPage->japanese = TakeJapanese("CustomPageSize True");
}

void Parser::ResolvePapers() {
    auto found = m_featureIndex.find("PageSize");
    if (found == m_featureIndex.end())
        Fail(m_reader.Line(), "The file has no PageSize feature.");
    for (const Option& option : m_file.features[found->second].options) {
        auto dimension = m_dimensions.find(option.keyword);
        auto area = m_areas.find(option.keyword);
        if (dimension == m_dimensions.end() || area == m_areas.end())
            Fail(m_featureLines[found->second],
                 "The paper " + Quoted(option.keyword) + " has no dimension or no imageable area.");
        const auto& [width, height] = dimension->second;
        const auto& [left, bottom, right, top] = area->second;
        m_file.papers.push_back({width, height, left, bottom, right, top});
    }
}

void Parser::ResolveCustomPage() {
    if (!m_file.customPage)
        return;
    if (!m_customWidth || !m_customHeight)
        Fail(m_reader.Line(), "The custom page has no limits of width and height.");
    CustomPage& page = *m_file.customPage;
    page.minWidth = m_customWidth->front();
    page.maxWidth = m_customWidth->back();
    page.minHeight = m_customHeight->front();
    page.maxHeight = m_customHeight->back();
}

void Parser::CheckConstraints() const {
    auto known = [&](const std::string& feature, const std::string& option) {
        if (feature == "CustomPageSize")
            return m_file.customPage && (option.empty() || option == "True");
        auto found = m_featureIndex.find(feature);
        return found != m_featureIndex.end() &&
               (option.empty() || m_optionIndex[found->second].contains(option));
    };
    for (std::size_t i = 0; i < m_file.constraints.size(); ++i) {
        const Constraint& constraint = m_file.constraints[i];
        if (!known(constraint.feature, constraint.option) ||
            !known(constraint.otherFeature, constraint.otherOption))
            Fail(m_constraintLines[i], "A constraint names a feature or option that the file does not have.");
    }
}

} // namespace ppd

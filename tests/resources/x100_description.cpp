#include "x100_description.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <string_view>

namespace x100_description {
namespace {

// The text between prefix and the first end behind it; empty if the line starts otherwise.
std::string Between(const std::string& line, const std::string& prefix, std::string_view end) {
    if (!line.starts_with(prefix))
        return {};
    return line.substr(prefix.size(), line.find(end, prefix.size()) - prefix.size());
}

using Translations = std::map<std::string, std::string>;

std::map<std::string, Translations> ReadTranslations() {
    std::map<std::string, Translations> result;
    for (const std::string& line : Description()) {
        const std::string keyword = Between(line, "*ja.", " ");
        if (keyword.empty())
            continue;
        const std::string option = Between(line, "*ja." + keyword + ' ', "/");
        result[keyword][option] = Between(line, "*ja." + keyword + ' ' + option + '/', ": \"\"");
    }
    return result;
}

// Option keyword to Japanese text, for the main keyword; features and groups stand under "Translation".
const Translations& TranslationsOf(const std::string& keyword) {
    static const std::map<std::string, Translations> all = ReadTranslations();
    static const Translations none;
    const auto found = all.find(keyword);
    return found == all.end() ? none : found->second;
}

Feature ReadFeature(std::vector<std::string>::const_iterator line) {
    Feature feature;
    feature.keyword = Between(*line, "*OpenUI *", "/");
    feature.english = Between(*line, "*OpenUI *" + feature.keyword + '/', ":");
    feature.japanese = TranslationOf("Translation", feature.keyword);
    for (; line != Description().end() && *line != "*CloseUI: *" + feature.keyword; ++line) {
        const std::string option = Between(*line, '*' + feature.keyword + ' ', "/");
        const std::string english = Between(*line, '*' + feature.keyword + ' ' + option + '/', ":");
        if (!option.empty())
            feature.options.push_back({option, english, TranslationOf(feature.keyword, option)});
        if (line->starts_with("*Default" + feature.keyword + ": "))
            feature.defaultOption = line->substr(line->find(' ') + 1);
    }
    return feature;
}

} // namespace

std::vector<std::string> LinesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);)
        lines.push_back(line);
    return lines;
}

const std::vector<std::string>& Description() {
    static const std::vector<std::string> lines = LinesOf(ZR_RESOURCES_DIR "/x100.ppd");
    return lines;
}

std::vector<std::string> ValuesOf(const std::string& prefix) {
    std::vector<std::string> values;
    for (const std::string& line : Description()) {
        if (!line.starts_with(prefix))
            continue;
        std::string value = line.substr(prefix.size());
        std::erase(value, '"');
        values.push_back(value);
    }
    return values;
}

std::string TranslationOf(const std::string& keyword, const std::string& option) {
    const Translations& texts = TranslationsOf(keyword);
    const auto found = texts.find(option);
    return found == texts.end() ? std::string{} : found->second;
}

const std::vector<Feature>& Features() {
    static const std::vector<Feature> all = [] {
        std::vector<Feature> result;
        const std::vector<std::string>& lines = Description();
        for (auto line = lines.begin(); line != lines.end(); ++line)
            if (line->starts_with("*OpenUI "))
                result.push_back(ReadFeature(line));
        return result;
    }();
    return all;
}

const Feature& FeatureOf(const std::string& keyword) {
    static const Feature none;
    const auto found = std::find_if(Features().begin(), Features().end(),
                                    [&](const Feature& each) { return each.keyword == keyword; });
    return found == Features().end() ? none : *found;
}

bool HasOption(const Feature& feature, const std::string& keyword) {
    return std::any_of(feature.options.begin(), feature.options.end(),
                       [&](const Option& option) { return option.keyword == keyword; });
}

} // namespace x100_description

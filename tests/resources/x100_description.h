// The device description as its tests read it: by lines, without the driver's parser. All texts are UTF-8.
#pragma once

#include <string>
#include <vector>

namespace x100_description {

struct Option {
    std::string keyword;
    std::string english;
    std::string japanese;
};

struct Feature {
    std::string keyword;
    std::string english;
    std::string japanese;
    std::string defaultOption;
    std::vector<Option> options;
};

std::vector<std::string> LinesOf(const std::string& path);

// The lines of resources/x100.ppd.
const std::vector<std::string>& Description();

// The values of all lines that start with prefix, quotes taken off.
std::vector<std::string> ValuesOf(const std::string& prefix);

// The Japanese text of a main keyword's option, "" if there is none; features and groups stand under
// "Translation".
std::string TranslationOf(const std::string& keyword, const std::string& option);

// In file order.
const std::vector<Feature>& Features();
// An empty one if there is none of this keyword.
const Feature& FeatureOf(const std::string& keyword);
bool HasOption(const Feature& feature, const std::string& keyword);

} // namespace x100_description

// The catalogue of the X100's own description.
#pragma once

#include "companions/jobproperty/catalogue.h"
#include "companions/jobproperty/job_settings.h"
#include "tests/support/file_contents.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace jobproperty {

inline ppd::PpdFile ParsedDevice(const std::string& path) {
    return std::get<ppd::PpdFile>(ppd::Parse(FileContents(path)));
}

inline const ppd::PpdFile& X100() {
    static const ppd::PpdFile device = ParsedDevice(ZR_RESOURCES_DIR "/x100.ppd");
    return device;
}

inline const Catalogue& X100Catalogue() {
    static const Catalogue catalogue(X100());
    return catalogue;
}

inline std::size_t PositionOf(std::string_view name) {
    const std::size_t position = X100Catalogue().Find(name);
    EXPECT_NE(position, Catalogue::npos) << name;
    return position == Catalogue::npos ? 0 : position;
}

inline const SettingInfo& InfoOf(std::string_view name) {
    return X100Catalogue().Settings()[PositionOf(name)];
}

using Choices = std::vector<std::pair<std::int64_t, std::string>>;

inline Choices ChoicesOf(std::string_view name) {
    Choices choices;
    for (const Choice& choice : InfoOf(name).choices)
        choices.emplace_back(choice.value, choice.text);
    return choices;
}

} // namespace jobproperty

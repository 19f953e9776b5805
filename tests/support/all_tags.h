// A manager whose option lines have all tags of the table, as the first page sets them.
#pragma once

#include "settings/InterchangeOptionTag.h"
#include "settings/SettingManager.h"

#include <string_view>
#include <vector>

inline void SetAllTags(CSettingManager& manager) {
    std::vector<std::string_view> tags;
    CTagTable().GetTagList(&tags);
    std::vector<const char*> texts;
    for (const std::string_view tag : tags)
        texts.push_back(tag.data());
    manager.SetTagList(texts.data(), texts.size());
}

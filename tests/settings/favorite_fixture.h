// Favourites of a test: files in a folder that goes with it, and the settings that are read from them.
#pragma once

#include "settings/FavoriteFileManager.h"
#include "settings/print_option_tag_access.h"
#include "tests/Common/memory_source.h"
#include "tests/settings/xml_fixture.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

class FavoriteTest : public XmlTest {
  protected:
    using Elements = std::vector<std::pair<std::string, std::string>>;

    // A file of these elements, whose texts are markup in UTF-8.
    static std::string FileOf(const Elements& elements) {
        std::string file = "<?xml version='1.0' encoding='UTF-8'?><Favorite>";
        for (const auto& [name, text] : elements)
            file += "<" + name + ">" + text + "</" + name + ">";
        return file + "</Favorite>";
    }

    // What LoadFavorite gives for a file of these bytes.
    int Read(std::string_view bytes) {
        MemorySource source(bytes);
        return manager.LoadFavorite(setting, source);
    }

    // A field of the setting, as the text by which it travels.
    std::string Value(const char* tag) { return Value(tag, setting); }
    static std::string Value(const char* tag, CSettingInfo& of) {
        std::string value(kOptionValueSize, '\0');
        EXPECT_EQ(AccessPrintOption(tag, value.data(), &of, kFetchOption), 1);
        return value.c_str();
    }
    void Store(const char* tag, std::string value) {
        value.resize(kOptionValueSize);
        EXPECT_EQ(AccessPrintOption(tag, value.data(), &setting, kStoreOption), 1);
    }

    CFavoriteFileManager manager{{}};
    CFavoriteSetting setting;
};

// Favourite files that tests write by hand, and what a setting holds.
#pragma once

#include "settings/FavoriteFileManager.h"
#include "settings/print_option_tag_access.h"
#include "tests/Common/memory_source.h"

#include <cstdint>
#include <string>
#include <string_view>

// A file of the present format with some bytes among its options.
inline std::string FavoriteAround(std::string_view options) {
    return std::string(
               "<?xml version='1.0' encoding='UTF-8'?><Favorite><FileVer>2</FileVer><IotVer>10</IotVer>"
               "<CharCode>0</CharCode><Comment>sample</Comment><PageSize>A4</PageSize><PrintOption>")
        .append(options)
        .append("</PrintOption></Favorite>");
}

// Everything that a favourite holds, as bytes.
inline std::string ImageOf(const CFavoriteSetting& setting) {
    std::string image(setting.PrintOption().GetSize(), '\0');
    auto size = static_cast<std::uint32_t>(image.size());
    setting.PrintOption().Save(image.data(), &size);
    image.append(setting.Name.data(), setting.Name.size());
    image.append(setting.Comment.data(), setting.Comment.size());
    image.append(setting.Directory.data(), setting.Directory.size());
    image.append(setting.PageSize.data(), setting.PageSize.size());
    for (const std::uint32_t number : {setting.IotVer, setting.FileVer, setting.CharCode})
        image.append(std::to_string(number)).append(" ");
    return image;
}

// A setting that no file leaves as it is.
inline void FillSample(CFavoriteSetting& setting) {
    for (const std::string_view tag : {"OCM", "OOMF"})
        StoreOption(tag, "text before", setting.PrintOption());
    StoreOption("ONOC", "4711", setting.PrintOption());
    std::string_view("name before").copy(setting.Name.data(), setting.Name.size() - 1);
    std::string_view("comment before").copy(setting.Comment.data(), setting.Comment.size() - 1);
    std::string_view("size before").copy(setting.PageSize.data(), setting.PageSize.size() - 1);
    setting.IotVer = 4711;
    setting.FileVer = 4712;
    setting.CharCode = 4713;
}

inline std::string ValueOf(std::string_view tag, const CFavoriteSetting& setting) {
    std::string value;
    FetchOption(tag, setting.PrintOption(), value);
    return value;
}

inline int LoadBytes(CFavoriteFileManager& manager, std::string_view bytes, CFavoriteSetting& setting) {
    MemorySource source(bytes);
    return manager.LoadFavorite(setting, source);
}

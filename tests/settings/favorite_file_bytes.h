// A favourite of ordinary size as the program writes it.
#pragma once

#include "settings/favorite_writer.h"
#include "settings/print_option_tag_access.h"

#include <cstdlib>
#include <string>
#include <string_view>

inline std::string FavoriteFileBytes() {
    CFavoriteSetting setting;
    setting.FileVer = 2;
    setting.IotVer = 10;
    std::string_view("an ordinary favourite").copy(setting.Comment.data(), setting.Comment.size() - 1);
    std::string_view("A4").copy(setting.PageSize.data(), setting.PageSize.size() - 1);
    StoreOption("OOMF", "C:\\memo\\of this job.txt", setting.PrintOption());
    StoreOption("ONOC", "12", setting.PrintOption());
    XmlLayer layer;
    const auto document = layer.CreateDocument();
    std::string bytes;
    if (!WriteFavoriteDocument(setting, *document) || !document->Serialize(bytes))
        std::abort();
    return bytes;
}

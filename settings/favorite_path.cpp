#include "settings/favorite_path.h"

#include "Common/log.h"
#include "Common/strings.h"
#include "Common/text.h"

#include <cstdio>
#include <string>

std::optional<PathBuffer> FavoritePath(const CFavoriteSetting& setting, unsigned extensionString) {
    std::string extension = LoadText(extensionString);
    if (extension.empty())
        extension = ".pfk";
    const std::string directory(FieldText(setting.Directory));
    const std::string name(FieldText(setting.Name));
    PathBuffer path{};
    const int length = std::snprintf(path.data(), path.size(), "%s\\%s%s", directory.c_str(), name.c_str(),
                                     extension.c_str());
    if (length < 0 || static_cast<std::size_t>(length) >= path.size()) {
        ZR_LOG("path too long: %s %s\n", directory.c_str(), name.c_str());
        return std::nullopt;
    }
    return path;
}

#include "settings/favorite_path.h"

#include "Common/data_directories.h"
#include "Common/log.h"
#include "Common/strings.h"
#include "Common/text.h"
#include "resources/resource.h"

#include <array>
#include <cstdio>
#include <string>

namespace {

std::optional<PathBuffer> FormPath(std::string_view inDirectory, std::string_view withName,
                                   unsigned extensionString) {
    if (inDirectory.empty()) {
        ZR_LOG("no directory\n");
        return std::nullopt;
    }
    std::string extension = LoadText(extensionString);
    if (extension.empty())
        extension = ".pfk";
    const std::string directory(inDirectory);
    const std::string name(withName);
    PathBuffer path{};
    const int length = std::snprintf(path.data(), path.size(), "%s\\%s%s", directory.c_str(), name.c_str(),
                                     extension.c_str());
    if (length < 0 || static_cast<std::size_t>(length) >= path.size()) {
        ZR_LOG("path too long: %s %s\n", directory.c_str(), name.c_str());
        return std::nullopt;
    }
    return path;
}

} // namespace

std::optional<PathBuffer> WholeFavoriteDirectory() {
    // Where there is room for all its pieces none is left away.
    std::array<char, 2 * kMaxPath> whole{};
    PathBuffer path{};
    const int length = GetFavoriteDirectory(whole.data(), whole.size());
    if (length <= 0 || static_cast<std::size_t>(length) >= path.size()) {
        ZR_LOG("no favourite directory\n");
        return std::nullopt;
    }
    CopyText(path, FieldText(whole));
    return path;
}

std::optional<PathBuffer> FavoritePath(const CFavoriteSetting& setting, unsigned extensionString) {
    return FormPath(FieldText(setting.Directory), FieldText(setting.Name), extensionString);
}

std::optional<PathBuffer> FavoritePath(std::string_view name) {
    const auto directory = WholeFavoriteDirectory();
    return directory ? FormPath(FieldText(*directory), name, IDS_FAVORITE_EXTENSION) : std::nullopt;
}

bool IsThere(const std::optional<PathBuffer>& path) {
    return path && platform_files::IsThere(path->data());
}

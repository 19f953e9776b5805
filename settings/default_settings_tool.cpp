// Writes the default settings file: default_settings_tool PPD FILE
#include "host/ppd.h"
#include "host/printer_model.h"
#include "settings/FavoriteFileManager.h"
#include "settings/default_settings.h"

#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>
#include <variant>

namespace {

int Fail(const std::string& message) {
    std::fprintf(stderr, "default_settings_tool: %s\n", message.c_str());
    return 1;
}

int WriteDefaultSettings(const char* description, const char* target) {
    std::ifstream file(description, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    if (!file)
        return Fail(std::string(description) + " can't be read");
    auto parsed = ppd::Parse(bytes);
    if (const auto* error = std::get_if<ppd::PpdError>(&parsed))
        return Fail(std::string(description) + ", line " + std::to_string(error->line) + ": " +
                    error->message);
    const PrinterModel model(std::get<ppd::PpdFile>(std::move(parsed)), Language::Japanese);
    if (!CFavoriteFileManager({}).SaveFavoriteFromPath(StandardSettings(model), target))
        return Fail(std::string(target) + " can't be written");
    // A favourite is its user's alone, this file is everybody's.
    using std::filesystem::perms;
    std::filesystem::permissions(target, perms::owner_write | perms::owner_read | perms::group_read |
                                             perms::others_read);
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3)
        return Fail("expects the device description and the file to write");
    try {
        return WriteDefaultSettings(argv[1], argv[2]);
    } catch (const std::exception& error) {
        return Fail(error.what());
    }
}

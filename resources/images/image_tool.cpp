// Draws all images of the module: image_tool CONTROL_SCRIPT PREVIEW_SCRIPT
// The images stand in the folder of the script that names them.
#include "resources/images/image_set.h"

#include <cstdio>
#include <exception>

namespace {

namespace fs = std::filesystem;

int Fail(const std::string& message) {
    std::fprintf(stderr, "image_tool: %s\n", message.c_str());
    return 1;
}

std::string ScriptLine(int number, const char* type, const fs::path& file) {
    return std::to_string(number) + ' ' + type + " \"" + file.generic_string() + "\"\n";
}

const std::string kScriptHead = "LANGUAGE 0, 0\n";

std::string WriteBitmaps(const fs::path& folder, const std::vector<NumberedBitmap>& bitmaps) {
    std::string lines;
    for (const NumberedBitmap& bitmap : bitmaps) {
        const fs::path file = folder / (std::to_string(bitmap.number) + ".bmp");
        WriteBitmap(file, bitmap.picture, bitmap.depth);
        lines += ScriptLine(bitmap.number, "BITMAP", file);
    }
    return lines;
}

std::string WriteIcons(const fs::path& folder, const std::vector<NumberedIcon>& icons) {
    std::string lines;
    for (const NumberedIcon& icon : icons) {
        const fs::path file = folder / (std::to_string(icon.number) + ".ico");
        WriteIcon(file, icon.images);
        lines += ScriptLine(icon.number, "ICON", file);
    }
    return lines;
}

void WriteControlImages(const fs::path& script) {
    const fs::path folder = fs::absolute(script).parent_path();
    fs::create_directories(folder);
    WriteText(script, kScriptHead + WriteBitmaps(folder, DrawStrips()) + WriteBitmaps(folder, DrawSymbols()) +
                          WriteIcons(folder, DrawIcons()));
}

void WritePreviewImages(const fs::path& script) {
    const fs::path folder = fs::absolute(script).parent_path();
    fs::create_directories(folder);
    WriteText(script, kScriptHead + WriteBitmaps(folder, DrawPreviewBitmaps()));
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3)
        return Fail("expects the two resource scripts to write");
    try {
        WriteControlImages(argv[1]);
        WritePreviewImages(argv[2]);
        return 0;
    } catch (const std::exception& error) {
        return Fail(error.what());
    }
}

// Attacks invariants 26 to 28 of docs/security.md from above: any bytes are read as a favourite, and what
// was read is within its fields, is the same when read again, and comes back from a file that is written of
// it.
#include "settings/FavoriteFileManager.h"

#include "settings/favorite_texts.h"
#include "settings/favorite_writer.h"
#include "tests/settings/ended_texts.h"
#include "tests/settings/favorite_samples.h"

#include <cstdint>
#include <cstdlib>

namespace {

// The first byte of an input that tells elements. No document begins with it, in any encoding.
constexpr char kElements = '\1';

void Require(bool holds) {
    if (!holds)
        std::abort();
}

std::string FileOf(const CFavoriteSetting& setting) {
    XmlLayer layer;
    const auto document = layer.CreateDocument();
    std::string bytes;
    Require(WriteFavoriteDocument(setting, *document) && document->Serialize(bytes));
    return bytes;
}

void AppendMarkup(std::string& file, char character) {
    const auto byte = static_cast<unsigned char>(character);
    if (byte >= 0x80) // kana and what is near them, some of it outside the code page
        (file += "&#").append(std::to_string(0x3000 + byte)) += ';';
    else if (byte >= 0x20 && byte != '<' && byte != '&')
        file += character;
}

// A file of known elements: of each its row in two bytes, its text's length in one, and the text.
std::string FileOfElements(std::string_view input) {
    std::string file = "<Favorite>";
    const auto at = [&](std::size_t index) -> std::size_t {
        return static_cast<unsigned char>(input[index]);
    };
    while (input.size() >= 3) {
        const std::string name(FavoriteElementName((at(0) * 256 + at(1)) % kFavoriteNames));
        const std::string_view text = input.substr(3, at(2));
        file += "<" + name + ">";
        for (const char character : text)
            AppendMarkup(file, character);
        file += "</" + name + ">";
        input.remove_prefix(3 + text.size());
    }
    return file + "</Favorite>";
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::string bytes =
        input.starts_with(kElements) ? FileOfElements(input.substr(1)) : std::string(input);
    CFavoriteFileManager manager({});
    CFavoriteSetting setting;
    FillSample(setting);
    const std::string before = ImageOf(setting);
    if (LoadBytes(manager, bytes, setting) != kFavoriteRead) {
        Require(ImageOf(setting) == before);
        return 0;
    }
    Require(TextWithoutEnd(setting).empty());
    const std::string first = ImageOf(setting);
    Require(LoadBytes(manager, bytes, setting) == kFavoriteRead && ImageOf(setting) == first);

    // Control characters are left out of a file, so it is the second setting that lasts.
    const std::string written = FileOf(setting);
    Require(LoadBytes(manager, written, setting) == kFavoriteRead && FileOf(setting) == written);
    return 0;
}

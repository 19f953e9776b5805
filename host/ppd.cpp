#include "host/ppd.h"

#include "host/ppd_parser.h"
#include "host/utf8.h"

#include <algorithm>

namespace ppd {
namespace {

std::uint32_t Checksum(std::string_view bytes) {
    std::uint32_t sum = 2166136261u; // FNV-1a
    for (unsigned char c : bytes)
        sum = (sum ^ c) * 16777619u;
    return sum;
}

// What no statement may hold: characters other than tabs and line ends, and text that is not UTF-8.
std::optional<PpdError> CheckBytes(std::string_view bytes) {
    if (bytes.size() > kMaxFileSize)
        return PpdError{1, "The file is too large."};
    std::size_t line = 1;
    while (!bytes.empty()) {
        std::size_t end = bytes.find_first_of("\r\n");
        std::string_view text = bytes.substr(0, end);
        bool control =
            std::ranges::any_of(text, [](unsigned char c) { return (c < 0x20 && c != '\t') || c == 0x7F; });
        if (control)
            return PpdError{line, "The line holds a control character."};
        if (!IsUtf8(text))
            return PpdError{line, "The line is not valid UTF-8."};
        if (end == std::string_view::npos)
            break;
        bytes.remove_prefix(end + (bytes.substr(end, 2) == "\r\n" ? 2 : 1));
        ++line;
    }
    return std::nullopt;
}

} // namespace

std::optional<std::size_t> PpdFile::FindFeature(std::string_view keyword) const {
    const auto found = std::ranges::find(
        features, keyword, [](const Feature& feature) { return std::string_view(feature.keyword); });
    if (found == features.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - features.begin());
}

std::variant<PpdFile, PpdError> Parse(std::string_view bytes) {
    if (auto error = CheckBytes(bytes))
        return *error;
    try {
        PpdFile file = Parser(bytes).Run();
        file.checksum = Checksum(bytes);
        return file;
    } catch (const ParseFailure& failure) {
        return failure.error;
    }
}

} // namespace ppd

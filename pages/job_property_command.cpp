#include "pages/job_property_command.h"

#include "Common/text.h"

#include <algorithm>
#include <initializer_list>

namespace {

constexpr std::size_t kPieceSize = 260; // of a key or a server, with its NUL
constexpr std::size_t kIdSize = 32;

// Where the id begins, counted from behind the last backslash: the length of "DataSet_".
constexpr std::size_t kIdOffset = 8;

constexpr std::string_view kDriverKind = "PDF";
constexpr std::string_view kLanguage = "ja-JP";
constexpr std::size_t kLanguageLimit = 9;
static_assert(kLanguage.size() <= kLanguageLimit);
constexpr std::string_view kProduct = "10";

std::string_view CutTo(std::string_view text, std::size_t sizeWithNul) {
    return text.substr(0, CutLength(text, sizeWithNul - 1));
}

// The pieces one behind the other: each word carries its own blanks.
std::string Joined(std::initializer_list<std::string_view> pieces) {
    std::string command;
    for (const std::string_view piece : pieces)
        command += piece;
    command.resize(CutTo(command, kCommandLineSize).size());
    return command;
}

} // namespace

std::string JobPropertyId(std::string_view key) {
    const std::string_view cutKey = CutTo(key, kPieceSize);
    const std::size_t backslash = FindLastCharacter(cutKey, '\\');
    const std::size_t behind = backslash == std::string_view::npos ? 0 : backslash + 1;
    const std::size_t first = behind + kIdOffset;
    if (first >= cutKey.size())
        return {};
    // The limit is the length of what stands before the name, whatever the name's own length is.
    const std::string_view rest = cutKey.substr(first);
    return std::string(rest.substr(0, CutLength(rest, std::min(behind, kIdSize - 1))));
}

std::string StartCommand(std::string_view application, const JobPropertyStart& start) {
    const bool isBidirectional = start.communicationMode != 0;
    return Joined({application, "-start ", JobPropertyId(start.key), " ", CutTo(start.key, kPieceSize), " ",
                   kDriverKind, " ", kLanguage, " ", isBidirectional ? "" : "-ip ",
                   CutTo(start.server, kPieceSize), isBidirectional ? "" : " -onceForce ", " -iotproduct ",
                   kProduct, start.startupMode == 1 ? " -mock -market JP" : ""});
}

std::string ShowCommand(std::string_view application, std::string_view key) {
    return Joined(
        {application, " -show ", JobPropertyId(key), " ", CutTo(key, kPieceSize), " ", kDriverKind, " "});
}

std::string ExitCommand(std::string_view application, std::string_view key) {
    return Joined({application, "-exit ", JobPropertyId(key)});
}

std::string FileCommand(std::string_view application, std::string_view address) {
    return Joined({application, "-file ", "dummyID ", "dummyRegKey ", kDriverKind, " ", kLanguage, " -ip ",
                   CutTo(address, kPieceSize), " -onceForce ", "-iotproduct ", kProduct, " "});
}

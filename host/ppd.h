// A PostScript printer description, as far as a driver's user interface needs it. The file is the user's and
// may hold anything: it is read as a whole or refused as a whole.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace ppd {

inline constexpr std::size_t kMaxFileSize = std::size_t{8} * 1024 * 1024;
inline constexpr std::size_t kMaxFeatures = 4096;
inline constexpr std::size_t kMaxOptions = 4096;   // of one feature
inline constexpr std::size_t kMaxTextLength = 255; // bytes of a translation
inline constexpr std::size_t kMaxKeywordLength = 40;

enum class FeatureKind { PickOne, PickMany, Boolean };

// All texts are UTF-8. A Japanese text that the file does not give is "".
struct Option {
    std::string keyword;
    std::string text; // the keyword itself where the file gives no text
    std::string japanese;
};

struct Feature {
    std::string keyword; // without the asterisk
    std::string text;
    std::string japanese;
    FeatureKind kind = FeatureKind::PickOne;
    bool jcl = false;
    std::string group;           // "" outside any group
    std::vector<Option> options; // in file order, at least one
    std::size_t defaultOption = 0;
};

// In points. Stands for the PageSize option at the same index.
struct Paper {
    double width = 0;
    double height = 0;
    double left = 0; // of the imageable area
    double bottom = 0;
    double right = 0;
    double top = 0;
};

struct CustomPage {
    std::string text;
    std::string japanese;
    double minWidth = 0; // points
    double maxWidth = 0;
    double minHeight = 0;
    double maxHeight = 0;
};

// The first feature may not stand at the option while the second stands at its. An empty option means any but
// None, False or Off.
struct Constraint {
    std::string feature;
    std::string option;
    std::string otherFeature;
    std::string otherOption;
};

// The names and the constraints are read so that a file with a fault in them is refused; the driver itself
// shows no names, and what goes together is its plug-in's to judge.
struct PpdFile {
    std::string manufacturer;
    std::string modelName;
    std::string nickName;
    std::string pcFileName;
    bool colorDevice = false;
    std::vector<Feature> features; // in file order; PageSize is one of them
    std::vector<Paper> papers;     // one for each PageSize option
    std::optional<CustomPage> customPage;
    std::vector<Constraint> constraints;
    std::uint32_t checksum = 0; // of the file's bytes

    std::optional<std::size_t> FindFeature(std::string_view keyword) const;
};

struct PpdError {
    std::size_t line = 0; // from 1; the last line for what the file as a whole lacks
    std::string message;  // one sentence in English, ASCII only
};

std::variant<PpdFile, PpdError> Parse(std::string_view bytes);

} // namespace ppd

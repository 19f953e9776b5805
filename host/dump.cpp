#include "host/dump.h"

#include "Common/text.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <string_view>

namespace dump {
namespace {

constexpr std::size_t kNameCharacters = std::size(PublicDevMode{}.dmDeviceName);

// Where values begin on a line that names them.
constexpr std::size_t kNameColumn = 18;
constexpr std::size_t kFeatureColumn = 36;

enum class Kind { Name, Word, Short, Long };

struct Field {
    const char* name;
    std::size_t offset;
    Kind kind;
    std::uint32_t bit; // in dmFields; 0 for members that always count
};

constexpr std::array kFields{
    Field{"dmDeviceName", offsetof(PublicDevMode, dmDeviceName), Kind::Name, 0},
    Field{"dmSpecVersion", offsetof(PublicDevMode, dmSpecVersion), Kind::Word, 0},
    Field{"dmDriverVersion", offsetof(PublicDevMode, dmDriverVersion), Kind::Word, 0},
    Field{"dmSize", offsetof(PublicDevMode, dmSize), Kind::Word, 0},
    Field{"dmDriverExtra", offsetof(PublicDevMode, dmDriverExtra), Kind::Word, 0},
    Field{"dmFields", offsetof(PublicDevMode, dmFields), Kind::Long, 0},
    Field{"dmOrientation", offsetof(PublicDevMode, dmOrientation), Kind::Short, 0x1},
    Field{"dmPaperSize", offsetof(PublicDevMode, dmPaperSize), Kind::Short, 0x2},
    Field{"dmPaperLength", offsetof(PublicDevMode, dmPaperLength), Kind::Short, 0x4},
    Field{"dmPaperWidth", offsetof(PublicDevMode, dmPaperWidth), Kind::Short, 0x8},
    Field{"dmScale", offsetof(PublicDevMode, dmScale), Kind::Short, 0x10},
    Field{"dmCopies", offsetof(PublicDevMode, dmCopies), Kind::Short, 0x100},
    Field{"dmDefaultSource", offsetof(PublicDevMode, dmDefaultSource), Kind::Short, 0x200},
    Field{"dmPrintQuality", offsetof(PublicDevMode, dmPrintQuality), Kind::Short, 0x400},
    Field{"dmColor", offsetof(PublicDevMode, dmColor), Kind::Short, 0x800},
    Field{"dmDuplex", offsetof(PublicDevMode, dmDuplex), Kind::Short, 0x1000},
    Field{"dmYResolution", offsetof(PublicDevMode, dmYResolution), Kind::Short, 0x2000},
    Field{"dmTTOption", offsetof(PublicDevMode, dmTTOption), Kind::Short, 0x4000},
    Field{"dmCollate", offsetof(PublicDevMode, dmCollate), Kind::Short, 0x8000},
    Field{"dmFormName", offsetof(PublicDevMode, dmFormName), Kind::Name, 0x10000},
    Field{"dmNup", offsetof(PublicDevMode, dmNup), Kind::Long, 0x40},
    Field{"dmICMMethod", offsetof(PublicDevMode, dmICMMethod), Kind::Long, 0x800000},
    Field{"dmICMIntent", offsetof(PublicDevMode, dmICMIntent), Kind::Long, 0x1000000},
    Field{"dmMediaType", offsetof(PublicDevMode, dmMediaType), Kind::Long, 0x2000000},
    Field{"dmDitherType", offsetof(PublicDevMode, dmDitherType), Kind::Long, 0x4000000},
};

template <typename Number>
Number At(std::span<const std::byte> bytes, std::size_t offset) {
    Number number = 0;
    std::memcpy(&number, bytes.data() + offset, sizeof number);
    return number;
}

// Names of the public part are UTF-16; the printable ASCII of one is all that a dump needs.
std::string NameAt(std::span<const std::byte> record, std::size_t offset) {
    std::string name = "\"";
    for (std::size_t i = 0; i < kNameCharacters; ++i) {
        const auto unit = At<std::uint16_t>(record, offset + 2 * i);
        if (unit == 0)
            break;
        std::array<char, 8> text{};
        const bool plain = unit >= 0x20 && unit < 0x7F && unit != '"' && unit != '\\';
        std::snprintf(text.data(), text.size(), plain ? "%c" : "\\u%04x", static_cast<unsigned>(unit));
        name += text.data();
    }
    return name + "\"";
}

std::string ValueText(std::span<const std::byte> record, const Field& field) {
    switch (field.kind) {
    case Kind::Name: return NameAt(record, field.offset);
    case Kind::Word: return std::to_string(At<std::uint16_t>(record, field.offset));
    case Kind::Short: return std::to_string(At<std::int16_t>(record, field.offset));
    case Kind::Long: break;
    }
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "0x%08x",
                  static_cast<unsigned>(At<std::uint32_t>(record, field.offset)));
    return text.data();
}

constexpr std::size_t kLine = 16;

unsigned char ByteAt(std::span<const std::byte> bytes, std::size_t i) {
    return static_cast<unsigned char>(bytes[i]);
}

// True if a whole double-byte character stands at `i`.
bool IsDoubleByte(std::span<const std::byte> bytes, std::size_t i) {
    if (i + 1 >= bytes.size() || !IsLeadByte(ByteAt(bytes, i)))
        return false;
    const unsigned char trail = ByteAt(bytes, i + 1);
    return trail >= 0x40 && trail != 0x7F && trail <= 0xFC;
}

// The text column of one line. `divided` is true if the line's first byte belongs to the character before,
// and tells afterwards whether its last character reaches into the next line.
std::string TextColumn(std::span<const std::byte> bytes, std::size_t begin, std::size_t end, bool& divided) {
    std::string text;
    std::size_t i = begin;
    if (divided) {
        text += ' ';
        ++i;
    }
    divided = false;
    while (i < end) {
        const unsigned char byte = ByteAt(bytes, i);
        if (IsDoubleByte(bytes, i)) {
            text += static_cast<char>(byte);
            text += static_cast<char>(ByteAt(bytes, i + 1));
            divided = i + 1 == end;
            i += 2;
            continue;
        }
        text += byte >= 0x20 && byte < 0x7F ? static_cast<char>(byte) : '.';
        ++i;
    }
    return text;
}

std::string HexColumn(std::span<const std::byte> line) {
    std::string hex;
    for (std::size_t i = 0; i < kLine; ++i) {
        std::array<char, 4> text{};
        if (i < line.size())
            std::snprintf(text.data(), text.size(), "%02x ", static_cast<unsigned>(ByteAt(line, i)));
        hex += i < line.size() ? text.data() : "   ";
    }
    return hex;
}

} // namespace

std::string Trouble(std::span<const std::byte> record) {
    if (record.size() < kPublicSize)
        return std::to_string(record.size()) + " bytes are too few for a DEVMODE";
    const std::size_t size = At<std::uint16_t>(record, offsetof(PublicDevMode, dmSize));
    const std::size_t extra = At<std::uint16_t>(record, offsetof(PublicDevMode, dmDriverExtra));
    if (size != kPublicSize)
        return "dmSize is " + std::to_string(size) + " and not " + std::to_string(kPublicSize);
    if (size + extra != record.size())
        return "dmSize and dmDriverExtra ask for " + std::to_string(size + extra) + " bytes, but there are " +
               std::to_string(record.size());
    for (std::size_t i = 0; i < kNameCharacters; ++i)
        if (At<std::uint16_t>(record, 2 * i) == 0)
            return "";
    return "dmDeviceName has no end";
}

std::string PublicFields(std::span<const std::byte> record) {
    if (record.size() < kPublicSize)
        return "";
    const auto present = At<std::uint32_t>(record, offsetof(PublicDevMode, dmFields));
    std::string text;
    for (const Field& field : kFields) {
        std::string line(field.name);
        line.resize(kNameColumn, ' ');
        text += line + ValueText(record, field);
        text += field.bit != 0 && (present & field.bit) == 0 ? " (unset)\n" : "\n";
    }
    return text;
}

std::string Bytes(std::span<const std::byte> bytes) {
    std::string text;
    bool divided = false;
    for (std::size_t begin = 0; begin < bytes.size(); begin += kLine) {
        const std::size_t end = std::min(begin + kLine, bytes.size());
        const auto line = bytes.subspan(begin, end - begin);
        const std::string column = TextColumn(bytes, begin, end, divided);
        if (std::ranges::all_of(line, [](std::byte byte) { return byte == std::byte{0}; }))
            continue;
        std::array<char, 24> offset{};
        std::snprintf(offset.data(), offset.size(), "%06zx  ", begin);
        text += offset.data() + HexColumn(line) + " " + column + "\n";
    }
    return text;
}

std::string DriverSettings(const Settings& settings, const PrinterModel& model) {
    std::string text;
    const auto add = [&text](std::string name, const std::string& value) {
        name.resize(std::max(name.size() + 1, kFeatureColumn), ' ');
        text += name + value + "\n";
    };
    add("orientation", std::to_string(settings.orientation));
    add("scale", std::to_string(settings.scale));
    add("copies", std::to_string(settings.copies));
    add("collate", settings.collate ? "1" : "0");
    add("pages per sheet", std::to_string(settings.nup));
    add("custom page", std::to_string(settings.customWidth) + " x " + std::to_string(settings.customHeight));
    const auto pageSize = model.Find(PublicFeature::PageSize);
    for (std::size_t i = 0; i < std::min(settings.selection.size(), model.Features().size()); ++i) {
        const ppd::Feature& feature = model.Features()[i];
        const std::size_t option = pageSize == i ? settings.form : settings.selection[i];
        const std::string name = option < feature.options.size() ? " " + feature.options[option].keyword : "";
        add("*" + feature.keyword, std::to_string(option) + name);
    }
    return text;
}

std::string PluginHeader(std::span<const std::byte> block) {
    if (block.size() < 12)
        return "";
    std::array<char, 96> text{};
    std::snprintf(text.data(), text.size(),
                  "dwSize            %u\ndwSignature       0x%08x\ndwVersion         %u\n",
                  static_cast<unsigned>(At<std::uint32_t>(block, 0)),
                  static_cast<unsigned>(At<std::uint32_t>(block, 4)),
                  static_cast<unsigned>(At<std::uint32_t>(block, 8)));
    return text.data();
}

std::string FormatText() {
    return R"(--dump prints the stored settings in three parts, each under a line in brackets:
  [public]   the DEVMODE's public fields, name and value; (unset) marks one that dmFields leaves out
  [driver]   the driver's own settings as indices, the custom page in thousandths of a millimetre, then a line
             for each feature of the printer's description: the selected option's index and keyword; the custom
             page comes behind the last option of PageSize and has no keyword
  [plug-in]  the plug-in's block: size, signature and version, then its bytes, 16 a line: offset from the
             block's start in hex, the bytes in hex, and the same as text, a dot for what has no shape. Lines
             of zeros are left out.
)";
}

} // namespace dump

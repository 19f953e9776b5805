// All settings that the job property application shows: where they stand, how they are called, what they can
// be. Texts are in code page 932.
#pragma once

#include "host/ppd.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace jobproperty {

// In the order in which they are listed.
enum class Subject : std::uint8_t {
    Paper,
    Media,
    Layout, // and imposition
    Finishing,
    Covers, // and separators
    Pagination,
    Form, // and watermark
    Memo, // and marks
    Color,
    Images,
    Screening,
    SpotColor, // clear and spot colour
    JobStart,
    JobInformation,
    Warnings,
    Security,
    Count
};

std::string SubjectName(Subject subject);

enum class SettingKind : std::uint8_t { Choice, Number, Text, Password };

struct Choice {
    std::int64_t value = 0; // as the key has it while the application shows: a tag number where there is one
    std::string text;
};

struct SettingInfo {
    int number = -1; // a KeywordId, or a value number from 328 up; -1 for a named value without one
    const char* name = nullptr; // of the value in the data setting key
    bool isKeyword = false;     // stands in the banks, else among the named values
    bool isSigned = false;      // a number that stands there in two's complement
    Subject subject{};
    SettingKind kind{};
    std::string label; // as users know it; no other setting of the subject has the same
    std::vector<Choice> choices;
    std::int64_t least = 0; // of a number, in the key's units
    std::int64_t most = 0;
    std::size_t limit = 0;    // of a text, in bytes without its NUL
    std::string unit;         // of the number as it is shown, "" without one
    std::int64_t scale = 1;   // so many of the key's units...
    std::int64_t divisor = 1; // ...are so many shown units
    int decimals = 0;         // the most decimal places that are shown
};

class Catalogue {
  public:
    // A keyword that the device description has no options for, and the plug-in neither, is left out.
    explicit Catalogue(const ppd::PpdFile& device);

    // By subject, and within it in the order in which they are shown.
    std::span<const SettingInfo> Settings() const { return m_settings; }
    std::span<const SettingInfo> Of(Subject subject) const;
    // The position in Settings(), npos without one.
    std::size_t Find(std::string_view name) const;
    static constexpr std::size_t npos = static_cast<std::size_t>(-1);

    // The positions of the settings whose label, name and options' texts contain every word of the query, in
    // their order. Letters match in either case, half-width and full-width forms alike; an empty query finds
    // none.
    std::vector<std::size_t> Search(std::string_view query) const;

  private:
    std::vector<SettingInfo> m_settings;
    std::unordered_map<std::string_view, std::size_t> m_positions; // by name
    std::vector<std::u16string> m_searched;                        // folded, at the setting's position
};

} // namespace jobproperty

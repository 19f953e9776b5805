#include "host/printer_model.h"

#include "host/utf8.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <utility>

namespace {

// Numbers of the platform's own headers, which the native build does not have.
constexpr std::int16_t kFirstOwnId = 256; // DMBIN_USER and DMMEDIA_USER
// Programs that want a paper of their own lengths say DMPAPER_USER, 256, so the papers begin behind it.
constexpr std::int16_t kFirstOwnPaper = 257;
constexpr std::int16_t kAutoBin = 7; // DMBIN_AUTO

constexpr std::pair<std::string_view, std::int16_t> kPaperIds[] = {
    {"Letter", 1},    {"Tabloid", 3},
    {"Legal", 5},     {"Statement", 6},
    {"Executive", 7}, {"A3", 8},
    {"A4", 9},        {"A5", 11},
    {"B4", 12},       {"B5", 13},
    {"EnvC5", 28},    {"EnvC4", 30},
    {"EnvC6", 31},    {"FanFoldGermanLegal", 41},
    {"Postcard", 43}, {"9x11", 44},
    {"A2", 66},       {"A6", 70},
    {"EnvKaku2", 71}, {"EnvChou3", 73},
    {"EnvChou4", 74}, {"DoublePostcardRotated", 82},
    {"B6", 88},       {"EnvYou4", 91},
};

constexpr std::array<std::string_view, 5> kPublicFeatures = {"PageSize", "PageRegion", "InputSlot",
                                                             "MediaType", "Resolution"};

std::int16_t OwnId(std::size_t index) {
    return static_cast<std::int16_t>(kFirstOwnId + index);
}

std::int16_t PaperId(std::string_view keyword, std::size_t index) {
    auto found = std::ranges::find(kPaperIds, keyword, &std::pair<std::string_view, std::int16_t>::first);
    return found == std::end(kPaperIds) ? static_cast<std::int16_t>(kFirstOwnPaper + index) : found->second;
}

// Takes a number off the front of `text`; 0 if there is none that a DEVMODE's 16 bits can hold. Negative
// numbers have another meaning there.
int TakeDots(std::string_view& text) {
    int dots = 0;
    auto [end, status] = std::from_chars(text.data(), text.data() + text.size(), dots);
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return status == std::errc() && dots > 0 && dots <= 32767 ? dots : 0;
}

// "600dpi" and "600x1200dpi"; zeros for anything else.
DotsPerInch ParseResolution(std::string_view keyword) {
    DotsPerInch dots;
    dots.x = dots.y = TakeDots(keyword);
    if (keyword.starts_with('x')) {
        keyword.remove_prefix(1);
        dots.y = TakeDots(keyword);
    }
    return keyword == "dpi" && dots.x != 0 && dots.y != 0 ? dots : DotsPerInch{};
}

} // namespace

int TenthsOfMillimetre(double points) {
    return static_cast<int>(std::lround(points * 254.0 / 72.0));
}
int ThousandthsOfMillimetre(double points) {
    return static_cast<int>(std::lround(points * 25400.0 / 72.0));
}

PrinterModel::PrinterModel(ppd::PpdFile file, Language language)
    : m_file(std::move(file)), m_language(language) {
    for (std::size_t i = 0; i < m_file.features.size(); ++i) {
        const std::string& keyword = m_file.features[i].keyword;
        if (std::ranges::find(kPublicFeatures, keyword) == kPublicFeatures.end())
            m_tail.push_back(i);
    }
    m_duplex = m_file.FindFeature("Duplex");
    if (!m_duplex)
        m_duplex = m_file.FindFeature("DuplexMode");
    ReadForms();
    ReadBins();
    ReadMediaTypes();
    ReadResolutions();
}

std::optional<std::size_t> PrinterModel::Find(PublicFeature feature) const {
    return m_file.FindFeature(kPublicFeatures[static_cast<std::size_t>(feature)]);
}

void PrinterModel::ReadForms() {
    std::size_t pageSize = Find(PublicFeature::PageSize).value();
    const auto& options = m_file.features[pageSize].options;
    for (std::size_t i = 0; i < options.size(); ++i) {
        const ppd::Paper& paper = m_file.papers[i];
        m_forms.push_back({OptionText(pageSize, i),
                           PaperId(options[i].keyword, i),
                           {TenthsOfMillimetre(paper.width), TenthsOfMillimetre(paper.height)}});
    }
    if (const auto& custom = m_file.customPage)
        m_forms.push_back({Text(custom->text, custom->japanese),
                           kCustomPaperId,
                           {TenthsOfMillimetre(custom->maxWidth), TenthsOfMillimetre(custom->maxHeight)}});
}

std::optional<std::size_t> PrinterModel::CustomForm() const {
    if (!m_file.customPage)
        return std::nullopt;
    return m_forms.size() - 1;
}

std::size_t PrinterModel::DefaultForm() const {
    return m_file.features[Find(PublicFeature::PageSize).value()].defaultOption;
}

void PrinterModel::ReadBins() {
    auto feature = Find(PublicFeature::InputSlot);
    if (!feature)
        return;
    const auto& options = m_file.features[*feature].options;
    for (std::size_t i = 0; i < options.size(); ++i) {
        bool automatic = options[i].keyword == "AutoSelect" || options[i].keyword == "Auto";
        m_bins.push_back({OptionText(*feature, i), automatic ? kAutoBin : OwnId(i)});
    }
}

void PrinterModel::ReadMediaTypes() {
    auto feature = Find(PublicFeature::MediaType);
    if (!feature)
        return;
    for (std::size_t i = 0; i < m_file.features[*feature].options.size(); ++i)
        m_mediaTypes.push_back({OptionText(*feature, i), OwnId(i)});
}

void PrinterModel::ReadResolutions() {
    auto feature = Find(PublicFeature::Resolution);
    if (!feature)
        return;
    for (const ppd::Option& option : m_file.features[*feature].options)
        m_resolutions.push_back(ParseResolution(option.keyword));
}

PaperLength PrinterModel::SmallestPaper() const {
    PaperLength smallest = m_forms.front().size;
    for (const Form& form : m_forms) {
        smallest.width = std::min(smallest.width, form.size.width);
        smallest.height = std::min(smallest.height, form.size.height);
    }
    if (const auto& custom = m_file.customPage) {
        smallest.width = std::min(smallest.width, TenthsOfMillimetre(custom->minWidth));
        smallest.height = std::min(smallest.height, TenthsOfMillimetre(custom->minHeight));
    }
    return smallest;
}

PaperLength PrinterModel::LargestPaper() const {
    PaperLength largest;
    for (const Form& form : m_forms) {
        largest.width = std::max(largest.width, form.size.width);
        largest.height = std::max(largest.height, form.size.height);
    }
    return largest;
}

std::u16string PrinterModel::FeatureText(std::size_t feature) const {
    const ppd::Feature& entry = m_file.features[feature];
    return Text(entry.text, entry.japanese);
}

std::u16string PrinterModel::OptionText(std::size_t feature, std::size_t option) const {
    const ppd::Option& entry = m_file.features[feature].options[option];
    return Text(entry.text, entry.japanese);
}

std::u16string PrinterModel::Text(const std::string& english, const std::string& japanese) const {
    return Utf16(m_language == Language::Japanese && !japanese.empty() ? japanese : english);
}

#include "host/driver_devmode.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace {

// The platform's own numbers, which the native build does not have.
enum Field : std::uint32_t {
    Orientation = 0x1,
    PaperSize = 0x2,
    PaperLengthField = 0x4,
    PaperWidthField = 0x8,
    Scale = 0x10,
    Nup = 0x40,
    Copies = 0x100,
    DefaultSource = 0x200,
    PrintQuality = 0x400,
    Color = 0x800,
    Duplex = 0x1000,
    YResolution = 0x2000,
    TrueTypeOption = 0x4000,
    Collate = 0x8000,
    FormName = 0x10000,
    MediaType = 0x02000000,
};
constexpr std::int16_t kMonochrome = 1;
constexpr std::int16_t kColor = 2;
constexpr std::int16_t kDownloadFonts = 2; // DMTT_DOWNLOAD
constexpr std::uint32_t kNupBySystem = 1;
constexpr std::uint32_t kNupByProgram = 2;
constexpr std::int16_t kSimplex = 1;
constexpr std::int16_t kDuplexVertical = 2;
constexpr std::int16_t kDuplexHorizontal = 3;

// A DEVMODE up to and with dmFields; anything shorter can't tell what it has.
constexpr std::size_t kFixedPart = offsetof(PublicDevMode, dmFields) + sizeof(std::uint32_t);
constexpr std::size_t kMaxExtra = 0xFFFF;

template <std::size_t Size>
std::u16string_view FieldText(const char16_t (&field)[Size]) {
    return {field, static_cast<std::size_t>(std::ranges::find(field, u'\0') - field)};
}

// Copies what fits with its NUL and clears the rest; does not leave half of a surrogate pair.
template <std::size_t Size>
void SetFieldText(char16_t (&field)[Size], std::u16string_view text) {
    std::size_t length = std::min(text.size(), Size - 1);
    if (length > 0 && length < text.size() && text[length - 1] >= 0xD800 && text[length - 1] < 0xDC00)
        --length;
    std::ranges::fill(field, u'\0');
    std::ranges::copy(text.substr(0, length), field);
}

template <class Id>
std::optional<std::size_t> FindId(const std::vector<NamedId>& list, Id id) {
    auto found =
        std::ranges::find_if(list, [&](const NamedId& entry) { return std::cmp_equal(entry.id, id); });
    if (found == list.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - list.begin());
}

std::int16_t DuplexOf(std::string_view option) {
    if (option == "None" || option == "Simplex" || option == "False")
        return kSimplex;
    return option == "DuplexTumble" || option == "ShortEdge" ? kDuplexHorizontal : kDuplexVertical;
}

PaperLength LengthOf(const Settings& settings, const PrinterModel& model) {
    if (settings.form == model.CustomForm())
        return {(settings.customWidth + 50) / 100, (settings.customHeight + 50) / 100};
    return model.Forms()[settings.form].size;
}

// The limits of the custom page, in thousandths of a millimetre.
struct CustomLimits {
    int minWidth, maxWidth, minHeight, maxHeight;
};

// A printer's limits are whole tenths of a millimetre; the description's points are those, rounded.
CustomLimits LimitsOf(const ppd::CustomPage& page) {
    const auto limit = [](double points) { return 100 * TenthsOfMillimetre(points); };
    return {limit(page.minWidth), limit(page.maxWidth), limit(page.minHeight), limit(page.maxHeight)};
}

void SetCustomPage(Settings& settings, const PrinterModel& model, int width, int height) {
    const auto& page = model.File().customPage;
    if (!page)
        return;
    CustomLimits limits = LimitsOf(*page);
    settings.customWidth = std::clamp(width, limits.minWidth, limits.maxWidth);
    settings.customHeight = std::clamp(height, limits.minHeight, limits.maxHeight);
}

// The words of the custom page in the driver's private area, which plug-ins write.
void TakeCustomPage(const DriverArea& area, const PrinterModel& model, Settings& settings) {
    if (area.customDirection <= kMaxCustomDirection)
        settings.customDirection = area.customDirection;
    SetCustomPage(settings, model, area.customWidth, area.customHeight);
}

std::uint16_t* Selected(Settings& settings, const PrinterModel& model, PublicFeature feature) {
    auto index = model.Find(feature);
    return index ? &settings.selection[*index] : nullptr;
}

std::uint16_t SelectedOr0(const Settings& settings, const PrinterModel& model, PublicFeature feature) {
    auto index = model.Find(feature);
    return index ? settings.selection[*index] : std::uint16_t{0};
}

std::int16_t DuplexOf(const Settings& settings, const PrinterModel& model) {
    auto feature = model.DuplexFeature();
    return feature ? DuplexOf(model.Features()[*feature].options[settings.selection[*feature]].keyword)
                   : kSimplex;
}

// The public fields as this driver would write them for the settings.
PublicDevMode MakePublic(const Settings& settings, const PrinterModel& model) {
    PublicDevMode dm{};
    dm.dmSpecVersion = kSpecVersion;
    dm.dmDriverVersion = kDriverVersion;
    dm.dmSize = kPublicSize;
    dm.dmFields = PublicFields(model);
    dm.dmOrientation = settings.orientation == kPortrait ? 1 : 2;
    dm.dmPaperSize = model.Forms()[settings.form].paperId;
    PaperLength length = LengthOf(settings, model);
    dm.dmPaperWidth = static_cast<std::int16_t>(std::min(length.width, 32767));
    dm.dmPaperLength = static_cast<std::int16_t>(std::min(length.height, 32767));
    if (settings.form == model.CustomForm())
        dm.dmFields |= Field::PaperLengthField | Field::PaperWidthField;
    dm.dmScale = static_cast<std::int16_t>(settings.scale);
    dm.dmCopies = static_cast<std::int16_t>(settings.copies);
    dm.dmCollate = settings.collate;
    dm.dmColor = model.File().colorDevice ? kColor : kMonochrome;
    dm.dmTTOption = kDownloadFonts;
    dm.dmDuplex = DuplexOf(settings, model);
    dm.dmNup = settings.nup == 0 ? kNupByProgram : kNupBySystem;
    SetFieldText(dm.dmFormName, model.Forms()[settings.form].name);
    if (!model.Bins().empty())
        dm.dmDefaultSource = model.Bins()[SelectedOr0(settings, model, PublicFeature::InputSlot)].id;
    if (!model.MediaTypes().empty())
        dm.dmMediaType = static_cast<std::uint32_t>(
            model.MediaTypes()[SelectedOr0(settings, model, PublicFeature::MediaType)].id);
    if (!model.Resolutions().empty()) {
        DotsPerInch dots = model.Resolutions()[SelectedOr0(settings, model, PublicFeature::Resolution)];
        dm.dmPrintQuality = static_cast<std::int16_t>(dots.x);
        dm.dmYResolution = static_cast<std::int16_t>(dots.y);
    }
    return dm;
}

// Lays a DEVMODE's public fields over settings. Programs change a field and leave its relatives as they were
// (the paper's number but not its name), so only a field that differs from what the driver wrote tells
// anything.
class PublicReader {
  public:
    PublicReader(const PublicDevMode& dm, const PrinterModel& model, Settings& settings)
        : m_dm(dm), m_model(model), m_settings(settings), m_written(MakePublic(settings, model)) {}

    void ReadAll() {
        ReadOrientation();
        ReadForm();
        ReadNumbers();
        ReadSource();
        ReadMediaType();
        ReadResolution();
        ReadDuplex();
    }

  private:
    bool Has(std::uint32_t fields) const { return (m_dm.dmFields & fields) != 0; }

    void ReadOrientation() {
        if (!Has(Field::Orientation) || m_dm.dmOrientation == m_written.dmOrientation)
            return;
        if (m_dm.dmOrientation == 1)
            m_settings.orientation = kPortrait;
        else if (m_dm.dmOrientation == 2)
            m_settings.orientation = kLandscape;
    }

    void ReadForm() {
        std::optional<std::size_t> form;
        if (Has(Field::PaperSize) && m_dm.dmPaperSize != m_written.dmPaperSize)
            form = FindForm([&](const Form& entry) { return entry.paperId == m_dm.dmPaperSize; });
        else if (Has(Field::FormName) && FieldText(m_dm.dmFormName) != FieldText(m_written.dmFormName))
            form = FindForm([&](const Form& entry) {
                return entry.name.substr(0, std::size(m_dm.dmFormName) - 1) == FieldText(m_dm.dmFormName);
            });
        if (!form)
            form = FormOfLengths();
        if (!form)
            return;
        ChooseForm(m_settings, m_model, *form);
        if (form == m_model.CustomForm())
            ReadCustomLengths();
    }

    template <class Match>
    std::optional<std::size_t> FindForm(Match match) const {
        auto found = std::ranges::find_if(m_model.Forms(), match);
        if (found == m_model.Forms().end())
            return std::nullopt;
        return static_cast<std::size_t>(found - m_model.Forms().begin());
    }

    bool LengthsChanged() const {
        return Has(Field::PaperWidthField) && Has(Field::PaperLengthField) &&
               (m_dm.dmPaperWidth != m_written.dmPaperWidth || m_dm.dmPaperLength != m_written.dmPaperLength);
    }

    // A width and a length without a paper that goes with them are the form of that size, or the custom page.
    std::optional<std::size_t> FormOfLengths() const {
        constexpr int kTolerance = 20; // tenths of a millimetre
        if (!LengthsChanged())
            return std::nullopt;
        if (m_model.CustomForm() && m_settings.form == *m_model.CustomForm())
            return m_model.CustomForm();
        auto form = FindForm([&](const Form& entry) {
            return entry.paperId != kCustomPaperId &&
                   std::abs(entry.size.width - m_dm.dmPaperWidth) < kTolerance &&
                   std::abs(entry.size.height - m_dm.dmPaperLength) < kTolerance;
        });
        return form ? form : m_model.CustomForm();
    }

    void ReadCustomLengths() {
        if (LengthsChanged())
            SetCustomPage(m_settings, m_model, m_dm.dmPaperWidth * 100, m_dm.dmPaperLength * 100);
    }

    void ReadNumbers() {
        if (Has(Field::Scale) && m_dm.dmScale >= kMinScale && m_dm.dmScale <= kMaxScale)
            m_settings.scale = m_dm.dmScale;
        if (Has(Field::Copies) && m_dm.dmCopies >= kMinCopies && m_dm.dmCopies <= kMaxCopies)
            m_settings.copies = m_dm.dmCopies;
        if (Has(Field::Collate))
            m_settings.collate = m_dm.dmCollate != 0;
        if (Has(Field::Nup) && m_dm.dmNup == kNupByProgram)
            m_settings.nup = 0;
    }

    // Two trays may have one number, that of the automatic one.
    void ReadSource() {
        if (m_dm.dmDefaultSource == m_written.dmDefaultSource)
            return;
        auto* selected = Selected(m_settings, m_model, PublicFeature::InputSlot);
        if (auto found = FindId(m_model.Bins(), m_dm.dmDefaultSource);
            selected && found && Has(Field::DefaultSource))
            *selected = static_cast<std::uint16_t>(*found);
    }

    void ReadMediaType() {
        auto* selected = Selected(m_settings, m_model, PublicFeature::MediaType);
        if (auto found = FindId(m_model.MediaTypes(), m_dm.dmMediaType);
            selected && found && Has(Field::MediaType))
            *selected = static_cast<std::uint16_t>(*found);
    }

    // Without a second figure the first is for both directions, as it is where a program changed the first
    // alone and the printer has no such pair. Below zero stand DMRES_LOW and the like, which say nothing
    // about a printer that has figures.
    void ReadResolution() {
        auto* selected = Selected(m_settings, m_model, PublicFeature::Resolution);
        if (!selected || !Has(Field::PrintQuality) || m_dm.dmPrintQuality <= 0)
            return;
        const int x = m_dm.dmPrintQuality;
        const int y = Has(Field::YResolution) ? m_dm.dmYResolution : x;
        const bool sameX = x == m_written.dmPrintQuality;
        const bool sameY = y == m_written.dmYResolution;
        if (sameX && sameY)
            return;
        auto found = FindResolution(x, y);
        if (!found && sameY)
            found = FindResolution(x, x);
        if (found)
            *selected = static_cast<std::uint16_t>(*found);
    }

    std::optional<std::size_t> FindResolution(int x, int y) const {
        const auto& list = m_model.Resolutions();
        auto found = std::ranges::find_if(list, [&](DotsPerInch dots) { return dots.x == x && dots.y == y; });
        if (found == list.end())
            return std::nullopt;
        return static_cast<std::size_t>(found - list.begin());
    }

    void ReadDuplex() {
        auto feature = m_model.DuplexFeature();
        if (!feature || !Has(Field::Duplex) || m_dm.dmDuplex == m_written.dmDuplex)
            return;
        const auto& options = m_model.Features()[*feature].options;
        auto found = std::ranges::find_if(
            options, [&](const ppd::Option& option) { return DuplexOf(option.keyword) == m_dm.dmDuplex; });
        if (found != options.end())
            m_settings.selection[*feature] = static_cast<std::uint16_t>(found - options.begin());
    }

    const PublicDevMode& m_dm;
    const PrinterModel& m_model;
    Settings& m_settings;
    PublicDevMode m_written;
};

// The private area into settings. What is wrong with it, or "".
std::string ReadArea(const DriverArea& area, std::span<const std::byte> selections, const PrinterModel& model,
                     DevModeReading& reading) {
    Settings& settings = reading.settings;
    if (area.nup >= kPagesPerSheet.size())
        return "The DEVMODE holds a number of pages per sheet that the driver does not have.";
    settings.nup = area.nup;
    // A plain landscape shows in the public field.
    settings.orientation = area.rotatedLandscape != 0 ? kRotatedLandscape : kPortrait;
    TakeCustomPage(area, model, settings);
    if (area.descriptionChecksum != model.File().checksum || area.featureCount != model.Features().size()) {
        reading.remark = "The DEVMODE was made for another printer description; its options were not taken.";
        return {};
    }
    std::memcpy(settings.selection.data(), selections.data(),
                settings.selection.size() * sizeof(std::uint16_t));
    std::size_t pageSize = model.Find(PublicFeature::PageSize).value();
    for (std::size_t i = 0; i < settings.selection.size(); ++i) {
        std::size_t count = i == pageSize ? model.Forms().size() : model.Features()[i].options.size();
        if (settings.selection[i] >= count)
            return "The DEVMODE selects an option that the printer does not have.";
    }
    settings.form = std::exchange(settings.selection[pageSize], std::uint16_t{0});
    return {};
}

DevModeReading Broken(const Settings& base, std::string why) {
    return {base, {}, std::move(why), {}};
}

} // namespace

Settings DefaultSettings(const PrinterModel& model) {
    Settings settings;
    settings.form = model.DefaultForm();
    const ppd::Paper& paper = model.File().papers[settings.form];
    SetCustomPage(settings, model, ThousandthsOfMillimetre(paper.width),
                  ThousandthsOfMillimetre(paper.height));
    for (const ppd::Feature& feature : model.Features())
        settings.selection.push_back(static_cast<std::uint16_t>(feature.defaultOption));
    settings.selection[model.Find(PublicFeature::PageSize).value()] = 0;
    return settings;
}

std::uint32_t PublicFields(const PrinterModel& model) {
    std::uint32_t fields = Field::Orientation | Field::PaperSize | Field::Scale | Field::Nup | Field::Copies |
                           Field::Color | Field::TrueTypeOption | Field::Collate | Field::FormName;
    if (!model.Bins().empty())
        fields |= Field::DefaultSource;
    if (!model.MediaTypes().empty())
        fields |= Field::MediaType;
    if (!model.Resolutions().empty())
        fields |= Field::PrintQuality | Field::YResolution;
    if (model.DuplexFeature())
        fields |= Field::Duplex;
    return fields;
}

// The plug-in's block begins at a multiple of 8 from the DEVMODE's start.
std::size_t DriverAreaSize(const PrinterModel& model) {
    std::size_t end = kPublicSize + sizeof(DriverArea) + model.Features().size() * sizeof(std::uint16_t);
    return (end + 7) / 8 * 8 - kPublicSize;
}

std::size_t DevModeSize(const PrinterModel& model, std::size_t pluginSize) {
    std::size_t area = DriverAreaSize(model);
    return pluginSize > kMaxExtra || area + pluginSize > kMaxExtra ? 0 : kPublicSize + area + pluginSize;
}

DevModeReading ReadDevMode(std::span<const std::byte> bytes, const PrinterModel& model,
                           const Settings& base) {
    PublicDevMode dm{};
    if (bytes.size() < kFixedPart)
        return Broken(base, "The DEVMODE is shorter than its fixed part.");
    std::memcpy(&dm, bytes.data(), kFixedPart);
    if (dm.dmSize < kFixedPart)
        return Broken(base, "The DEVMODE says that it is shorter than its fixed part.");
    if (std::size_t{dm.dmSize} + dm.dmDriverExtra > bytes.size())
        return Broken(base, "The DEVMODE says that it is longer than its buffer.");
    std::memcpy(&dm, bytes.data(), std::min<std::size_t>(dm.dmSize, kPublicSize));

    DevModeReading reading{base, {}, {}, {}};
    if (dm.dmDriverExtra != 0) {
        if (dm.dmSize != kPublicSize || dm.dmDriverExtra < sizeof(DriverArea))
            return Broken(base, "The DEVMODE is not one of this driver's: its parts have other sizes.");
        auto extra = bytes.subspan(kPublicSize, dm.dmDriverExtra);
        DriverArea area;
        std::memcpy(&area, extra.data(), sizeof area);
        if (area.signature != kDriverSignature)
            return Broken(base, "The DEVMODE is not one of this driver's: its signature differs.");
        if (area.version != kDriverAreaVersion)
            return Broken(base, "The DEVMODE was made by another version of the driver.");
        if (area.size < sizeof area + std::size_t{area.featureCount} * sizeof(std::uint16_t) ||
            std::size_t{area.size} + area.pluginSize != extra.size())
            return Broken(base, "The lengths inside the DEVMODE contradict each other.");
        auto trouble = ReadArea(area, extra.subspan(sizeof area), model, reading);
        if (!trouble.empty())
            return Broken(base, std::move(trouble));
        reading.pluginBlock = extra.last(area.pluginSize);
    }
    PublicReader(dm, model, reading.settings).ReadAll();
    return reading;
}

void WriteDevMode(std::span<std::byte> bytes, const Settings& settings, const PrinterModel& model,
                  std::size_t pluginSize, std::u16string_view deviceName) {
    PublicDevMode dm = MakePublic(settings, model);
    SetFieldText(dm.dmDeviceName, deviceName);
    dm.dmDriverExtra = static_cast<std::uint16_t>(bytes.size() - kPublicSize);

    DriverArea area{};
    area.signature = kDriverSignature;
    area.version = kDriverAreaVersion;
    area.size = static_cast<std::uint16_t>(DriverAreaSize(model));
    area.descriptionChecksum = model.File().checksum;
    area.pluginSize = static_cast<std::uint32_t>(pluginSize);
    area.featureCount = static_cast<std::uint16_t>(model.Features().size());
    area.nup = static_cast<std::uint16_t>(settings.nup);
    area.rotatedLandscape = settings.orientation == kRotatedLandscape;
    area.customWidth = settings.customWidth;
    area.customHeight = settings.customHeight;
    area.customDirection = settings.customDirection;

    std::ranges::fill(bytes.first(kPublicSize + area.size), std::byte{0});
    std::memcpy(bytes.data(), &dm, sizeof dm);
    std::memcpy(bytes.data() + kPublicSize, &area, sizeof area);
    auto selection = settings.selection;
    selection[model.Find(PublicFeature::PageSize).value()] = static_cast<std::uint16_t>(settings.form);
    std::memcpy(bytes.data() + kPublicSize + sizeof area, selection.data(),
                selection.size() * sizeof(std::uint16_t));
}

void ReadCustomPage(std::span<const std::byte> bytes, const PrinterModel& model, Settings& settings) {
    DriverArea area;
    std::memcpy(&area, bytes.data() + kPublicSize, sizeof area);
    TakeCustomPage(area, model, settings);
}

void ChooseForm(Settings& settings, const PrinterModel& model, std::size_t form) {
    settings.form = form;
    const auto region = model.Find(PublicFeature::PageRegion);
    if (region && form < model.Features()[*region].options.size())
        settings.selection[*region] = static_cast<std::uint16_t>(form);
}

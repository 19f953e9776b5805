#include "host/public_devmode.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <utility>
#include <vector>

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

class PublicReader {
  public:
    PublicReader(const PublicDevMode& dm, const PrinterModel& model, Settings& settings)
        : m_dm(dm), m_model(model), m_settings(settings), m_written(MakePublicDevMode(settings, model)) {}

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

} // namespace

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

PublicDevMode MakePublicDevMode(const Settings& settings, const PrinterModel& model,
                                std::u16string_view deviceName) {
    PublicDevMode dm{};
    SetFieldText(dm.dmDeviceName, deviceName);
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

void ReadPublicFields(const PublicDevMode& dm, const PrinterModel& model, Settings& settings) {
    PublicReader(dm, model, settings).ReadAll();
}

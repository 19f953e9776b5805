// What a printer description means to the platform: its forms, trays, media types and resolutions with the
// numbers that a DEVMODE knows them by.
#pragma once

#include "host/ppd.h"

#include <cstdint>
#include <string>
#include <vector>

inline constexpr std::int16_t kCustomPaperId = 0x7FFF; // DMPAPER_CUSTOMSIZE

enum class Language { English, Japanese };

// In tenths of a millimetre.
struct PaperLength {
    int width = 0;
    int height = 0;
};

struct Form {
    std::u16string name;
    std::int16_t paperId = 0; // DMPAPER_
    PaperLength size;         // of the custom page: its largest
};

struct NamedId {
    std::u16string name;
    std::int16_t id = 0; // DMBIN_ or DMMEDIA_
};

struct DotsPerInch {
    int x = 0;
    int y = 0;
};

// The features that stand behind public DEVMODE fields. All others are the tail of the option item tree.
enum class PublicFeature { PageSize, PageRegion, InputSlot, MediaType, Resolution };

class PrinterModel {
  public:
    PrinterModel(ppd::PpdFile file, Language language);

    const ppd::PpdFile& File() const { return m_file; }
    const std::vector<ppd::Feature>& Features() const { return m_file.features; }
    Language TextLanguage() const { return m_language; }

    // The index of the feature, if the description has it.
    std::optional<std::size_t> Find(PublicFeature feature) const;
    // The feature that prints on both sides, whatever its keyword.
    std::optional<std::size_t> DuplexFeature() const { return m_duplex; }

    // The features without a public field, by index, in the description's order.
    const std::vector<std::size_t>& TailFeatures() const { return m_tail; }

    // The options of PageSize and, behind them, the custom page if there is one.
    const std::vector<Form>& Forms() const { return m_forms; }
    std::optional<std::size_t> CustomForm() const;
    std::size_t DefaultForm() const;

    const std::vector<NamedId>& Bins() const { return m_bins; }
    const std::vector<NamedId>& MediaTypes() const { return m_mediaTypes; }
    const std::vector<DotsPerInch>& Resolutions() const { return m_resolutions; }

    // The limits of paper lengths over all forms.
    PaperLength SmallestPaper() const;
    PaperLength LargestPaper() const;

    // Texts in the model's language, the other one where it is missing.
    std::u16string FeatureText(std::size_t feature) const;
    std::u16string OptionText(std::size_t feature, std::size_t option) const;

  private:
    std::u16string Text(const std::string& english, const std::string& japanese) const;
    void ReadForms();
    void ReadBins();
    void ReadMediaTypes();
    void ReadResolutions();

    ppd::PpdFile m_file;
    Language m_language;
    std::optional<std::size_t> m_duplex;
    std::vector<std::size_t> m_tail;
    std::vector<Form> m_forms;
    std::vector<NamedId> m_bins;
    std::vector<NamedId> m_mediaTypes;
    std::vector<DotsPerInch> m_resolutions;
};

int TenthsOfMillimetre(double points);
int ThousandthsOfMillimetre(double points);

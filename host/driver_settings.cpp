#include "host/driver_settings.h"

#include <algorithm>

namespace {

// The limits of the custom page, in thousandths of a millimetre.
struct CustomLimits {
    int minWidth, maxWidth, minHeight, maxHeight;
};

// A printer's limits are whole tenths of a millimetre; the description's points are those, rounded.
CustomLimits LimitsOf(const ppd::CustomPage& page) {
    const auto limit = [](double points) { return 100 * TenthsOfMillimetre(points); };
    return {limit(page.minWidth), limit(page.maxWidth), limit(page.minHeight), limit(page.maxHeight)};
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

void ChooseForm(Settings& settings, const PrinterModel& model, std::size_t form) {
    settings.form = form;
    const auto region = model.Find(PublicFeature::PageRegion);
    if (region && form < model.Features()[*region].options.size())
        settings.selection[*region] = static_cast<std::uint16_t>(form);
}

void SetCustomPage(Settings& settings, const PrinterModel& model, int width, int height) {
    const auto& page = model.File().customPage;
    if (!page)
        return;
    CustomLimits limits = LimitsOf(*page);
    settings.customWidth = std::clamp(width, limits.minWidth, limits.maxWidth);
    settings.customHeight = std::clamp(height, limits.minHeight, limits.maxHeight);
}

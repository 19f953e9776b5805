#include "companions/jobproperty/device_options.h"

#include "companions/jobproperty/device_text.h"
#include "host/driver_devmode.h"
#include "host/printer_model.h"
#include "session/keyword.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace jobproperty {
namespace {

// The driver's public settings have the platform's names in a description.
std::string_view FeatureName(int keyword) {
    switch (keyword) {
    case keyword::Tray: return "InputSlot";
    case keyword::PaperTypeD: return "MediaType";
    default: return kKeywordNames[static_cast<std::size_t>(keyword)];
    }
}

const ppd::Feature* FindFeature(const ppd::PpdFile& device, int keyword) {
    const auto feature = device.FindFeature(FeatureName(keyword));
    return feature ? &device.features[*feature] : nullptr;
}

template <class Named>
std::string NameOf(const Named& named) {
    return DeviceText(named.japanese.empty() ? named.text : named.japanese);
}

std::uint32_t DefaultPaperLength(const ppd::PpdFile& device, double ppd::Paper::*length) {
    const ppd::Feature* sizes = FindFeature(device, keyword::PageSize);
    if (!sizes || sizes->defaultOption >= device.papers.size())
        return 0;
    return static_cast<std::uint32_t>(ThousandthsOfMillimetre(device.papers[sizes->defaultOption].*length));
}

} // namespace

std::string DeviceLabel(const ppd::PpdFile& device, int keyword) {
    const ppd::Feature* feature = FindFeature(device, keyword);
    return feature ? NameOf(*feature) : std::string();
}

std::vector<std::string> DeviceOptions(const ppd::PpdFile& device, int keyword) {
    std::vector<std::string> names;
    if (const ppd::Feature* feature = FindFeature(device, keyword))
        std::ranges::transform(feature->options, std::back_inserter(names), NameOf<ppd::Option>);
    if (keyword == keyword::PageSize && device.customPage)
        names.push_back(NameOf(*device.customPage));
    return names;
}

std::uint32_t DeviceDefault(const ppd::PpdFile& device, int keyword) {
    const Settings driver;
    switch (keyword) {
    case keyword::Copies: return static_cast<std::uint32_t>(driver.copies);
    case keyword::Scale: return static_cast<std::uint32_t>(driver.scale);
    case keyword::Collate: return driver.collate ? 1 : 0;
    case keyword::PageOrientation: return static_cast<std::uint32_t>(driver.orientation);
    case keyword::NUP: return static_cast<std::uint32_t>(driver.nup);
    case keyword::CustomPaperWidth: return DefaultPaperLength(device, &ppd::Paper::width);
    case keyword::CustomPaperHeight: return DefaultPaperLength(device, &ppd::Paper::height);
    default: break;
    }
    const ppd::Feature* feature = FindFeature(device, keyword);
    return feature ? static_cast<std::uint32_t>(feature->defaultOption) : 0;
}

} // namespace jobproperty

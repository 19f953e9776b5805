#include "host/driver_devmode.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace {

// A DEVMODE up to and with dmFields; anything shorter can't tell what it has.
constexpr std::size_t kFixedPart = offsetof(PublicDevMode, dmFields) + sizeof(std::uint32_t);
constexpr std::size_t kMaxExtra = 0xFFFF;

// The words of the custom page in the driver's private area, which plug-ins write.
void TakeCustomPage(const DriverArea& area, const PrinterModel& model, Settings& settings) {
    if (area.customDirection <= kMaxCustomDirection)
        settings.customDirection = area.customDirection;
    SetCustomPage(settings, model, area.customWidth, area.customHeight);
}

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
    ReadPublicFields(dm, model, reading.settings);
    return reading;
}

void WriteDevMode(std::span<std::byte> bytes, const Settings& settings, const PrinterModel& model,
                  std::size_t pluginSize, std::u16string_view deviceName) {
    PublicDevMode dm = MakePublicDevMode(settings, model, deviceName);
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

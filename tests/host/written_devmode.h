// DEVMODEs as the driver writes them for a small printer description.
#pragma once

#include "host/driver_devmode.h"
#include "tests/support/file_contents.h"

#include <cstddef>
#include <string>
#include <variant>
#include <vector>

// Of small.ppd.
inline constexpr std::size_t kPageRegion = 1;
inline constexpr std::size_t kInputSlot = 2;
inline constexpr std::size_t kResolution = 4;
inline constexpr std::size_t kStapleMode = 5;
inline constexpr std::size_t kCustomForm = 4;

inline constexpr std::size_t kBlock = 64; // of the plug-in

inline PrinterModel MakeModel(Language language = Language::Japanese, std::string text = SmallPpd()) {
    return {std::get<ppd::PpdFile>(ppd::Parse(text)), language};
}

using Bytes = std::vector<std::byte>;

inline Bytes Write(const PrinterModel& model, const Settings& settings) {
    Bytes bytes(DevModeSize(model, kBlock));
    WriteDevMode(bytes, settings, model, kBlock, u"Orvane X100");
    return bytes;
}

inline PublicDevMode& Public(Bytes& bytes) {
    return *reinterpret_cast<PublicDevMode*>(bytes.data());
}
inline DriverArea& Area(Bytes& bytes) {
    return *reinterpret_cast<DriverArea*>(bytes.data() + kPublicSize);
}

inline DevModeReading Read(const Bytes& bytes, const PrinterModel& model) {
    return ReadDevMode(bytes, model, DefaultSettings(model));
}

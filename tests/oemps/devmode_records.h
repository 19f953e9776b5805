// Records for the tests of the private DEVMODE, and its conversion and merge once more in the plainest way.
#pragma once

#include "oemps/devmode.h"

#include <cstdint>
#include <cstring>
#include <memory>
#include <span>
#include <string_view>

using RecordBytes = std::span<unsigned char, kDevModeSize>;

inline RecordBytes BytesOf(PrivateDevMode& record) {
    return RecordBytes(reinterpret_cast<unsigned char*>(&record), kDevModeSize);
}

inline std::string_view ViewOf(const PrivateDevMode& record) {
    return {reinterpret_cast<const char*>(&record), kDevModeSize};
}

inline void SetHeader(PrivateDevMode& record) {
    record.dwSize = 24112;
    record.dwSignature = 0x4D534654;
    record.dwVersion = 2;
}

// A record of one byte throughout behind a valid header.
inline std::unique_ptr<PrivateDevMode> MakeFilled(unsigned char fill) {
    auto record = std::make_unique<PrivateDevMode>();
    std::memset(record.get(), fill, sizeof *record);
    SetHeader(*record);
    return record;
}

inline std::unique_ptr<PrivateDevMode> MakeDefault() {
    auto record = std::make_unique<PrivateDevMode>();
    CDevMode(*record).SetDefault(24112);
    return record;
}

template <std::size_t N>
void SetText(char (&field)[N], std::string_view text) {
    std::memset(field, 0, N);
    std::memcpy(field, text.data(), text.size() < N ? text.size() : N);
}

// The offset of the first byte in which two records differ, kDevModeSize if there is none.
inline std::size_t FirstDifference(const PrivateDevMode& one, const PrivateDevMode& other) {
    std::size_t at = 0;
    while (at < kDevModeSize && ViewOf(one)[at] == ViewOf(other)[at])
        ++at;
    return at;
}

// The numbers that a merge takes from any source, as runs of 32-bit words.
struct WordRun {
    std::size_t offset;
    std::size_t count;
};
inline constexpr WordRun kWordsOfAnySource[] = {
    {24080, 7},  // SamplePrintMode up to StapleMechanism
    {4916, 1},   // Magnification
    {23664, 1},  // ColorOutlineEmphasis
    {24072, 2},  // AutoJobStartSpecifiedDayAndTimeForDriver
    {4772, 5},   // AutoJobStartSpecifiedHour up to AutoJobStartElapsedMinutes
    {23564, 25}, // Crease up to TopAndTailTrimFrontCutSize
    {5456, 2},   // GraphicsTreatmentBase, GraphicsTreatmentMode
    {10436, 2},  // MinimumLineWidthBase, MinimumLineWidthValue
    {6264, 20},  // UsePdlRgbRenderingIntent up to AppeVersion
    {4900, 3},   // CustomCoverPageNum, CoverPageTray, CoverPageStkType
    {4704, 1},   // ManageMethod
    {23772, 1},  // SpecifyJobOwnerName
    {23776, 1},  // the reserved word
};

// Both records must be whole, with equal headers.
void PlainConvert(PrivateDevMode& target, const PrivateDevMode& source);
void PlainMerge(PrivateDevMode& target, const PrivateDevMode& source);

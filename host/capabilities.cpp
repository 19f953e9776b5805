#include "host/capabilities.h"

#include "host/driver_devmode.h"

#include <winspool.h>

#include <algorithm>
#include <vector>

namespace {

// The fixed slots of name lists, in characters. Client libraries turn them into bytes for ANSI callers.
constexpr std::size_t kPaperNameSlot = 64;
constexpr std::size_t kBinNameSlot = 24;
constexpr std::size_t kMediaNameSlot = 64;

// A name that fills its slot has no NUL, as the platform allows; this driver cuts it short instead.
template <class List>
DWORD WriteNames(const List& list, std::size_t slot, void* output) {
    auto* text = static_cast<wchar_t*>(output);
    for (std::size_t i = 0; text && i < list.size(); ++i) {
        std::u16string_view name = std::u16string_view(list[i].name).substr(0, slot - 1);
        std::fill_n(text + i * slot, slot, L'\0');
        std::ranges::copy(name, text + i * slot);
    }
    return static_cast<DWORD>(list.size());
}

template <class Value, class List, class Projection>
DWORD WriteValues(const List& list, void* output, Projection projection) {
    auto* values = static_cast<Value*>(output);
    for (std::size_t i = 0; values && i < list.size(); ++i)
        values[i] = projection(list[i]);
    return static_cast<DWORD>(list.size());
}

DWORD Extent(PaperLength length) {
    auto word = [](int value) { return static_cast<WORD>(std::clamp(value, 0, 0xFFFF)); };
    return static_cast<DWORD>(MAKELONG(word(length.width), word(length.height)));
}

DWORD WriteResolutions(const PrinterModel& model, void* output) {
    auto* values = static_cast<LONG*>(output);
    DWORD count = 0;
    for (DotsPerInch dots : model.Resolutions()) {
        if (dots.x == 0)
            continue;
        if (values) {
            *values++ = dots.x;
            *values++ = dots.y;
        }
        ++count;
    }
    return count;
}

DWORD WritePagesPerSheet(void* output) {
    return WriteValues<DWORD>(kPagesPerSheet, output, [](int pages) { return static_cast<DWORD>(pages); });
}

} // namespace

std::optional<DWORD> DescribedCapability(const PrinterModel& model, WORD capability, void* output) {
    auto number = [](const auto& entry) { return static_cast<WORD>(entry.id); };
    switch (capability) {
    case DC_FIELDS: return PublicFields(model);
    case DC_VERSION: return kSpecVersion;
    case DC_DRIVER: return kDriverVersion;
    case DC_PAPERS:
        return WriteValues<WORD>(model.Forms(), output,
                                 [](const Form& form) { return static_cast<WORD>(form.paperId); });
    case DC_PAPERNAMES: return WriteNames(model.Forms(), kPaperNameSlot, output);
    case DC_PAPERSIZE:
        return WriteValues<POINT>(model.Forms(), output, [](const Form& form) {
            return POINT{form.size.width, form.size.height};
        });
    case DC_MINEXTENT: return Extent(model.SmallestPaper());
    case DC_MAXEXTENT: return Extent(model.LargestPaper());
    case DC_BINS: return WriteValues<WORD>(model.Bins(), output, number);
    case DC_BINNAMES: return WriteNames(model.Bins(), kBinNameSlot, output);
    case DC_MEDIATYPES:
        return WriteValues<DWORD>(model.MediaTypes(), output,
                                  [](const NamedId& entry) { return static_cast<DWORD>(entry.id); });
    case DC_MEDIATYPENAMES: return WriteNames(model.MediaTypes(), kMediaNameSlot, output);
    case DC_ENUMRESOLUTIONS: return WriteResolutions(model, output);
    case DC_NUP: return WritePagesPerSheet(output);
    case DC_COPIES: return static_cast<DWORD>(kMaxCopies);
    case DC_COLLATE: return 1;
    case DC_DUPLEX: return model.DuplexFeature() ? 1 : 0;
    case DC_COLORDEVICE: return model.File().colorDevice ? 1 : 0;
    case DC_ORIENTATION: return 90; // degrees from portrait to landscape
    case DC_TRUETYPE: return DCTT_DOWNLOAD;
    default: return std::nullopt;
    }
}

// Any bytes are read as a DEVMODE or refused, without a read outside them, and what was read can be written
// again and comes back the same: invariants 10 and 11 of docs/security.md.
#include "host/driver_devmode.h"

#include <cstdlib>

namespace {

constexpr std::string_view kDescription = R"(*PPD-Adobe: "4.3"
*OpenUI *PageSize: PickOne
*DefaultPageSize: A4
*PageSize A3: ""
*PageSize A4: ""
*CloseUI: *PageSize
*PaperDimension A3: "842 1191"
*PaperDimension A4: "595 842"
*ImageableArea A3: "0 0 842 1191"
*ImageableArea A4: "0 0 595 842"
*OpenUI *InputSlot: PickOne
*DefaultInputSlot: Auto
*InputSlot Auto: ""
*InputSlot Tray1: ""
*CloseUI: *InputSlot
*OpenUI *Resolution: PickOne
*DefaultResolution: 600dpi
*Resolution 600dpi: ""
*Resolution 1200dpi: ""
*CloseUI: *Resolution
*OpenUI *Duplex: PickOne
*DefaultDuplex: None
*Duplex None: ""
*Duplex DuplexTumble: ""
*CloseUI: *Duplex
*CustomPageSize True: ""
*ParamCustomPageSize Width: 1 points 252.28 907.09
*ParamCustomPageSize Height: 2 points 277.79 3401.58
)";

constexpr std::size_t kBlock = 16;

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const PrinterModel model(std::get<ppd::PpdFile>(ppd::Parse(kDescription)), Language::English);
    Settings base = DefaultSettings(model);
    DevModeReading reading = ReadDevMode(std::as_bytes(std::span(data, size)), model, base);
    std::vector<std::byte> written(DevModeSize(model, kBlock));
    WriteDevMode(written, reading.settings, model, kBlock, u"printer");
    DevModeReading again = ReadDevMode(written, model, base);
    if (!again.trouble.empty() || again.settings != reading.settings)
        std::abort();
    return 0;
}

// The way from the store to the driver: its items, the private DEVMODE and the driver's own area.
#include "Common/log.h"
#include "session/datamanager.h"
#include "session/driver_area.h"
#include "session/record_transfer.h"
#include "session/session.h"

namespace {

std::uint32_t Current(int id) {
    std::uint32_t value = 0;
    ExportedFunc_GetCurrent(id, &value);
    return value;
}

// The table's index is the id, since the names are unique. The custom paper's keywords have a route into the
// record.
void ApplyKeywords(CSession session) {
    for (int id = 0; id < kKeywordCount; ++id) {
        const std::uint32_t value = Current(id);
        ZR_LOG("%s(%d)=%u\n", kKeywordNames[static_cast<std::size_t>(id)], id, value);
        session.DRVSetDWord(id, value);
    }
}

void ApplyRoutedValues(CSession session) {
    for (const RoutedValue& value : RoutedValues())
        session.DRVSetDWord(value.id, value.read());
}

void ApplyOutputPaper(CSession session) {
    std::uint32_t width = 0;
    std::uint32_t length = 0;
    ExportedFunc_GetChgPrintPaperSizeWidth(&width);
    ExportedFunc_GetChgPrintPaperSizeLength(&length);
    session.DRVSetDWord(4308, width);
    session.DRVSetDWord(4309, length);
    session.DRVSetDWord(4310, Current(keyword::CustomChgPaperDirection) & 0xFFFF);
}

} // namespace

void CSession::ApplyAll() {
    ZR_LOG_ENTRY();
    if (!m_p || !m_p->pOEMDM)
        return;
    ApplyKeywords(*this);
    ApplyRoutedValues(*this);
    SaveUnroutedValues(*m_p->pOEMDM, m_p->scratch);
    // The driver's area is read from version 0x501 up and written above it.
    if (m_p->dmDriverVersion <= kFirstVersionWithCustomPage)
        return;
    WriteCustomPage(*m_p, {.width = Current(keyword::CustomPaperWidth),
                           .height = Current(keyword::CustomPaperHeight),
                           .direction = static_cast<std::uint16_t>(Current(keyword::CustomPaperDirection))});
    ApplyOutputPaper(*this);
}

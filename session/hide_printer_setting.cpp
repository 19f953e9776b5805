// The start of a session: what the driver and the stored record hold goes into the store.
#include "Common/log.h"
#include "Common/printer_info.h"
#include "session/bind_items.h"
#include "session/datamanager.h"
#include "session/driver_area.h"
#include "session/form_names.h"
#include "session/printer_log.h"
#include "session/record_transfer.h"
#include "session/session.h"
#include "session/units.h"

#include <span>

namespace {

// Keys beyond the keyword table, set here and read nowhere.
constexpr int kUnreadKeys[] = {512, 513};

// A printer that cannot be read goes on without form names.
void ReadPrinter(HANDLE printer) {
    PrinterInfo info;
    info.Fetch(printer, 2);
    const auto* printerInfo = info.As<PRINTER_INFO_2A>();
    if (!printerInfo)
        return;
    const bool rawOnly = (printerInfo->Attributes & PRINTER_ATTRIBUTE_RAW_ONLY) != 0;
    ExportedFunc_SetAdvancedPrinterFeatures(rawOnly ? 0 : 1);
    ReadFormNames(printerInfo->pPrinterName);
}

void ClearCustomPage() {
    for (const int id :
         {int{keyword::CustomPaperWidth}, int{keyword::CustomPaperHeight}, int{keyword::CustomPaperDirection},
          kUnreadKeys[0], kUnreadKeys[1], int{keyword::CustomChgPaperDirection}})
        ExportedFunc_SetCurrent(id, 0);
}

void SetCurrentAndDefault(int id, std::uint32_t value) {
    ExportedFunc_SetCurrent(id, value);
    ExportedFunc_SetDefault(id, value);
}

void LoadCustomPage(const SessionBlock& block) {
    if (block.dmDriverVersion < kFirstVersionWithCustomPage) {
        ClearCustomPage();
        return;
    }
    if (const auto page = ReadCustomPage(block)) {
        SetCurrentAndDefault(keyword::CustomPaperDirection, page->direction);
        SetCurrentAndDefault(keyword::CustomPaperWidth, page->width);
        SetCurrentAndDefault(keyword::CustomPaperHeight, page->height);
    }
    const PrivateDevMode& record = *block.pOEMDM;
    ExportedFunc_SetChgPrintPaperSizeWidth(Inch14400ToMicrons(record.ChgPrintPaperSizeWidth, 2));
    ExportedFunc_SetChgPrintPaperSizeLength(Inch14400ToMicrons(record.ChgPrintPaperSizeLength, 2));
    ExportedFunc_SetCurrent(keyword::CustomChgPaperDirection, record.CustomChgPaperDirection);
}

// From here on what differs from the Preview bank is what the driver has not been told.
void StartPreview() {
    for (int id = 0; id < kKeywordCount; ++id) {
        std::uint32_t value = 0;
        ExportedFunc_GetCurrent(id, &value);
        ExportedFunc_SetPreview(id, value);
    }
}

} // namespace

void CSession::HidePrinterSetting(OEMCUIPPARAM* param, SessionBlock* block) {
    ZR_LOG_ENTRY();
    if (!param || !block || !block->pOEMDM)
        return;
    const std::span<OPTITEM> items(param->pDrvOptItems, param->pDrvOptItems ? param->cDrvOptItems : 0);
    ExportedFunc_SetAdvancedPrinterFeatures(0);
    ReadPrinter(block->hPrinter);
    BindByName(items, *block);
    BindPublicItems(items, *block);
    LoadStoreFromRecord(*block->pOEMDM);
    if (!LogStoredDevMode(block->hPrinter, param->pPrinterName))
        return;
    LoadStoreAgain(*block->pOEMDM);
    LoadCustomPage(*block);
    StartPreview();
}

// The store as a fresh printer's sheet hands it over to the application.
#pragma once

#include "host/printer_model.h"
#include "session/bank_values.h"
#include "session/keyword.h"
#include "settings/default_settings.h"

// The keywords' defaults are option indices, their present values tag numbers where they have some.
inline void LoadFreshSheet(const ppd::PpdFile& device) {
    StandardSettings(PrinterModel(device, Language::Japanese));
    for (int keyword = 0; keyword < kKeywordCount; ++keyword)
        ExportedFunc_SetDefault(keyword, CurrentOf(keyword));
    CCurrentSetting current;
    current.CreateSettingInfo();
    current.AllCurrentToSession();
}

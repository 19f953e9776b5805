// Bringing back everything that a job can set.
#include "Common/log.h"
#include "pages/standardpage.h"
#include "session/bank_values.h"
#include "session/datamanager.h"
#include "session/keyword.h"
#include "settings/preset_settings.h"

namespace {

// The Default bank has no scale where the standard settings could not be read.
std::uint32_t UsableDefaultOf(int keyword) {
    const std::uint32_t value = DefaultOf(keyword);
    return keyword == keyword::Scale && value == 0 ? kUnscaled : value;
}

void SetNamedValuesToStandard() {
#define ZR_STANDARD_TEXT(name, value) ExportedFunc_Set##name(value);
#define ZR_STANDARD_NUMBER(name, value) ExportedFunc_Set##name(value);
#include "settings/standard_values.def"
}

} // namespace

void CStandardPageDlg::RevertToDefault(SessionBlock*) {
    ZR_LOG_ENTRY();
    for (int keyword = 0; keyword < kKeywordCount; ++keyword)
        ExportedFunc_SetCurrent(keyword, UsableDefaultOf(keyword));
    SetNamedValuesToStandard();
}

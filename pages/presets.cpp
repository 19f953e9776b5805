// The favourites on the standard page: the combo box that names them, and the buttons beside it.
#include "Common/log.h"
#include "pages/standardpage.h"

// The combo box is not filled as long as the page does not read the favourites; what would choose, mark, keep
// or remove one does nothing.

void CStandardPageDlg::InitPresetCombo() {
    ZR_LOG_ENTRY();
}
void CStandardPageDlg::OnPresetSelChange() {
    ZR_LOG_ENTRY();
}
void CStandardPageDlg::OnSavePreset() {
    ZR_LOG_ENTRY();
}
void CStandardPageDlg::OnDeletePreset() {
    ZR_LOG_ENTRY();
}
void CStandardPageDlg::OnFavoriteExportImport() {
    ZR_LOG_ENTRY();
}
void CStandardPageDlg::UpdateChangeItemPresetCombo() {
    ZR_LOG_ENTRY();
}
void CStandardPageDlg::RevertToDefault(SessionBlock*) {
    ZR_LOG_ENTRY();
}

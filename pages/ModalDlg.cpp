#include "pages/ModalDlg.h"

#include "pages/modal_dialog.h"

INT_PTR CModalDlg::Run(HWND owner, int dialogTemplate) {
    return RunModalDialog(*this, owner, dialogTemplate);
}

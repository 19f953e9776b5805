// The document's page sizes on the standard page: the printer's forms, but for the custom one.
#include "Common/log.h"
#include "Common/strings.h"
#include "pages/controls.h"
#include "pages/own_changes.h"
#include "pages/standardpage.h"
#include "resources/resource.h"
#include "session/datamanager.h"
#include "session/form_names.h"
#include "session/keyword.h"
#include "session/session.h"

#include <cstring>
#include <string>
#include <string_view>

namespace {

std::string_view FormName(int form) {
    const char* name = nullptr;
    if (!CSession::GetFormsInfo(static_cast<std::uint32_t>(form), &name) || !name)
        return {};
    return {name, strnlen(name, kFormNameSize)};
}

// The names that the stock driver has for the custom form.
class CustomFormNames {
  public:
    bool Contain(std::string_view name) const { return name == m_name || name == m_otherName; }

  private:
    std::string m_name = LoadText(IDS_CUSTOM_FORM);
    std::string m_otherName = LoadText(IDS_CUSTOM_FORM_OTHER);
};

// Each form has one row at most, so a form that is selected needs no search.
void SelectForm(HWND combo, std::uint32_t form) {
    if (SelectedRow(combo) < 0 || static_cast<std::uint32_t>(SelectedNumber(combo)) != form)
        SelectNumber(combo, form);
}

} // namespace

int CStandardPageDlg::m_customPageSizeIndex = 0;
int CStandardPageDlg::customIndex = 0;

void CStandardPageDlg::InitPageSize(SessionBlock* session, int useDefault) {
    ZR_LOG_ENTRY();
    SetLabel(IDC_PAGE_SIZE_LABEL, keyword::PageSize);
    const HWND combo = GetDlgItem(m_hwnd, IDC_PAGE_SIZE);
    if (!combo)
        return;
    ClearRows(combo);
    const std::uint32_t value = ReadKeyword(keyword::PageSize, useDefault);
    const CustomFormNames customNames;
    const int formCount = CSession::GetFormsCount();
    customIndex = 0;
    for (int form = 0; form < formCount; ++form) {
        const std::string name(FormName(form));
        const auto row =
            static_cast<int>(SendMessageA(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str())));
        if (row < 0)
            continue;
        SendMessageA(combo, CB_SETITEMDATA, static_cast<WPARAM>(row), form);
        if (static_cast<std::uint32_t>(form) == value)
            SelectRow(combo, static_cast<std::uint32_t>(row));
        // The rows are sorted: one that is added later may move this one, and the number is not corrected.
        if (customNames.Contain(name))
            customIndex = row;
    }
    m_customPageSizeIndex = formCount - 1;
    if (useDefault)
        ExportedFunc_SetCurrent(keyword::PageSize, value);
    UpdatePageSize(session, useDefault);
}

void CStandardPageDlg::UpdatePageSize(SessionBlock*, int useDefault) {
    ZR_LOG_ENTRY();
    const HWND combo = GetDlgItem(m_hwnd, IDC_PAGE_SIZE);
    if (!combo)
        return;
    const OwnChanges writing;
    const std::uint32_t value = ReadKeyword(keyword::PageSize, useDefault);
    if (useDefault)
        ExportedFunc_SetCurrent(keyword::PageSize, value);
    SelectForm(combo, value);

    const CustomFormNames customNames;
    if (customNames.Contain(RowText(combo, customIndex))) {
        // One row goes for each form with such a name, always at this place, whatever row has moved there.
        const int formCount = CSession::GetFormsCount();
        for (int form = 0; form < formCount; ++form) {
            if (customNames.Contain(FormName(form)))
                SendMessageA(combo, CB_DELETESTRING, static_cast<WPARAM>(customIndex), 0);
        }
    }
    ShowWindow(GetDlgItem(m_hwnd, IDC_EDIT_PAGE_SIZE), SW_HIDE);
}

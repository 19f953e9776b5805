#include "session/session.h"

#include "Common/log.h"
#include "session/datamanager.h"
#include "session/record_routes.h"

#include <iterator>

namespace {

bool IsKeyword(int id) {
    return id >= 0 && id < kKeywordCount;
}

// Keywords above the table whose value the driver was once told as 0. No id of this path reaches them; the
// rule stays.
constexpr bool IsToldAsZero(int id) {
    return id == 356 || id == 393 || id == 438 || id == 439 || id == 443;
}

void SetItemValue(OPTITEM& item, int id, std::uint32_t value) {
    if (IsToldAsZero(id))
        value = 0;
    if (id != keyword::Collate)
        item.Sel = static_cast<LONG>(value);
    else if (value != 0) // the copies item's check box; its Sel is the number of copies
        item.Flags |= OPTIF_ECB_CHECKED;
    else
        item.Flags &= ~static_cast<DWORD>(OPTIF_ECB_CHECKED);
    item.Flags |= OPTIF_CHANGED;
}

// Gives the driver's item its value unless the preview bank says that it has it. 1 or 0.
int StoreInItem(const SessionBlock& block, int id, std::uint32_t value) {
    if (!IsKeyword(id)) {
        ZR_LOG("id=%d\n", id);
        return 0;
    }
    OPTITEM* item = block.item[static_cast<std::size_t>(id)];
    ZR_LOG("id=%d item=%p\n", id, static_cast<const void*>(item));
    if (!item)
        return 0;
    std::uint32_t old = 0;
    ExportedFunc_GetPreview(id, &old);
    if (old == value)
        return 1;
    ExportedFunc_SetPreview(id, value);
    SetItemValue(*item, id, value);
    CDevMode(*block.pOEMDM).SetModified();
    if (!block.pDriverUI) {
        ZR_LOG("no driver\n");
        return 0;
    }
    const HRESULT status = block.pDriverUI->DrvUpdateUISetting(block.poemuiobj, item, old, OEMCUIP_DOCPROP);
    return SUCCEEDED(status) ? 1 : 0;
}

} // namespace

int CSession::DRVGetKeywordNumOptions(int id) {
    if (!m_p || !IsKeyword(id)) {
        ZR_LOG("id=%d\n", id);
        return 0;
    }
    const OPTITEM* item = m_p->item[static_cast<std::size_t>(id)];
    if (!item || !item->pOptType) {
        ZR_LOG("id=%d is not bound\n", id);
        return 0;
    }
    return item->pOptType->Count;
}

int CSession::DRVSetDWord(int id, std::uint32_t value) {
    ZR_LOG_ENTRY();
    if (!m_p || !m_p->pOEMDM)
        return 0;
    switch (StoreByRoute(*m_p->pOEMDM, id, value)) {
    case RouteResult::Stored: return 1;
    case RouteResult::Refused: return 0;
    case RouteResult::NotAField: break;
    }
    return StoreInItem(*m_p, id, value);
}

int CSession::NotifyApplied(int) {
    ZR_LOG_ENTRY();
    if (!m_p || !m_p->pfnComPropSheet)
        return 0;
    m_p->pfnComPropSheet(m_p->hComPropSheet, CPSFUNC_SET_RESULT, reinterpret_cast<LPARAM>(m_p->hResultPage),
                         CPSUI_OK);
    return 1;
}

int CSession::KeywordIdFromName(const char* name) {
    return name ? FindKeyword(name) : -1;
}

int CSession::SaveRecordSpecNumber() {
    if (!m_p || !m_p->pOEMDM)
        return 0;
    single_value::SaveRecordSpecNumber(*m_p->pOEMDM, m_p->scratch);
    return 1;
}

int CSession::GetJobName() {
    if (!m_p)
        return 0;
    single_value::GetJobName(m_p->scratch);
    return 1;
}

int CSession::SaveJobName() {
    if (!m_p || !m_p->pOEMDM)
        return 0;
    single_value::SaveJobName(*m_p->pOEMDM, m_p->scratch);
    return 1;
}

void CSession::SetJobName(const char* name) {
    if (m_p)
        single_value::SetJobName(name);
}

void CSession::SetSPages(const char* pages) {
    if (m_p)
        single_value::SetSPages(pages);
}

int CSession::SaveSPages() {
    if (!m_p || !m_p->pOEMDM)
        return 0;
    single_value::SaveSPages(*m_p->pOEMDM, m_p->scratch);
    return 1;
}

void CSession::SetCmykKPreservation(std::uint32_t value) {
    if (m_p)
        single_value::SetCmykKPreservation(value);
}

void CSession::GetCmykKPreservation(std::uint32_t* value) {
    if (m_p)
        single_value::GetCmykKPreservation(value);
}

void CSession::SetSpecificJobName(std::uint32_t value) {
    if (m_p)
        single_value::SetSpecificJobName(value);
}

void CSession::GetSpecificJobName(std::uint32_t* value) {
    if (m_p)
        single_value::GetSpecificJobName(value);
}

void CSession::SetProfile(const char* profile) {
    if (m_p)
        single_value::SetProfile(profile);
}

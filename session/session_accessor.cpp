#include "session/datamanager.h"
#include "session/session.h"

#include <memory>

namespace {

std::unique_ptr<CSessionAccessor> accessor;

template <typename Get>
std::uint32_t ReadBank(Get get, int id) {
    std::uint32_t value = 0;
    get(id, &value);
    return value;
}

} // namespace

CSessionAccessor* CSessionAccessor::Instance() {
    if (!accessor)
        accessor = std::make_unique<CSessionAccessor>();
    return accessor.get();
}

void CSessionAccessor::Release() {
    accessor.reset();
}

std::uint32_t CSessionAccessor::GetDefault(int id) const {
    return ReadBank(ExportedFunc_GetDefault, id);
}
std::uint32_t CSessionAccessor::GetCurrent(int id) const {
    return ReadBank(ExportedFunc_GetCurrent, id);
}
std::uint32_t CSessionAccessor::GetFavorite(int id) const {
    return ReadBank(ExportedFunc_GetFavorite, id);
}

void CSessionAccessor::SetDefault(int id, std::uint32_t value) {
    ExportedFunc_SetDefault(id, value);
}
void CSessionAccessor::SetCurrent(int id, std::uint32_t value) {
    ExportedFunc_SetCurrent(id, value);
}
void CSessionAccessor::SetFavorite(int id, std::uint32_t value) {
    ExportedFunc_SetFavorite(id, value);
}

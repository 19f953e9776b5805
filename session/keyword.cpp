#include "session/keyword.h"

#include "Common/name_index.h"

namespace {

constexpr std::string_view NameOf(std::size_t id) {
    return kKeywordNames[id];
}
constexpr NameIndex<kKeywordCount, NameOf> kByName;

} // namespace

int FindKeyword(std::string_view name) {
    return kByName.Find(name);
}

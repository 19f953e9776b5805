#include "settings/print_option_fields.h"

#include "Common/name_index.h"
#include "Common/number_index.h"

#include <algorithm>

namespace ddb {
namespace {

constexpr std::string_view TagOf(std::size_t field) {
    return kFields[field].tag;
}
constexpr NameIndex<kFields.size(), TagOf> kByTag;

constexpr std::size_t kNumberLimit =
    std::ranges::max_element(kFields, {}, &FieldDescriptor::number)->number + std::size_t{1};
constexpr NumberIndex<kNumberLimit> kByNumber(kFields, &FieldDescriptor::number);

} // namespace

const FieldDescriptor* FindFieldByTag(std::string_view tag) {
    const int field = kByTag.Find(tag);
    return field < 0 ? nullptr : &kFields[static_cast<std::size_t>(field)];
}

const FieldDescriptor* FindFieldByValueNumber(int number) {
    return kByNumber.Find(kFields, number);
}

} // namespace ddb

#include "options/restriction_values.h"

#include "options/PrintOptionSetting.h"
#include "session/bank_values.h"

namespace {

std::int32_t Current(int item) {
    return static_cast<std::int32_t>(CurrentOf(item));
}

} // namespace

RestrictionValues ReadRestrictionValues() {
    using namespace keyword;
    using namespace option_item;
    RestrictionValues values;
#define ZR_RESTRICTION_SETTING(name) values.name = Current(name);
#define ZR_RESTRICTION_BYPASS_SETTING(name)                                                                  \
    if (values.AutoTraySettingToBypass == 0)                                                                 \
        values.name = Current(name);
#include "options/restriction_settings.def"
    return values;
}

// What every reader of a setting relies on: each text ends within its field.
#pragma once

#include "settings/print_option_fields.h"
#include "settings/setting_info.h"

#include <algorithm>
#include <span>
#include <string>

// The name of a text without a NUL; "" if there is none.
inline std::string TextWithoutEnd(const CFavoriteSetting& setting) {
    const auto hasEnd = [](std::span<const char> field) {
        return std::ranges::find(field, '\0') != field.end();
    };
    if (!hasEnd(setting.Name) || !hasEnd(setting.Comment) || !hasEnd(setting.Directory) ||
        !hasEnd(setting.PageSize))
        return "a text of the favourite itself";
    for (const ddb::FieldDescriptor& field : ddb::kFields) {
        const auto bytes = setting.PrintOption().Bytes(field.block).subspan(field.offset, field.width);
        if (field.IsText() && std::ranges::find(bytes, 0) == bytes.end())
            return std::string(field.name);
    }
    return "";
}

// What the store calls the fields of a print option set.
#pragma once

#include "settings/print_option_fields.h"

#include <string_view>

// The store has its own names for three fields.
constexpr std::string_view StoreNameOf(const ddb::FieldDescriptor& field) {
    if (field.number == ddb::FieldAt(ddb::FieldId::UserDefineMemoFile).number)
        return "CustomMemoFile";
    if (field.number == ddb::FieldAt(ddb::FieldId::AutoJobStartSpecifiedDayAndTime).number)
        return "AutoJobStartSpecifiedDayAndTimeForDriver";
    if (field.number == ddb::FieldAt(ddb::FieldId::Folder).number)
        return "FolderName";
    return field.name;
}

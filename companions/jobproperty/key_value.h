// What the tables of the plug-in say of a value of the data setting key.
#pragma once

#include "oemps/devmode_fields.h"
#include "settings/print_option_fields.h"

#include <cstddef>
#include <string_view>

namespace jobproperty {

struct KeyValue {
    int number = -1; // a KeywordId, or a value number from 328 up; -1 for a named value without one
    bool isKeyword = false;
    bool isSigned = false;
    std::size_t textLimit = 0;                        // of a text, in bytes without its NUL
    const ddb::FieldDescriptor* field = nullptr;      // of the print option set, null without one
    const devmode::FieldDescriptor* record = nullptr; // of the private DEVMODE, null without one
};

// By the name that the key has for it; it must be a keyword or a named value.
KeyValue DescribeKeyValue(std::string_view name);

} // namespace jobproperty

// One field of a setting object's record by its interchange tag, with the value as text.
#pragma once

#include "settings/Ddb_PrintOption.h"
#include "settings/print_option_fields.h"

#include <cstddef>
#include <string>
#include <string_view>

class CSettingInfo;

// The bytes of a buffer for one value with its NUL.
inline constexpr std::size_t kOptionValueSize = 5400;

inline constexpr int kFetchOption = 0;
inline constexpr int kStoreOption = 1;

// Stores the text `value` (mode kStoreOption), of which no more than kOptionValueSize bytes are read, or
// writes the field's value into the buffer `value` of kOptionValueSize bytes (kFetchOption). A tag that
// reaches no field, a null `value` and any other mode change nothing. 0 if `tag` or `setting` is null,
// else 1.
int AccessPrintOption(const char* tag, char* value, CSettingInfo* setting, int mode);

// The same on the record. Numbers are read and written as number_text.h says, a text as SetText and GetText
// do; the number of copies is stored as 1 to 9999. FetchOption replaces `value`, or leaves it alone if the
// tag reaches no field.
void StoreOption(std::string_view tag, std::string_view value, ddb::CPrintOptionEx& option);
void FetchOption(std::string_view tag, const ddb::CPrintOptionEx& option, std::string& value);

// The field that the tag reaches, null if there is none.
const ddb::FieldDescriptor* FindTaggedField(std::string_view tag);

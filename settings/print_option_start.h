// The bytes of a fresh print option set.
#pragma once

#include "settings/print_option_fields.h"

namespace ddb {

using RecordBlock = std::array<std::uint8_t, kRecordSize>;
using JobInfoBlock = std::array<std::uint8_t, kJobInfoSize>;
using ExBlock = std::array<std::uint8_t, kExSize>;

extern const RecordBlock kStartRecord;
extern const JobInfoBlock kStartJobInfo;
extern const ExBlock kStartEx;

} // namespace ddb

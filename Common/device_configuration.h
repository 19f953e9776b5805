// Which options of a control the device has fitted, by the records of its data files.
#pragma once

#include "Common/device_records.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace device_configuration {

// Option indices, both ends included.
struct IndexRange {
    int first;
    int last;
};

enum class ValueRule {
    True,   // the value is exactly "True"
    Number, // the value, a decimal integer, is the rule's number
};

// A pair of a record that fits sets the flags of its range.
struct KeyRule {
    std::string_view key;
    ValueRule value;
    int number;
    IndexRange fitted;
};

struct Query {
    const char* name;                 // of the query, under which its log lines stand
    const char* errorText;            // of the log line that refuses a list
    bool needsCount;                  // refuses a list of fewer than 1
    std::span<const IndexRange> base; // fitted without any record
    std::span<const KeyRule> rules;
};

extern const Query kTray;
extern const Query kOutput;
extern const Query kPunch;
extern const Query kStaple;
extern const Query kFold;
extern const Query kJog;

// Sets list[0 .. listCount-1] to 1 for fitted and 0 for not; 1, or 0 for a refused list. Throws
// std::invalid_argument, "invalid stoi argument", or std::out_of_range, "stoi argument out of range", for a
// value that should be a number.
int Answer(const Query& query, int* list, int listCount, const DeviceRecordMap& records);

} // namespace device_configuration

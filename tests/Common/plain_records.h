// The records of a device's data file as texts of their own, to compare with.
#pragma once

#include "Common/device_records.h"

#include <cstdint>
#include <map>
#include <string>

using PlainRecords = std::map<std::int32_t, std::map<std::string, std::string>>;

inline PlainRecords PlainOf(const DeviceRecordMap& records) {
    PlainRecords plain;
    for (const auto& [index, record] : records.All())
        for (const auto& [key, value] : record)
            plain[index].emplace(key, value);
    return plain;
}

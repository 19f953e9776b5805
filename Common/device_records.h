// What the data files of a device hold: records of keys and values, one record a line.
#pragma once

#include "Common/text_lines.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

// From a record's index, the number of lines before it, to its pairs. Only ever grows: a key that is there
// keeps its value. The values of a field overlap, each being the rest of the field, so the pairs are views
// into one text a line, which copies of the map share; the texts take no more room than the lines they come
// from.
class DeviceRecordMap {
  public:
    using Record = std::map<std::string_view, std::string_view>;
    using Records = std::map<std::int32_t, Record>;

    DeviceRecordMap() = default;
    DeviceRecordMap(const DeviceRecordMap&) = default;
    DeviceRecordMap(DeviceRecordMap&&) = default;
    // Whole or not at all, so that no pair outlives its text.
    DeviceRecordMap& operator=(const DeviceRecordMap& other);
    DeviceRecordMap& operator=(DeviceRecordMap&&) = default;
    ~DeviceRecordMap() = default;

    // Adds the pairs of one line. "|" separates its fields, and a field is "?key?value". A further "?" in the
    // value begins a further pair, and a key without a second "?" is its own value.
    void AddLine(std::int32_t index, std::string_view line);
    // Adds the lines of a file.
    void AddLines(TextLines& lines);

    const Records& All() const { return m_records; }
    // The bytes of the texts that the pairs stand in.
    std::size_t TextSize() const;

  private:
    // A line, and the text that is kept of it: from its first new key to its end, once there is such a key.
    struct Line {
        std::string_view whole;
        std::string_view kept;
    };

    // Adds the pairs of the field from `begin` up to `end` of the line.
    void AddField(std::int32_t index, Line& line, std::size_t begin, std::size_t end);

    Records m_records;
    std::vector<std::shared_ptr<const std::string>> m_texts;
};

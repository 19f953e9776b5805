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
// into texts that copies of the map share; the texts take no more room than the fields they come from.
class DeviceRecordMap {
  public:
    using Record = std::map<std::string_view, std::string_view>;
    using Records = std::map<std::int32_t, Record>;

    // Adds the pairs of one field, "?key?value". A further "?" in the value begins a further pair, and a key
    // without a second "?" is its own value.
    void AddField(std::int32_t index, std::string_view field);
    // Adds the fields of one line, which "|" separates.
    void AddLine(std::int32_t index, std::string_view line);
    // Adds the lines of a file.
    void AddLines(TextLines& lines);

    const Records& All() const { return m_records; }
    // The bytes of the texts that the pairs stand in.
    std::size_t TextSize() const;

  private:
    Records m_records;
    std::vector<std::shared_ptr<const std::string>> m_texts;
};

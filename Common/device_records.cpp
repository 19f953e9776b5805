#include "Common/device_records.h"

#include <limits>

namespace {

constexpr std::size_t kNone = std::string_view::npos;

} // namespace

DeviceRecordMap& DeviceRecordMap::operator=(const DeviceRecordMap& other) {
    return *this = DeviceRecordMap(other);
}

void DeviceRecordMap::AddField(std::int32_t index, Line& line, std::size_t begin, std::size_t end) {
    const std::string_view field = line.whole.substr(0, end);
    Record* record = nullptr;
    std::size_t rest = begin;
    for (std::size_t mark = field.find('?', begin); mark != kNone; mark = field.find('?', rest)) {
        const std::size_t key = mark + 1;
        const std::size_t keyEnd = field.find('?', key);
        // Without a second mark the text stays in place and serves as the value too.
        rest = keyEnd == kNone ? key : keyEnd + 1;
        const std::size_t keyLength = (keyEnd == kNone ? end : keyEnd) - key;

        if (!record)
            record = &m_records[index];
        if (record->contains(field.substr(key, keyLength)))
            continue;
        if (!line.kept.data()) {
            m_texts.push_back(std::make_shared<const std::string>(line.whole.substr(key)));
            line.kept = *m_texts.back();
        }
        const std::size_t leftOut = line.whole.size() - line.kept.size();
        record->emplace(line.kept.substr(key - leftOut, keyLength),
                        line.kept.substr(rest - leftOut, end - rest));
    }
}

void DeviceRecordMap::AddLine(std::int32_t index, std::string_view line) {
    Line read{line, {}};
    std::size_t begin = 0;
    for (std::size_t end = line.find('|'); end != kNone; end = line.find('|', begin)) {
        AddField(index, read, begin, end);
        begin = end + 1;
    }
    AddField(index, read, begin, line.size());
}

void DeviceRecordMap::AddLines(TextLines& lines) {
    std::string line;
    // Lines behind the last possible index have no record.
    for (std::int32_t index = 0; lines.Next(line) && index != std::numeric_limits<std::int32_t>::max();
         ++index)
        AddLine(index, line);
}

std::size_t DeviceRecordMap::TextSize() const {
    std::size_t size = 0;
    for (const auto& text : m_texts)
        size += text->size();
    return size;
}

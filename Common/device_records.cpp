#include "Common/device_records.h"

#include <limits>

namespace {

constexpr std::size_t kNone = std::string_view::npos;

} // namespace

void DeviceRecordMap::AddField(std::int32_t index, std::string_view field) {
    Record* record = nullptr;
    // The field from its first new key on, once there is one.
    std::string_view text;
    std::size_t textBegin = 0;
    std::size_t rest = 0;
    for (std::size_t mark = field.find('?'); mark != kNone; mark = field.find('?', rest)) {
        const std::size_t key = mark + 1;
        const std::size_t keyEnd = field.find('?', key);
        // Without a second mark the text stays in place and serves as the value too.
        rest = keyEnd == kNone ? key : keyEnd + 1;
        const std::size_t keyLength = (keyEnd == kNone ? field.size() : keyEnd) - key;

        if (!record)
            record = &m_records[index];
        if (record->contains(field.substr(key, keyLength)))
            continue;
        if (!text.data()) {
            textBegin = key;
            m_texts.push_back(std::make_shared<const std::string>(field.substr(key)));
            text = *m_texts.back();
        }
        record->emplace(text.substr(key - textBegin, keyLength), text.substr(rest - textBegin));
    }
}

void DeviceRecordMap::AddLine(std::int32_t index, std::string_view line) {
    std::size_t begin = 0;
    for (std::size_t end = line.find('|'); end != kNone; end = line.find('|', begin)) {
        AddField(index, line.substr(begin, end - begin));
        begin = end + 1;
    }
    AddField(index, line.substr(begin));
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

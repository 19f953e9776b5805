// Attacks invariants 19, 22 and 23 of docs/security.md, and of 24 that there are two errors and no other: any
// bytes are read as a device's data file, twice, and asked for by every query with a list of any length.
#include "Common/ProfileInfo.h"
#include "Common/text_lines.h"
#include "tests/Common/memory_source.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

namespace {

void Require(bool holds) {
    if (!holds)
        std::abort();
}

using PlainRecords = std::map<std::int32_t, std::map<std::string, std::string>>;

// The pairs of a field, one step of the format after the other on a text that shrinks.
void AddField(PlainRecords& records, std::string field, std::int32_t index) {
    for (;;) {
        const std::size_t mark = field.find('?');
        if (mark == std::string::npos)
            return;
        field.erase(0, mark + 1);
        const std::size_t next = field.find('?');
        const std::string key = field.substr(0, next);
        if (next != std::string::npos)
            field.erase(0, next + 1);
        records[index].emplace(key, field);
    }
}

PlainRecords PlainRecordsOf(std::string_view text) {
    PlainRecords records;
    MemorySource source(text);
    TextLines lines(source);
    std::string line;
    for (std::int32_t index = 0; lines.Next(line); ++index) {
        for (std::size_t bar = 0; (bar = line.find('|', bar)) != std::string::npos;)
            line.replace(bar, 1, "\r\n");
        std::size_t end = 0;
        while ((end = line.find("\r\n")) != std::string::npos) {
            AddField(records, line.substr(0, end), index);
            line.erase(0, end + 2);
        }
        AddField(records, line, index);
    }
    return records;
}

void Read(DeviceRecordMap& records, std::string_view text) {
    MemorySource source(text);
    TextLines lines(source);
    records.AddLines(lines);
}

void RequireSame(const DeviceRecordMap& records, const PlainRecords& plain) {
    Require(records.All().size() == plain.size());
    auto expected = plain.begin();
    for (const auto& [index, record] : records.All()) {
        Require(index == expected->first && record.size() == expected->second.size());
        auto pair = expected->second.begin();
        for (const auto& [key, value] : record) {
            Require(key == pair->first && value == pair->second);
            ++pair;
        }
        ++expected;
    }
}

using ConfigQuery = int (*)(int*, int, const DeviceRecordMap&);

// A list of its exact size, so that a write behind it is seen.
void Ask(ConfigQuery query, int count, int needed, const DeviceRecordMap& records) {
    const auto list = std::make_unique<int[]>(static_cast<std::size_t>(count));
    try {
        const int result = query(list.get(), count, records);
        Require(result == (count >= needed ? 1 : 0));
    } catch (const std::invalid_argument& error) {
        Require(std::strcmp(error.what(), "invalid stoi argument") == 0);
    } catch (const std::out_of_range& error) {
        Require(std::strcmp(error.what(), "stoi argument out of range") == 0);
    }
    for (int i = 0; i < count; ++i)
        Require(list[static_cast<std::size_t>(i)] == 0 || list[static_cast<std::size_t>(i)] == 1);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    const int count = data[0] % 40;
    const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);

    DeviceRecordMap records;
    Read(records, text);
    Require(records.TextSize() <= text.size());
    RequireSame(records, PlainRecordsOf(text));

    const DeviceRecordMap copy = records;
    const std::size_t textSize = records.TextSize();
    Read(records, text);
    Require(records.TextSize() == textSize && records.All() == copy.All());

    Ask(CProfileInfo::GetTrayConfig, count, 0, copy);
    Ask(CProfileInfo::GetOutputConfig, count, 0, copy);
    for (const ConfigQuery query : {CProfileInfo::GetPunchConfig, CProfileInfo::GetStapleConfig,
                                    CProfileInfo::GetFoldConfig, CProfileInfo::GetJogConfig})
        Ask(query, count, 1, copy);
    return 0;
}

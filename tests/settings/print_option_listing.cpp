#include "tests/settings/print_option_listing.h"

#include "tests/settings/option_bytes.h"

#include <fstream>
#include <sstream>

namespace {

// The columns of each row behind the first.
std::vector<std::vector<std::string>> Rows(const std::string& path, std::size_t columns) {
    std::ifstream file(path);
    std::vector<std::vector<std::string>> rows;
    std::string line;
    std::getline(file, line);
    while (std::getline(file, line)) {
        std::istringstream row(line);
        std::vector<std::string>& texts = rows.emplace_back(columns);
        for (std::string& text : texts)
            std::getline(row, text, '\t');
    }
    return rows;
}

int NumberOr(const std::string& text, int missing) {
    return text.empty() ? missing : std::stoi(text);
}

std::int64_t StartOf(const std::string& text) {
    return text == "\"\"" ? 0 : std::stoll(text);
}

void PutNumber(std::vector<std::uint8_t>& block, std::size_t offset, std::size_t width, std::int64_t number) {
    PutLittleEndian(std::span(block).subspan(offset, width), static_cast<std::uint64_t>(number));
}

void PutStart(std::vector<std::uint8_t>& block, const ListedOptionField& field) {
    if (field.type != "text")
        PutNumber(block, field.offset, field.width, field.start);
}

std::vector<std::uint8_t> ExpectedExtra(const std::string& name, std::size_t size) {
    std::vector<std::uint8_t> block(size, 0);
    for (const ListedOptionField& field : ListedExtraFields())
        if (field.block == name)
            PutStart(block, field);
    return block;
}

} // namespace

ddb::Block ListedOptionField::Block() const {
    return block == "m_Record"    ? ddb::Block::Record
           : block == "m_JobInfo" ? ddb::Block::JobInfo
                                  : ddb::Block::Ex;
}

std::vector<ListedOptionField> ListedRecordFields() {
    std::vector<ListedOptionField> fields;
    for (const auto& row : Rows(ZR_TEST_DATA_DIR "/record.tsv", 9))
        fields.push_back({"m_Record", std::stoul(row[0]), row[1], row[2],
                          NumberOr(row[3], NumberOr(row[8], -1)), row[4], std::stoul(row[5]),
                          static_cast<std::size_t>(NumberOr(row[6], 0)), StartOf(row[7])});
    return fields;
}

std::vector<ListedOptionField> ListedExtraFields() {
    std::vector<ListedOptionField> fields;
    for (const auto& row : Rows(ZR_TEST_DATA_DIR "/record_extra.tsv", 8))
        fields.push_back({row[0].substr(0, row[0].find('(')), std::stoul(row[1]), row[2], row[3],
                          NumberOr(row[4], -1), row[5], std::stoul(row[6]), 0, StartOf(row[7])});
    return fields;
}

std::vector<std::uint8_t> ExpectedFreshRecord() {
    std::vector<std::uint8_t> block(22120, 0);
    for (const ListedOptionField& field : ListedRecordFields())
        PutStart(block, field);

    const std::size_t reserved[][2] = {{0, 3},         {16128, 16135}, {16240, 16291},
                                       {16396, 16411}, {16420, 16423}, {16428, 16439},
                                       {16448, 16455}, {20444, 20447}, {21996, 21999}};
    for (const auto& [first, last] : reserved)
        for (std::size_t at = first; at <= last; ++at)
            block.at(at) = 0xFF;

    for (const std::size_t group : {16800, 17364, 17928, 18492, 19056, 19620, 20448, 21012, 21576}) {
        PutNumber(block, group, 4, -1);
        PutNumber(block, group + 12, 4, -1);
        PutNumber(block, group + 148, 4, -1);
        for (std::size_t at = group + 284; at <= group + 303 && at <= 21875; ++at)
            block.at(at) = 0xFF;
    }
    return block;
}

std::vector<std::uint8_t> ExpectedFreshJobInfo() {
    return ExpectedExtra("m_JobInfo", 2352);
}

std::vector<std::uint8_t> ExpectedFreshEx() {
    return ExpectedExtra("m_Ex", 44);
}

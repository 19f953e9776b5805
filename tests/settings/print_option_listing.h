// The print option set as tests/data/record.tsv and record_extra.tsv list it, independently of the code.
#pragma once

#include "settings/Ddb_PrintOption.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

struct ListedOptionField {
    std::string block; // "m_Record", "m_JobInfo" or "m_Ex"
    std::size_t offset;
    std::string name; // empty if only carried
    std::string tag;
    int number;       // -1 if only carried
    std::string type; // "i32", "u32", "i64", "i32 fixed" or "text"
    std::size_t width;
    std::size_t flag;   // 0 without one
    std::int64_t start; // 0 for texts

    ddb::Block Block() const;
};

// The 556 fields of the main block.
std::vector<ListedOptionField> ListedRecordFields();

// The 16 fields of the two other blocks, 12 of them unnamed.
std::vector<ListedOptionField> ListedExtraFields();

// The bytes of a fresh set's block, built from the listing and from the reserved bytes written out here.
std::vector<std::uint8_t> ExpectedFreshRecord();
std::vector<std::uint8_t> ExpectedFreshJobInfo();
std::vector<std::uint8_t> ExpectedFreshEx();

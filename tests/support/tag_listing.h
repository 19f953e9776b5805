// The listings of interchange tags in tests/data.
#pragma once

#include <cstdint>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

struct ListedTagArray {
    int number;
    std::string name;
    std::string state; // "settled" or "provisional"
    std::vector<std::int32_t> tags;
};

// The arrays of the numbers that have one of their own; all others have the tags 0 and 1.
inline std::vector<ListedTagArray> ListedTagArrays() {
    std::ifstream file(ZR_TEST_DATA_DIR "/tag_arrays.tsv");
    std::string line;
    std::getline(file, line); // the columns' names
    std::vector<ListedTagArray> arrays;
    while (std::getline(file, line)) {
        std::istringstream fields(line);
        ListedTagArray& array = arrays.emplace_back();
        fields >> array.number >> array.name >> array.state;
        for (std::int32_t tag; fields >> tag;)
            array.tags.push_back(tag);
    }
    return arrays;
}

// The tags of the array with this name; none if there is no such array.
inline std::vector<std::int32_t> ListedTagsOf(const std::string& name) {
    for (const ListedTagArray& array : ListedTagArrays()) {
        if (array.name == name)
            return array.tags;
    }
    return {};
}

struct ListedTag {
    int row;
    std::string key;
    std::string longName;
};

inline std::vector<ListedTag> ListedTags() {
    std::ifstream file(ZR_TEST_DATA_DIR "/tagtable.tsv");
    std::string line;
    std::getline(file, line);
    std::vector<ListedTag> tags;
    for (ListedTag tag; file >> tag.row >> tag.key >> tag.longName;)
        tags.push_back(tag);
    return tags;
}

struct ListedTagDescription {
    int row;
    std::string key;
    std::string description; // in UTF-8
};

// The descriptions of all rows but those of the stock families and of the user marks.
inline std::vector<ListedTagDescription> ListedTagDescriptions() {
    std::ifstream file(ZR_TEST_DATA_DIR "/tag_descriptions.tsv");
    std::string line;
    std::getline(file, line);
    std::vector<ListedTagDescription> descriptions;
    while (std::getline(file, line)) {
        std::istringstream fields(line);
        ListedTagDescription& row = descriptions.emplace_back();
        fields >> row.row >> row.key >> std::ws;
        std::getline(fields, row.description);
    }
    return descriptions;
}

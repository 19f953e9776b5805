// The private DEVMODE as tests/data/devmode.tsv lists it, independently of the code: a row for each field and
// for each run of reserved words or texts, in offset order.
#pragma once

#include <cstddef>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

struct ListedField {
    std::size_t offset; // of the first element
    std::string type;   // "u32", "i32", "u64" or "char[" width "]"
    std::size_t count;  // elements
    std::string name;   // "reserved" for all reserved ones
    std::string value;  // the default in the listing's words
    int route;          // 0 without one

    bool IsText() const { return type.starts_with("char["); }
    // Bytes of one element.
    std::size_t Width() const {
        if (IsText())
            return std::stoul(type.substr(5));
        return type == "u64" ? 8 : 4;
    }
};

inline std::vector<ListedField> ListDevModeFields() {
    std::ifstream file(ZR_TEST_DATA_DIR "/devmode.tsv");
    std::vector<ListedField> fields;
    std::string line;
    std::getline(file, line);
    while (std::getline(file, line)) {
        std::istringstream row(line);
        std::string offset, type, count, name, value, route;
        for (std::string* column : {&offset, &type, &count, &name, &value, &route})
            std::getline(row, *column, '\t');
        fields.push_back(
            {std::stoul(offset), type, std::stoul(count), name, value, route.empty() ? 0 : std::stoi(route)});
    }
    return fields;
}

// What a reset writes to the store, in its order, from the listing in tests/data.
#pragma once

#include "tests/support/ansi_text.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

struct ListedResetValue {
    std::string name;
    bool isText;
    std::string value; // a number in decimal, a text in the code page of the product
};

inline std::vector<ListedResetValue> ListedResetValues() {
    std::ifstream file(ZR_TEST_DATA_DIR "/reset_values.tsv");
    std::string line;
    std::getline(file, line);
    std::vector<ListedResetValue> values;
    while (std::getline(file, line)) {
        const std::size_t name = line.find('\t') + 1;
        const std::size_t value = line.find('\t', name) + 1;
        values.push_back(
            {line.substr(name, value - 1 - name), line.starts_with("text\t"), AnsiText(line.substr(value))});
    }
    EXPECT_EQ(values.size(), 196u);
    return values;
}

// The listing of paper sizes in tests/data.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <fstream>
#include <map>
#include <string>

// In 1/14400 inch, and the same in thousandths of a millimetre.
struct ListedPaper {
    std::uint32_t width;
    std::uint32_t height;
    std::uint32_t widthMicrons;
    std::uint32_t heightMicrons;
};

// By tag number.
inline std::map<std::int32_t, ListedPaper> ListedPapers() {
    std::ifstream file(ZR_TEST_DATA_DIR "/paper_sizes.tsv");
    std::string columns;
    std::getline(file, columns);
    std::map<std::int32_t, ListedPaper> papers;
    std::int32_t tag = 0;
    for (ListedPaper row{}; file >> tag >> row.width >> row.height >> row.widthMicrons >> row.heightMicrons;)
        papers[tag] = row;
    EXPECT_EQ(papers.size(), 53u);
    return papers;
}

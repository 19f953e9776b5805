// Files that tests read.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

// The bytes of a file; one that can't be opened fails the test and gives "".
inline std::string FileContents(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file) << path;
    return {std::istreambuf_iterator<char>(file), {}};
}

// A small device description.
inline std::string SmallPpd() {
    return FileContents(ZR_TEST_DATA_DIR "/small.ppd");
}

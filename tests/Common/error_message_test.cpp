#include "Common/error_message.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

TEST(ErrorMessage, IsTheSystemsTextWithoutItsLineEnd) {
    std::array<char, 1024> text{};
    const DWORD length = FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                        ERROR_FILE_NOT_FOUND, 0, text.data(), text.size(), nullptr);
    ASSERT_NE(length, 0u);
    EXPECT_EQ(ErrorMessage(ERROR_FILE_NOT_FOUND) + "\r\n", std::string(text.data(), length));
}

TEST(ErrorMessage, IsTheNumberWhereTheSystemHasNoText) {
    EXPECT_EQ(ErrorMessage(0x2000BEEF), "536919791");
}

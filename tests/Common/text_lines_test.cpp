#include "Common/text_lines.h"

#include "tests/Common/memory_source.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

using namespace std::string_literals;

namespace {

std::vector<std::string> LinesOf(const std::string& bytes, std::size_t most = 4096) {
    MemorySource source(bytes, most);
    TextLines lines(source);
    std::vector<std::string> all;
    std::string line;
    while (lines.Next(line))
        all.push_back(line);
    return all;
}

// A file that grows behind an end that was met once.
class GrowingSource : public ByteSource {
  public:
    std::size_t Read(std::span<char> buffer) override {
        const std::string_view read = kReads[std::min(m_next++, kReads.size() - 1)];
        std::ranges::copy(read, buffer.begin());
        return read.size();
    }

  private:
    static constexpr std::array<std::string_view, 4> kReads{"a", "", "b", ""};
    std::size_t m_next = 0;
};

using Lines = std::vector<std::string>;

} // namespace

TEST(TextLines, EndAtLineFeeds) {
    EXPECT_EQ(LinesOf("a\nbc\n"), (Lines{"a", "bc"}));
}

TEST(TextLines, OfAnEmptyFileAreNone) {
    EXPECT_EQ(LinesOf(""), Lines{});
}

TEST(TextLines, NeedNoLineFeedAtTheEnd) {
    EXPECT_EQ(LinesOf("a\nb"), (Lines{"a", "b"}));
}

TEST(TextLines, MayBeBlank) {
    EXPECT_EQ(LinesOf("\n\na\n\n"), (Lines{"", "", "a", ""}));
}

TEST(TextLines, DropACarriageReturnInFrontOfALineFeed) {
    EXPECT_EQ(LinesOf("a\r\nb\r\n"), (Lines{"a", "b"}));
}

TEST(TextLines, KeepAnyOtherCarriageReturn) {
    EXPECT_EQ(LinesOf("a\rb\r\r\n\rc\r"), (Lines{"a\rb\r", "\rc\r"}));
}

TEST(TextLines, EndAtCtrlZ) {
    EXPECT_EQ(LinesOf("a\nb\x1A"
                      "c\nd\n"),
              (Lines{"a", "b"}));
    EXPECT_EQ(LinesOf("a\n\x1A"), Lines{"a"});
    EXPECT_EQ(LinesOf("a\r\x1A\n"), Lines{"a\r"});
}

TEST(TextLines, StayAtTheEndOnceItIsReached) {
    const std::string bytes = "a\x1A\nb";
    MemorySource source(bytes, 1);
    TextLines lines(source);
    std::string line;
    EXPECT_TRUE(lines.Next(line));
    EXPECT_FALSE(lines.Next(line));
    EXPECT_FALSE(lines.Next(line));
    EXPECT_EQ(line, "");
}

TEST(TextLines, StayAtTheEndAlsoIfTheFileGrowsBehindIt) {
    GrowingSource source;
    TextLines lines(source);
    std::string line;
    EXPECT_TRUE(lines.Next(line));
    EXPECT_EQ(line, "a");
    EXPECT_FALSE(lines.Next(line));
    EXPECT_EQ(line, "");
}

TEST(TextLines, TakeNulForACharacter) {
    EXPECT_EQ(LinesOf("a\0b\n\0\n"s), (Lines{"a\0b"s, "\0"s}));
}

TEST(TextLines, AreTheSameWhereverAReadEnds) {
    const std::string bytes = "a\r\n\r\r\n\rb\r\r\r\nc\r";
    const Lines expected{"a", "\r", "\rb\r\r", "c\r"};
    for (std::size_t most = 1; most <= bytes.size(); ++most)
        EXPECT_EQ(LinesOf(bytes, most), expected) << most;
}

TEST(TextLines, MayBeLongerThanAnyRead) {
    const std::string megabyte(1 << 20, 'x');
    EXPECT_EQ(LinesOf(megabyte + "\r\n" + megabyte), (Lines{megabyte, megabyte}));
}

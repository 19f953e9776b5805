// The rows of the punch control. Each stands for a pair of settings: where to punch and how many holes.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

struct PunchRow {
    int punch; // KeywordId Punch
    int holes; // KeywordId PunchHoles
};

class PunchTable {
  public:
    static constexpr std::size_t kRowCount = 16;

    const std::array<PunchRow, kRowCount>& Rows() const { return m_rows; }

    // The text of a row, "" for a row beyond the table or one whose first text is missing. Asking changes the
    // row: its `punch` of 13 becomes 5 for good.
    std::string TakeRowText(std::size_t row);

  private:
    std::array<PunchRow, kRowCount> m_rows{{{0, 1},
                                            {1, 1},
                                            {2, 1},
                                            {3, 1},
                                            {4, 1},
                                            {13, 1},
                                            {1, 2},
                                            {2, 2},
                                            {3, 2},
                                            {4, 2},
                                            {13, 2},
                                            {1, 3},
                                            {2, 3},
                                            {3, 3},
                                            {4, 3},
                                            {13, 3}}};
};

// The process's one table; whoever stores a row's pair reads it here.
PunchTable& ProcessPunchTable();

// The row that shows a pair of settings, which may be one that the control does not have; none for settings
// without a row.
std::optional<std::uint32_t> PunchControlRow(std::uint32_t punch, std::uint32_t holes);

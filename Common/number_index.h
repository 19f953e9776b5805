// Finding the row of a table by a number, in an index that the compiler builds.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

// Rows by a number from 0 to Limit - 1. A number that stands twice does not compile.
template <std::size_t Limit>
class NumberIndex {
  public:
    // Evaluated by the compiler only, where reaching the `throw` is an error. `number` is the rows' member.
    template <class Row, std::size_t Count, class Number>
    consteval NumberIndex(const std::array<Row, Count>& rows, Number Row::*number) {
        m_rows.fill(kNone);
        for (std::size_t i = 0; i < Count; ++i) {
            std::int16_t& place = m_rows[static_cast<std::size_t>(rows[i].*number)];
            if (place != kNone)
                throw "a number stands twice";
            place = static_cast<std::int16_t>(i);
        }
    }

    // The row of a number in the table that the index was made of, null if it has none; any int is a possible
    // number.
    template <class Row, std::size_t Count>
    constexpr const Row* Find(const std::array<Row, Count>& rows, int number) const {
        if (number < 0 || static_cast<std::size_t>(number) >= Limit)
            return nullptr;
        const std::int16_t place = m_rows[static_cast<std::size_t>(number)];
        return place == kNone ? nullptr : &rows[static_cast<std::size_t>(place)];
    }

  private:
    static constexpr std::int16_t kNone = -1;

    std::array<std::int16_t, Limit> m_rows{};
};

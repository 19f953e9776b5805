// Finding the row of an item in a table that has at most one row for each.
#pragma once

#include "options/PrintOptionSetting.h"

#include <array>
#include <cstddef>
#include <cstdint>

// Position by item; a row is anything with a member `item`.
class ItemIndex {
  public:
    // Evaluated by the compiler only, where reaching the `throw` is an error.
    template <class Rows>
    consteval explicit ItemIndex(const Rows& rows) {
        static_assert(std::tuple_size_v<Rows> < 0xFF);
        for (const auto& row : rows) {
            std::uint8_t& place = m_places[static_cast<std::size_t>(row.item)];
            if (place)
                throw "an item stands twice";
            place = static_cast<std::uint8_t>(&row - rows.data() + 1);
        }
    }

    // The row of an item, null if it has none; any int is a possible item.
    template <class Row, std::size_t Count>
    constexpr const Row* Find(const std::array<Row, Count>& rows, int item) const {
        if (item < 0 || item >= option_item::Limit)
            return nullptr;
        const std::uint8_t place = m_places[static_cast<std::size_t>(item)];
        return place ? &rows[place - 1u] : nullptr;
    }

  private:
    std::array<std::uint8_t, option_item::Limit> m_places{}; // position plus 1, 0 for none
};

// Finds a row of a table by its name, as the registry compares names: the case of ASCII letters does not
// count.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace name_index {

constexpr char Folded(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// Written out, since a compiler takes the library's algorithm for too many steps at compile time.
constexpr bool Less(std::string_view left, std::string_view right) {
    const std::size_t common = left.size() < right.size() ? left.size() : right.size();
    for (std::size_t i = 0; i < common; ++i)
        if (left[i] != right[i]) {
            const char a = Folded(left[i]);
            const char b = Folded(right[i]);
            if (a != b)
                return a < b;
        }
    return left.size() < right.size();
}

} // namespace name_index

// Built at compile time; a lookup is one binary search. The names must outlive the index.
template <std::size_t Count>
class NameIndex {
  public:
    consteval explicit NameIndex(const std::array<const char*, Count>& names) : m_names(names) {
        for (std::size_t row = 0; row < Count; ++row)
            m_order[row] = static_cast<std::uint16_t>(row);
        std::ranges::sort(m_order, name_index::Less,
                          [&](std::uint16_t row) { return std::string_view(names[row]); });
    }

    // The row with this name, -1 if there is none.
    constexpr int Find(std::string_view name) const {
        const auto nameOf = [this](std::uint16_t row) { return std::string_view(m_names[row]); };
        const auto found = std::ranges::lower_bound(m_order, name, name_index::Less, nameOf);
        return found != m_order.end() && !name_index::Less(name, nameOf(*found)) ? *found : -1;
    }

    // True if a lookup could confuse two rows.
    constexpr bool HasDuplicates() const {
        for (std::size_t i = 1; i < Count; ++i)
            if (!name_index::Less(m_names[m_order[i - 1]], m_names[m_order[i]]))
                return true;
        return false;
    }

  private:
    std::array<const char*, Count> m_names;
    std::array<std::uint16_t, Count> m_order{};
};

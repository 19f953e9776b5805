#include "settings/password_scramble.h"

#include "Common/text.h"

#include <cstddef>
#include <numeric>
#include <span>

namespace {

// Bytes of one kind, from `first` to `last`.
struct Range {
    unsigned char first;
    unsigned char last;

    constexpr unsigned Count() const { return last - first + 1u; }
};

constexpr Range kPrintable[]{{' ', '~'}};
constexpr Range kKatakana[]{{0xA1, 0xDF}};
constexpr Range kTrail[]{{0x40, 0x7E}, {0x80, 0xFC}};

using Kind = std::span<const Range>;

constexpr unsigned CountOf(Kind kind) {
    unsigned count = 0;
    for (const Range& range : kind)
        count += range.Count();
    return count;
}

constexpr unsigned kStart = 16;
constexpr unsigned kStep = 29; // from place to place

// Never a whole round, so that no byte stays itself.
constexpr unsigned ShiftAt(std::size_t place, unsigned count) {
    const auto turn = static_cast<unsigned>(place % (count - 1));
    return 1 + (turn * kStep + kStart) % (count - 1);
}
static_assert(std::gcd(kStep, CountOf(kPrintable) - 1) == 1 && std::gcd(kStep, CountOf(kKatakana) - 1) == 1 &&
                  std::gcd(kStep, CountOf(kTrail) - 1) == 1,
              "every shift has its places");

// The byte's number among those of its kind, CountOf(kind) if it is none of them.
unsigned RankOf(unsigned char byte, Kind kind) {
    unsigned rank = 0;
    for (const Range& range : kind) {
        if (byte >= range.first && byte <= range.last)
            return rank + byte - range.first;
        rank += range.Count();
    }
    return rank;
}

unsigned char AtRank(unsigned rank, Kind kind) {
    for (const Range& range : kind) {
        if (rank < range.Count())
            return static_cast<unsigned char>(range.first + rank);
        rank -= range.Count();
    }
    return 0;
}

char Permuted(char character, std::size_t place, Kind kind) {
    const unsigned count = CountOf(kind);
    const unsigned rank = RankOf(static_cast<unsigned char>(character), kind);
    if (rank == count)
        return character;
    return static_cast<char>(AtRank((rank + ShiftAt(place, count)) % count, kind));
}

Kind KindOfSingle(unsigned char byte) {
    return byte < 0x80 ? Kind(kPrintable) : Kind(kKatakana);
}

} // namespace

std::string ScramblePassword(std::string_view password) {
    std::string scrambled(password);
    for (std::size_t i = 0; i < scrambled.size(); ++i) {
        const auto byte = static_cast<unsigned char>(scrambled[i]);
        if (!IsLeadByte(byte))
            scrambled[i] = Permuted(scrambled[i], i, KindOfSingle(byte));
        else if (++i < scrambled.size())
            scrambled[i] = Permuted(scrambled[i], i, kTrail);
    }
    return scrambled;
}

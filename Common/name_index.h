// Finding the row of a table by a name, in an index that the compiler builds.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

// The rows 0 to Count - 1 by NameOf(row); a row with an empty name is not found. A name that stands twice
// does not compile.
//
// The index is a perfect hash: a name's hash picks a bucket, and the bucket's seed sends every hash of that
// bucket to a slot of its own. So a look-up goes over the name once and compares with one name only.
template <std::size_t Count, std::string_view (*NameOf)(std::size_t row)>
class NameIndex {
  public:
    // Evaluated by the compiler only, where reaching a `throw` is an error.
    consteval NameIndex() {
        m_rows.fill(kNone);
        std::array<Bucket, kBuckets> buckets;
        for (std::size_t row = 0; row < Count; ++row) {
            const std::string_view name = NameOf(row);
            m_longest = std::max(m_longest, name.size());
            if (name.empty())
                continue;
            const std::uint64_t hash = Hash(name);
            buckets[BucketOf(hash)].push_back({hash, static_cast<std::int16_t>(row)});
        }
        std::array<std::size_t, kBuckets> fullestFirst{};
        for (std::size_t bucket = 0; bucket < kBuckets; ++bucket)
            fullestFirst[bucket] = bucket;
        std::ranges::sort(fullestFirst,
                          [&](auto a, auto b) { return buckets[a].size() > buckets[b].size(); });
        for (const std::size_t bucket : fullestFirst) {
            CheckHashesAreUnique(buckets[bucket]);
            for (m_seeds[bucket] = 1; !Place(buckets[bucket], m_seeds[bucket]);)
                ++m_seeds[bucket];
        }
    }

    // The row with exactly this name, -1 if there is none.
    constexpr int Find(std::string_view name) const {
        if (name.size() > m_longest)
            return kNone;
        const std::uint64_t hash = Hash(name);
        const int row = m_rows[SlotOf(hash, m_seeds[BucketOf(hash)])];
        return row != kNone && NameOf(static_cast<std::size_t>(row)) == name ? row : kNone;
    }

  private:
    static constexpr std::int16_t kNone = -1;
    static constexpr std::size_t kSlots = std::bit_ceil(Count + Count / 2);
    static constexpr std::size_t kBuckets = kSlots / 4;

    struct HashedRow {
        std::uint64_t hash;
        std::int16_t row;
    };
    using Bucket = std::vector<HashedRow>;

    static constexpr std::uint64_t Hash(std::string_view name) {
        std::uint64_t hash = 14695981039346656037u;
        for (const char c : name)
            hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211u;
        return hash;
    }
    static constexpr std::size_t BucketOf(std::uint64_t hash) {
        return static_cast<std::size_t>((hash ^ (hash >> 32)) % kBuckets);
    }
    static constexpr std::size_t SlotOf(std::uint64_t hash, std::uint16_t seed) {
        const std::uint64_t mixed = (hash + seed * 0x9E3779B97F4A7C15u) * 0xFF51AFD7ED558CCDu;
        return static_cast<std::size_t>((mixed >> 40) % kSlots);
    }

    // Equal hashes share a bucket, for which no seed would ever do.
    static constexpr void CheckHashesAreUnique(const Bucket& bucket) {
        for (std::size_t i = 0; i < bucket.size(); ++i)
            for (std::size_t j = 0; j < i; ++j)
                if (bucket[i].hash == bucket[j].hash)
                    throw "a name stands twice, or two names have one hash";
    }

    // False, and nothing placed, if a row's slot is taken, by another of the bucket too.
    constexpr bool Place(const Bucket& bucket, std::uint16_t seed) {
        for (std::size_t i = 0; i < bucket.size(); ++i) {
            std::int16_t& slot = m_rows[SlotOf(bucket[i].hash, seed)];
            if (slot != kNone) {
                while (i-- > 0)
                    m_rows[SlotOf(bucket[i].hash, seed)] = kNone;
                return false;
            }
            slot = bucket[i].row;
        }
        return true;
    }

    std::array<std::uint16_t, kBuckets> m_seeds{};
    std::array<std::int16_t, kSlots> m_rows{};
    std::size_t m_longest = 0;
};

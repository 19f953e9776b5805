#include "session/keyword.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace {

// The index is a perfect hash: a name's first hash picks a bucket, and the bucket's seed makes the second
// hash send every name of that bucket to a slot of its own. So a lookup compares with one name only.
constexpr std::size_t kBuckets = 128;
constexpr std::size_t kSlots = 512;
constexpr std::int16_t kEmpty = -1;

constexpr std::uint32_t Hash(std::string_view text, std::uint32_t seed) {
    std::uint32_t hash = 2166136261u ^ (seed * 0x9E3779B9u);
    for (const char c : text)
        hash = (hash ^ static_cast<unsigned char>(c)) * 16777619u;
    return hash ^ (hash >> 15);
}

constexpr std::size_t BucketOf(std::string_view name) {
    return Hash(name, 0) % kBuckets;
}

struct Index {
    std::array<std::uint16_t, kBuckets> seed{};
    std::array<std::int16_t, kSlots> keyword{};
    std::size_t longestName = 0;

    constexpr std::size_t SlotOf(std::string_view name, std::uint32_t bucketSeed) const {
        return Hash(name, bucketSeed) % kSlots;
    }

    // False, and nothing placed, if two of the names would share a slot under this seed.
    constexpr bool Place(const std::vector<std::int16_t>& names, std::uint16_t bucketSeed) {
        std::vector<std::size_t> slots;
        for (const std::int16_t id : names) {
            const std::size_t slot = SlotOf(kKeywordNames[static_cast<std::size_t>(id)], bucketSeed);
            if (keyword[slot] != kEmpty || std::ranges::find(slots, slot) != slots.end())
                return false;
            slots.push_back(slot);
        }
        for (std::size_t i = 0; i < names.size(); ++i)
            keyword[slots[i]] = names[i];
        return true;
    }
};

consteval Index BuildIndex() {
    Index index;
    index.keyword.fill(kEmpty);
    std::array<std::vector<std::int16_t>, kBuckets> names;
    for (std::int16_t id = 0; id < kKeywordCount; ++id) {
        const std::string_view name = kKeywordNames[static_cast<std::size_t>(id)];
        names[BucketOf(name)].push_back(id);
        index.longestName = std::max(index.longestName, name.size());
    }

    std::array<std::size_t, kBuckets> fullestFirst{};
    for (std::size_t bucket = 0; bucket < kBuckets; ++bucket)
        fullestFirst[bucket] = bucket;
    std::ranges::sort(fullestFirst, [&](auto a, auto b) { return names[a].size() > names[b].size(); });
    for (const std::size_t bucket : fullestFirst)
        for (index.seed[bucket] = 1; !index.Place(names[bucket], index.seed[bucket]);)
            ++index.seed[bucket];
    return index;
}

constexpr Index kIndex = BuildIndex();

} // namespace

int FindKeyword(std::string_view name) {
    if (name.size() > kIndex.longestName)
        return -1;
    const int id = kIndex.keyword[kIndex.SlotOf(name, kIndex.seed[BucketOf(name)])];
    return id != kEmpty && name == kKeywordNames[static_cast<std::size_t>(id)] ? id : -1;
}

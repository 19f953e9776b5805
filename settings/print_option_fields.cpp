#include "settings/print_option_fields.h"

#include <algorithm>
#include <vector>

namespace ddb {
namespace {

constexpr std::int16_t kNone = -1;

constexpr int HighestNumber() {
    return std::ranges::max_element(kFields, {}, &FieldDescriptor::number)->number;
}

// The place in kFields by value number.
class NumberIndex {
  public:
    // Evaluated by the compiler only, where reaching a `throw` is an error.
    consteval NumberIndex() {
        m_places.fill(kNone);
        for (std::size_t i = 0; i < kFields.size(); ++i) {
            if (kFields[i].number < 0)
                throw "a field has no value number";
            std::int16_t& place = m_places[static_cast<std::size_t>(kFields[i].number)];
            if (place != kNone)
                throw "a value number stands twice";
            place = static_cast<std::int16_t>(i);
        }
    }

    constexpr int PlaceOf(int number) const {
        return number < 0 || number > HighestNumber() ? kNone : m_places[static_cast<std::size_t>(number)];
    }

  private:
    std::array<std::int16_t, HighestNumber() + 1> m_places{};
};

constexpr NumberIndex kByNumber;

constexpr std::uint32_t Hash(std::string_view text, std::uint32_t seed) {
    std::uint32_t hash = 2166136261u ^ (seed * 0x9E3779B9u);
    for (const char c : text)
        hash = (hash ^ static_cast<unsigned char>(c)) * 16777619u;
    return hash ^ (hash >> 15);
}

// The place in kFields by tag, a perfect hash: a tag's first hash picks a bucket, and the bucket's seed makes
// the second hash send every tag of that bucket to a slot of its own. So a look-up compares with one tag
// only.
class TagIndex {
  public:
    consteval TagIndex() {
        m_places.fill(kNone);
        std::array<std::vector<std::int16_t>, kBuckets> buckets;
        for (std::size_t i = 0; i < kFields.size(); ++i) {
            const std::string_view tag = kFields[i].tag;
            m_longest = std::max(m_longest, tag.size());
            if (!tag.empty())
                buckets[BucketOf(tag)].push_back(static_cast<std::int16_t>(i));
        }
        std::array<std::size_t, kBuckets> fullestFirst{};
        for (std::size_t bucket = 0; bucket < kBuckets; ++bucket)
            fullestFirst[bucket] = bucket;
        std::ranges::sort(fullestFirst,
                          [&](auto a, auto b) { return buckets[a].size() > buckets[b].size(); });
        for (const std::size_t bucket : fullestFirst) {
            CheckTagsAreUnique(buckets[bucket]);
            for (m_seeds[bucket] = 1; !Place(buckets[bucket], m_seeds[bucket]);)
                ++m_seeds[bucket];
        }
    }

    constexpr int PlaceOf(std::string_view tag) const {
        if (tag.size() > m_longest)
            return kNone;
        const int place = m_places[SlotOf(tag, m_seeds[BucketOf(tag)])];
        return place != kNone && kFields[static_cast<std::size_t>(place)].tag == tag ? place : kNone;
    }

  private:
    static constexpr std::size_t kBuckets = 256;
    static constexpr std::size_t kSlots = 1024;

    static constexpr std::size_t BucketOf(std::string_view tag) { return Hash(tag, 0) % kBuckets; }
    static constexpr std::size_t SlotOf(std::string_view tag, std::uint32_t seed) {
        return Hash(tag, seed) % kSlots;
    }
    static constexpr std::string_view TagAt(std::int16_t place) {
        return kFields[static_cast<std::size_t>(place)].tag;
    }

    // Equal tags share a bucket, for which no seed would ever do.
    static constexpr void CheckTagsAreUnique(const std::vector<std::int16_t>& places) {
        for (std::size_t i = 0; i < places.size(); ++i)
            for (std::size_t j = 0; j < i; ++j)
                if (TagAt(places[i]) == TagAt(places[j]))
                    throw "a tag stands twice";
    }

    // False, and nothing placed, if two of the tags would share a slot under this seed.
    constexpr bool Place(const std::vector<std::int16_t>& places, std::uint16_t seed) {
        std::vector<std::size_t> slots;
        for (const std::int16_t place : places) {
            const std::size_t slot = SlotOf(TagAt(place), seed);
            if (m_places[slot] != kNone || std::ranges::find(slots, slot) != slots.end())
                return false;
            slots.push_back(slot);
        }
        for (std::size_t i = 0; i < places.size(); ++i)
            m_places[slots[i]] = places[i];
        return true;
    }

    std::array<std::uint16_t, kBuckets> m_seeds{};
    std::array<std::int16_t, kSlots> m_places{};
    std::size_t m_longest = 0;
};

constexpr TagIndex kByTag;

const FieldDescriptor* AtPlace(int place) {
    return place == kNone ? nullptr : &kFields[static_cast<std::size_t>(place)];
}

} // namespace

const FieldDescriptor* FindFieldByTag(std::string_view tag) {
    return AtPlace(kByTag.PlaceOf(tag));
}

const FieldDescriptor* FindFieldByValueNumber(int number) {
    return AtPlace(kByNumber.PlaceOf(number));
}

} // namespace ddb

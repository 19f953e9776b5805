#include "settings/print_option_start.h"

#include <algorithm>
#include <bit>

namespace ddb {
namespace {

// Numbers are read and written as they stand in memory, and stored images are little-endian.
static_assert(std::endian::native == std::endian::little);

struct Run {
    std::size_t offset;
    std::size_t size;
};

// The parts of a reserved group that start as 0xFF.
constexpr Run kUnsetGroupRuns[] = {{0, 4}, {12, 4}, {148, 4}, {284, 20}};

constexpr Run kUnsetBytes[] = {
#define ZR_UNSET_BYTES(first, last) {first, last - first + 1},
#include "settings/print_option.def"
};

constexpr Run kUnsetGroups[] = {
#define ZR_UNSET_GROUP(offset, size) {offset, size},
#include "settings/print_option.def"
};

// A block that is filled field by field. Evaluated by the compiler only, where reaching a `throw` is an
// error: so fields, flags and reserved bytes lie in the block, and no two of them overlap.
template <std::size_t Size>
class FreshBlock {
  public:
    // The block's own fields, started.
    consteval explicit FreshBlock(Block block) {
        for (const FieldDescriptor& field : kFields) {
            if (field.block != block)
                continue;
            PutField(field);
            if (field.flag)
                Claim({field.flag, 1});
        }
        for (const CarriedField& field : kCarriedFields)
            if (field.block == block)
                PutNumber({field.offset, sizeof field.start}, field.start);
    }

    constexpr void PutUnset(Run run) { PutNumber(run, -1); }

    constexpr const std::array<std::uint8_t, Size>& Bytes() const { return m_bytes; }

  private:
    constexpr void PutField(const FieldDescriptor& field) {
        if (field.IsText())
            Claim({field.offset, field.width});
        else
            PutNumber({field.offset, field.width}, field.start);
    }

    // The sign goes on beyond the number's own bytes.
    constexpr void PutNumber(Run run, std::int64_t number) {
        Claim(run);
        for (std::size_t i = 0; i < run.size; ++i)
            m_bytes[run.offset + i] = static_cast<std::uint8_t>(number >> std::min<std::size_t>(8 * i, 63));
    }

    constexpr void Claim(Run run) {
        if (run.offset + run.size > Size)
            throw "a field leaves its block";
        for (std::size_t at = run.offset; at < run.offset + run.size; ++at) {
            if (m_isClaimed[at])
                throw "two fields overlap";
            m_isClaimed[at] = true;
        }
    }

    std::array<std::uint8_t, Size> m_bytes{};
    std::array<bool, Size> m_isClaimed{};
};

consteval RecordBlock StartRecord() {
    FreshBlock<kRecordSize> block(Block::Record);
    for (const Run& run : kUnsetBytes)
        block.PutUnset(run);
    for (const Run& group : kUnsetGroups)
        for (const Run& run : kUnsetGroupRuns)
            block.PutUnset({group.offset + run.offset, std::min(run.size, group.size - run.offset)});
    return block.Bytes();
}

} // namespace

constexpr RecordBlock kStartRecord = StartRecord();
constexpr JobInfoBlock kStartJobInfo = FreshBlock<kJobInfoSize>(Block::JobInfo).Bytes();
constexpr ExBlock kStartEx = FreshBlock<kExSize>(Block::Ex).Bytes();

} // namespace ddb

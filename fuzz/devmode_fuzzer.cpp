// Attacks invariants 1 to 5 of docs/security.md: a stored block of any content, header and length is
// converted and merged into a target of any content. Every block lies in an allocation of its exact size.
//
// The first half of the input, over and over, is the source; it is as long as its own dwSize tells, as the
// driver vouches for. The second half, over and over, fills the target behind its header.
#include "oemps/devmode_fields.h"
#include "tests/oemps/devmode_records.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <span>

namespace {

using Bytes = std::span<const unsigned char>;

void Require(bool holds) {
    if (!holds)
        std::abort();
}

void FillFrom(std::span<unsigned char> block, Bytes pattern) {
    for (std::size_t at = 0; at < block.size(); ++at)
        block[at] = pattern[at % pattern.size()];
}

// In a block of exactly the size that its first four bytes tell, but never less than a header.
std::unique_ptr<unsigned char[]> MakeSource(Bytes pattern, std::size_t& size) {
    std::uint32_t claimed;
    std::memcpy(&claimed, pattern.data(), sizeof claimed);
    size = std::clamp<std::size_t>(claimed, kDevModeHeaderSize, kDevModeSize);
    auto source = std::make_unique<unsigned char[]>(size);
    FillFrom({source.get(), size}, pattern);
    return source;
}

// Its header is the source's if the input says so.
std::unique_ptr<PrivateDevMode> MakeTarget(Bytes pattern, const unsigned char* source) {
    auto target = MakeDefault();
    FillFrom(BytesOf(*target).subspan(kDevModeHeaderSize), pattern);
    if (pattern[0] % 4 == 0)
        std::memcpy(target.get(), source, kDevModeHeaderSize);
    return target;
}

bool HasFewControlCharacters(const PrivateDevMode& record) {
    return std::ranges::count_if(ViewOf(record), [](char c) { return c >= 1 && c <= 31; }) < 100;
}

bool IsCleanWithin(std::string_view slot) {
    const auto end = std::ranges::find(slot, '\0');
    return std::none_of(slot.begin(), end, [](char c) { return c >= 1 && c <= 31; });
}

void RequireCleanText(const PrivateDevMode& record) {
    for (const devmode::FieldDescriptor& field : devmode::kFields)
        for (std::size_t at = field.offset; at < field.End() && field.control == devmode::Control::Stripped;
             at += field.width)
            Require(IsCleanWithin(ViewOf(record).substr(at, field.width)));
}

// Default on a record that holds anything writes its header and leaves the unused bytes.
void AttackDefault(Bytes pattern) {
    const auto record = std::make_unique<PrivateDevMode>();
    FillFrom(BytesOf(*record), pattern);
    const PrivateDevMode before = *record;
    CDevMode(*record).SetDefault(24112);
    Require(std::memcmp(record.get(), MakeDefault().get(), kDevModeHeaderSize) == 0);
    for (const devmode::FieldDescriptor& field : devmode::kFields)
        if (field.kind == devmode::FieldKind::Unused)
            Require(ViewOf(*record).substr(field.offset, field.width) ==
                    ViewOf(before).substr(field.offset, field.width));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t length) {
    if (length < 2 * kDevModeHeaderSize)
        return 0;
    const Bytes input(data, length);
    AttackDefault(input);
    std::size_t size;
    const auto source = MakeSource(input.first(length / 2), size);
    const auto target = MakeTarget(input.subspan(length / 2), source.get());
    const PrivateDevMode before = *target;
    const bool fits =
        size == kDevModeSize && std::memcmp(source.get(), target.get(), kDevModeHeaderSize) == 0;
    const auto asPlain = [&source] { return *reinterpret_cast<const PrivateDevMode*>(source.get()); };

    CDevMode::Convert(*target, source.get());
    PrivateDevMode expected = before;
    if (fits)
        PlainConvert(expected, asPlain());
    Require(ViewOf(*target) == ViewOf(expected));

    CDevMode::Merge(*target, source.get());
    Require(ViewOf(*target).substr(0, kDevModeHeaderSize) == ViewOf(before).substr(0, kDevModeHeaderSize));
    RequireCleanText(*target);
    if (fits && HasFewControlCharacters(asPlain())) {
        PlainMerge(expected, asPlain());
        Require(ViewOf(*target) == ViewOf(expected));
    }
    return 0;
}

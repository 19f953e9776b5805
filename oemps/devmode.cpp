#include "oemps/devmode.h"

#include "Common/log.h"
#include "Common/text.h"
#include "oemps/devmode_fields.h"

#include <algorithm>
#include <cstring>
#include <span>

namespace {

using devmode::Control;
using devmode::FieldDescriptor;
using devmode::FieldKind;
using devmode::kFields;

// The chosen rows of the table, in its order.
template <auto IsChosen>
constexpr auto Select() {
    std::array<FieldDescriptor, static_cast<std::size_t>(std::ranges::count_if(kFields, IsChosen))> chosen{};
    std::ranges::copy_if(kFields, chosen.begin(), IsChosen);
    return chosen;
}

using RecordBytes = std::span<char, kDevModeSize>;

RecordBytes BytesOf(PrivateDevMode& record) {
    return RecordBytes(reinterpret_cast<char*>(&record), kDevModeSize);
}

// A block as the spooler kept it. Behind its header only what its dwSize spans may be read.
class StoredBlock {
  public:
    explicit StoredBlock(const void* block) : m_bytes(static_cast<const char*>(block)) {
        std::uint32_t claimed;
        std::memcpy(&claimed, m_bytes, sizeof claimed);
        m_size = std::min<std::size_t>(claimed, kDevModeSize);
    }

    bool HasHeaderOf(const PrivateDevMode& record) const {
        return std::memcmp(m_bytes, &record, kDevModeHeaderSize) == 0;
    }

    bool Holds(const FieldDescriptor& field) const { return field.End() <= m_size; }
    bool IsWhole() const { return m_size == kDevModeSize; }

    // Copies what stands at this offset, which the block must hold. A block may be copied into itself.
    void Copy(std::size_t offset, std::span<char> target) const {
        std::memmove(target.data(), m_bytes + offset, target.size());
    }

  private:
    const char* m_bytes;
    std::size_t m_size;
};

template <typename Number>
void FillNumbers(std::span<char> field, Number value) {
    for (std::size_t at = 0; at < field.size(); at += sizeof value)
        std::memcpy(&field[at], &value, sizeof value);
}

void WriteDefaultText(std::span<char> slot, const FieldDescriptor& field) {
    if (field.text.empty()) {
        std::fill_n(slot.begin(), field.cleared, '\0');
        return;
    }
    const auto end = std::ranges::copy(field.text, slot.begin()).out;
    std::fill(end, slot.end(), '\0');
}

void WriteDefault(RecordBytes record, const FieldDescriptor& field) {
    const std::span<char> bytes = record.subspan(field.offset, field.End() - field.offset);
    switch (field.kind) {
    case FieldKind::NumberU32:
    case FieldKind::NumberI32:
    case FieldKind::SpareNumbers: FillNumbers(bytes, static_cast<std::uint32_t>(field.number)); break;
    case FieldKind::NumberU64: FillNumbers(bytes, field.number); break;
    case FieldKind::Text:
    case FieldKind::SpareTexts:
        for (std::size_t at = 0; at < bytes.size(); at += field.width)
            WriteDefaultText(bytes.subspan(at, field.width), field);
        break;
    case FieldKind::Unused: break;
    }
}

// Zeros behind the text's NUL. A text that fills its slot stays unterminated.
void PadText(std::span<char> slot) {
    const std::size_t length = FieldText(slot).size();
    std::fill(slot.begin() + static_cast<std::ptrdiff_t>(length), slot.end(), '\0');
}

constexpr auto kUnused =
    Select<[](const FieldDescriptor& field) { return field.kind == FieldKind::Unused; }>();
constexpr auto kTexts = Select<&FieldDescriptor::IsText>();

// Everything behind the header but the unused bytes, the last of which end the record.
void CopyFields(RecordBytes target, const StoredBlock& source) {
    static_assert(kUnused.back().End() == kDevModeSize);
    std::size_t at = kDevModeHeaderSize;
    for (const FieldDescriptor& gap : kUnused) {
        source.Copy(at, target.subspan(at, gap.offset - at));
        at = gap.End();
    }
    for (const FieldDescriptor& field : kTexts)
        for (std::size_t slot = field.offset; slot < field.End(); slot += field.width)
            PadText(target.subspan(slot, field.width));
}

constexpr auto kStripped =
    Select<[](const FieldDescriptor& field) { return field.control == Control::Stripped; }>();

// A block too short to say so is not modified.
bool IsModified(const StoredBlock& block) {
    constexpr FieldDescriptor kModified = *std::ranges::find(kFields, "Modified", &FieldDescriptor::name);
    std::uint32_t modified = 0;
    if (block.Holds(kModified))
        block.Copy(kModified.offset, {reinterpret_cast<char*>(&modified), sizeof modified});
    return modified != 0;
}

constexpr bool IsControlCharacter(char c) {
    return c >= 1 && c <= 31;
}

// Removes the control characters from the string at the beginning of `bytes`. As when each is moved over by
// the rest of the string with its NUL, the places that become free hold zeros; a string that meets no NUL
// ends with `bytes`, as if one stood right behind. Returns the length that the string had.
std::size_t StripString(std::span<char> bytes) {
    const std::size_t length = FieldText(bytes).size();
    const std::span<char> string = bytes.first(length);
    std::fill(std::remove_if(string.begin(), string.end(), IsControlCharacter), string.end(), '\0');
    return length;
}

// An unterminated text runs on into the fields behind it and is stripped as one string up to its NUL. What is
// left of it holds no control character, so the fields that begin within need no look of their own, which
// keeps the work linear for any content.
void StripTexts(RecordBytes record) {
    std::size_t clean = 0;
    for (const FieldDescriptor& field : kStripped)
        for (std::size_t slot = field.offset; slot < field.End(); slot += field.width)
            if (slot >= clean)
                clean = slot + StripString(record.subspan(slot));
}

struct FieldRange {
    std::size_t first, last; // offsets
};

// The numbers that a merge takes from the source once more, even if the source's header does not fit.
constexpr auto kMergedNumbers = std::to_array<FieldRange>({
    {offsetof(PrivateDevMode, SamplePrintMode), offsetof(PrivateDevMode, StapleMechanism)},
    {offsetof(PrivateDevMode, Magnification), offsetof(PrivateDevMode, Magnification)},
    {offsetof(PrivateDevMode, ColorOutlineEmphasis), offsetof(PrivateDevMode, ColorOutlineEmphasis)},
    {offsetof(PrivateDevMode, AutoJobStartSpecifiedDayAndTimeForDriver),
     offsetof(PrivateDevMode, AutoJobStartSpecifiedDayAndTimeForDriver)},
    {offsetof(PrivateDevMode, AutoJobStartSpecifiedHour),
     offsetof(PrivateDevMode, AutoJobStartElapsedMinutes)},
    {offsetof(PrivateDevMode, Crease), offsetof(PrivateDevMode, TopAndTailTrimFrontCutSize)},
    {offsetof(PrivateDevMode, GraphicsTreatmentBase), offsetof(PrivateDevMode, GraphicsTreatmentMode)},
    {offsetof(PrivateDevMode, MinimumLineWidthBase), offsetof(PrivateDevMode, MinimumLineWidthValue)},
    {offsetof(PrivateDevMode, UsePdlRgbRenderingIntent), offsetof(PrivateDevMode, AppeVersion)},
    {offsetof(PrivateDevMode, CustomCoverPageNum), offsetof(PrivateDevMode, CoverPageStkType)},
    {offsetof(PrivateDevMode, ManageMethod), offsetof(PrivateDevMode, ManageMethod)},
    {offsetof(PrivateDevMode, SpecifyJobOwnerName), offsetof(PrivateDevMode, SpecifyJobOwnerName)},
    {offsetof(PrivateDevMode, reserved23776), offsetof(PrivateDevMode, reserved23776)},
});

constexpr bool IsMergedAgain(const FieldDescriptor& field) {
    return std::ranges::any_of(kMergedNumbers, [&field](const FieldRange& range) {
        return field.offset >= range.first && field.offset <= range.last;
    });
}
constexpr auto kMergedAgain = Select<IsMergedAgain>();
static_assert(std::ranges::all_of(kMergedAgain, &FieldDescriptor::IsNumber));

void CopyMergedNumbers(RecordBytes target, const StoredBlock& source) {
    for (const FieldDescriptor& field : kMergedAgain)
        if (source.Holds(field))
            source.Copy(field.offset, target.subspan(field.offset, field.width));
}

} // namespace

int CDevMode::SetDefault(std::uint32_t size) {
    ZR_RECORD_LOG_ENTRY();
    const RecordBytes record = BytesOf(m_record);
    for (const FieldDescriptor& field : kFields)
        WriteDefault(record, field);
    m_record.dwSize = size;
    return 1;
}

void CDevMode::SetModified() {
    ZR_RECORD_LOG_ENTRY();
    m_record.Modified = 1;
}

int CDevMode::Convert(PrivateDevMode& target, const void* source) {
    const StoredBlock block(source);
    // A record of another layout is left alone without a word; there is no way up from one version to
    // another.
    if (!block.HasHeaderOf(target) || !block.IsWhole())
        return 1;
    ZR_RECORD_LOG_ENTRY();
    CopyFields(BytesOf(target), block);
    return 1;
}

int CDevMode::Merge(PrivateDevMode& target, const void* source) {
    ZR_RECORD_LOG_ENTRY();
    Convert(target, source);

    const StoredBlock block(source);
    target.Modified = IsModified(block) ? 1 : 0;
    StripTexts(BytesOf(target));
    CopyMergedNumbers(BytesOf(target), block);
    return 1;
}

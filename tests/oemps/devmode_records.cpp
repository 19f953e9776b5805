#include "tests/oemps/devmode_records.h"

#include <cstddef>

namespace {

void PlainCopyText(char* target, const char* source, std::size_t width) {
    std::size_t at = 0;
    for (; at < width && source[at] != 0; ++at)
        target[at] = source[at];
    for (; at < width; ++at)
        target[at] = 0;
}

// Every control character is looked for from the start of the field and moved over by the rest of the string
// with its NUL, which stands right behind the record if there is no other.
void PlainStrip(char* record, std::size_t field) {
    for (;;) {
        const void* const found = std::memchr(record + field, 0, kDevModeSize - field);
        const std::size_t nul =
            found ? static_cast<std::size_t>(static_cast<const char*>(found) - record) : kDevModeSize;
        std::size_t at = field;
        while (at < nul && !(record[at] >= 1 && record[at] <= 31))
            ++at;
        if (at == nul)
            return;
        std::memmove(record + at, record + at + 1, nul - at - 1);
        record[nul - 1] = 0;
    }
}

#define ZR_STRIP_Stripped(offset, count, width)                                                              \
    for (std::size_t i = 0; i < count; ++i)                                                                  \
        PlainStrip(record, offset + i * width);
#define ZR_STRIP_Kept(offset, count, width)

void PlainStripTexts(char* record) {
#define ZR_TEXT(offset, name, width, value, travel, control) ZR_STRIP_##control(offset, 1, width)
#define ZR_SPARE_TEXTS(offset, count, width, cleared, control) ZR_STRIP_##control(offset, count, width)
#include "oemps/private_devmode.def"
}

} // namespace

void PlainConvert(PrivateDevMode& target, const PrivateDevMode& source) {
    const PrivateDevMode header = target;
#define ZR_NUMBER(offset, type, name, value, route, travel) target.name = source.name;
#define ZR_TEXT(offset, name, width, value, travel, control) PlainCopyText(target.name, source.name, width);
#define ZR_SPARE_NUMBERS(offset, count, value)                                                               \
    for (std::size_t i = 0; i < count; ++i)                                                                  \
        target.reserved##offset[i] = source.reserved##offset[i];
#define ZR_SPARE_TEXTS(offset, count, width, cleared, control)                                               \
    for (std::size_t i = 0; i < count; ++i)                                                                  \
        PlainCopyText(target.reserved##offset[i], source.reserved##offset[i], width);
#include "oemps/private_devmode.def"
    std::memcpy(&target, &header, kDevModeHeaderSize);
}

void PlainMerge(PrivateDevMode& target, const PrivateDevMode& source) {
    PlainConvert(target, source);
    target.Modified = source.Modified != 0 ? 1 : 0;
    PlainStripTexts(reinterpret_cast<char*>(&target));

    for (const auto& [offset, count] : kWordsOfAnySource)
        std::memcpy(BytesOf(target).data() + offset, ViewOf(source).data() + offset, count * 4);
}

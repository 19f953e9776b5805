#include "companions/common/messages.h"

#include "Common/error_message.h"
#include "Common/strings.h"
#include "companions/common/printer_state.h"

namespace {

enum class CommonText : unsigned {
#define ZR_COMPANION_TEXT(name, number, text) name = number,
#include "companions/common/common_texts.def"
#undef ZR_COMPANION_TEXT
};

std::string Text(CommonText text) {
    return LoadText(static_cast<unsigned>(text));
}

std::string ReasonOf(DWORD status) {
    if (status == ERROR_ACCESS_DENIED)
        return Text(CommonText::NotPermitted);
    if (TellsPrinterGone(status))
        return Text(CommonText::PrinterGone);
    const std::string number = std::to_string(status);
    const std::string system = ErrorMessage(status);
    return Text(CommonText::ErrorNumber) + number + (system == number ? "" : "\n" + system);
}

} // namespace

std::string NotStoredText(DWORD status) {
    return Text(CommonText::NotStored) + "\n" + ReasonOf(status);
}

std::string WithNumber(std::string text, std::string_view mark, std::size_t number) {
    if (const std::size_t place = text.find(mark); place != std::string::npos)
        text.replace(place, mark.size(), std::to_string(number));
    return text;
}

std::string WithByteLimit(std::string text, std::size_t mostBytes) {
    const std::string limit = WithNumber(Text(CommonText::ByteLimit), "%1", mostBytes);
    return std::move(text) + "\n" + WithNumber(limit, "%2", mostBytes / 2);
}

#include "oemps/printer_event_names.h"

#include "Common/text.h"

namespace {

constexpr std::string_view kClientSideMark = "\\CSR|";

// The offset of the first occurrence that begins with a character's first byte, npos if there is none.
std::size_t FindText(std::string_view text, std::string_view wanted) {
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text.substr(at).starts_with(wanted))
            return at;
        if (IsLeadByte(static_cast<unsigned char>(text[at])))
            ++at;
    }
    return std::string_view::npos;
}

std::string_view UpToLastComma(std::string_view text) {
    return text.substr(0, FindLastCharacter(text, ','));
}

} // namespace

std::string_view BehindLast(std::string_view text, char character) {
    const std::size_t at = FindLastCharacter(text, character);
    return at == std::string_view::npos ? text : text.substr(at + 1);
}

std::string_view PartBehindLastBackslash(std::string_view printerName) {
    return UpToLastComma(BehindLast(printerName, '\\'));
}

std::string_view PartBehindFirstBackslash(std::string_view printerName) {
    const std::size_t at = FindText(printerName, "\\");
    return UpToLastComma(at == std::string_view::npos ? printerName : printerName.substr(at + 1));
}

bool IsClientSideRendering(std::string_view part) {
    return FindText(part, kClientSideMark) != std::string_view::npos;
}

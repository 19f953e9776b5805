#include "settings/xml_safety.h"

#include "Common/text.h"

#include <algorithm>
#include <span>

namespace {

constexpr std::size_t kReadStep = 65536;

bool IsLetter(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           character == '_';
}

bool IsNameRest(char character) {
    return IsLetter(character) || (character >= '0' && character <= '9') || character == '-' ||
           character == '.';
}

// No control character is the second byte of another one.
std::string WrittenText(std::string_view text) {
    std::string written(text);
    std::erase_if(written, [](char byte) { return !IsWritten(static_cast<unsigned char>(byte)); });
    return written;
}

bool HoldsDeclarationWord(std::string_view text) {
    return text.find("<!DOCTYPE") != std::string_view::npos ||
           text.find("<!ENTITY") != std::string_view::npos;
}

} // namespace

std::optional<std::string> ReadXmlFile(ByteSource& file) {
    std::string bytes;
    while (bytes.size() <= kMaxXmlFile) {
        const std::size_t before = bytes.size();
        bytes.resize(std::min(before + kReadStep, kMaxXmlFile + 1));
        const std::size_t read = file.Read(std::span(bytes).subspan(before));
        bytes.resize(before + read);
        if (read == 0)
            return bytes;
    }
    return std::nullopt;
}

bool HoldsDeclaration(std::string_view bytes) {
    if (bytes.find('\0') == std::string_view::npos)
        return HoldsDeclarationWord(bytes);
    // In the wide encodings the words' characters differ from ASCII by zero bytes only.
    std::string narrow(bytes);
    std::erase(narrow, '\0');
    return HoldsDeclarationWord(narrow);
}

bool IsElementName(std::string_view name) {
    for (std::size_t at = 0; at < name.size(); ++at) {
        if (IsLeadByte(static_cast<unsigned char>(name[at]))) {
            if (++at == name.size())
                return false;
        } else if (!(at == 0 ? IsLetter(name[at]) : IsNameRest(name[at]))) {
            return false;
        }
    }
    return !name.empty();
}

bool IsCommentText(std::string_view text) {
    const std::string written = WrittenText(text);
    return written.find("--") == std::string::npos && !written.ends_with('-');
}

bool IsInstructionText(std::string_view text) {
    return WrittenText(text).find("?>") == std::string::npos;
}

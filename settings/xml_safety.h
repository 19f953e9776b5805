// What is asked of an XML file's bytes, and of the texts that become nodes, before the parser or a reader
// meets them.
#pragma once

#include "Common/platform_files.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

// Bytes of the largest file that is read. A favourite has about 45,000.
inline constexpr std::size_t kMaxXmlFile = std::size_t{4} * 1024 * 1024;

// The whole file, or nothing if it is larger than kMaxXmlFile. No more than one byte beyond that is read,
// whatever the file's size.
std::optional<std::string> ReadXmlFile(ByteSource& file);

// True if a document type or an entity is declared anywhere in the bytes, be they UTF-8, UTF-16 or UTF-32 of
// either byte order. The words count in comments and CDATA sections too; escaped in a text they do not.
bool HoldsDeclaration(std::string_view bytes);

// True if the text, without its control characters, can stand in a node of its kind without ending it early.
// Names are as strict as this system's need them: ASCII letters, digits, `_`, `-`, `.`, and bytes of
// double-byte characters.
bool IsElementName(std::string_view name);
bool IsCommentText(std::string_view text);
bool IsInstructionText(std::string_view text);

// True if XML has a place for the UTF-16 unit. Of the control characters it would allow tab and line ends;
// they are left out with the others, since a parser changes line ends.
constexpr bool IsWritten(char16_t unit) {
    return unit >= 0x20 && unit != 0xFFFE && unit != 0xFFFF;
}

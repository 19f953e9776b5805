#include "settings/xml_document.h"

#include "settings/file_replacement.h"
#include "settings/xml_safety.h"

bool XmlDocument::Load(ByteSource& file) {
    const auto bytes = ReadXmlFile(file);
    if (!bytes) {
        Clear();
        return false;
    }
    return Load(*bytes);
}

bool XmlDocument::Load(std::string_view bytes) {
    // The parser's own switches do not keep every parser from expanding entities. The words can hide in an
    // encoding that the search does not know; the document's type node cannot.
    const bool isAccepted =
        bytes.size() <= kMaxXmlFile && !HoldsDeclaration(bytes) && Parse(bytes) && !HasDoctype();
    if (!isAccepted)
        Clear();
    return isAccepted;
}

bool XmlDocument::Save(const char* path) {
    std::string bytes;
    return Serialize(bytes) && ReplaceFileContent(path, bytes);
}

#include "oemps/directory_entry.h"

#include "Common/text.h"

#include <algorithm>

namespace {

constexpr std::string_view kNotInNames = "\\/:*?\"<>|";

// The system drops points and blanks at a name's end.
bool IsName(std::string_view text) {
    return !text.empty() && !text.ends_with('.') && !text.ends_with(' ') &&
           std::ranges::none_of(kNotInNames, [&](char character) {
               return FindLastCharacter(text, character) != std::string_view::npos;
           });
}

} // namespace

EntryDeletion DeletionOf(const DirectoryEntry& entry) {
    if (entry.name == "." || entry.name == "..")
        return EntryDeletion::None;
    if (!IsName(entry.name))
        return EntryDeletion::Impossible;
    return entry.isDirectory ? EntryDeletion::Directory : EntryDeletion::File;
}

// What becomes of an entry of a directory that is to be deleted.
#pragma once

#include <string_view>

// As a listing has it; the name in the ANSI code page.
struct DirectoryEntry {
    std::string_view name;
    bool isDirectory = false;
};

enum class EntryDeletion {
    None,      // the directory itself, or the one above it
    Directory, // with all in it, or a link
    File,
    Impossible, // the name would lead to another entry
};

// In the code page a name can get characters that no name has: what it has not is told by "?" or by a
// character that looks alike, even a backslash.
EntryDeletion DeletionOf(const DirectoryEntry& entry);

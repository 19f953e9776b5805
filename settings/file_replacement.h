// Replacing a file's content so that the old content is never lost.
#pragma once

#include <string_view>

// Writes the bytes beside `path`, flushes them and moves them over it. False if any of that fails, if the
// file of this path is marked read-only, or if others have it open and don't let it be deleted, which is
// waited for a fraction of a second: it is then as it was, and nothing is left beside it. Those who have it
// open and let it be deleted keep the old content. `path` is in the process's ANSI code page.
bool ReplaceFileContent(const char* path, std::string_view bytes);

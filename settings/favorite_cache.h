// What favourite files held when they were last read, so that a list of unchanged files is had without
// parsing them again.
#pragma once

#include "Common/platform_files.h"

#include <cstddef>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

class FavoriteTexts;

// Not for more than one thread.
class FavoriteCache {
  public:
    // What it holds at most; a favourite of ordinary size has texts of about 20,000 bytes. When it is full,
    // what was kept first goes first.
    static constexpr std::size_t kMostFiles = 4096;
    static constexpr std::size_t kMostBytes = std::size_t{64} * 1024 * 1024;
    static constexpr std::size_t kMostBytesOfFile = std::size_t{256} * 1024; // larger texts are not kept

    FavoriteCache();
    ~FavoriteCache();
    FavoriteCache(const FavoriteCache&) = delete;
    FavoriteCache& operator=(const FavoriteCache&) = delete;

    // The texts of the file as it is now, null if they are not known. Paths are compared byte by byte.
    std::shared_ptr<const FavoriteTexts> Find(std::string_view path, const FileStamp& stamp) const;
    // `stamp` was taken before the file was read. What was known of the file is forgotten; an unsettled stamp
    // is not kept, since the file could change and have the same stamp.
    void Keep(std::string_view path, const FileStamp& stamp, std::shared_ptr<const FavoriteTexts> texts);
    // Forgets the file, whatever it holds.
    void Drop(std::string_view path);
    // Forgets the files that hold a password.
    void DropPasswords();
    // Forgets what was kept first until the rest takes no more than that.
    void ShrinkTo(std::size_t bytes);

  private:
    struct Entry {
        std::string path;
        FileStamp stamp;
        std::shared_ptr<const FavoriteTexts> texts;
    };
    using Entries = std::list<Entry>;

    // The entry behind it.
    Entries::iterator Drop(Entries::iterator entry);

    Entries m_entries; // in the order in which they were kept
    std::unordered_map<std::string_view, Entries::iterator> m_byPath;
    std::size_t m_bytes = 0;
};

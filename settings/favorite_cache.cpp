#include "settings/favorite_cache.h"

#include "settings/favorite_texts.h"

#include <iterator>
#include <utility>

FavoriteCache::FavoriteCache() = default;

FavoriteCache::~FavoriteCache() = default;

std::shared_ptr<const FavoriteTexts> FavoriteCache::Find(std::string_view path,
                                                         const FileStamp& stamp) const {
    const auto found = m_byPath.find(path);
    // Equal stamps are settled ones, as those kept are.
    return found != m_byPath.end() && found->second->stamp == stamp ? found->second->texts : nullptr;
}

void FavoriteCache::Keep(std::string_view path, const FileStamp& stamp,
                         std::shared_ptr<const FavoriteTexts> texts) {
    Drop(path);
    if (!stamp.settled || !texts || texts->Bytes() > kMostBytesOfFile)
        return;
    const std::size_t bytes = texts->Bytes();
    while (!m_entries.empty() && (m_entries.size() >= kMostFiles || m_bytes + bytes > kMostBytes))
        Drop(m_entries.begin());
    // Nothing of this can fail once the index has the entry.
    Entries made;
    made.push_back({std::string(path), stamp, std::move(texts)});
    m_byPath.emplace(made.back().path, made.begin());
    m_entries.splice(m_entries.end(), made);
    m_bytes += bytes;
}

void FavoriteCache::Drop(std::string_view path) {
    if (const auto found = m_byPath.find(path); found != m_byPath.end())
        Drop(found->second);
}

void FavoriteCache::DropPasswords() {
    for (auto entry = m_entries.begin(); entry != m_entries.end();)
        entry = entry->texts->HasPassword() ? Drop(entry) : std::next(entry);
}

void FavoriteCache::ShrinkTo(std::size_t bytes) {
    while (m_bytes > bytes)
        Drop(m_entries.begin());
}

FavoriteCache::Entries::iterator FavoriteCache::Drop(Entries::iterator entry) {
    m_bytes -= entry->texts->Bytes();
    m_byPath.erase(entry->path);
    return m_entries.erase(entry);
}

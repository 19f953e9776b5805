// Reading and writing favourite files. docs/favourite-file.md tells their format.
#pragma once

#include "Common/platform_files.h"
#include "settings/setting_info.h"
#include "settings/xml_document.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

class FavoriteCache;
class FavoriteDocument;
class FavoriteTexts;

// What LoadFavoriteFromPath returns.
inline constexpr int kFavoriteNotRead = 0; // the file can't be opened, or its texts can't be had
inline constexpr int kFavoriteRead = 1;
inline constexpr int kFavoriteNoDocument = -1; // the file is no XML document that is taken

// The files that failed loads leave open at most.
inline constexpr std::size_t kMostOpenedFiles = 64;

class CFavoriteFileManager {
  public:
    // `tags` are those that the option line holds. With a cache, files that have not changed since it saw
    // them are not parsed again; it must live as long as this does.
    explicit CFavoriteFileManager(std::vector<std::string> tags, FavoriteCache* cache = nullptr);
    ~CFavoriteFileManager();
    CFavoriteFileManager(const CFavoriteFileManager&) = delete;
    CFavoriteFileManager& operator=(const CFavoriteFileManager&) = delete;

    // Puts the favourite in the place of the file, whole: 1, or 0 with the old file as it was.
    int SaveFavoriteFromPath(const CFavoriteSetting& setting, const char* path);
    // Reads a file into `setting`, over what it holds. After kFavoriteNoDocument the setting is as it was,
    // the file stays open and the XML layer stays started until this object is destroyed; of many such files
    // the last kMostOpenedFiles. Both raise XmlLayerError if there is no XML layer.
    int LoadFavoriteFromPath(CFavoriteSetting& setting, const char* path);
    // The same from an open file's bytes. The file is the caller's in every case and is not kept.
    int LoadFavorite(CFavoriteSetting& setting, ByteSource& file);

    // Appends the element PrintOption with its children to `root`: 1, or 0 if a node can't be made.
    int WriteXmlPrintOption(const CFavoriteSetting& setting, XmlDocument& document, XmlNode& root);
    // Takes the document's texts into `setting`: 1, or 0 with a log line. Null is no document.
    int ParseXmlData(FavoriteDocument* document, CFavoriteSetting& setting);
    // The text of the last element of this name anywhere in the document, cut to what fits into a buffer of
    // kOptionValueSize bytes; for a missing element what the value check makes of an empty text. 0, with
    // `out` as it was, if the elements can't be listed.
    int GetTagValue(FavoriteDocument& document, std::string_view name, std::string& out);

    // Appends the names, without extension, of the favourite directory's usable files: 1, or 0 if nothing
    // could be listed. A file whose reading raises anything is logged and left out.
    int GetFindFavoriteFileList(std::vector<std::string>& names);

    // Fills `line` with "tag=value" of each tag, separated by tabs, as much as fits with a NUL; the rest is
    // 0. 1, or 0 with a log line if `line` has no room for the NUL or a value can't be had: that of an empty
    // tag.
    int GetPrintOptionBuf(const CSettingInfo& setting, std::span<char> line);

    // Writes or reads the file that Directory and Name tell; 0 for null. With `forceFavoriteDir` the
    // setting's Directory becomes the favourite directory first.
    int WriteFavorite(CFavoriteSetting* setting, int forceFavoriteDir);
    int ReadFavorite(CFavoriteSetting* setting);

  private:
    class OpenedFiles;
    // What is done with a document that was read: non-zero if it succeeded.
    using Taker = std::function<int(FavoriteDocument& document)>;

    std::shared_ptr<const FavoriteTexts> KnownTexts(const char* path) const;
    // Each gives what a load returns.
    int ReadPath(const char* path, const Taker& take);
    int ReadFile(ByteSource& file, const Taker& take);
    int ParseHeader(FavoriteDocument& document, CFavoriteSetting& setting);
    bool IsListed(const PathBuffer& directory, std::string_view name);

    std::vector<std::string> m_tags;
    FavoriteCache* m_cache;
    std::unique_ptr<OpenedFiles> m_opened;
};

// The one owner of the setting objects: the present settings, the standard ones and the favourites.
#pragma once

#include "settings/setting_info.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// All calls come from the property sheet's thread. Where the platform's XML object can't be made no file is
// read or written, which is logged, and all else works.
class CSettingManager {
  public:
    // The process's manager, made empty if there is none; loads nothing.
    static CSettingManager* GetSettingManager();
    // The same, but a manager that is made here loads the standard settings from the file.
    static CSettingManager* Create(const char* defaultFile);
    // Null if there is none.
    static CSettingManager* Existing();
    static void Destroy();

    CSettingManager(const CSettingManager&) = delete;
    CSettingManager& operator=(const CSettingManager&) = delete;
    ~CSettingManager();

    // Replaces the tags that option lines hold; null changes nothing.
    void SetTagList(const char* const* tags, std::size_t count);

    int LoadCurrentSettingInfo();
    int SaveCurrentToSession();
    int AllCurrentToSession();
    int LoadRegistryToCurrentSettingInfo();

    // Reads the standard settings and fills the Default bank with them. A keyword that no tag of a file
    // reaches keeps the driver's default, which the Default bank holds. A file that can't be opened changes
    // nothing; one that is no document counts as read, and the record becomes the cleared one of a fresh
    // setting. The store's named values stay as they are. Raises nothing.
    void LoadDefaultSettingInfo(const char* path);
    // The record alone: the banks stay as they are.
    void CopyDefaultToCurrent();

    // Reads the favourite directory anew, as far as it can be read. Raises nothing.
    void LoadFavoriteSettingList();
    std::size_t Count() const { return m_favorites.size(); }
    // Raises std::out_of_range, "invalid vector<T> subscript", outside the list.
    CFavoriteSetting& Favorite(int index);
    // The first exact match, -1 or null without one.
    int IndexOf(std::string_view name) const;
    CFavoriteSetting* GetFavoriteSettingFromName(const char* name);
    // Appends a copy and returns its index. References to favourites are void then.
    int AddFavorite(const CFavoriteSetting& setting);
    // Takes the favourite into the list, in the place of the one with its name if there is one, and writes
    // its file: 1, or 0 with a log line and the list as it was.
    int KeepFavorite(const CFavoriteSetting& setting);
    // Reads the file into `setting`, as CFavoriteFileManager::LoadFavoriteFromPath; what that raises is
    // logged and gives kFavoriteNotRead.
    int AddFavoriteFromPath(CFavoriteSetting& setting, const char* path);
    // Writes the favourite's file: 1, or 0 with a log line.
    int SaveFavoriteSetting(int index, int forceFavoriteDir);
    // Copies the favourite's file to `path`; non-zero if it was copied, or 0 with a log line.
    int ExportFavoriteFile(int index, const char* path, int failIfExists);
    // 1 if the present settings differ from the favourite's, or from the standard ones for a negative index,
    // else 0; also 0 where there is no such favourite, and where something is raised, which is logged.
    int ChangeFavorite(int index);

    CCurrentSetting& Current() { return m_current; }
    CDefaultSetting& Default() { return m_default; }

  private:
    CSettingManager();

    void KeepDriverDefaultsOfUntold();
    void ReadFavoriteDirectory();
    bool IsChanged(int index);

    // In the order in which they stand; they end in the reverse of it.
    CCurrentSetting m_current;
    CDefaultSetting m_default;
    std::vector<CFavoriteSetting> m_favorites;
    std::vector<std::string> m_tags;
};

#include "settings/SettingManager.h"

#include "Common/data_directories.h"
#include "Common/log.h"
#include "Common/platform_files.h"
#include "Common/text.h"
#include "resources/resource.h"
#include "session/keyword.h"
#include "settings/FavoriteFileManager.h"
#include "settings/InterchangeOptionTag.h"
#include "settings/favorite_cache.h"
#include "settings/favorite_path.h"
#include "settings/named_values_guard.h"
#include "settings/preset_settings.h"
#include "settings/print_option_access.h"
#include "settings/print_option_tag_access.h"

#include <algorithm>
#include <array>
#include <exception>
#include <functional>
#include <memory>
#include <source_location>
#include <span>
#include <stdexcept>
#include <type_traits>
#include <utility>

namespace {

// There for longer than a manager, whose time is that of one sheet: to parse the files anew takes most of the
// time in which a sheet with many favourites opens. What it keeps between two sheets has a limit of its own,
// since the process may be any that prints.
FavoriteCache g_files;
constexpr std::size_t kMostBytesBetweenSheets = std::size_t{4} * 1024 * 1024;

std::unique_ptr<CSettingManager> g_manager;

// The bytes of an option line that are compared.
constexpr std::size_t kOptionLineSize = 15000;
using OptionLine = std::array<char, kOptionLineSize>;

// The result of `body`. What it raises ends the operation with a log line, and the result is 0: the XML layer
// raises an error on a machine without the platform's XML object, and a sheet opens there too.
template <class Body>
std::invoke_result_t<Body> Guarded(const char* operation, Body&& body,
                                   std::source_location place = std::source_location::current()) {
    const auto line = static_cast<int>(place.line());
    try {
        return std::invoke(std::forward<Body>(body));
    } catch (const std::exception& failure) {
        WriteLog("%s %d行目 %s Exception\n", place.file_name(), line, operation);
        WriteLog("%s %d行目 %s() %s\n", place.file_name(), line, operation, failure.what());
    } catch (...) {
        WriteLog("%s %d行目 %s Exception\n", place.file_name(), line, operation);
    }
    return std::invoke_result_t<Body>();
}

// By KeywordId.
std::array<bool, kKeywordCount> KeywordsThatFilesTell() {
    std::vector<std::string_view> tags;
    CTagTable().GetTagList(&tags);
    std::array<bool, kKeywordCount> isTold{};
    for (const std::string_view tag : tags) {
        const ddb::FieldDescriptor* field = FindTaggedField(tag);
        if (field && field->number >= 0 && field->number < kKeywordCount)
            isTold[static_cast<std::size_t>(field->number)] = true;
    }
    return isTold;
}

void MakeOptionLine(const ddb::CPrintOptionEx& option, CFavoriteFileManager& files, OptionLine& line) {
    CFavoriteSetting working;
    working.PrintOption().CopyFrom(option);
    working.PreparePassword();
    files.GetPrintOptionBuf(working, line);
}

} // namespace

CSettingManager::CSettingManager() = default;
CSettingManager::~CSettingManager() {
    g_files.DropPasswords();
    g_files.ShrinkTo(kMostBytesBetweenSheets);
}

CSettingManager* CSettingManager::GetSettingManager() {
    if (!g_manager)
        g_manager.reset(new CSettingManager);
    return g_manager.get();
}

CSettingManager* CSettingManager::Create(const char* defaultFile) {
    ZR_LOG_ENTRY();
    if (!g_manager)
        GetSettingManager()->LoadDefaultSettingInfo(defaultFile);
    return g_manager.get();
}

CSettingManager* CSettingManager::Existing() {
    return g_manager.get();
}

void CSettingManager::Destroy() {
    ZR_LOG_ENTRY();
    g_manager.reset();
}

void CSettingManager::SetTagList(const char* const* tags, std::size_t count) {
    ZR_LOG_ENTRY();
    if (!tags)
        return;
    m_tags.clear();
    for (const char* tag : std::span(tags, count))
        m_tags.emplace_back(tag ? tag : "");
}

int CSettingManager::LoadCurrentSettingInfo() {
    ZR_LOG_ENTRY();
    return m_current.CreateSettingInfo();
}

int CSettingManager::SaveCurrentToSession() {
    ZR_LOG_ENTRY();
    return m_current.SaveToSession();
}

int CSettingManager::AllCurrentToSession() {
    ZR_LOG_ENTRY();
    return m_current.AllCurrentToSession();
}

int CSettingManager::LoadRegistryToCurrentSettingInfo() {
    ZR_LOG_ENTRY();
    return m_current.AllSessionToCurrent();
}

void CSettingManager::LoadDefaultSettingInfo(const char* path) {
    ZR_LOG_ENTRY();
    Guarded(__func__, [&] {
        CFavoriteFileManager files(m_tags, &g_files);
        CFavoriteSetting read;
        // A file that is no document counts as read, so that the standard settings become the cleared record.
        const int result = files.LoadFavoriteFromPath(read, path);
        if (result == kFavoriteNotRead)
            return;
        const NamedValuesGuard present;
        m_default.PrintOption().CopyFrom(read.PrintOption());
        if (result == kFavoriteRead)
            KeepDriverDefaultsOfUntold();
        m_default.SaveToSession();
    });
}

void CSettingManager::KeepDriverDefaultsOfUntold() {
    const auto isTold = KeywordsThatFilesTell();
    for (int keyword = 0; keyword < kKeywordCount; ++keyword) {
        if (!isTold[static_cast<std::size_t>(keyword)])
            m_default.PrintOptionFromSession(keyword, TransferDirection::FromBank);
    }
    // The driver tells no default of a public setting.
    SetU32(m_default.PrintOption(), ddb::FieldAt(ddb::FieldId::Scale), kUnscaled);
}

void CSettingManager::CopyDefaultToCurrent() {
    ZR_LOG_ENTRY();
    m_current.PrintOption().CopyFrom(m_default.PrintOption());
}

void CSettingManager::LoadFavoriteSettingList() {
    ZR_LOG_ENTRY();
    m_favorites.clear();
    Guarded(__func__, [&] { ReadFavoriteDirectory(); });
}

void CSettingManager::ReadFavoriteDirectory() {
    CFavoriteFileManager files(m_tags, &g_files);
    std::vector<std::string> names;
    if (!files.GetFindFavoriteFileList(names))
        return;
    std::array<char, sizeof(CFavoriteSetting::Directory)> directory{};
    GetFavoriteDirectory(directory.data(), directory.size());

    m_favorites.reserve(names.size());
    for (const std::string& name : names) {
        CFavoriteSetting working;
        CopyText(working.Name, name);
        working.Directory = directory;
        working.PrintOption().CopyFrom(m_default.PrintOption());
        if (files.ReadFavorite(&working))
            m_favorites.push_back(working);
    }
}

CFavoriteSetting& CSettingManager::Favorite(int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= m_favorites.size())
        throw std::out_of_range("invalid vector<T> subscript");
    return m_favorites[static_cast<std::size_t>(index)];
}

int CSettingManager::IndexOf(std::string_view name) const {
    const auto found = std::ranges::find_if(
        m_favorites, [&](const CFavoriteSetting& favorite) { return FieldText(favorite.Name) == name; });
    return found == m_favorites.end() ? -1 : static_cast<int>(found - m_favorites.begin());
}

CFavoriteSetting* CSettingManager::GetFavoriteSettingFromName(const char* name) {
    const int index = name ? IndexOf(name) : -1;
    return index < 0 ? nullptr : &Favorite(index);
}

int CSettingManager::AddFavorite(const CFavoriteSetting& setting) {
    ZR_LOG_ENTRY();
    m_favorites.push_back(setting);
    return static_cast<int>(m_favorites.size()) - 1;
}

int CSettingManager::KeepFavorite(const CFavoriteSetting& setting) {
    ZR_LOG_ENTRY();
    const int known = IndexOf(FieldText(setting.Name));
    if (known < 0) {
        if (SaveFavoriteSetting(AddFavorite(setting), 0))
            return 1;
        m_favorites.pop_back();
        return 0;
    }
    const CFavoriteSetting before = std::exchange(Favorite(known), setting);
    if (SaveFavoriteSetting(known, 0))
        return 1;
    Favorite(known) = before;
    return 0;
}

int CSettingManager::AddFavoriteFromPath(CFavoriteSetting& setting, const char* path) {
    ZR_LOG_ENTRY();
    return Guarded(__func__,
                   [&] { return CFavoriteFileManager(m_tags).LoadFavoriteFromPath(setting, path); });
}

int CSettingManager::SaveFavoriteSetting(int index, int forceFavoriteDir) {
    ZR_LOG_ENTRY();
    const char* const operation = __func__;
    return Guarded(operation, [&] {
        CFavoriteFileManager files(m_tags, &g_files);
        if (files.WriteFavorite(&Favorite(index), forceFavoriteDir))
            return 1;
        WriteLog("%s %d行目 %s SaveFavorite Error\n", __FILE__, __LINE__, operation);
        return 0;
    });
}

int CSettingManager::ExportFavoriteFile(int index, const char* path, int failIfExists) {
    ZR_LOG_ENTRY();
    const char* const operation = __func__;
    return Guarded(operation, [&] {
        // A favourite is saved with the extension ".pfk" and looked for with another one here, the string's
        // ".sfk".
        const auto source = FavoritePath(Favorite(index), IDS_EXPORT_EXTENSION);
        if (source && path && platform_files::CopyWholeFile(source->data(), path, failIfExists != 0))
            return 1;
        WriteLog("%s %d行目 %s() not copied: %s to %s\n", __FILE__, __LINE__, operation,
                 source ? source->data() : "", path ? path : "");
        return 0;
    });
}

int CSettingManager::ChangeFavorite(int index) {
    ZR_LOG_ENTRY();
    return Guarded(__func__, [&] { return IsChanged(index) ? 1 : 0; });
}

bool CSettingManager::IsChanged(int index) {
    LoadCurrentSettingInfo();
    if (index >= 0 && static_cast<std::size_t>(index) >= m_favorites.size())
        return false;
    const ddb::CPrintOptionEx& other = index < 0 ? m_default.PrintOption() : Favorite(index).PrintOption();

    CFavoriteFileManager files(m_tags);
    OptionLine presentLine{};
    OptionLine otherLine{};
    MakeOptionLine(m_current.PrintOption(), files, presentLine);
    MakeOptionLine(other, files, otherLine);
    WriteFavoriteLog(FieldText(presentLine), FieldText(otherLine));
    return presentLine != otherLine;
}

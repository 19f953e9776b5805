#include "settings/FavoriteFileManager.h"

#include "Common/log.h"
#include "Common/strings.h"
#include "Common/text.h"
#include "resources/resource.h"
#include "settings/favorite_cache.h"
#include "settings/favorite_limits.h"
#include "settings/favorite_path.h"
#include "settings/favorite_texts.h"
#include "settings/favorite_version.h"
#include "settings/favorite_writer.h"
#include "settings/number_text.h"
#include "settings/print_option_tag_access.h"
#include "settings/value_checks.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <deque>
#include <exception>
#include <optional>
#include <utility>

namespace {

constexpr auto kTags = std::to_array<std::string_view>({
#define ZR_TAG(key, longName, description) #key,
#include "settings/tag_table.def"
});
static_assert(kTags.size() == kTagCount);

struct HeaderStep {
    FavoriteHeader element;
    const char* failure;
    void (*take)(CFavoriteSetting& setting, std::string_view text);
};

// In the order in which they are read.
constexpr auto kHeaderSteps = std::to_array<HeaderStep>({
    {FavoriteHeader::FileVer, "ファイルバージョン取得失敗",
     [](CFavoriteSetting& setting, std::string_view text) { setting.FileVer = U32FromText(text); }},
    {FavoriteHeader::IotVer, "IOTバージョン取得失敗",
     [](CFavoriteSetting& setting, std::string_view text) { setting.IotVer = U32FromText(text); }},
    {FavoriteHeader::CharCode, "文字コード取得失敗",
     [](CFavoriteSetting& setting, std::string_view text) { setting.CharCode = U32FromText(text); }},
    {FavoriteHeader::Comment, "コメント取得失敗",
     [](CFavoriteSetting& setting, std::string_view text) { FillText(setting.Comment, text); }},
    {FavoriteHeader::PageSize, "原稿サイズ取得失敗",
     [](CFavoriteSetting& setting, std::string_view text) { FillText(setting.PageSize, text); }},
});
static_assert(kHeaderSteps.size() == kFavoriteHeaders);

// Without texts every value is empty.
void TakeOptions(const FavoriteTexts* texts, ddb::CPrintOptionEx& option) {
    std::string missing;
    for (std::size_t row = 0; row < kTags.size(); ++row) {
        std::optional<std::string_view> text = "";
        if (texts)
            text = texts->Find(kFavoriteHeaders + row);
        if (!text) {
            missing.clear();
            CheckValue(FavoriteElementName(kFavoriteHeaders + row), missing);
            text = missing;
        }
        StoreOption(kTags[row], *text, option);
    }
}

std::optional<PathBuffer> FilePath(const CFavoriteSetting& setting) {
    return FavoritePath(setting, IDS_FAVORITE_EXTENSION);
}

std::string_view WithoutExtension(std::string_view fileName) {
    return fileName.substr(0, FindLastCharacter(fileName, '.'));
}

// A text that grows in a buffer of at least one byte, cut on a character boundary; nothing follows a cut.
class LineText {
  public:
    explicit LineText(std::span<char> buffer) : m_rest(buffer) {}

    void Append(std::string_view text) {
        if (m_isCut)
            return;
        const std::size_t copied = CopyText(m_rest, text);
        m_isCut = copied < text.size();
        m_rest = m_rest.subspan(copied);
    }

  private:
    std::span<char> m_rest;
    bool m_isCut = false;
};

} // namespace

// What failed loads leave open.
class CFavoriteFileManager::OpenedFiles {
  public:
    // A directory of bad files must not take all the handles that the process can have.
    void Keep(std::unique_ptr<ByteSource> file) {
        m_files.push_back(std::move(file));
        if (m_files.size() > kMostOpenedFiles)
            m_files.pop_front();
    }
    // One keeps the layer started as well as many. A further one stays with the caller.
    void Keep(std::unique_ptr<XmlLayer>&& layer) {
        if (!m_layer)
            m_layer = std::move(layer);
    }

  private:
    std::deque<std::unique_ptr<ByteSource>> m_files;
    std::unique_ptr<XmlLayer> m_layer;
};

CFavoriteFileManager::CFavoriteFileManager(std::vector<std::string> tags, FavoriteCache* cache)
    : m_tags(std::move(tags)), m_cache(cache), m_opened(std::make_unique<OpenedFiles>()) {}

CFavoriteFileManager::~CFavoriteFileManager() = default;

int CFavoriteFileManager::SaveFavoriteFromPath(const CFavoriteSetting& setting, const char* path) {
    ZR_LOG_ENTRY();
    if (!path)
        return 0;
    XmlLayer layer;
    const auto document = layer.CreateDocument();
    if (!WriteFavoriteDocument(setting, *document))
        return 0;
    const bool isSaved = document->Save(path);
    if (m_cache)
        m_cache->Drop(path);
    if (!isSaved)
        ZR_LOG("not saved: %s\n", path);
    return isSaved ? 1 : 0;
}

int CFavoriteFileManager::LoadFavoriteFromPath(CFavoriteSetting& setting, const char* path) {
    ZR_LOG_ENTRY();
    return ReadPath(path, [&](FavoriteDocument& document) { return ParseXmlData(&document, setting); });
}

int CFavoriteFileManager::LoadFavorite(CFavoriteSetting& setting, ByteSource& file) {
    return ReadFile(file, [&](FavoriteDocument& document) { return ParseXmlData(&document, setting); });
}

int CFavoriteFileManager::WriteXmlPrintOption(const CFavoriteSetting& setting, XmlDocument& document,
                                              XmlNode& root) {
    return ::WriteXmlPrintOption(setting, document, root) ? 1 : 0;
}

int CFavoriteFileManager::ParseXmlData(FavoriteDocument* document, CFavoriteSetting& setting) {
    if (!document) {
        ZR_LOG("XMLデータが無い\n");
        return 0;
    }
    if (!ParseHeader(*document, setting))
        return 0;
    TakeOptions(document->Texts().get(), setting.PrintOption());
    return 1;
}

int CFavoriteFileManager::ParseHeader(FavoriteDocument& document, CFavoriteSetting& setting) {
    std::string text;
    for (const HeaderStep& step : kHeaderSteps) {
        if (!GetTagValue(document, FavoriteElementName(static_cast<std::size_t>(step.element)), text)) {
            WriteLog("%s %d行目 %s %s\n", __FILE__, __LINE__, __func__, step.failure);
            return 0;
        }
        step.take(setting, text);
    }
    return 1;
}

int CFavoriteFileManager::GetTagValue(FavoriteDocument& document, std::string_view name, std::string& out) {
    std::optional<std::string> text;
    if (!document.FindLast(name, text)) {
        WriteLog("%s %d行目 %s get_length Error\n", __FILE__, __LINE__, __func__);
        return 0;
    }
    if (!text)
        CheckValue(name, text.emplace());
    out = std::move(*text);
    return 1;
}

// Null unless the cache has seen the file as it is now.
std::shared_ptr<const FavoriteTexts> CFavoriteFileManager::KnownTexts(const char* path) const {
    const auto stamp = m_cache && path ? platform_files::StampOf(path) : std::nullopt;
    return stamp && stamp->settled ? m_cache->Find(path, *stamp) : nullptr;
}

int CFavoriteFileManager::ReadPath(const char* path, const Taker& take) {
    if (auto known = KnownTexts(path)) {
        FavoriteDocument document(std::move(known));
        return take(document);
    }
    auto file = path ? platform_files::OpenShared(path) : nullptr;
    if (!file) {
        ZR_LOG("not opened: %s\n", path ? path : "");
        return kFavoriteNotRead;
    }
    const auto stamp = m_cache ? file->Stamp() : std::nullopt;
    std::shared_ptr<const FavoriteTexts> texts;
    const int result = ReadFile(*file, [&](FavoriteDocument& document) {
        const int taken = take(document);
        if (taken)
            texts = document.Texts();
        return taken;
    });
    if (result == kFavoriteNoDocument) {
        ZR_LOG("not read: %s\n", path);
        // The file stays open as long as this object is there.
        m_opened->Keep(std::move(file));
    }
    // The stamp is that of the bytes if it is still the same behind them.
    if (stamp && stamp->settled && texts && file->Stamp() == stamp)
        m_cache->Keep(path, *stamp, std::move(texts));
    return result;
}

int CFavoriteFileManager::ReadFile(ByteSource& file, const Taker& take) {
    auto layer = std::make_unique<XmlLayer>();
    const auto document = layer->CreateDocument();
    if (!document->Load(file)) {
        WriteLog("%s %d行目 %s ファイル読み込みエラー\n", __FILE__, __LINE__, __func__);
        // The layer stays started as long as this object is there.
        m_opened->Keep(std::move(layer));
        return kFavoriteNoDocument;
    }
    FavoriteDocument favorite(*document);
    return take(favorite);
}

int CFavoriteFileManager::GetFindFavoriteFileList(std::vector<std::string>& names) {
    ZR_LOG_ENTRY();
    const auto directory = WholeFavoriteDirectory();
    std::vector<std::string> files;
    if (!directory ||
        !platform_files::ListFiles(directory->data(), LoadText(IDS_FAVORITE_FILTER).c_str(), files))
        return 0;
    // One layer for all the files.
    const XmlLayer layer;
    const std::size_t before = names.size();
    bool hasLayerFailed = false;
    for (const std::string& file : files) {
        try {
            const std::string_view name = WithoutExtension(file);
            if (name.size() <= kMaxFavoriteName && IsListed(*directory, name))
                names.emplace_back(name);
        } catch (const std::exception& error) {
            ZR_LOG("not read: %s\\%s: %s\n", directory->data(), file.c_str(), error.what());
            hasLayerFailed |= dynamic_cast<const XmlLayerError*>(&error) != nullptr;
        }
    }
    return names.size() > before || !hasLayerFailed ? 1 : 0;
}

bool CFavoriteFileManager::IsListed(const PathBuffer& directory, std::string_view name) {
    CFavoriteSetting setting;
    setting.Directory = directory;
    FillText(setting.Name, name);
    const auto path = FilePath(setting);
    // The version is in the header, and what can be read of it can be read whole. The file's own version is
    // the load dialog's to ask for.
    return path &&
           ReadPath(path->data(),
                    [&](FavoriteDocument& document) { return ParseHeader(document, setting); }) != 0 &&
           setting.IotVer == kFavoriteIotVer;
}

int CFavoriteFileManager::GetPrintOptionBuf(const CSettingInfo& setting, std::span<char> line) {
    if (line.empty()) {
        ZR_LOG("no room\n");
        return 0;
    }
    std::ranges::fill(line, '\0');
    LineText text(line);
    std::string value;
    std::string_view separator;
    for (const std::string& tag : m_tags) {
        // What was no tag in the list that was handed in.
        if (tag.empty()) {
            ZR_LOG("お気に入りの値書き出しエラー\n");
            return 0;
        }
        value.clear();
        FetchOption(tag, setting.PrintOption(), value);
        text.Append(std::exchange(separator, "\t"));
        text.Append(tag);
        text.Append("=");
        text.Append(value);
    }
    return 1;
}

int CFavoriteFileManager::WriteFavorite(CFavoriteSetting* setting, int forceFavoriteDir) {
    ZR_LOG_ENTRY();
    if (!setting)
        return 0;
    if (forceFavoriteDir) {
        const auto directory = WholeFavoriteDirectory();
        if (!directory)
            return 0;
        setting->Directory = *directory;
    }
    const auto path = FilePath(*setting);
    return path ? SaveFavoriteFromPath(*setting, path->data()) : 0;
}

int CFavoriteFileManager::ReadFavorite(CFavoriteSetting* setting) {
    if (!setting)
        return 0;
    const auto path = FilePath(*setting);
    return path ? LoadFavoriteFromPath(*setting, path->data()) : kFavoriteNotRead;
}

#include "Common/data_directories.h"

#include "Common/log.h"
#include "Common/strings.h"
#include "Common/text.h"
#include "resources/resource.h"

#include <span>

namespace {

constexpr std::string_view kModel = "Orvane X100";
constexpr std::string_view kFavorite = "favorite";
constexpr std::string_view kProfile = "profile";
constexpr std::string_view kSpotColor = "SpotColor";
constexpr std::string_view kUserSpotColor = "SpotColor\\User";

// A path that grows in a buffer of at least one byte.
class PathText {
  public:
    PathText(std::span<char> buffer, std::string_view begin) : m_buffer(buffer) { Append(begin); }

    // Cut where it doesn't fit; nothing follows a cut.
    void Append(std::string_view text) {
        if (m_isCut)
            return;
        const std::size_t copied = CopyText(m_buffer.subspan(m_length), text);
        m_isCut = copied < text.size();
        m_length += copied;
    }
    // A backslash and the piece, or nothing where they don't fit with their NUL.
    void AppendPiece(std::string_view piece) {
        if (m_buffer.size() - m_length > piece.size() + 1) {
            Append("\\");
            Append(piece);
        } else {
            m_lacksPiece = true;
        }
    }

    std::size_t Length() const { return m_length; }
    // False if anything was cut or left away.
    bool IsWhole() const { return !m_isCut && !m_lacksPiece; }

  private:
    std::span<char> m_buffer;
    std::size_t m_length = 0;
    bool m_isCut = false;
    bool m_lacksPiece = false;
};

struct FormedPath {
    std::size_t baseLength = 0; // of the platform's folder
    std::size_t length = 0;
    bool isWhole = false;
};

// The root, or the directory of this name in it.
FormedPath FormDirectory(std::span<char> buffer, std::string_view directory) {
    if (buffer.empty())
        return {};
    PathBuffer base{};
    if (!(platform_files::IsNt6OrLater() ? platform_files::CommonDocuments(base)
                                         : platform_files::WindowsFolder(base))) {
        ZR_LOG("no base directory\n");
        buffer.back() = '\0';
        return {.length = FieldText(buffer).size()};
    }
    PathText path(buffer, FieldText(base));
    const std::size_t baseLength = path.Length();
    path.Append("\\");
    path.Append(LoadText(IDS_DATA_DIRECTORY));
    path.AppendPiece(kModel);
    if (!directory.empty())
        path.AppendPiece(directory);
    return {baseLength, path.Length(), path.IsWhole()};
}

int GetDirectory(char* buffer, std::size_t size, std::string_view directory) {
    if (!buffer)
        return 0;
    return static_cast<int>(FormDirectory({buffer, size}, directory).length);
}

int CreateDirectoryBelowRoot(std::string_view directory) {
    ZR_LOG_ENTRY();
    PathBuffer path{};
    const FormedPath formed = FormDirectory(path, directory);
    if (!formed.isWhole)
        return 0;
    ZR_LOG("%s\n", path.data());
    // Behind the base all is ASCII, so a backslash is no second byte of a character.
    for (std::size_t at = formed.baseLength + 1; at < formed.length; ++at) {
        if (path[at] != '\\')
            continue;
        path[at] = '\0';
        platform_files::MakeDirectory(path.data());
        path[at] = '\\';
    }
    if (platform_files::MakeDirectory(path.data()))
        return 1;
    ZR_LOG("not made\n");
    return 0;
}

} // namespace

int GetDataRootDirectory(char* buffer, std::size_t size) {
    return GetDirectory(buffer, size, {});
}
int GetFavoriteDirectory(char* buffer, std::size_t size) {
    return GetDirectory(buffer, size, kFavorite);
}
int GetProfileDirectory(char* buffer, std::size_t size) {
    return GetDirectory(buffer, size, kProfile);
}
int GetSpotColorDirectory(char* buffer, std::size_t size) {
    return GetDirectory(buffer, size, kSpotColor);
}
int GetUserSpotColorDirectory(char* buffer, std::size_t size) {
    return GetDirectory(buffer, size, kUserSpotColor);
}

int CreateFavoriteDirectory() {
    return CreateDirectoryBelowRoot(kFavorite);
}
int CreateProfileDirectory() {
    return CreateDirectoryBelowRoot(kProfile);
}
int CreateSpotColorDirectory() {
    return CreateDirectoryBelowRoot(kSpotColor);
}
int CreateUserSpotColorDirectory() {
    return CreateDirectoryBelowRoot(kUserSpotColor);
}

int CreateDataDirectories() {
    ZR_LOG_ENTRY();
    const int favorite = CreateFavoriteDirectory();
    const int profile = CreateProfileDirectory();
    const int spotColor = CreateSpotColorDirectory();
    const int userSpotColor = CreateUserSpotColorDirectory();
    return favorite && profile && spotColor && userSpotColor ? 1 : 0;
}

int GetDeviceDataDirectory(PathBuffer& path, std::string_view serverAddress) {
    ZR_LOG_ENTRY();
    PathBuffer base{};
    if (!platform_files::LocalAppData(base)) {
        ZR_LOG("no local application data\n");
        return 0;
    }
    PathText text(path, FieldText(base));
    text.Append("\\PrtSrv\\DriverResource\\10_");
    text.Append(serverAddress);
    text.Append("\\");
    return 1;
}

bool GetProfilePath(PathBuffer& path, std::string_view profileName) {
    PathBuffer directory{};
    if (!FormDirectory(directory, kProfile).isWhole)
        return false;
    PathText text(path, FieldText(directory));
    text.Append("\\");
    text.Append(profileName);
    text.Append(".cps");
    return text.IsWhole();
}

bool GetDeviceDataPath(PathBuffer& path, std::string_view directory, std::string_view fileName) {
    PathText text(path, directory);
    text.Append(fileName);
    return text.IsWhole();
}

#include "pages/favorite_file_dialogs.h"

#include "Common/log.h"
#include "Common/strings.h"
#include "Common/text.h"
#include "pages/favorite_names.h"
#include "pages/message_guard.h"
#include "resources/resource.h"
#include "settings/favorite_path.h"

#include <commdlg.h>
#include <shlobj.h>

#include <cctype>
#include <string>

namespace {

// Names are not checked by the dialog, so that what the user typed comes to the hook.
constexpr DWORD kSaveFlags = 528680;
static_assert(kSaveFlags ==
              (OFN_EXPLORER | OFN_FILEMUSTEXIST | OFN_NOVALIDATE | OFN_ENABLEHOOK | OFN_NOCHANGEDIR));
constexpr DWORD kLoadFlags = 530476;
static_assert(kLoadFlags == (OFN_EXPLORER | OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST | OFN_ENABLEHOOK |
                             OFN_NOCHANGEDIR | OFN_HIDEREADONLY));

using FileDialog = decltype(&GetSaveFileNameA);

std::optional<PathBuffer> AskForFile(HWND owner, std::string_view name, FileDialog ask, LPOFNHOOKPROC hook,
                                     DWORD flags) {
    PathBuffer path{};
    CopyText(path, name);
    // One entry, which shows its own pattern.
    const std::string pattern = LoadText(IDS_FAVORITE_FILTER);
    const std::string filter = pattern + '\0' + pattern + '\0';
    PathBuffer desktop{};
    SHGetSpecialFolderPathA(nullptr, desktop.data(), CSIDL_DESKTOPDIRECTORY, FALSE);
    // The dialog puts a dot of its own before it.
    const std::string extension = LoadText(IDS_FAVORITE_EXTENSION);

    OPENFILENAMEA dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner;
    dialog.lpstrFilter = filter.c_str();
    dialog.lpstrFile = path.data();
    dialog.nMaxFile = static_cast<DWORD>(path.size());
    dialog.lpstrInitialDir = desktop.data();
    dialog.Flags = flags;
    dialog.lpstrDefExt = extension.c_str() + (extension.starts_with('.') ? 1 : 0);
    dialog.lpfnHook = hook;
    if (ask(&dialog))
        return path;
    if (const DWORD error = CommDlgExtendedError())
        ZR_LOG("error=%lx\n", error);
    return std::nullopt;
}

NameRefusal Taken(std::string_view name) {
    return {IDS_NAME_TAKEN, std::string(name)};
}

std::optional<NameRefusal> RefuseFileToSave(const char* path) {
    const std::string_view name = NameInPath(path);
    if (const auto refusal = RefuseFavoriteName(NamePlace::FileToSave, name))
        return refusal;
    return platform_files::IsThere(path) ? std::optional(Taken(name)) : std::nullopt;
}

std::optional<NameRefusal> RefuseFileToLoad(const char* path) {
    const std::string_view name = NameInPath(path);
    if (const auto refusal = RefuseFavoriteName(NamePlace::FileToLoad, name))
        return refusal;
    if (IsThere(FavoritePath(name)))
        return Taken(name);
    // An empty name counts as one of blanks alone.
    return IsAllSpace(name) ? std::optional(NameRefusal{IDS_NAME_LIMITS, {}}) : std::nullopt;
}

// The hook's answer to CDN_FILEOK: a refusal keeps the dialog, the hook window's parent, open. So does a
// question that failed, since a file of which nothing is known may be one that is not to be written over.
template <typename Question>
UINT_PTR Answer(HWND hookWindow, Question&& refuse) {
    const bool isTaken = GuardMessage(WM_NOTIFY, [&] {
        const std::optional<NameRefusal> refusal = refuse();
        if (refusal)
            ShowRefusal(GetParent(hookWindow), *refusal);
        return !refusal;
    });
    if (isTaken)
        return 0;
    SetWindowLongPtrA(hookWindow, DWLP_MSGRESULT, -1);
    return 1;
}

bool IsFileChosen(UINT message, LPARAM lParam) {
    return message == WM_NOTIFY && reinterpret_cast<const OFNOTIFYA*>(lParam)->hdr.code == CDN_FILEOK;
}

} // namespace

std::optional<PathBuffer> AskForFileToSave(HWND owner, std::string_view name) {
    ZR_LOG_ENTRY();
    std::string offered(name);
    // The dialog takes what stands behind a name's last dot for its extension.
    if (NameInPath(offered) != name)
        offered += LoadText(IDS_FAVORITE_EXTENSION);
    return AskForFile(owner, offered, GetSaveFileNameA, OFNHookSaveProc, kSaveFlags);
}

std::optional<PathBuffer> AskForFileToLoad(HWND owner) {
    ZR_LOG_ENTRY();
    return AskForFile(owner, {}, GetOpenFileNameA, OFNHookLoadProc, kLoadFlags);
}

std::string_view NameInPath(std::string_view path) {
    constexpr auto npos = std::string_view::npos;
    // A colon behind a drive's letter; any other one is part of a name.
    if (path.size() >= 2 && std::isalpha(static_cast<unsigned char>(path[0])) && path[1] == ':')
        path.remove_prefix(2);
    for (const char separator : {'\\', '/'}) {
        if (const std::size_t at = FindLastCharacter(path, separator); at != npos)
            path.remove_prefix(at + 1);
    }
    return path.substr(0, FindLastCharacter(path, '.'));
}

UINT_PTR CALLBACK OFNHookSaveProc(HWND dialog, UINT message, WPARAM, LPARAM lParam) {
    if (!IsFileChosen(message, lParam))
        return 0;
    return Answer(dialog, [&] {
        // The dialog's own path lacks the default extension.
        return RefuseFileToSave(reinterpret_cast<const OFNOTIFYA*>(lParam)->lpOFN->lpstrFile);
    });
}

UINT_PTR CALLBACK OFNHookLoadProc(HWND dialog, UINT message, WPARAM, LPARAM lParam) {
    if (!IsFileChosen(message, lParam))
        return 0;
    return Answer(dialog, [&] {
        PathBuffer path{};
        SendMessageA(GetParent(dialog), CDM_GETFILEPATH, path.size(), reinterpret_cast<LPARAM>(path.data()));
        return RefuseFileToLoad(path.data());
    });
}

#include "Common/ask_user.h"

#include <windows.h>

static_assert(ask_answer::Ok == IDOK && ask_answer::Cancel == IDCANCEL);
static_assert(ask_answer::Yes == IDYES && ask_answer::No == IDNO);

namespace {

UINT ButtonFlags(AskButtons buttons) {
    switch (buttons) {
    case AskButtons::Ok: return MB_OK;
    case AskButtons::OkCancel: return MB_OKCANCEL;
    case AskButtons::YesNo: return MB_YESNO;
    }
    return MB_OK;
}

} // namespace

int AskUser(void* owner, const char* text, const char* title, AskButtons buttons, AskIcon icon,
            AskPlace place) {
    return MessageBoxA(static_cast<HWND>(owner), text, title,
                       ButtonFlags(buttons) | (icon == AskIcon::Error ? MB_ICONERROR : MB_ICONWARNING) |
                           (place == AskPlace::Foreground ? MB_SETFOREGROUND : 0));
}

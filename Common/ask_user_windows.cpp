#include "Common/ask_user.h"

#include <windows.h>

static_assert(ask_answer::Ok == IDOK && ask_answer::Cancel == IDCANCEL);

int AskUser(void* owner, const char* text, const char* title, AskButtons buttons) {
    const UINT kind = buttons == AskButtons::Ok ? MB_OK : MB_OKCANCEL;
    return MessageBoxA(static_cast<HWND>(owner), text, title, kind | MB_ICONEXCLAMATION);
}

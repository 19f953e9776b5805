// The process-wide state of the open sheets. Nothing guards it: an application is assumed to open one sheet
// at a time.
#pragma once

#include "session/session.h"

#include <windows.h>

// Document sheets open, a refused second one included.
extern int g_SheetCount;
// The thread that created the session; only it frees the session.
extern DWORD g_SheetThread;
// The session of the open document sheet, null without one.
extern SessionBlock* g_SessionBlock;
// The printer of the device sheet.
extern HANDLE g_hPrinter;
// The path below HKEY_CURRENT_USER of the user's data for the printer.
extern char g_UserInfoKey[1024];
// 1 if the device sheet may change settings.
extern int g_Permission;

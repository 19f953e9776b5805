#include "oemps/sheet_state.h"

int g_SheetCount = 0;
DWORD g_SheetThread = 0;
SessionBlock* g_SessionBlock = nullptr;
HANDLE g_hPrinter = nullptr;
char g_UserInfoKey[1024] = {};
int g_Permission = 0;

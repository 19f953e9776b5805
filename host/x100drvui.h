// The entry points of x100drvui.dll, the printer's configuration module. The spooler's client library loads
// it as DRIVER_INFO_3::pConfigFile and calls the Drv functions; the platform's headers declare none of
// this here.
#pragma once

#include <windows.h>

#include <winspool.h>

#include <compstui.h>

// What DrvDocumentPropertySheets is given: by PROPSHEETUI_INFO::lParamInit when a sheet is to be shown, by
// the second argument when the first is null.
struct DOCUMENTPROPERTYHEADER {
    WORD cbSize;
    WORD Reserved;
    HANDLE hPrinter; // may be null, the printer is then opened by its name
    LPWSTR pszPrinterName;
    PDEVMODEW pdmIn;
    PDEVMODEW pdmOut;
    DWORD cbOut; // in: bytes at pdmOut; out: bytes of a whole DEVMODE
    DWORD fMode; // DM_IN_BUFFER, DM_OUT_BUFFER, DM_IN_PROMPT
};
static_assert(sizeof(DOCUMENTPROPERTYHEADER) == 48);

// What DrvDevicePropertySheets is given, always by PROPSHEETUI_INFO::lParamInit.
struct DEVICEPROPERTYHEADER {
    WORD cbSize;
    WORD Flags; // DPS_NOPERMISSION: the settings may only be looked at
    HANDLE hPrinter;
    LPWSTR pszPrinterName;
};
static_assert(sizeof(DEVICEPROPERTYHEADER) == 24);

#ifndef DPS_NOPERMISSION
inline constexpr WORD DPS_NOPERMISSION = 1;
#endif

extern "C" {

// Without `info`: fMode 0 returns the bytes of a whole DEVMODE, DM_OUT_BUFFER fills pdmOut and returns IDOK;
// -1 on failure. With `info`: the callback of CommonPropertySheetUIW, lParamInit pointing at a
// DOCUMENTPROPERTYHEADER; the result that CommonPropertySheetUIW hands out is CPSUI_OK or CPSUI_CANCEL, and
// pdmOut is filled on CPSUI_OK.
LONG WINAPI DrvDocumentPropertySheets(PPROPSHEETUI_INFO info, LPARAM param);

// The callback of CommonPropertySheetUIW for the printer's own properties, lParamInit pointing at a
// DEVICEPROPERTYHEADER.
LONG WINAPI DrvDevicePropertySheets(PPROPSHEETUI_INFO info, LPARAM param);

// One DC_ capability of the printer. `device` is the printer's name. GDI_ERROR for what it does not answer.
DWORD WINAPI DrvDeviceCapabilities(HANDLE printer, PWSTR device, WORD capability, PVOID output,
                                   PDEVMODEW devmode);

// A printer comes or goes (PRINTER_EVENT_), or the driver is installed or removed (DRIVER_EVENT_). Both are
// handed on to the plug-in; one that declines lets the driver go on, TRUE. FALSE if it fails or can't be
// loaded.
BOOL WINAPI DrvPrinterEvent(LPWSTR printerName, INT event, DWORD flags, LPARAM param);
BOOL WINAPI DrvDriverEvent(DWORD event, DWORD level, LPBYTE driverInfo, LPARAM param);

// Why the last Drv call of this process failed, in English, one sentence; "" if it did not. Writes at most
// `count` characters, the NUL included, and returns the length of the whole text.
DWORD WINAPI X100GetLastMessage(PWSTR buffer, DWORD count);

// The result of the sheet that was closed last in this process, CPSUI_OK or CPSUI_CANCEL; CPSUI_CANCEL before
// any was. Wine's DocumentProperties hides it, returning IDOK for a cancelled sheet.
DWORD WINAPI X100GetLastSheetResult(void);

// Whether a DEVMODE of `size` bytes is one that DrvDocumentPropertySheets would take as pdmIn for this
// printer: 1, or 0 with the reason in X100GetLastMessage. Unlike pdmIn, the buffer's true size is known here.
BOOL WINAPI X100CheckDevMode(PCWSTR printerName, const void* devmode, DWORD size);
}

using PFNDRVPROPERTYSHEETS = LONG(WINAPI*)(PPROPSHEETUI_INFO, LPARAM);
using PFNDRVDEVICECAPABILITIES = DWORD(WINAPI*)(HANDLE, PWSTR, WORD, PVOID, PDEVMODEW);
using PFNDRVPRINTEREVENT = BOOL(WINAPI*)(LPWSTR, INT, DWORD, LPARAM);
using PFNDRVDRIVEREVENT = BOOL(WINAPI*)(DWORD, DWORD, LPBYTE, LPARAM);
using PFNX100GETLASTMESSAGE = DWORD(WINAPI*)(PWSTR, DWORD);
using PFNX100GETLASTSHEETRESULT = DWORD(WINAPI*)();
using PFNX100CHECKDEVMODE = BOOL(WINAPI*)(PCWSTR, const void*, DWORD);

// The driver's private area stands at the end of the public part (byte dmSize, 220), the plug-in's block at
// the end of the whole: dmSize + dmDriverExtra bytes less the size that the plug-in asks for.

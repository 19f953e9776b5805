// What both of the plug-in's property sheet callbacks do alike.
#pragma once

#include "oemps/printoem.h"

// True if `info` is there and of the version that this program knows; else the last error is
// ERROR_INVALID_PARAMETER.
bool IsKnownSheetInfo(const PROPSHEETUI_INFO* info);

// Answers the reasons that only ask: the header's title, the end, the result to hand on. Any other reason
// gets 0.
void AnswerSheetReason(PROPSHEETUI_INFO& info, LPARAM param);

// Adds a page of the resource module to the common property sheet and returns its handle, 0 if it was
// refused.
LONG_PTR AddPage(const PROPSHEETUI_INFO& info, WORD dialogId, WORD titleId, DLGPROC procedure,
                 LPARAM pageParam);

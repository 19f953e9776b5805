// The document sheet: its session, its pages, its end.
#pragma once

#include "oemps/printoem.h"

// Creates the session of the document sheet that is about to open, binds the driver's items and hides them. A
// second sheet of the process leaves the driver's items untouched. Always S_OK.
HRESULT hrDocumentPropertyPage(OEMCUIPPARAM* param);

// The callback of the common property sheet: adds the pages, ends the session. Refuses a missing `info` or
// one of another version with ERROR_INVALID_PARAMETER.
HRESULT hrOEMDocumentPropertySheets(PROPSHEETUI_INFO* info, LPARAM param, IPrintOemDriverUI* helper);

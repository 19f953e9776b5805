// The driver's requests on the private DEVMODE block.
#pragma once

#include "oemps/printoem.h"

// Answers OEMDM_SIZE, OEMDM_DEFAULT, OEMDM_CONVERT and OEMDM_MERGE. A missing parameter, a missing record or
// another mode is refused with ERROR_INVALID_PARAMETER. A stored record that does not fit is no failure: the
// record that the driver prepared stays as it is.
HRESULT hrOEMDevMode(DWORD mode, OEMDMPARAM* param);

// The setting manager's end.
#pragma once

// Stands where the setting manager, which owns the sheet's setting objects, is destroyed before the session
// goes. There is nothing to destroy until favourites are managed.
void EndSettingManager();

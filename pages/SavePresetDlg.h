// The dialog that asks for a new favourite's name and comment.
#pragma once

#include "pages/favorite_names.h"

#include <windows.h>

// The buffers hold what is offered, and after IDOK what was entered. A name that passed stays in its buffer
// even if the comment was refused then and the dialog is cancelled.
INT_PTR DoSavePresetDialog(HWND owner, FavoriteName& name, FavoriteComment& comment);

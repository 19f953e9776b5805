#include "companions/common/companion_module.h"

#include "Common/strings.h"

#include <windows.h>

// The linker's name for where the module lies.
extern "C" IMAGE_DOS_HEADER __ImageBase;

void UseOwnResources() {
    SetStringModule(&__ImageBase);
}

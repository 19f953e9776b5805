#include "settings/ansi_code_page.h"

#include <windows.h>

unsigned AnsiCodePage() {
    return GetACP();
}

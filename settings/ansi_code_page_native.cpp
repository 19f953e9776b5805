#include "settings/ansi_code_page_native.h"

#include "settings/ansi_code_page.h"

namespace {
unsigned g_codePage = 932;
}

unsigned AnsiCodePage() {
    return g_codePage;
}

void SetAnsiCodePage(unsigned codePage) {
    g_codePage = codePage;
}

// The native build's code page, which a test sets.
#pragma once

// 932 at first.
void SetAnsiCodePage(unsigned codePage);

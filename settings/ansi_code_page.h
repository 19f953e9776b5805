// The ANSI code page that the process runs in.
#pragma once

// Its number, for example 932 or 1252.
unsigned AnsiCodePage();

#!/bin/sh
# The program must not load the libraries of windows at its start:
#   imports.sh OBJDUMP PrinterDriverApplication.exe
imports=$("$1" -p "$2" | sed -n 's/^.*DLL Name: //p')
[ -n "$imports" ] || exit 1
if echo "$imports" | grep -iE '^(user32|gdi32|comctl32|winspool|libstdc|libgcc|libwinpthread)'; then
    exit 1
fi

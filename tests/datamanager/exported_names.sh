#!/bin/sh
# The module exports the listed names and no others: exported_names.sh OBJDUMP MODULE LISTING
set -eu
export LC_ALL=C
actual=$(mktemp)
expected=$(mktemp)
trap 'rm -f "$actual" "$expected"' EXIT
"$1" -p "$2" | sed -n '/^\[Ordinal\/Name Pointer\] Table/,/^$/s/^\t\[ *[0-9]*\].* //p' | sort >"$actual"
sort "$3" >"$expected"
diff "$expected" "$actual"

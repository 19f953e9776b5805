#!/bin/sh
# Makes the project's Wine prefix, unless it is there and was made by this very recipe.
set -eu
ZR_ROOT=$(cd "$(dirname "$0")/.." && pwd)
. "$ZR_ROOT/tools/wine-env.sh"

mkdir -p "$(dirname "$WINEPREFIX")"
exec 9>"$WINEPREFIX.lock"
flock 9

stamp="$WINEPREFIX/.made-from"
recipe=$(cat "$ZR_ROOT/tools/prefix.reg" "$ZR_ROOT/tools/make-prefix.sh" | sha256sum | cut -d' ' -f1)
[ "$(cat "$stamp" 2>/dev/null || true)" != "$recipe" ] || exit 0

echo "Making the Wine prefix in ${WINEPREFIX#"$ZR_ROOT"/}"
if [ -d "$WINEPREFIX" ]; then
    if [ ! -e "$stamp" ] && [ -n "${ZR_WINEPREFIX:-}" ]; then
        echo "make-prefix.sh: $WINEPREFIX is there and was not made by this project" >&2
        exit 1
    fi
    /usr/lib/wine/wineserver64 -k 2>/dev/null || true
    rm -rf "$WINEPREFIX"
fi
mkdir -p "$HOME"
export ZR_ROOT
log="$WINEPREFIX.log"
# Some of the prefix's own first steps open windows.
if ! "$ZR_ROOT/tools/with-display.sh" sh -exc '
    exec 9>&-
    /usr/lib/wine/wineserver64 -p
    /usr/lib/wine/wine64 wineboot -i
    /usr/lib/wine/wine64 regedit /S "Z:$ZR_ROOT/tools/prefix.reg"
    /usr/lib/wine/wineserver64 -k
    /usr/lib/wine/wineserver64 -w' </dev/null >"$log" 2>&1; then
    echo "make-prefix.sh: the Wine prefix can't be made; the end of $log:" >&2
    tail -n 5 "$log" >&2
    exit 1
fi
echo "$recipe" >"$stamp"

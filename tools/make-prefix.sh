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
    /usr/lib/wine/wineserver64 -k 2>/dev/null || true
    rm -rf "$WINEPREFIX"
fi
mkdir -p "$HOME"
export ZR_ROOT
# Some of the prefix's own first steps open windows.
"$ZR_ROOT/tools/with-display.sh" sh -ec '
    exec 9>&-
    /usr/lib/wine/wineserver64 -p </dev/null >/dev/null 2>&1
    /usr/lib/wine/wine64 wineboot -i </dev/null >/dev/null 2>&1
    /usr/lib/wine/wine64 regedit /S "Z:$ZR_ROOT/tools/prefix.reg" </dev/null >/dev/null 2>&1
    /usr/lib/wine/wineserver64 -k
    /usr/lib/wine/wineserver64 -w'
echo "$recipe" >"$stamp"

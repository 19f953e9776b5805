#!/bin/sh
# Runs a command while the project's Wine server is up. A server that was not up before is ended afterwards, before
# the display that its programs use can go:
#   tools/with-wine.sh COMMAND [ARGUMENT...]
ZR_ROOT=$(cd "$(dirname "$0")/.." && pwd)
export ZR_ROOT
server() {
    (. "$ZR_ROOT/tools/wine-env.sh" && /usr/lib/wine/wineserver64 "$@")
}
server -k0 2>/dev/null && exec "$@"
"$ZR_ROOT/tools/wine-run.sh" cmd /c exit >/dev/null 2>&1 </dev/null
"$@"
status=$?
server -k
server -w
exit "$status"

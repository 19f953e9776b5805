#!/bin/sh
# Runs a command while the project's Wine server is up:
#   tools/with-wine.sh COMMAND [ARGUMENT...]
# The last of several such commands ends the server, also when it is interrupted, before the display that its programs
# use can go.
ZR_ROOT=$(cd "$(dirname "$0")/.." && pwd)
export ZR_ROOT
server() {
    (. "$ZR_ROOT/tools/wine-env.sh" && /usr/lib/wine/wineserver64 "$@" 8>&-)
}

prefix=${ZR_WINEPREFIX:-$ZR_ROOT/build/wineprefix}
# Held by this shell alone: the server would keep it for as long as it lives.
exec 8>"$prefix.in-use"
flock -s 8
command=
finish() {
    [ -z "$command" ] || kill "$command" 2>/dev/null
    if flock -n -x 8; then
        server -k
        server -w
    fi
}
trap finish EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

"$ZR_ROOT/tools/wine-run.sh" cmd /c exit >/dev/null 2>&1 </dev/null 8>&-
# In the background, so that a signal is acted on while the command runs; that would take its input away.
exec 6<&0
"$@" <&6 6<&- 8>&- &
command=$!
wait "$command"
status=$?
command=
exit "$status"

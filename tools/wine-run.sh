#!/bin/sh
# Runs a Windows program in the project's Wine prefix: tools/wine-run.sh PROGRAM.exe [ARGUMENT...]
# Within tools/with-lanes.sh it is the first prefix that no other program has, and its display.
ZR_ROOT=$(cd "$(dirname "$0")/.." && pwd)

if [ -n "${ZR_LANES:-}" ]; then
    while :; do
        for ready in "$ZR_LANES"/*.ready; do
            exec 7>"${ready%.ready}.lock"
            flock -n 7 || continue
            { read -r ZR_WINEPREFIX && read -r DISPLAY && read -r processor; } <"$ready"
            [ -n "${ZR_ALL_PROCESSORS:-}" ] || taskset -cp "$processor" $$ >/dev/null 2>&1
            export ZR_WINEPREFIX DISPLAY
            unset ZR_LANES
            # Whatever a program leaves running must hold neither the lane nor the caller's pipes, whose end the
            # caller waits for.
            output=$(mktemp)
            trap 'rm -f "$output"' EXIT
            trap 'exit 130' INT
            trap 'exit 143' TERM
            "$0" "$@" >"$output" 2>&1 7>&-
            status=$?
            cat "$output"
            exit "$status"
        done
        sleep 0.1
    done
fi

. "$ZR_ROOT/tools/wine-env.sh"

# The persistent server makes a program start in 40 ms instead of 2.4 s. It is started with the caller's pipes
# and the lock closed, since it would keep them open for as long as it lives.
(
    flock 9
    /usr/lib/wine/wineserver64 -k0 2>/dev/null || {
        /usr/lib/wine/wineserver64 -p </dev/null >/dev/null 2>&1 9>&-
        /usr/lib/wine/wine64 wineboot </dev/null >/dev/null 2>&1 9>&-
    }
) 9>"$WINEPREFIX/.warm.lock"
exec /usr/lib/wine/wine64 "$@"

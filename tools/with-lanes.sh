#!/usr/bin/env bash
# Runs a command beside several Wine prefixes, each with a display and a server of its own:
#   tools/with-lanes.sh NUMBER COMMAND [ARGUMENT...]
# tools/wine-run.sh then takes one that is free for each program, so that as many programs run at once without sharing
# a registry, a spooler, a log or the keyboard focus. Programs under Wine mostly wait for their server.
set -u
ZR_ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
number=$1
shift

lanes=$(mktemp -d)
keepers=()
end_lanes() {
    rm -f "$lanes"/*.open
    [ "${#keepers[@]}" -eq 0 ] || wait "${keepers[@]}"
    rm -rf "$lanes"
}
trap end_lanes EXIT
trap 'exit 143' TERM
trap 'exit 130' INT

for lane in $(seq "$number"); do
    touch "$lanes/$lane.open"
    (
        export ZR_WINEPREFIX="$ZR_ROOT/build/wineprefix$( [ "$lane" -eq 1 ] || echo ".$lane")" ZR_LANE="$lanes/$lane"
        "$ZR_ROOT/tools/make-prefix.sh" || exit 1
        # The display is told once the server is up; both last until the lane's file is gone.
        exec "$ZR_ROOT/tools/with-display.sh" "$ZR_ROOT/tools/with-wine.sh" sh -c '
            printf "%s\n%s\n" "$ZR_WINEPREFIX" "$DISPLAY" >"$ZR_LANE.tmp"
            mv "$ZR_LANE.tmp" "$ZR_LANE.ready"
            while [ -e "$ZR_LANE.open" ]; do sleep 0.2; done'
    ) </dev/null &
    keepers+=("$!")
done
for lane in $(seq "$number"); do
    until [ -e "$lanes/$lane.ready" ]; do
        kill -0 "${keepers[lane - 1]}" 2>/dev/null || {
            echo "with-lanes.sh: prefix $lane can't be had" >&2
            exit 1
        }
        sleep 0.1
    done
done
ZR_LANES=$lanes "$@"

#!/usr/bin/env bash
# Runs a command beside several Wine prefixes, each with a display and a server of its own:
#   tools/with-lanes.sh NUMBER COMMAND [ARGUMENT...]
# tools/wine-run.sh then takes one that is free for each program, so that as many programs run at once without sharing
# a registry, a spooler, a log or the keyboard focus. Programs under Wine mostly wait for their server.
# The windows of a lane stand on a desktop of Wine's own. On one that a window manager looks after, that gives each
# window the keyboard in its own time, and for a moment no window has it.
# A lane keeps to one processor: its programs, Wine's server and the display wait for one another at each step, and to
# wake up another processor takes longer than the step.
set -u
ZR_ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
number=$1
shift

# The processors that this process may use, which are told as "0-3,8".
processors=($(sed -n 's/^Cpus_allowed_list:[[:space:]]*//p' /proc/self/status | tr ',' '\n' |
    while IFS=- read -r first last; do seq "$first" "${last:-$first}"; done))
[ "${#processors[@]}" -gt 0 ] || processors=(0)
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
        export ZR_WINEPREFIX="$ZR_ROOT/build/wineprefix.$lane" ZR_LANE="$lanes/$lane"
        export ZR_PROCESSOR=${processors[(lane - 1) % ${#processors[@]}]}
        # Where that is not allowed, the lane is slower and no less right.
        taskset -cp "$ZR_PROCESSOR" "$BASHPID" >/dev/null 2>&1
        "$ZR_ROOT/tools/make-prefix.sh" || exit 1
        # An interrupted test may have left the log's directory, and all tests would log.
        rm -rf "$ZR_WINEPREFIX/drive_c/qpsp"
        # The display is told once the server is up; both last until the lane's file is gone.
        exec "$ZR_ROOT/tools/with-display.sh" "$ZR_ROOT/tools/with-wine.sh" sh -c '
            "$ZR_ROOT/tools/wine-run.sh" regedit /S "Z:$ZR_ROOT/tools/lane.reg" || exit 1
            printf "%s\n" "$ZR_WINEPREFIX" "$DISPLAY" "$ZR_PROCESSOR" >"$ZR_LANE.tmp"
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

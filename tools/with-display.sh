#!/usr/bin/env bash
# Runs a command on a virtual display of its own, with a window manager, and ends both afterwards:
#   tools/with-display.sh COMMAND [ARGUMENT...]
set -u
number_file=$(mktemp)
Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$number_file" >/dev/null 2>&1 &
xvfb=$!
for _ in $(seq 100); do
    [ -s "$number_file" ] && break
    kill -0 "$xvfb" 2>/dev/null || break
    sleep 0.1
done
DISPLAY=":$(cat "$number_file")"
rm -f "$number_file"
if [ "$DISPLAY" = ":" ]; then
    echo "with-display.sh: Xvfb did not start" >&2
    exit 1
fi
export DISPLAY
openbox >/dev/null 2>&1 &
openbox=$!
"$@"
status=$?
kill "$openbox" "$xvfb" 2>/dev/null
wait "$openbox" "$xvfb" 2>/dev/null
exit "$status"

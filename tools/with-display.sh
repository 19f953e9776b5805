#!/usr/bin/env bash
# Runs a command on a virtual display of its own, with a window manager, and ends both afterwards:
#   tools/with-display.sh COMMAND [ARGUMENT...]
set -u
children=()
command=
end_children() {
    # The command first, as a group, so that its programs end while they still have a display.
    if [ -n "$command" ]; then
        kill -TERM -- "-$command" 2>/dev/null && wait "$command"
    fi
    [ "${#children[@]}" -eq 0 ] || kill "${children[@]}" 2>/dev/null
    wait
    rm -rf "${openbox_files:-}"
} 2>/dev/null
trap end_children EXIT
trap 'exit 143' TERM
trap 'exit 130' INT

number_file=$(mktemp)
Xvfb -displayfd 3 -screen 0 1600x1200x24 -nolisten tcp 3>"$number_file" >/dev/null 2>&1 9>&- &
children+=("$!")
for _ in $(seq 100); do
    [ -s "$number_file" ] && break
    kill -0 "${children[0]}" 2>/dev/null || break
    sleep 0.1
done
number=$(cat "$number_file")
rm -f "$number_file"
if [ -z "$number" ]; then
    echo "with-display.sh: Xvfb did not start" >&2
    exit 1
fi
export DISPLAY=":$number"
# Its log and session would go to the user's folders.
openbox_files=$(mktemp -d)
XDG_CACHE_HOME=$openbox_files openbox >/dev/null 2>&1 9>&- &
children+=("$!")

# In the background and a process group of its own, so that a signal is acted on while the command runs.
set -m
"$@" <&0 &
command=$!
set +m
wait "$command"
status=$?
command=
exit "$status"

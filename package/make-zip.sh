#!/bin/sh
# Puts files of a folder into a zip whose bytes follow from theirs alone:
#   make-zip.sh ZIP DATE FOLDER FILE...
set -eu
zip=$1 date=$2 folder=$3
shift 3
copies=$(mktemp -d)
trap 'rm -rf "$copies"' EXIT
top=$(basename "$folder")
mkdir "$copies/$top"
for file; do
    cp "$folder/$file" "$copies/$top"
    chmod 644 "$copies/$top/$file"
    touch -d "$date 00:00:00 UTC" "$copies/$top/$file"
    set -- "$@" "$top/$file"
    shift
done
rm -f "$zip"
cd "$copies"
# Without more times than that one, and without owners.
TZ=UTC zip -qX "$zip" "$@"

#!/bin/sh
# The same files make the same zip, whenever and where in the world it is made: make_zip_test.sh SCRIPT CMAKE
set -eu
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

make() {
    mkdir -p "$work/$1/folder"
    printf 'first' >"$work/$1/folder/b"
    seq 5000 >"$work/$1/folder/a"
    chmod "$4" "$work/$1/folder/a"
    touch -d "$2" "$work/$1/folder/a"
    TZ=$3 "$script" "$work/$1/made.zip" 2026-01-31 "$work/$1/folder" b a
}
script=$1 cmake=$2
make one '2020-02-02' UTC 644
sleep 1.1
make two '2021-03-03' Asia/Tokyo 755
cmp "$work/one/made.zip" "$work/two/made.zip"
(cd "$work" && "$cmake" -E tar xf one/made.zip && diff -r folder one/folder)

#!/usr/bin/env bash
# Builds everything and runs every test: the portable libraries natively under the sanitizers, the product under Wine.
# Installs what is missing on this machine. Options go to ctest, as in: ./test.sh -R Merge
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
tools/setup.sh

build() {
    [ -f "build/$1/build.ninja" ] || cmake --preset "$1" >/dev/null
    cmake --build --preset "$1"
}
build native
build windows

status=0
ctest --preset native --parallel "$(nproc)" "$@" || status=$?
tools/with-display.sh tools/with-wine.sh ctest --preset windows "$@" || status=$?
exit "$status"

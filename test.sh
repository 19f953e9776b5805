#!/usr/bin/env bash
# Builds everything and runs every test: the portable libraries natively under the sanitizers, the product under Wine.
# Installs what is missing on this machine. Options go to ctest, as in: ./test.sh -R merge. Natively
# they see single tests, under Wine whole test programs.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
tools/setup.sh

build() {
    [ -f "build/$1/build.ninja" ] || cmake --preset "$1" >/dev/null
    cmake --build --preset "$1"
}
build native
build windows

native=0
ctest --preset native --parallel "$(nproc)" "$@" || native=$?
wine=0
tools/with-display.sh tools/with-wine.sh ctest --preset windows "$@" || wine=$?

outcome() {
    if [ "$1" -eq 0 ]; then echo passed; else echo FAILED; fi
}
echo "Native tests: $(outcome "$native"). Tests under Wine: $(outcome "$wine")."
[ "$native" -eq 0 ] && [ "$wine" -eq 0 ]

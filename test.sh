#!/usr/bin/env bash
# Builds everything and runs every test: the portable libraries natively under the sanitizers, the product under Wine.
# Installs what is missing on this machine. Options go to ctest, as in: ./test.sh -R '[Rr]estriction'. Natively they see
# single tests, as Merge.KeepsTheHeader, under Wine whole test programs, as sheet_test.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
tools/setup.sh

build() {
    [ -f "build/$1/build.ninja" ] || cmake --preset "$1" >/dev/null
    cmake --build --preset "$1"
}
build native
build windows

# Tells of the tests that the options leave, by preset: none, passed or FAILED.
run() {
    local preset=$1
    shift
    if ctest --preset "$preset" -N "$@" | grep -q '^Total Tests: 0$'; then
        outcome=none
    elif "${runner[@]}" ctest --preset "$preset" "${more[@]}" "$@"; then
        outcome=passed
    else
        outcome=FAILED
    fi
}
runner=() more=(--parallel "$(nproc)")
run native "$@"
native=$outcome
# More than the machine has processors: a program under Wine waits for its server most of the time.
lanes=4
runner=(tools/with-lanes.sh "$lanes") more=(--parallel "$lanes")
run windows "$@"
echo "Native tests: $native. Tests under Wine: $outcome."
case "$native $outcome" in *FAILED* | "none none") exit 1 ;; esac

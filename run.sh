#!/usr/bin/env bash
# Opens the printing preferences of "Orvane X100". Without a display it plays a short script on them instead and leaves
# screenshots in build/screenshots/. Builds the product and installs what is missing first. Options go to driverhost.exe.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
tools/setup.sh
[ -f build/windows/build.ninja ] || cmake --preset windows >/dev/null
cmake --build --preset windows --target product

host=build/windows/bin/driverhost.exe
if [ -n "${DISPLAY:-}" ]; then
    exec tools/with-wine.sh tools/wine-run.sh "$host" "$@"
fi

mkdir -p build/screenshots
tools/with-display.sh tools/with-wine.sh sh -ec '
    cd build/screenshots
    run() { ../../tools/wine-run.sh "../windows/bin/driverhost.exe" "$@"; }
    run --script ../../tests/sheet/first_run.script
    run --script ../../tests/sheet/second_run.script'
echo "Screenshots are in build/screenshots:"
ls build/screenshots/*.png

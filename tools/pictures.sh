#!/usr/bin/env bash
# Takes pictures of the pages and dialogs at 96 and at 144 dpi, with a printer that can do everything:
#   tools/pictures.sh [BUILD] [FOLDER]
# from the programs in BUILD (build/windows) into FOLDER (build/out). Needs the Wine prefix of tools/make-prefix.sh.
set -euo pipefail
cd "$(dirname "$0")/.."
export ZR_ROOT=$PWD
export ZR_BUILD=$(realpath "${1:-build/windows}")
mkdir -p "${2:-build/out}"
export ZR_PICTURES=$(realpath "${2:-build/out}")

exec tools/with-display.sh tools/with-wine.sh bash -euc '
    run=$ZR_ROOT/tools/wine-run.sh
    . "$ZR_ROOT/tests/sheet/fit-device.sh"
    restore() { "$run" reg delete "HKCU\\Control Panel\\Desktop" /v LogPixels /f >/dev/null 2>&1 || true; unfit_device; }
    trap restore EXIT
    fit_device
    for dpi in 96 144; do
        mkdir -p "$ZR_PICTURES/$dpi"
        "$run" reg add "HKCU\\Control Panel\\Desktop" /v LogPixels /t REG_DWORD /d "$dpi" /f >/dev/null
        (cd "$ZR_PICTURES/$dpi"
            "$run" "$ZR_BUILD/bin/driverhost.exe" --remove
            "$run" "$ZR_BUILD/bin/driverhost.exe" --script "Z:$ZR_ROOT/tests/sheet/scripts/pictures.txt")
    done'

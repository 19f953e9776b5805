#!/usr/bin/env bash
# Takes pictures of the pages, the dialogs, the file dialogs, the questions, the job property application and the
# printer's own sheet with its dialogs at 96 and at 144 dpi, with a printer that can do everything:
#   tools/pictures.sh [BUILD] [FOLDER]
# from the programs in BUILD (build/windows) into FOLDER (build/out). Needs the Wine prefix of tools/make-prefix.sh.
# The pictures of docs/images are those of 96 dpi with the same names; tools/pictures.sh --docs takes them anew.
set -euo pipefail
cd "$(dirname "$0")/.."
docs=no
if [ "${1:-}" = --docs ]; then
    docs=yes
    shift
fi
export ZR_ROOT=$PWD
export ZR_BUILD=$(realpath "${1:-build/windows}")
mkdir -p "${2:-build/out}"
export ZR_PICTURES=$(realpath "${2:-build/out}")

tools/with-display.sh tools/with-wine.sh bash -euc '
    run=$ZR_ROOT/tools/wine-run.sh
    . "$ZR_ROOT/tests/sheet/fit-device.sh"
    # A developer may have favourites of his own.
    favorites="$WINEPREFIX/drive_c/users/Public/Documents/Zephra/KP Controller/Orvane X100/favorite"
    restore() {
        "$run" reg delete "HKCU\\Control Panel\\Desktop" /v LogPixels /f >/dev/null 2>&1 || true
        unfit_device
        [ ! -d "$favorites.kept" ] || { rm -rf "$favorites" && mv "$favorites.kept" "$favorites"; }
    }
    trap restore EXIT
    [ ! -d "$favorites" ] || mv "$favorites" "$favorites.kept"
    fit_device
    for dpi in 96 144; do
        mkdir -p "$ZR_PICTURES/$dpi"
        "$run" reg add "HKCU\\Control Panel\\Desktop" /v LogPixels /t REG_DWORD /d "$dpi" /f >/dev/null
        cd "$ZR_PICTURES/$dpi"
        for script in pictures pictures_favorites pictures_job_properties; do
            "$run" "$ZR_BUILD/bin/driverhost.exe" --remove
            "$run" "$ZR_BUILD/bin/driverhost.exe" --script "Z:$ZR_ROOT/tests/sheet/scripts/$script.txt"
        done
        "$run" "$ZR_BUILD/bin/driverhost.exe" --remove
        "$run" "$ZR_BUILD/bin/driverhost.exe" --device --script "Z:$ZR_ROOT/tests/sheet/scripts/pictures_device.txt"
    done'

if [ "$docs" = yes ]; then
    for picture in docs/images/*.png; do
        cp "$ZR_PICTURES/96/$(basename "$picture")" "$picture"
    done
fi

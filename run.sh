#!/usr/bin/env bash
# Opens the printing preferences of "Orvane X100". Without a display it plays short scripts on them and on the printer's
# own sheet instead and leaves screenshots in build/screenshots/. Builds the product and installs what is missing first.
# Options go to driverhost.exe.
set -euo pipefail
called_from=$PWD
cd "$(dirname "${BASH_SOURCE[0]}")"
root=$PWD
tools/setup.sh
[ -f build/windows/bin/driverhost.exe ] || echo "Building the product, which takes some minutes" >&2
[ -f build/windows/build.ninja ] || cmake --preset windows >/dev/null
# Shows what fails, in full, and what is warned of; some steps are taken each time.
cmake --build --preset windows --target product -- --quiet | sed '/^ninja: no work to do\.$/d' >&2

# Paths in the options are the caller's.
host=("$root/tools/with-wine.sh" "$root/tools/wine-run.sh" "$root/build/windows/bin/driverhost.exe" "$@")
if [ -n "${DISPLAY:-}" ]; then
    cd "$called_from"
    exec "${host[@]}"
elif [ "$#" -gt 0 ]; then
    case " $* " in
    *" --script "* | *" --timeout "* | *" --dump "* | *" --remove "* | *" --help "* | *" --version "*) ;;
    *)
        echo "run.sh: there is no display to open a sheet on; add --script FILE or --timeout SECONDS" >&2
        exit 1
        ;;
    esac
    cd "$called_from"
    exec "$root/tools/with-display.sh" "${host[@]}"
fi

rm -rf build/screenshots
mkdir -p build/screenshots
export ZR_ROOT=$PWD
tools/with-display.sh tools/with-wine.sh bash -euc '
    . "$ZR_ROOT/tests/sheet/fit-device.sh"
    trap unfit_device EXIT
    fit_device
    cd "$ZR_ROOT/build/screenshots"
    for script in pictures pictures_job_properties choose_quality quality_is_kept; do
        "$ZR_ROOT/tools/wine-run.sh" "$ZR_ROOT/build/windows/bin/driverhost.exe" \
            --script "Z:$ZR_ROOT/tests/sheet/scripts/$script.txt"
    done
    "$ZR_ROOT/tools/wine-run.sh" "$ZR_ROOT/build/windows/bin/driverhost.exe" --device \
        --script "Z:$ZR_ROOT/tests/sheet/scripts/pictures_device.txt"'
echo "Screenshots are in build/screenshots:"
ls build/screenshots

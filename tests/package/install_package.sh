#!/usr/bin/env bash
# Installs the driver package where nothing else of this project is in reach, uses and removes it:
#   install_package.sh CMAKE ZIP FOLDER BIN WORK
# FOLDER is what the zip was made of, BIN the folder of the test's programs. Makes a Wine prefix of its own in WORK and
# removes it; the pictures that were taken stay there.
set -euo pipefail
cmake=$1 zip=$2 folder=$3 bin=$4 work=$5
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
export ZR_ROOT=$(cd "$here/../.." && pwd)
# Of the lanes that ctest may run in, none is for this test.
unset ZR_LANES
export ZR_WINEPREFIX=$work/prefix

remove_prefix() {
    [ ! -d "$ZR_WINEPREFIX" ] || (. "$ZR_ROOT/tools/wine-env.sh" && /usr/lib/wine/wineserver64 -k) || true
    # The prefix names the folder that its server has among the temporary ones.
    local server_folder
    server_folder=$(cat "$ZR_WINEPREFIX/wineserver" 2>/dev/null) || true
    case $server_folder in */*) ;; wine-??????) rm -rf "${TMPDIR:-/tmp}/$server_folder" ;; esac
    rm -rf "$ZR_WINEPREFIX" "$ZR_WINEPREFIX".*
}
running=
end() {
    [ -z "$running" ] || { kill "$running" && wait "$running"; } 2>/dev/null || true
    remove_prefix
}
trap end EXIT
trap 'exit 143' TERM
trap 'exit 130' INT

# In the background, so that a signal is acted on at once.
run() {
    "$@" </dev/null &
    running=$!
    wait "$running" || { status=$? && running= && return "$status"; }
    running=
}

# A run that was killed has left its own.
remove_prefix
mkdir -p "$work"
rm -f "$work"/*.png
run "$ZR_ROOT/tools/make-prefix.sh" >/dev/null
rm "$ZR_WINEPREFIX"/dosdevices/z:

disk=$ZR_WINEPREFIX/drive_c
(cd "$disk" && "$cmake" -E tar xf "$zip" && mv "$(basename "$folder")" package)
diff -r "$folder" "$disk/package"
mkdir "$disk/test"
cp "$bin"/{package_install_test.exe,driverhost.exe,x100drvui.dll} "$here"/scripts/*.txt "$disk/test"

cd "$disk/test"
status=0
run "$ZR_ROOT/tools/with-display.sh" "$ZR_ROOT/tools/with-wine.sh" bash -euc '
    test() {
        "$ZR_ROOT/tools/wine-run.sh" "C:\\test\\package_install_test.exe" "--gtest_filter=$1.*"
    }
    test PackageInstall
    ZR_WINE_LOCALE=en_US.UTF-8 test PackageInEnglish
    test PackageRemoval' || status=$?
cp "$disk"/test/*.png "$work" 2>/dev/null || true
exit "$status"

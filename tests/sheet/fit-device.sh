# Sourced: puts the data files of a device that can do everything where the print server would have put them, and takes
# them away. Needs ZR_ROOT.
. "$ZR_ROOT/tools/wine-env.sh"

device_folder() {
    # One user has the prefix; "Public" has no such folder.
    (cd "$WINEPREFIX"/drive_c/users/*/AppData/Local && echo "$PWD/PrtSrv/DriverResource/10_")
}

fit_device() {
    mkdir -p "$(device_folder)"
    cp "$ZR_ROOT"/tests/sheet/device/*.dat "$(device_folder)"
}

unfit_device() {
    rm -rf "$(device_folder)"
}

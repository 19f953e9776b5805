#!/usr/bin/env bash
# Makes this machine ready to build and run the project: Debian packages, the Japanese locale and the project's
# own Wine prefix under build/. Does nothing, quietly, where all of that is there.
set -euo pipefail
ZR_ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

packages=(
    git cmake ninja-build g++ g++-mingw-w64-x86-64-posix googletest libbenchmark-dev
    libxml2-dev libcairo2-dev pkg-config zip
    wine64 xvfb openbox locales fonts-ipafont-gothic cups-client
)

as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        echo "setup.sh: not root and no sudo; run as root: $*" >&2
        exit 1
    fi
}

missing=()
for package in "${packages[@]}"; do
    dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed || missing+=("$package")
done
if [ "${#missing[@]}" -gt 0 ]; then
    echo "Installing ${missing[*]}"
    as_root apt-get update -qq
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" \
        >/dev/null
fi

if ! grep -qix 'ja_JP.utf8' <<<"$(locale -a 2>/dev/null)"; then
    echo "Generating the locale ja_JP.UTF-8"
    as_root sed -i 's/^# *ja_JP.UTF-8 UTF-8/ja_JP.UTF-8 UTF-8/' /etc/locale.gen
    as_root locale-gen >/dev/null
fi

exec "$ZR_ROOT/tools/make-prefix.sh"

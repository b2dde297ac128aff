#!/usr/bin/env bash
# Installs the Debian packages Velkaro needs to build, run and test, skipping those already there;
# it prints their names, and the package manager's output only when it fails.
set -euo pipefail

packages=(
    cmake g++ make pkg-config
    qt6-base-dev qt6-base-dev-tools qt6-base-private-dev libgl-dev
    libsdl2-dev fonts-dejavu-extra
    xvfb xauth
    desktop-file-utils appstream
    dpkg-dev file lintian
)

missing=()
for package in "${packages[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed'; then
        missing+=("$package")
    fi
done
[ ${#missing[@]} -eq 0 ] && exit 0

if [ "$(id -u)" -eq 0 ]; then
    as_root=()
else
    as_root=(sudo)
fi
echo "Installing: ${missing[*]}"
# The package manager's progress goes to a log, shown only if something fails.
log=$(mktemp)
trap 'rm -f "$log"' EXIT
if ! { "${as_root[@]}" apt-get update &&
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y --no-install-recommends "${missing[@]}"; } >"$log" 2>&1; then
    cat "$log"
    echo "Installing the packages above failed." >&2
    exit 1
fi

#!/usr/bin/env bash
# Installs the Debian packages Velkaro needs to build, run and test, skipping those already there.
set -euo pipefail

packages=(
    cmake g++ make pkg-config
    qt6-base-dev qt6-base-dev-tools qt6-base-private-dev libgl-dev
    libsdl2-dev
    xvfb xauth
    desktop-file-utils appstream
    dpkg-dev file
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
"${as_root[@]}" apt-get update -qq
DEBIAN_FRONTEND=noninteractive "${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"

#!/usr/bin/env bash
# Installs the build into a temporary prefix and checks what a desktop finds there.
#   check_install.sh <build folder>
set -euo pipefail
build=$1
prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT

cmake --install "$build" --prefix "$prefix" >/dev/null

id=org.velkaro.Velkaro
expected=(
    "bin/velkaro"
    "share/applications/$id.desktop"
    "share/metainfo/$id.metainfo.xml"
)
for size in 48 64 128 256; do
    expected+=("share/icons/hicolor/${size}x${size}/apps/$id.png")
done
for file in "${expected[@]}"; do
    [ -s "$prefix/$file" ] || { echo "missing after install: $file"; exit 1; }
done
[ -x "$prefix/bin/velkaro" ] || { echo "bin/velkaro is not executable"; exit 1; }

desktop-file-validate "$prefix/share/applications/$id.desktop"
appstreamcli validate --no-net "$prefix/share/metainfo/$id.metainfo.xml"
echo "installed layout and metadata are valid"

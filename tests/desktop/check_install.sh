#!/usr/bin/env bash
# Installs the build into a temporary prefix and packs it as a Debian package, then checks that
# both hold what a desktop needs, that the package leaves its libraries to Debian, and that
# Debian's own package checker, lintian, finds no error and no warning in it.
#   check_install.sh <build folder>
set -euo pipefail
build=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

cmake --install "$build" --prefix "$work/prefix" >/dev/null
cpack --config "$build/CPackConfig.cmake" -G DEB -B "$work" >/dev/null
package=$(echo "$work"/velkaro_*.deb)
echo "$package:"
dpkg-deb -f "$package" Package Version Section Maintainer Depends
listing=$(dpkg -c "$package")
echo "$listing"

id=org.velkaro.Velkaro
expected=(
    "games/velkaro"
    "share/man/man6/velkaro.6.gz"
    "share/doc/velkaro/copyright"
    "share/doc/velkaro/changelog.gz"
    "share/applications/$id.desktop"
    "share/metainfo/$id.metainfo.xml"
)
for size in 48 64 128 256; do
    expected+=("share/icons/hicolor/${size}x${size}/apps/$id.png")
done
for file in "${expected[@]}"; do
    [ -s "$work/prefix/$file" ] || { echo "missing after install: $file"; exit 1; }
    grep -q " \./usr/$file\$" <<<"$listing" || { echo "missing from the package: /usr/$file"; exit 1; }
done
[ -x "$work/prefix/games/velkaro" ] || { echo "games/velkaro is not executable"; exit 1; }
grep -q '^-rwxr-xr-x .* \./usr/games/velkaro$' <<<"$listing" || { echo "packed velkaro is not executable"; exit 1; }
# The desktop entry starts the program where it was installed.
grep -qx "Exec=$work/prefix/games/velkaro" "$work/prefix/share/applications/$id.desktop" ||
    { echo "the installed desktop entry does not start $work/prefix/games/velkaro"; exit 1; }
dpkg-deb --fsys-tarfile "$package" | tar -xO "./usr/share/applications/$id.desktop" | grep -qx 'Exec=/usr/games/velkaro' ||
    { echo "the packed desktop entry does not start /usr/games/velkaro"; exit 1; }

[ "$(dpkg-deb -f "$package" Section)" = games ] || { echo "package section is not games"; exit 1; }
depends=$(dpkg-deb -f "$package" Depends)
for library in libqt6core6 libqt6gui6 libqt6widgets6 libsdl2-2.0-0; do
    [[ $depends == *"$library "* ]] || { echo "Depends does not name $library"; exit 1; }
done
if grep -q -e libQt6 -e libSDL2 <<<"$listing"; then
    echo "the package carries its own Qt or SDL2"; exit 1
fi

desktop-file-validate "$work/prefix/share/applications/$id.desktop"
appstreamcli validate --no-net "$work/prefix/share/metainfo/$id.metainfo.xml"
# Informational tags are not failures; they are shown with the rest. lintian warns on stderr
# that it runs as root, which is no finding.
findings=$(lintian --fail-on error,warning --display-info "$package" 2>/dev/null) ||
    { echo "lintian finds errors or warnings:"; echo "$findings"; exit 1; }
echo "lintian: ${findings:-no findings}"
echo "installed layout, package and metadata are valid"

#!/bin/bash
# Makes the Debian packages in build/package and tries them: lintian finds no error, they install, the
# program and a program that embeds the library run, and they can be removed again. As root in the
# real system; as anybody else, or with --scratch, in a folder, where nothing is configured.
set -euo pipefail
cd "$(dirname "$0")/.."

fail() {
    echo "package.sh: $*" >&2
    exit 1
}

cmake --preset package
cmake --build --preset package -j 2
rm -f build/package/*.deb
# The checkout may belong to somebody else. Equal sources give equal packages.
SOURCE_DATE_EPOCH=$(git -c safe.directory="*" log -1 --format=%ct)
export SOURCE_DATE_EPOCH
(cd build/package && cpack)

packages=(build/package/*.deb)
((${#packages[@]} == 3)) || fail "three packages were to come: ${packages[*]}"
if command -v lintian >/dev/null; then
    lintian --allow-root --fail-on error "${packages[@]}"
else
    echo "package.sh: there is no lintian to ask" >&2
fi

work=$(mktemp -d)
names=$(for package in "${packages[@]}"; do dpkg-deb -f "$package" Package; done)
# shellcheck disable=SC2086 # a list of words
cleanUp() {
    if [[ -z $root && -n $installed ]]; then
        dpkg --purge $names
    fi
    rm -rf "$work"
}
root='' installed=''
trap cleanUp EXIT
if [[ $(id -u) == 0 && ${1:-} != --scratch ]]; then
    installed=yes
    dpkg -i "${packages[@]}"
else
    root=$work/root
    for package in "${packages[@]}"; do
        dpkg-deb -x "$package" "$root"
    done
    PKG_CONFIG_PATH=$(dirname "$(find "$root" -name lumnisutil.pc)")
    export PKG_CONFIG_PATH
    LD_LIBRARY_PATH=$(dirname "$PKG_CONFIG_PATH")
    export LD_LIBRARY_PATH
fi

"$root/usr/bin/lumnis" --version
"$root/usr/bin/lumnis" encode -o "$work/" examples/decks/*.wml
"$root/usr/bin/lumnis" compile -o "$work/" examples/scripts/*.wmls
[[ -s $work/news.wmlc && -s $work/units.wmlsc ]] || fail "nothing was encoded or compiled"
# shellcheck disable=SC2046
cc tests/install/embed.c $(pkg-config --cflags --libs lumnisutil) -o "$work/embed"
# shellcheck disable=SC2046
cc tests/install/embed.c -static $(pkg-config --cflags --libs --static lumnisutil) -o "$work/static"
[[ $("$work/embed") == "$("$work/static")" ]] || fail "the static library differs"

if [[ -n $installed ]]; then
    # shellcheck disable=SC2086
    dpkg --purge $names
    installed=''
    ! command -v lumnis >/dev/null || [[ ! -e /usr/bin/lumnis ]] || fail "lumnis is still there"
fi
echo
echo "The packages:"
ls -l "${packages[@]}"

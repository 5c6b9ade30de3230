#!/bin/bash
# package.sh [--system]: makes the Debian packages in build/package and tries them: lintian finds no
# error, they install, the program and a program that embeds the library run, and nothing is left
# when they are removed. In a folder with a dpkg database of its own; as root with --system in the
# real system, where the dependencies must be there and the linker's cache learns of the library.
set -euo pipefail
cd "$(dirname "$0")/.."

fail() {
    echo "package.sh: $*" >&2
    exit 1
}

case ${1:-} in
    '') system='' ;;
    --system) system=yes ;;
    *) fail "package.sh [--system]" ;;
esac

scripts/install-dependencies.sh dpkg-dev file lintian
cmake --preset package
cmake --build --preset package -j "$(nproc)"
rm -f build/package/*.deb
# The checkout may belong to somebody else. Equal sources give equal packages.
SOURCE_DATE_EPOCH=$(git -c safe.directory="*" log -1 --format=%ct)
export SOURCE_DATE_EPOCH
(cd build/package && cpack)

packages=(build/package/*.deb)
((${#packages[@]} == 3)) || fail "three packages were to come: ${packages[*]}"
lintian --allow-root --fail-on error "${packages[@]}"

names=()
for package in "${packages[@]}"; do
    names+=("$(dpkg-deb -f "$package" Package)")
done
work=$(mktemp -d)
root='' installed=''
manager=(dpkg)
cleanUp() {
    [[ -z $installed ]] || "${manager[@]}" --purge "${names[@]}"
    rm -rf "$work"
}
trap cleanUp EXIT

if [[ -z $system ]]; then
    root=$work/root
    mkdir -p "$root"/var/lib/dpkg/{info,updates,triggers}
    touch "$root"/var/lib/dpkg/{status,available}
    # Nothing else is in the folder: what the packages depend on is the real system's, no shell runs
    # their scripts from inside, and there is no linker's cache to renew.
    manager+=("--root=$root" "--log=$work/dpkg.log" --force-not-root --force-depends
              --force-script-chrootless)
    mkdir "$work/bin"
    ln -s "$(command -v true)" "$work/bin/ldconfig"
    # dpkg looks for its tools even where nothing calls them.
    export PATH=$work/bin:$PATH:/usr/sbin:/sbin
fi
installed=yes
"${manager[@]}" -i "${packages[@]}"
if [[ -z $system ]]; then
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

mapfile -t files < <("${manager[@]}" -L "${names[@]}" | grep lumnis)
((${#files[@]} > 0)) || fail "the packages hold nothing"
"${manager[@]}" --purge "${names[@]}"
installed=''
for file in "${files[@]}"; do
    [[ ! -e $root$file ]] || fail "purged, and still there: $root$file"
done
echo
echo "The packages:"
ls -l "${packages[@]}"

#!/bin/bash
# install.sh BUILD CMAKE CC LIBDIR VERSION VERBS
#
# Installs into a scratch tree, moves it, and uses it as its users do: the list of its files, a host
# by pkg-config, a host by find_package, the program, its man pages and its completions.
set -euo pipefail

build=$1 cmake=$2 cc=$3 libdir=$4 version=$5 verbs=$6
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

fail() {
    echo "install.sh: $*" >&2
    exit 1
}

"$cmake" --install "$build" --prefix "$work/first" >install.log || fail "$(cat install.log)"
mv first moved # nothing in it may know where it was
prefix=$work/moved

# Complete, and nothing else.
sed -e "s|^LIB/|$libdir/|" -e "s|VERSION|$version|" -e "s|MAJOR|${version%%.*}|" \
    "$here/tree.txt" | LC_ALL=C sort >expected
(cd "$prefix" && find . ! -type d | sed 's|^\./||') | LC_ALL=C sort >found
diff expected found || fail "the tree is another one"
! grep -rl -e "$build" -e "$work/first" "$prefix/share" "$prefix/$libdir/pkgconfig" \
    "$prefix/$libdir/cmake" || fail "a path of the build is in the tree"

# The shared library: its name, and what it lets out.
readelf -d "$prefix/$libdir/liblumnisutil.so" |
    grep -q "SONAME.*\[liblumnisutil\.so\.${version%%.*}\]" || fail "no SONAME"
symbols=$(nm -D --defined-only "$prefix/$libdir/liblumnisutil.so" | awk '{print $3}' | xargs)
[[ $symbols == "WMLEncode WMLSCompile" ]] || fail "the shared library lets out: $symbols"
symbols=$(nm -g --defined-only "$prefix/$libdir/liblumnisutil.a" | awk 'NF == 3 {print $3}' | xargs)
[[ $symbols == "WMLEncode WMLSCompile" ]] || fail "the static library lets out: $symbols"

# By pkg-config.
export PKG_CONFIG_PATH=$prefix/$libdir/pkgconfig
[[ $(pkg-config --modversion lumnisutil) == "$version" ]] || fail "another version in pkg-config"
flags=(-std=c99 -Wall -Wextra -Werror)
expect() {
    local output
    output=$("$@") || fail "$1 has failed"
    [[ $output == "$wanted" ]] || fail "$1 prints $output"
}
printf 'extern function f() { return 1; }' >f.wmls
printf '<wml><card/></wml>' >d.wml
"$prefix/bin/lumnis" compile f.wmls
"$prefix/bin/lumnis" encode d.wml
wanted="$(stat -c %s f.wmlsc) $(stat -c %s d.wmlc)"
# shellcheck disable=SC2046 # lists of words
"$cc" "${flags[@]}" "$here/embed.c" $(pkg-config --cflags --libs lumnisutil) -o shared
LD_LIBRARY_PATH=$prefix/$libdir expect ./shared
# shellcheck disable=SC2046
"$cc" "${flags[@]}" "$here/embed.c" -static $(pkg-config --cflags --libs --static lumnisutil) -o static
expect ./static
! readelf -d static | grep -q NEEDED || fail "the static program needs a library"

# By find_package, C alone.
"$cmake" -S "$here/find_package" -B host -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_C_COMPILER="$cc" \
    -DWANTED_VERSION="$version" >host.log 2>&1 && "$cmake" --build host >>host.log 2>&1 ||
    fail "$(cat host.log)"
expect host/shared
expect host/static
! readelf -d host/static | grep -q lumnisutil || fail "the static host needs the shared library"

# The program, with the version that stands in one place.
[[ $("$prefix/bin/lumnis" --version) == "lumnis $version" ]] || fail "another version in lumnis"

# A page for each verb that lumnis knows, and no warning in any.
"$prefix/bin/lumnis" --help | sed -n '/^Verbs:/,/^$/s/^  \([a-z]*\) .*/\1/p' | xargs >known
[[ $(cat known) == "${verbs//;/ }" ]] || fail "the build knows other verbs than $(cat known)"
for page in "$prefix"/share/man/man?/*; do
    grep -q '^\.TH ' "$page" && grep -q '^\.SH NAME' "$page" || fail "$page is no man page"
    if command -v groff >/dev/null; then
        warnings=$(groff -man -Tascii -ww -z "$page" 2>&1)
        [[ -z $warnings ]] || fail "$page: $warnings"
    fi
done

# Completions. bash is what this script runs in; the others where they are.
mkdir words words/folder
cd words
touch a.wmls b.wml c.txt 'with blank.wmls'
# shellcheck disable=SC1091
complete_words() {
    bash -c '
        source "$1/share/bash-completion/completions/lumnis"
        shift
        COMP_WORDS=("$@") COMP_CWORD=$(($# - 1))
        _lumnis
        printf "%s\n" "${COMPREPLY[@]}"' bash "$prefix" "$@" | LC_ALL=C sort | paste -sd,
}
offers() {
    local wanted=$1
    shift
    local found
    found=$(complete_words "$@")
    [[ $found == "$wanted" ]] || fail "for $*: $found in the place of $wanted"
}
offers "compile,completions" lumnis comp
offers "a.wmls,folder,with blank.wmls" lumnis compile ""
offers "--listing" lumnis compile --li
offers "latin1,latin2,latin5" lumnis compile --charset lat
offers "text/vnd.wap.wml" lumnis encode --media-type = text/v
offers "gcc,json,raw" lumnis compile a.wmls --error-format ""
if command -v zsh >/dev/null; then
    zsh -n "$prefix/share/zsh/vendor-completions/_lumnis" || fail "zsh does not read its file"
fi
if command -v fish >/dev/null; then
    fish_offers() {
        HOME=$work fish --no-config -c \
            "source $prefix/share/fish/vendor_completions.d/lumnis.fish; complete -C '$1'" |
            cut -f1 | LC_ALL=C sort | paste -sd,
    }
    [[ $(fish_offers "lumnis enc") == encode ]] || fail "fish: $(fish_offers 'lumnis enc')"
    [[ $(fish_offers "lumnis encode --media-type text/v") == text/vnd.wap.wml ]] ||
        fail "fish: media types"
fi

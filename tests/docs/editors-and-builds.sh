#!/bin/bash
# editors-and-builds.sh PAGE: runs the snippets of the page, with lumnis in PATH.
set -euo pipefail

page=$(realpath "$1")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

fail() {
    echo "editors-and-builds.sh: $*" >&2
    exit 1
}

# The one block of a language.
snippet() {
    awk -v start="\`\`\`$1" '$0 == "```" {inside = 0} inside {print} $0 == start {inside = 1}' "$page"
}

# A new folder with a script and a deck, where each example begins.
begin() {
    mkdir "$work/$1"
    cd "$work/$1"
    printf 'extern function f() {\n    return "hello";\n}\n' >hello.wmls
    printf '<wml>\n<card><p>news</p></card>\n</wml>\n' >news.wml
}

# Builds with the command given: both products, then only what has changed, then a fault.
try() {
    local folder=$1
    shift
    "$@" >log 2>&1 || fail "$*: $(cat log)"
    lumnis compile -o wanted.wmlsc_ hello.wmls && lumnis encode -o wanted.wmlc_ news.wml
    cmp wanted.wmlsc_ "$folder/hello.wmlsc" && cmp wanted.wmlc_ "$folder/news.wmlc"
    touch -d '1 hour ago' hello.wmls news.wml
    touch -d '50 minutes ago' "$folder/hello.wmlsc" "$folder/news.wmlc"
    "$@" >log 2>&1
    touch -d '40 minutes ago' hello.wmls
    touch -d '30 minutes ago' reference
    "$@" >log 2>&1
    [[ $folder/hello.wmlsc -nt reference ]] || fail "$1: a changed script is not built: $(cat log)"
    [[ ! $folder/news.wmlc -nt reference ]] || fail "$1: a deck that is as it was is built"
    # The clock of the file system may be too coarse to tell two steps of this script apart.
    touch -d '20 minutes ago' "$folder/hello.wmlsc"
    printf 'extern function f() {\n    return totl;\n}\n' >hello.wmls
    ! "$@" >log 2>&1 || fail "$1: a fault does not fail the build"
    grep -q 'hello\.wmls:2: error: Semantic Error: Variable "totl" not found' log ||
        fail "$1: $(cat log)"
    cmp wanted.wmlsc_ "$folder/hello.wmlsc" # as it was
}

begin make
snippet makefile >Makefile
try . make
make clean >/dev/null
[[ ! -e hello.wmlsc && ! -e news.wmlc && -e hello.wmls ]] || fail "make clean"

begin cmake
snippet cmake >CMakeLists.txt
cmake -B build >log 2>&1 || fail "$(cat log)"
try build cmake --build build

begin ninja
snippet ninja >build.ninja
try . ninja

# The editor's tasks: the commands build, and the pattern finds file, line and message in what they
# print and in nothing else.
begin code
snippet json >tasks.json
mapfile -t commands < <(sed -n 's/^ *"command": "\(.*\)",*$/\1/p' tasks.json)
[[ ${#commands[@]} == 3 ]] || fail "three tasks have commands"
sh -c "${commands[0]}" && sh -c "${commands[1]}" || fail "the tasks do not build"
[[ -e hello.wmlsc && -e news.wmlc ]] || fail "the tasks build nothing"
patterns=$(sed -n 's/^ *"regexp": "\(.*\)",$/\1/p' tasks.json | sed 's/\\\\/\\/g' | sort -u)
[[ $(wc -l <<<"$patterns") == 1 ]] || fail "the tasks have one pattern"
printf 'extern function f() {\n    return totl;\n}\n' >hello.wmls
printf '<wml>\n<card><p>5 $</p></card>\n</wml>\n' >news.wml
{ sh -c "${commands[0]}" || true; sh -c "${commands[1]}" || true; } >log 2>&1
grep -P "$patterns" log | sed -E 's/^([^:]+):([0-9]+): (error|note): .*/\1 \2 \3/' >found
printf '%s\n' 'hello.wmls 2 error' 'news.wml 2 error' 'news.wml 2 note' | diff - found ||
    fail "the pattern finds something else: $(cat log)"

# What marks the beginning and the end of a round of the task that watches.
mark() {
    sed -n "s/^ *\"$1\": \"\(.*\)\",*$/\1/p" tasks.json
}
env --default-signal=INT sh -c "exec ${commands[2]}" 2>log &
for _ in $(seq 1000); do
    grep -qP "$(mark endsPattern)" log && break
    sleep 0.02
done
kill -INT $!
wait $! || fail "the watching task does not end with status 0"
[[ $(grep -cP "$(mark beginsPattern)" log) == 1 && $(grep -cP "$(mark endsPattern)" log) == 1 ]] ||
    fail "no beginning or no end: $(cat log)"
if command -v python3 >/dev/null; then
    python3 -m json.tool tasks.json >/dev/null || fail "the tasks are no JSON"
fi

#!/bin/sh
# From a fresh checkout to the bytes of the examples: installs what is missing, builds, encodes every
# deck and compiles every script under examples/ and shows what has come of it.
set -eu
cd "$(dirname "$0")/.."

scripts/install-dependencies.sh
cmake --preset release
cmake --build --preset release --target lumnis lumnisutil

out=build/release/examples
build/release/lumnis encode -o $out/ -j 2 examples/decks/*.wml
build/release/lumnis compile -o $out/ -j 2 examples/scripts/*.wmls

# sizes SUFFIX HEADING SOURCE...: each source beside what has come of it.
sizes() {
    suffix=$1
    printf '    %-20s %8s %10s\n' "" source "$2"
    shift 2
    for source; do
        name=$(basename "$source")
        name=${name%.*}
        printf '    %-20s %8d %10d\n' "$name" "$(wc -c <"$source")" "$(wc -c <"$out/$name.$suffix")"
    done
}

echo
echo "Decks and their WBXML, in bytes (in $out):"
sizes wmlc encoded examples/decks/*.wml

echo
echo "The deck examples/decks/phonebook.wml, as a handset receives it:"
od -An -tx1z $out/phonebook.wmlc | sed 's/^/   /'

echo
echo "Scripts and their byte code, in bytes (in $out):"
sizes wmlsc compiled examples/scripts/*.wmls

echo
echo "A function of units.wmls, lumnis compile --listing - examples/scripts/units.wmls:"
build/release/lumnis compile -o $out/ --listing - examples/scripts/units.wmls | tr -d '\r' |
    sed -n '/^FUNCTION "toBeaufort"/,/^$/ s/^/    /p'

echo "The messages for a mistake in a deck and in a script:"
printf '<wml>\n<card title="a & b"/>\n</wml>\n' >$out/mistake.wml
build/release/lumnis encode $out/mistake.wml 2>&1 | sed 's/^/    /' || true
printf 'extern function half(n) {\n    return n div 0x;\n}\n' >$out/mistake.wmls
build/release/lumnis compile $out/mistake.wmls 2>&1 | sed 's/^/    /' || true

echo
echo "Try it: build/release/lumnis encode --help"

#!/bin/sh
# symbols.sh NM LIBRARY: the library exports the two calls and nothing else.
set -eu
exported=$("$1" -D --defined-only "$2" | awk '{ print $2, $3 }' | sort)
expected="T WMLEncode
T WMLSCompile"
if [ "$exported" != "$expected" ]; then
    echo "$2 exports:"
    echo "$exported"
    exit 1
fi

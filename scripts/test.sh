#!/bin/sh
# Installs what is missing, builds the release preset and runs every test.
set -eu
cd "$(dirname "$0")/.."

scripts/install-dependencies.sh
cmake --preset release
cmake --build --preset release
ctest --preset release -j "$(nproc)"

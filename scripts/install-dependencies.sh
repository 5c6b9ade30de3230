#!/bin/sh
# install-dependencies.sh [PACKAGE...]: installs what the build and the tests need, and the packages
# named, if this Debian does not have it yet. Asks nothing.
set -eu

packages="cmake ninja-build make g++ clang bison re2c ccache libcli11-dev libgtest-dev libgmock-dev
libbenchmark-dev liblua5.4-dev libmujs-dev duktape-dev libxml2-dev libexpat1-dev pkg-config $*"

is_installed() {
    status=$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null) && [ "$status" = installed ]
}

if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
    echo "install-dependencies.sh: this system has no apt-get; please install the equivalents of:" >&2
    echo "$packages" >&2
    exit 1
fi

missing=
for package in $packages; do
    is_installed "$package" || missing="$missing $package"
done
if [ -z "$missing" ]; then
    exit 0
fi

as_root=
if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
        echo "install-dependencies.sh: neither root nor sudo; please install as root:$missing" >&2
        exit 1
    fi
    as_root=sudo
fi
echo "Installing:$missing"
# shellcheck disable=SC2086 # lists of words
{
    $as_root apt-get update -q </dev/null
    $as_root env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends \
        $missing </dev/null
}

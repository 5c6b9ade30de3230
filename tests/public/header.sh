#!/bin/sh
# header.sh CC CXX INCLUDE: the public header compiles alone, as C99 and as C++.
set -eu
echo '#include "lumnisutil.h"' | "$1" -std=c99 -pedantic -Wall -Wextra -Werror -I"$3" -x c -fsyntax-only -
echo '#include "lumnisutil.h"' | "$2" -std=c++98 -pedantic -Wall -Wextra -Werror -I"$3" -x c++ -fsyntax-only -

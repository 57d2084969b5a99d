#!/bin/bash
# headers_alone.sh COMPILER INCLUDE_DIR: compiles each public header alone, included twice, as C++11 and as
# C++20, with every warning an error.
set -euo pipefail

compiler=$1
include_dir=$2
headers=0
while read -r header; do
    for standard in c++11 c++20; do
        printf '#include <%s>\n#include <%s>\n' "$header" "$header" |
            "$compiler" -x c++ -std=$standard -Wall -Wextra -Wpedantic -Werror -fsyntax-only -I"$include_dir" - ||
            { echo "$header does not compile alone as $standard"; exit 1; }
    done
    headers=$((headers + 1))
done < <(cd "$include_dir" && find . -name '*.h' -printf '%P\n' | sort)

[ $headers -gt 0 ] || { echo "no header in $include_dir"; exit 1; }
echo "$headers headers"

#!/bin/bash
# install_copy.sh static|shared SOURCE_DIR WORK_DIR CMAKE_OPTION...: builds the library alone, installs it,
# moves the copy to WORK_DIR/moved (an installed copy must not know where it was put first) and looks at what
# is in it.
set -euo pipefail

kind=$1 source_dir=$2 work=$3
shift 3
rm -rf "$work"
mkdir -p "$work"

shared=OFF
[ "$kind" = static ] || shared=ON
cmake -S "$source_dir" -B "$work/build" -DCMAKE_INSTALL_PREFIX="$work/prefix" -DBUILD_SHARED_LIBS=$shared \
    -DVELTOPROTOCOL_BUILD_EXAMPLES=OFF "$@"
cmake --build "$work/build"
cmake --install "$work/build"
mv "$work/prefix" "$work/moved"

cd "$work/moved"
find . -type f -o -type l | sort
if grep -rIlF -e "$work" -e "$source_dir" .; then
    echo "these files name the place where they were built"
    exit 1
fi
for file in include/LibVeltoProtocol.h include/veltoprotocol/framing.h share/doc/veltoprotocol/LICENSE; do
    [ -f $file ] || { echo "$file is not installed"; exit 1; }
done
if [ "$kind" = shared ]; then
    library=$(find . -name 'libveltoprotocol.so')
    readelf -d "$library" | grep -F 'SONAME' | grep -F '[libveltoprotocol.so.0]' ||
        { echo "the library's name is not libveltoprotocol.so.0"; exit 1; }
fi

#!/bin/bash
# build_user.sh cmake_package|pkg_config|subdirectory static|shared SOURCE_DIR WORK_DIR CMAKE_OPTION...: builds
# the user's program in user/ against the copy that install_copy.sh left in WORK_DIR/moved, or with the
# library's sources as a subdirectory, and runs it.
set -euo pipefail

way=$1 kind=$2 source_dir=$3 work=$4
shift 4
user=$source_dir/tests/package/user
build=$work/$way
libdir=$(dirname "$(find "$work/moved" -name 'libveltoprotocol.*' | head -n 1)")
rm -rf "$build"
mkdir -p "$build"

case $way in
cmake_package)
    cmake -S "$user" -B "$build" -DCMAKE_PREFIX_PATH="$work/moved" "$@"
    cmake --build "$build"
    ;;
pkg_config)
    export PKG_CONFIG_PATH=$libdir/pkgconfig
    options=()
    [ "$kind" = shared ] || options=(--static)
    export LD_LIBRARY_PATH=$libdir
    # Unquoted: flags, one word each.
    $CXX -std=c++11 "$user/user.cpp" -o "$build/user" $(pkg-config "${options[@]}" --cflags --libs veltoprotocol)
    ;;
subdirectory)
    shared=OFF
    [ "$kind" = static ] || shared=ON
    cmake -S "$user" -B "$build" -DVELTOPROTOCOL_SOURCE="$source_dir" -DBUILD_SHARED_LIBS=$shared "$@"
    cmake --build "$build"
    if [ -n "$(find "$build" -name '*_tests*' -o -name 'login_and_list*')" ]; then
        echo "a user's project has got the library's tests or examples"
        exit 1
    fi
    ;;
esac

if [ "$kind" = shared ]; then
    ldd "$build/user" | grep -F libveltoprotocol.so.0 || { echo "the shared library is not used"; exit 1; }
fi
"$build/user"

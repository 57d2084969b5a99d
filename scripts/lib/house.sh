# Sourced by the scripts: what several of them do. Goes to the top of the checkout and stops at any failure.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
. scripts/lib/packages.sh

jobs=$(nproc)
export CCACHE_SLOPPINESS=pch_defines,time_macros # or nothing that uses precompiled headers would be found again

# The C++ files of the house, tracked or not, NUL between them.
sources() {
    local -a rooms=()
    local room
    for room in include src tests examples tools bench fuzz; do
        [ ! -d $room ] || rooms+=("$room")
    done
    find "${rooms[@]}" \( -name '*.h' -o -name '*.cpp' \) -print0 | sort -z
}

# Configures and builds a preset. Ninja speaks only when something is wrong.
build() {
    local preset=$1
    cmake --preset "$preset" >"build/$preset.configure.log" 2>&1 || { cat "build/$preset.configure.log"; return 1; }
    cmake --build --preset "$preset" -j "$jobs" -- --quiet
}

# Runs a preset's tests; the whole listing stays in build/PRESET/tests.log.
run_tests() {
    local preset=$1 log=build/$1/tests.log
    if ! without_aslr ctest --preset "$preset" -j "$jobs" >"$log" 2>&1; then
        cat "$log"
        return 1
    fi
    grep -E 'tests passed' "$log"
}

# The sanitizers of clang 14 cannot lay out their shadow memory on kernels that scatter addresses widely.
without_aslr() {
    if setarch "$(uname -m)" -R true 2>/dev/null; then
        setarch "$(uname -m)" -R "$@"
    else
        "$@"
    fi
}

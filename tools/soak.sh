#!/usr/bin/env bash
# A long random use of the windows under the address and undefined-behaviour sanitizers:
#   tools/soak.sh [actions] [seed]
# Builds build-asan/ (Debug, sanitizers on, as tools/test.sh does) when it is missing. Without
# a seed one is taken from the clock. A failure prints the seed and the number of the action
# that failed; `tools/soak.sh <that number> <seed>` replays it exactly.
set -euo pipefail
cd "$(dirname "$0")/.."
actions="${1:-100000}"
seed="${2:-$(date +%s)}"
if [ ! -f build-asan/CMakeCache.txt ]; then
    tools/deps.sh
    cmake -S . -B build-asan -DCMAKE_BUILD_TYPE=Debug -DQUORVEL_SANITIZE=ON
fi
cmake --build build-asan -j"$(nproc)" --target tst_soak
echo "soak: $actions actions, seed $seed"
cd build-asan/tests/tst_soak
ASAN_OPTIONS=detect_leaks=0:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
    QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 QUORVEL_SOAK_ACTIONS="$actions" QUORVEL_SOAK_SEED="$seed" exec ./tst_soak

#!/usr/bin/env bash
# Installs what is missing, builds everything and runs every test.
set -euo pipefail
cd "$(dirname "$0")/.."
tools/deps.sh
jobs="$(nproc)"

cmake -S . -B build -DCMAKE_BUILD_TYPE=Release
cmake --build build -j"$jobs"
ctest --test-dir build --output-on-failure -j"$jobs"

# The same tests again under the address and undefined-behaviour sanitizers (Debug, no
# optimisation, so the build stays short). Leak reports are off: the toolkit's own
# process-lifetime allocations would drown the program's.
cmake -S . -B build-asan -DCMAKE_BUILD_TYPE=Debug -DQUORVEL_SANITIZE=ON
cmake --build build-asan -j"$jobs"
ASAN_OPTIONS=detect_leaks=0:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
    ctest --test-dir build-asan --output-on-failure -j"$jobs"

# Installation into a temporary prefix: the command, the program beside its example files,
# the launcher and the icon must all be in place.
prefix="$(mktemp -d)"
trap 'rm -rf "$prefix"' EXIT
cmake --install build --prefix "$prefix"
for path in bin/quorvel lib/quorvel/quorvel bin/quorvel-find lib/quorvel/quorvel-find lib/quorvel/starter-samples.txt \
    lib/quorvel/quorvel.cfg share/applications/quorvel.desktop share/icons/hicolor/scalable/apps/quorvel.svg; do
    if [ ! -e "$prefix/$path" ]; then
        echo "not installed: $path" >&2
        exit 1
    fi
done
[ -x "$prefix/bin/quorvel" ] || { echo "installed command is not executable" >&2; exit 1; }
# The finder's command runs through its link and finds templates in an installed example.
"$prefix/bin/quorvel-find" "$prefix/lib/quorvel/starter-samples.txt" --top 1 | grep -q '^1	' || {
    echo "installed quorvel-find does not run" >&2
    exit 1
}
grep -q '^Exec=quorvel$' "$prefix/share/applications/quorvel.desktop"
# A second install keeps the settings file that is already there.
printf 'Exp\r\n 3 \r\n' >"$prefix/lib/quorvel/quorvel.cfg"
cmake --install build --prefix "$prefix" >/dev/null
[ "$(cat "$prefix/lib/quorvel/quorvel.cfg")" = "$(printf 'Exp\r\n 3 \r\n')" ] || {
    echo "install replaced the settings file" >&2
    exit 1
}

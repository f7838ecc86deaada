#!/usr/bin/env bash
# Builds what is needed and takes the windows' screenshots at 100 % and 150 % display scale
# under a virtual X server: the main window with a full template, the experimentation window
# in the middle of a session, Add DNA with its live panel, and Options.
#   tools/screenshots.sh [output folder, default build/screenshots]
set -euo pipefail
cd "$(dirname "$0")/.."
out="${1:-build/screenshots}"
mkdir -p "$out"
out="$(cd "$out" && pwd)"

if [ ! -f build/build.ninja ] && [ ! -f build/Makefile ]; then
    cmake -S . -B build -DCMAKE_BUILD_TYPE=Release
fi
cmake --build build -j"$(nproc)" --target quorvel_screenshots

# A display of our own, 1920 by 1080 like the screens the windows are made for.
display=99
while [ -e "/tmp/.X11-unix/X$display" ] || [ -e "/tmp/.X$display-lock" ]; do
    display=$((display + 1))
done
Xvfb ":$display" -screen 0 1920x1080x24 -nolisten tcp >/dev/null 2>&1 &
xvfb=$!
trap 'kill "$xvfb" 2>/dev/null || true' EXIT
for _ in $(seq 50); do
    [ -e "/tmp/.X11-unix/X$display" ] && break
    sleep 0.1
done

export DISPLAY=":$display" QT_QPA_PLATFORM=xcb
export XDG_RUNTIME_DIR="${XDG_RUNTIME_DIR:-$(mktemp -d)}"
for scale in 100 150; do
    build/screenshots-taker/quorvel_screenshots "$out" "$scale"
done
echo "screenshots in $out"

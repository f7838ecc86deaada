#!/usr/bin/env bash
# Installs what is missing, builds everything and runs every test.
set -euo pipefail
cd "$(dirname "$0")/.."
tools/deps.sh
jobs="$(nproc)"

cmake -S . -B build -DCMAKE_BUILD_TYPE=Release
cmake --build build -j"$jobs"
ctest --test-dir build --output-on-failure -j"$jobs"

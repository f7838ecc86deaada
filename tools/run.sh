#!/usr/bin/env bash
# Installs what is missing, builds Quorvel and starts it.
set -euo pipefail
cd "$(dirname "$0")/.."
tools/deps.sh
cmake -S . -B build -DCMAKE_BUILD_TYPE=Release
cmake --build build -j"$(nproc)" --target quorvel
exec build/quorvel

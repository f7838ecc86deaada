#!/usr/bin/env bash
# Installs what Quorvel needs to build and test on Debian or Ubuntu, when it is missing.
set -euo pipefail

packages=(cmake g++ make qt6-base-dev libqt6svg6 libgl-dev googletest libgtest-dev libbenchmark-dev)
missing=()
for p in "${packages[@]}"; do
    dpkg -s "$p" >/dev/null 2>&1 || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
    sudo_cmd=()
    [ "$(id -u)" -eq 0 ] || sudo_cmd=(sudo)
    "${sudo_cmd[@]}" apt-get update
    DEBIAN_FRONTEND=noninteractive "${sudo_cmd[@]}" apt-get install -y --no-install-recommends "${missing[@]}"
fi

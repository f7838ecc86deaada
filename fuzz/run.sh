#!/usr/bin/env bash
# Builds the fuzz targets with clang (libFuzzer, address and undefined-behaviour sanitizers)
# and runs each for a set time, all at once, one job each.
#   fuzz/run.sh [seconds per target, default 600] [target ...]
# Targets: read_number dna_line dna_file settings stored_pets. Findings are written to
# build-fuzz/findings/<target>/; the corpus grows in build-fuzz/corpus/<target>/.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds="${1:-600}"
shift || true
targets=("$@")
[ ${#targets[@]} -gt 0 ] || targets=(read_number dna_line dna_file settings stored_pets)

out=build-fuzz
mkdir -p "$out"
flags=(-std=c++20 -O1 -g -fno-omit-frame-pointer -fsanitize=fuzzer,address,undefined
       -fno-sanitize-recover=all -Icore)
for target in "${targets[@]}"; do
    clang++ "${flags[@]}" "fuzz/fuzz_${target}.cpp" core/*.cpp -o "$out/fuzz_${target}"
done

pids=()
for target in "${targets[@]}"; do
    mkdir -p "$out/corpus/$target" "$out/findings/$target"
    "$out/fuzz_${target}" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -max_len=200000 \
        -artifact_prefix="$out/findings/$target/" "$out/corpus/$target" "fuzz/corpus/$target" \
        >"$out/fuzz_${target}.log" 2>&1 &
    pids+=($!)
done

status=0
for i in "${!targets[@]}"; do
    if wait "${pids[$i]}"; then
        echo "${targets[$i]}: no finding ($(grep -o 'Done [0-9]* runs' "$out/fuzz_${targets[$i]}.log" | tail -1))"
    else
        echo "${targets[$i]}: FINDING, see $out/fuzz_${targets[$i]}.log and $out/findings/${targets[$i]}/"
        status=1
    fi
done
exit $status

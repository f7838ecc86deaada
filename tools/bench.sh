#!/usr/bin/env bash
# Builds the benchmark programs (Release, build-bench/) and runs them all headless; prints
# one table of medians and ratios (each side runs at least 7 times: rounds, default 7), then
# the template finder's table (each search once).
#   tools/bench.sh [rounds]
set -euo pipefail
cd "$(dirname "$0")/.."
rounds="${1:-7}"
[ "$rounds" -ge 5 ] || { echo "at least 5 rounds" >&2; exit 2; }
export QT_QPA_PLATFORM=offscreen
export XDG_RUNTIME_DIR="${XDG_RUNTIME_DIR:-$(mktemp -d)}"

mkdir -p build-bench
log=build-bench/build.log
{
    cmake -S . -B build-bench -DCMAKE_BUILD_TYPE=Release -DQUORVEL_BUILD_BENCH=ON -DQUORVEL_BUILD_TESTS=OFF &&
        cmake --build build-bench -j"$(nproc)" --target quorvel_bench_startup quorvel_bench_startup_run \
            quorvel_bench_lists quorvel_bench_predict quorvel_bench_finder
} >"$log" 2>&1 || { tail -40 "$log" >&2; exit 1; }
bin=build-bench/bench

rows="$("$bin/quorvel_bench_startup_run" "$PWD/$bin/quorvel_bench_startup" "$rounds")"
rows+=$'\n'"$("$bin/quorvel_bench_lists" "$rounds")"

# Google Benchmark: the median of the repetitions, as time per evaluation and evaluations a second.
csv="$("$bin/quorvel_bench_predict" --benchmark_repetitions="$rounds" --benchmark_report_aggregates_only=true \
    --benchmark_format=csv 2>/dev/null)"
rows+=$'\n'"$(awk -F, -v numbers=10e6 -v texts=1e6 '
    $1 ~ /_median"?$/ {
        name = $1; gsub(/"/, "", name); sub(/_median$/, "", name)
        ns = $3; per_s = 1e9 / ns
        target = (name == "Numbers") ? numbers : texts
        printf "predict: evaluations, %s|%.3g ns each|%.3g / s|-|>= %.3g / s|%s\n",
               tolower(name), ns, per_s, target, (per_s >= target ? "met" : "MISSED")
    }' <<<"$csv")"

{
    echo "figure|ours (median)|bare (median)|ratio|target|verdict"
    echo "$rows"
} | column -t -s '|'

# The template finder: one search per goal and level limit, and the median and the worst.
echo
"$bin/quorvel_bench_finder" | column -t -s '|'

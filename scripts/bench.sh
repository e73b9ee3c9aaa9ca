#!/bin/sh
# Measures the program beside its floors and prints one table of ratios; ends with 1 when a limit is not kept.
#   scripts/bench.sh [NAME...]    only the named benches: start overlay drag capture png languages rest
set -eu
cd "$(dirname "$0")/.."

scripts/dependencies.sh bench
cmake --preset release -B build/bench -DLUMORA_BENCH=ON >/dev/null
cmake --build build/bench --target bench_desktop >&2
exec build/bench/bench/desktop/bench_desktop "$@"

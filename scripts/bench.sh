#!/bin/sh
# Measures the program beside its floors and prints one table of ratios; ends with 1 when a limit is not kept.
#   scripts/bench.sh [NAME...]    only the named benches: start overlay drag capture png languages rest blur
set -eu
cd "$(dirname "$0")/.."

scripts/dependencies.sh bench
cmake --preset release -B build/bench -DLUMORA_BENCH=ON >/dev/null
cmake --build build/bench --target bench_desktop bench_blur >&2
kept=0
[ "$*" = blur ] || build/bench/bench/desktop/bench_desktop "$@" || kept=$?
# Mosaics and blur need no desktop; their table is their own.
case " ${*:-blur} " in
    *" blur "*) build/bench/bench/blur/bench_blur || kept=1 ;;
esac
exit $kept

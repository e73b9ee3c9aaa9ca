#!/bin/sh
# Measures the program beside its floors and prints one table of ratios; ends with 1 when a limit is not kept.
#   scripts/bench.sh [NAME...]    only the named benches: start overlay drag chrome windows hover capture png languages
#                                 journal pins rest
#                                 blur editor toolbars preferences notices upload
set -eu
cd "$(dirname "$0")/.."

scripts/dependencies.sh bench
cmake --preset release -B build/bench -DLUMORA_BENCH=ON >/dev/null
cmake --build build/bench --target bench_desktop bench_blur bench_editor bench_toolbars bench_preferences bench_notices bench_upload >&2
kept=0
# Those from blur on bring what they need themselves; their tables are their own.
desktop=$(printf '%s\n' "$@" | grep -vx 'blur\|editor\|toolbars\|preferences\|notices\|upload' | tr '\n' ' ')
if [ $# -eq 0 ] || [ -n "${desktop# }" ]; then
    # shellcheck disable=SC2086 # names, one a word
    build/bench/bench/desktop/bench_desktop $desktop || kept=$?
fi
for name in blur editor toolbars preferences notices upload; do
    case " ${*:-$name} " in
        *" $name "*) "build/bench/bench/$name/bench_$name" || kept=1 ;;
    esac
done
exit $kept

#!/bin/sh
# Checks platform/macos/ without a Mac: reads every source as its compiler does for macOS 12 to 15, looks with the
# static analyzer for what is leaked or released twice, and holds the folder against the list of what is built.
#   scripts/check-macos.sh            the check
#   scripts/check-macos.sh --faults   plants faults and shows which of them the check finds
set -eu
cd "$(dirname "$0")/.."
self=scripts/check-macos.sh
compile=platform/macos/check/compile.sh
work=${CHECK_WORK-build/check-macos} # what it writes
failed=0
mkdir -p "$work"

# each KIND TARGET NAME [HEADERS] < sources: false where one of them has a fault.
each() {
    xargs -P "$(nproc)" -I{} "$compile" "$1" "$2" {} ${4+"$4"} || { echo "check-macos: $3: faults" >&2; return 1; }
    echo "check-macos: $3: no fault"
}
sources() { ls platform/macos/*."$1"; }
# The rules, which every system builds for their tests: there each of them is read by itself already.
rules() { sed -n 's/.*SOURCE_DIR}\/\(.*\.cpp\).*/platform\/macos\/\1/p' platform/macos/CMakeLists.txt; }
native() { sources mm; sources cpp | grep -vxF "$(rules)"; }
headers() { "$compile" header "$1" platform/macos/check/qt.h "$work/qt-$1.pch"; }

check() {
    for source in platform/macos/*.mm platform/macos/*.cpp; do
        grep -q "[ /]$(basename "$source")\b" platform/macos/CMakeLists.txt ||
            { echo "check-macos: $source is not built" >&2; failed=1; }
    done
    for target in 12 13 14 15; do headers "$target" & done
    # The oldest target reads each source by itself, so that no source leans on what another one includes.
    native | each type 12 "types for macOS 12" || failed=1
    wait
    rules | each type 12 "types of the rules" "$work/qt-12.pch" || failed=1
    for target in 13 14 15; do
        sources mm | each type "$target" "types for macOS $target" "$work/qt-$target.pch" || failed=1
    done
    sources mm | each analyze 12 "analyzer" "$work/qt-12.pch" || failed=1
    exit "$failed"
}

# Who finds the fault in source $1: types, analyzer or nothing.
finder() {
    for target in 12 15; do
        "$compile" type "$target" "$1" "$work/qt-$target.pch" >/dev/null || { echo types; return; }
    done
    "$compile" analyze 12 "$1" "$work/qt-12.pch" >/dev/null || { echo analyzer; return; }
    echo nothing
}
# plant NUMBER EXPECTED FILE SOURCE NAME EDIT: edits FILE and reads SOURCE, which may be the same.
plant() {
    CHECK_FIRST=$work/fault-$1
    export CHECK_FIRST
    mkdir -p "$CHECK_FIRST/$(dirname "$3")"
    sed -E "$6" "$3" >"$CHECK_FIRST/$3"
    source=$4
    [ "$3" != "$4" ] || source=$CHECK_FIRST/$4
    found=$(finder "$source")
    cmp -s "$3" "$CHECK_FIRST/$3" && found=unplanted
    printf '%2d  %-9s %s: %s\n' "$1" "$found" "${3#platform/macos/}" "$5"
    [ "$found" = "$2" ] || { echo "    expected: $2" >&2; return 1; }
}
plant_number() {
    IFS='|' read -r expected file source name edit <<LINE
$(grep -v '^#' platform/macos/check/faults.txt | sed -n "$1p")
LINE
    plant "$1" "$expected" "platform/macos/$file" "platform/macos/$source" "$name" "$edit"
}
faults() {
    rm -rf "$work"/fault-*
    headers 12 &
    headers 15
    wait
    seq "$(grep -vc '^#' platform/macos/check/faults.txt)" | xargs -P "$(nproc)" -I{} "$self" --fault {}
}

case "${1-}" in
    "") check ;;
    --faults) faults ;;
    --fault) plant_number "$2" ;; # one of them, once the others are under way
    *) echo "usage: scripts/check-macos.sh [--faults]" >&2; exit 2 ;;
esac

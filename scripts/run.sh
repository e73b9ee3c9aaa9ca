#!/bin/sh
# Builds the program and starts it. Without a display it opens a virtual desktop, takes a region capture there
# with real keys and a real mouse, and prints the path of the picture on the last line.
set -eu
cd "$(dirname "$0")/.."

scripts/dependencies.sh
cmake --preset release >&2
cmake --build build/release --target lumora-screenshot -j "$(nproc)" >&2
program=$PWD/build/release/lumora-screenshot

if [ -n "${DISPLAY-}" ] && xset q >/dev/null 2>&1; then
    exec "$program"
fi

echo "There is no display: a virtual desktop shows what the program does." >&2
exec scripts/demo.sh "$program" "$PWD/build/demo"

#!/bin/sh
# Builds everything and runs all tests.
#   scripts/test.sh [release | dev | asan]
set -eu
cd "$(dirname "$0")/.."
preset=${1-release}

scripts/dependencies.sh
cmake --preset "$preset"
cmake --build "build/$preset" -j "$(nproc)"
exec ctest --preset "$preset" -j "$(nproc)" </dev/null

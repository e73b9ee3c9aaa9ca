#!/bin/sh
# Makes the Debian packages of the program and of its image service, and prints their paths on the last two lines.
# LUMORA_MAINTAINER ("Name <mail address>") signs them.
set -eu
cd "$(dirname "$0")/.."
build=build/package

scripts/dependencies.sh package
# Debian's own flags, all of its hardening; symbols would only be stripped again.
export DEB_BUILD_MAINT_OPTIONS=hardening=+all DEB_CXXFLAGS_MAINT_STRIP=-g
flags() { dpkg-buildflags --get "$1"; }
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DLUMORA_TESTS=OFF -DCMAKE_INSTALL_PREFIX=/usr \
    ${LUMORA_MAINTAINER+"-DLUMORA_MAINTAINER=$LUMORA_MAINTAINER"} \
    -DCMAKE_CXX_FLAGS="$(flags CXXFLAGS) $(flags CPPFLAGS)" -DCMAKE_EXE_LINKER_FLAGS="$(flags LDFLAGS)" >&2
cmake --build "$build" -j "$(nproc)" >&2
rm -f "$build"/*.deb
(cd "$build" && cpack) >&2
# There is no bug of Debian's own that a first package would close.
lintian --suppress-tags initial-upload-closes-no-bugs --fail-on error,warning "$build"/*.deb >&2
ls "$PWD/$build"/*.deb

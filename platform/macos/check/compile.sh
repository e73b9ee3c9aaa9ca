#!/bin/sh
# Reads one source as a Mac's compiler does, with the declarations of this folder, and builds nothing; ends with 1
# when it finds fault.
#   platform/macos/check/compile.sh type|analyze|header TARGET FILE [HEADERS]
# TARGET is the macOS version that the program is to run on. `header` writes FILE, a header, in the compiler's own
# form to HEADERS; the other two read it before FILE. A folder in CHECK_FIRST holds sources and declarations that are
# read in place of the ones here.
set -eu
what=$1 target=$2 file=$3 headers=${4-}
cd "$(dirname "$0")/../../.."

compiler=$(command -v clang++-14 || command -v clang++)
system=/usr/include/$(g++ -print-multiarch)
library=/usr/include/c++/$(g++ -dumpversion)

# The C library's headers know no Darwin, where the compiler defines __nonnull; Qt's know the frameworks that hold
# OpenGL. What is deprecated counts from the oldest target.
set --
[ -z "${CHECK_FIRST-}" ] || set -- "-I$CHECK_FIRST" "-I$CHECK_FIRST/platform/macos/check"
set -- "$@" -target "x86_64-apple-macos$target" -std=c++20 -fblocks -fobjc-arc \
    -Wall -Wextra -Wshadow -Wunguarded-availability -Werror -D_GNU_SOURCE -U__nonnull \
    -DQT_NO_KEYWORDS -DQT_NO_CAST_FROM_ASCII -DQT_DISABLE_DEPRECATED_BEFORE=0x060400 -DQT_NO_OPENGL \
    -nostdinc -nostdinc++ -isystem "$library" -isystem "$system/c++/$(g++ -dumpversion)" \
    -isystem "$("$compiler" -print-resource-dir)/include" -isystem "$system" -isystem /usr/include \
    -isystem platform/macos/check -isystem "$system/qt6" -isystem "$system/qt6/QtCore" -isystem "$system/qt6/QtGui" -I.
[ "$target" = 12 ] || set -- "$@" -Wno-deprecated-declarations

case $what in
    header) exec "$compiler" "$@" -x objective-c++-header "$file" -o "$headers" ;;
    analyze) set -- "$@" -w --analyze -Xclang -analyzer-output=text ;;
    type) set -- "$@" -fsyntax-only ;;
esac
[ -z "$headers" ] || set -- "$@" -include-pch "$headers"
found=$("$compiler" "$@" -x objective-c++ "$file" 2>&1) && [ -z "$found" ] && exit 0
printf '%s\n' "$found"
exit 1

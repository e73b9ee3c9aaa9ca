#!/bin/sh
# The one list of the Debian packages that this project needs; installs those that are missing.
#   scripts/dependencies.sh          to build, run and test
#   scripts/dependencies.sh bench    to measure as well
#   scripts/dependencies.sh package  to make Debian packages, and to ask every validator in the tests
set -eu

build="cmake ninja-build g++ pkg-config qt6-base-dev qt6-svg-dev libgl-dev
    libxcb1-dev libxcb-shm0-dev libxcb-randr0-dev libxcb-xinput-dev
    libplist-dev libdeflate-dev libjpeg62-turbo-dev libtiff-dev libgif-dev
    libcpp-httplib-dev libssl-dev libcurl4-openssl-dev
    libgtest-dev libxcb-xtest0-dev"
# A desktop where there is none: a server, a window manager, programs with windows, a hand on mouse and keys.
desktop="xvfb openbox xterm x11-apps x11-utils x11-xserver-utils xdotool fonts-dejavu-core"
# Beside that desktop the tests change the keyboard's layout, read every file type back, paste, want a tray and a
# session bus, feed readers with what clang's fuzzer makes up, and ask validators about what is installed.
test="x11-xkb-utils qt6-image-formats-plugins xclip curl trayer dbus dbus-bin clang libclang-rt-dev
    desktop-file-utils appstream man-db"
packaging="dpkg-dev lintian zsh fish debootstrap"
bench="libxcb-damage0-dev scrot libopencv-imgproc-dev"

wanted="$build $desktop $test"
case "${1-}" in
    "") ;;
    bench) wanted="$wanted $bench" ;;
    package) wanted="$wanted $packaging" ;;
    *) echo "usage: scripts/dependencies.sh [bench | package]" >&2; exit 2 ;;
esac

missing=""
for package in $wanted; do
    status=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null) || status=""
    [ "$status" = installed ] || missing="$missing $package"
done
[ -n "$missing" ] || exit 0

as_root=""
if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "Please install:$missing" >&2; exit 1; }
    as_root=sudo
fi
echo "Installing:$missing" >&2
export DEBIAN_FRONTEND=noninteractive
$as_root apt-get update -q >&2
# shellcheck disable=SC2086 # one word a package
$as_root apt-get install -qy --no-install-recommends $missing >&2 </dev/null

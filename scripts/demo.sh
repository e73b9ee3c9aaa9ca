#!/bin/sh
# Opens a virtual desktop with windows of other programs, starts a program there, takes a region capture with real keys
# and a real mouse, and prints the path of the picture on the last line.
#   scripts/demo.sh PROGRAM PICTURES [HOME]
# PICTURES is the folder that the picture goes to, HOME an empty one that is kept; the
# program must see both, and /tmp/.X11-unix.
set -eu

program=$1
pictures=$2
scratch=$(mktemp -d)
home=${3-$scratch/home}
started=""
# The newest first; a process that has ended already is no error.
finish() {
    for process in $started; do
        kill "$process" 2>/dev/null && wait "$process" 2>/dev/null || true
    done
    rm -rf "$scratch"
}
trap finish EXIT
trap 'exit 1' HUP INT TERM
start() {
    "$@" >>"$scratch/output" 2>&1 </dev/null &
    started="$! $started"
}
# Asks a command again and again, ten seconds at most.
wait_for() {
    for _ in $(seq 100); do
        if "$@" >/dev/null 2>&1; then return; fi
        sleep 0.1
    done
    echo "gave up waiting for: $*" >&2
    tail -n 20 "$scratch/output" >&2
    exit 1
}

export HOME="$home" XDG_RUNTIME_DIR="$home/runtime" XDG_CONFIG_HOME="$home/config" XDG_CACHE_HOME="$home/cache"
export DBUS_SESSION_BUS_ADDRESS=disabled:
unset WAYLAND_DISPLAY XDG_SESSION_TYPE
mkdir -p "$pictures" "$XDG_CONFIG_HOME" "$XDG_CACHE_HOME"
mkdir -p "$HOME/Pictures/Lumora Mac Screenshot" # a program that has to make it would save its pictures there
mkdir -m 700 "$XDG_RUNTIME_DIR"
cat >"$XDG_CONFIG_HOME/com.Lumora.Screenshot.plist" <<PLIST
<?xml version="1.0" encoding="UTF-8"?>
<plist version="1.0"><dict>
<key>screenshotSavePath</key><string>$(printf %s "$pictures" | sed 's/&/\&amp;/g; s/</\&lt;/g')</string>
<key>applicationIsNeedShowStartWindow</key><false/>
</dict></plist>
PLIST

start Xvfb -displayfd 3 -screen 0 1920x1080x24 -nolisten tcp -noreset 3>"$scratch/display"
wait_for test -s "$scratch/display"
DISPLAY=:$(cat "$scratch/display")
export DISPLAY
start openbox --sm-disable
wait_for sh -c 'xprop -root _NET_SUPPORTING_WM_CHECK | grep -q 0x'
xsetroot -solid '#41668c'
start xterm -fa 'DejaVu Sans Mono' -fs 11 -geometry 88x26+90+110 -e sh -c 'ls -l /usr/share; exec sleep 600'
start xclock -geometry 260x260+1180+150
start xcalc -geometry 300x420+1250+520
start xlogo -geometry 240x240+880+600
for window in xterm xclock xcalc xlogo; do
    wait_for xdotool search --onlyvisible --class "$window"
done
start "$program"
wait_for "$program" cancel

before=$(ls "$pictures")
sleep 0.5 # the windows paint themselves
xdotool keydown super key 1 keyup super
wait_for xdotool search --onlyvisible --name '^Lumora Capture$'
sleep 0.3
xdotool mousemove 60 80 mousedown 1 mousemove 700 400 mousemove 1600 960 mouseup 1
sleep 0.1
xdotool key ctrl+s
wait_for sh -c '[ "$(ls "$1")" != "$2" ]' sh "$pictures" "$before"
"$program" quit
echo "$pictures/$(ls -t "$pictures" | head -n 1)"

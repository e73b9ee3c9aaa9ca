#!/bin/bash
# Installs a build into an empty folder, holds what is there against what should be, and asks every validator that this
# machine has.
#   check_install.sh BUILD SOURCE
set -u
build=$1 source=$2
stage=$(mktemp -d)
trap 'rm -rf "$stage"' EXIT
failed=0
fault() { echo "FAULT: $*"; failed=1; }

DESTDIR=$stage cmake --install "$build" --prefix /usr >/dev/null || fault "cmake --install"
share=$stage/usr/share
expected() {
    printf '%s\n' bin/{lumora-screenshot,kestrel} \
        share/applications/com.Lumora.Screenshot.desktop share/metainfo/com.lumora.screenshot.metainfo.xml \
        share/icons/hicolor/{16x16,22x22,24x24,32x32,48x48,64x64,96x96,128x128,256x256,512x512}/apps/com.Lumora.Screenshot.png \
        share/icons/hicolor/scalable/apps/com.Lumora.Screenshot.svg \
        share/icons/hicolor/symbolic/apps/com.Lumora.Screenshot-symbolic.svg \
        share/man/man1/lumora-screenshot.1.gz share/man/man8/kestrel.8.gz \
        lib/systemd/system/kestrel.service share/doc/{lumora-screenshot,kestrel}/{copyright,changelog.Debian.gz} \
        share/bash-completion/completions/{lumora-screenshot,kestrel} \
        share/zsh/FOLDER/{_lumora-screenshot,_kestrel} \
        share/fish/vendor_completions.d/{lumora-screenshot,kestrel}.fish
}
found() { find "$stage/usr" -type f -printf '%P\n' | sed -E 's,zsh/(site-functions|vendor-completions)/,zsh/FOLDER/,'; }
diff <(expected | sort) <(found | sort) || fault "the installed files (> is there, < is missing)"

# A picture's width and height stand at the bytes 16 to 23 of a PNG, in big-endian order.
for icon in "$share"/icons/hicolor/*x*/apps/*.png; do
    size=$(od -An -tx1 -j16 -N8 "$icon" | tr -d ' \n')
    name=$(basename "$(dirname "$(dirname "$icon")")")
    [ "$(printf '%dx%d' "0x${size:0:8}" "0x${size:8:8}")" = "$name" ] || fault "$icon is not $name"
done

version=$("$stage/usr/bin/lumora-screenshot" --version | cut -d' ' -f2)
head -n1 "$source/packaging/linux/changelog" | grep -qF " ($version-" || fault "the changelog begins with another version"
grep -m1 '<release ' "$share/metainfo/"*.xml | grep -qF "\"$version\"" || fault "the metadata begins with another release"

skipped=""
# with TOOL ARGUMENTS: asks a validator that is installed; a warning is a fault, too.
with() {
    command -v "$1" >/dev/null || { skipped="$skipped $1"; return; }
    local said
    said=$("$@" 2>&1 >"$stage/answer") && [ -z "$said" ] || fault "$*: $said $(cat "$stage/answer")"
}
with desktop-file-validate "$share"/applications/*.desktop
with appstreamcli validate --no-net --pedantic --no-color "$share"/metainfo/*.xml
for page in "$share"/man/man?/*; do with man --warnings --local-file -Tutf8 "$page"; done
for file in "$share"/bash-completion/completions/*; do with bash -n "$file"; done
for file in "$share"/zsh/*/*; do with zsh -n "$file"; done
for file in "$share"/fish/*/*; do with fish -n "$file"; done

# The program is not where it will be. How far open the service is counts from 0 to 100, the fewer the better.
sed "s,^ExecStart=,&$stage/usr/bin/," "$stage/usr/lib/systemd/system/kestrel.service" >"$stage/kestrel.service"
with systemd-analyze verify --man=no --recursive-errors=no "$stage/kestrel.service"
with systemd-analyze security --offline=yes --threshold=20 --no-pager "$stage/kestrel.service"

[ -z "$skipped" ] || echo "not installed, not asked:$(tr ' ' '\n' <<<"$skipped" | sort -u | tr '\n' ' ')"
exit "$failed"

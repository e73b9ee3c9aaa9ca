#!/bin/bash
# Tries the packages of scripts/package.sh where nothing else is: installs them in a new Debian, takes a region capture
# with the installed program on a virtual desktop, removes them, and tells what they left. Needs root.
#   packaging/linux/try-package.sh
# MIRROR names another mirror of Debian than apt's own; ROOT a folder of "debootstrap --variant=minbase bookworm" that is copied.
set -eu
cd "$(dirname "$0")/../.."
[ "$(id -u)" -eq 0 ] || { echo "try-package.sh: needs root" >&2; exit 1; }
scripts/dependencies.sh package
work=$(mktemp -d /tmp/try-package.XXXXXX)
root=$work/root home=$work/home
mounted=""
let_go() {
    for folder in $mounted; do umount "$folder" || exit 1; done
    mounted=""
}
finish() {
    let_go # nothing is removed through a mount that stands
    rm -rf "$work"
}
trap finish EXIT
inside() { chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin DEBIAN_FRONTEND=noninteractive "$@"; }
step() { echo "== $*"; }

step "a new Debian"
if [ -n "${ROOT-}" ]; then
    cp -a "$ROOT" "$root"
else
    mirror=${MIRROR-$(apt-get indextargets --format '$(REPO_URI)' 'Codename: bookworm' | head -n1)}
    debootstrap --variant=minbase bookworm "$root" "$mirror" >"$work/debootstrap.log" ||
        { tail "$work/debootstrap.log"; exit 1; }
fi
inside apt-get update -q
# What apt and dpkg keep for themselves is no trace of a package.
files() { find "$root" -xdev \( -path "$root/var/cache" -o -path "$root/var/log" -o -path "$root/var/lib/apt" \
    -o -path "$root/var/lib/dpkg" -o -path "$root/tmp" \) -prune -o -printf '/%P\n' | sort; }
files >"$work/before"

step "installing what the packages depend on, and no more"
cp build/package/*.deb "$root/"
inside sh -c 'apt-get install -qy --no-install-recommends /*.deb' >"$work/install.log" 2>&1 ||
    { tail "$work/install.log"; exit 1; }
rm "$root"/*.deb
grep -E '^Setting up (lumora-screenshot|kestrel)' "$work/install.log"
inside sh -c 'ldd /usr/bin/lumora-screenshot /usr/bin/kestrel | grep "not found"' && exit 1
inside lumora-screenshot --version
inside kestrel --help | head -n1

step "a region capture on a virtual desktop"
mkdir -p "$home/Pictures"
for folder in /proc /tmp/.X11-unix "$home"; do
    mkdir -p "$root$folder"
    mount --bind "$folder" "$root$folder"
    mounted="$root$folder $mounted"
done
cat >"$work/program" <<PROGRAM
#!/bin/sh
exec chroot "$root" /usr/bin/lumora-screenshot "\$@"
PROGRAM
chmod +x "$work/program"
picture=$(scripts/demo.sh "$work/program" "$home/Pictures" "$home")
mkdir -p build/package/tried
cp "$picture" build/package/tried/region.png
echo "$PWD/build/package/tried/region.png"
let_go

step "the image service, until it is asked to end"
inside timeout --preserve-status 2 kestrel --listen 127.0.0.1:0 --data /tmp/pictures

step "removing and purging, the service enabled"
wants=/etc/systemd/system/multi-user.target.wants
inside mkdir -p "$wants"
inside ln -s /usr/lib/systemd/system/kestrel.service "$wants/"
inside apt-get remove -qy lumora-screenshot kestrel >>"$work/install.log" 2>&1
inside dpkg --purge lumora-screenshot kestrel >>"$work/install.log" 2>&1
inside apt-get autoremove -qy --purge >>"$work/install.log" 2>&1
inside sh -c 'dpkg -l lumora-screenshot kestrel 2>/dev/null | grep "^[a-z][a-z] "' && exit 1
files >"$work/after"
echo "left by the packages and all that came with them:"
comm -13 "$work/before" "$work/after"
comm -13 "$work/before" "$work/after" | grep -iE 'lumora|kestrel' && { echo "try-package.sh: leftovers" >&2; exit 1; }
echo "left of the user's own:"
find "$home" -type f -printf '~/%P\n' | sort

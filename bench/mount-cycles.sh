#!/usr/bin/env bash
# Memory over mount and unmount cycles: runs the desktop program on the offscreen platform with
# a home folder of its own, mounts an empty tmpfs under /media/LVX-CYCLE-N and unmounts it,
# N = 1..CYCLES, and prints the program's resident size (VmRSS) as it goes. The tmpfs holds no
# DCIM folder, so other windows on the machine only gain and lose a row. Needs root.
# Usage: bench/mount-cycles.sh [CYCLES] [PROGRAM]
set -euo pipefail
cd "$(dirname "$0")/.."
if [ "$(id -u)" != 0 ]; then
    echo "mount-cycles: mounting needs root" >&2
    exit 1
fi
CYCLES=${1:-100}
PROGRAM=${2:-$PWD/build/release/src/lumivex-plus}
PAUSE=${LUMIVEX_CYCLE_PAUSE:-0.15}
HOMEDIR=$(mktemp -d /tmp/lvx-cycles.XXXXXX)
mkdir -p "$HOMEDIR/Desktop" "$HOMEDIR/.config"
pid=""
point=""
cleanup() {
    [ -n "$pid" ] && kill "$pid" 2>/dev/null || true
    if [ -n "$point" ]; then
        mountpoint -q "$point" && umount -l "$point" || true
        rmdir "$point" 2>/dev/null || true
    fi
    rm -rf "$HOMEDIR"
}
trap cleanup EXIT

rss() { awk '/^VmRSS/ {print $2}' "/proc/$pid/status"; }

HOME=$HOMEDIR XDG_CONFIG_HOME=$HOMEDIR/.config QT_QPA_PLATFORM=offscreen "$PROGRAM" \
    >/dev/null 2>&1 &
pid=$!
sleep 3
start=$(rss)
echo "cycle 0: ${start} kB"
for i in $(seq 1 "$CYCLES"); do
    point=/media/LVX-CYCLE-$i
    mkdir -p "$point"
    mount -t tmpfs -o size=1m lvx-cycle "$point"
    sleep "$PAUSE"
    umount "$point"
    rmdir "$point"
    point=""
    sleep "$PAUSE"
    if [ $((i % 25)) = 0 ]; then echo "cycle $i: $(rss) kB"; fi
    # The first cycles warm up fonts and icons; what follows is what each cycle keeps.
    if [ "$i" = 25 ]; then warm=$(rss); fi
done
sleep 1
end=$(rss)
echo "after $CYCLES cycles: ${end} kB, $(((end - start) / CYCLES)) kB per cycle"
if [ "$CYCLES" -gt 25 ]; then
    echo "after the first 25: $(((end - warm) * 1000 / (CYCLES - 25))) bytes per cycle"
fi

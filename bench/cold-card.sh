#!/usr/bin/env bash
# A camera card in a slow USB reader, read cold: an ext4 image with N camera files of 3-6 MB
# (heads as cameras write them, the first DENSE bytes of each file stored, the rest a hole) in
# DCIM/100TEST, on a loop device whose reads pass a cgroup throttle of BPS bytes a second.
# Caches are dropped before every run. Prints, for `lumivex scan` (and at 1, 2, 4 and 8 files
# read at once), for the window (mount to first screen, mount to all thumbnails painted, the
# longest main-thread pause) and for `exiv2 -et`: seconds and device bytes read per file.
# Needs root. Usage: sudo bench/cold-card.sh [N [BPS]]   (defaults 2000, 25000000; also the
# variables LVX_COLD_FILES, LVX_COLD_BPS, LVX_COLD_DENSE (bytes, default 524288), LVX_COLD_RUNS)
source "$(dirname "$0")/common.sh"
N=${1:-${LVX_COLD_FILES:-2000}}
BPS=${2:-${LVX_COLD_BPS:-25000000}}
DENSE=${LVX_COLD_DENSE:-524288}
RUNS=${LVX_COLD_RUNS:-3}
if [ "$(id -u)" != 0 ]; then
    echo "cold-card: loop devices, mounts, cgroups and dropping caches need root" >&2
    exit 1
fi

lumivex_install "${LUMIVEX_PACKAGES[@]}" exiv2 strace e2fsprogs
cmake --preset release -B "$BUILD" >/dev/null
cmake --build "$BUILD" -j "${LUMIVEX_BUILD_JOBS:-2}" \
    --target lumivex lumivex-fixture lumivex_card_bench >/dev/null
LUMIVEX=$BUILD/src/cli/lumivex
FIXTURE=$BUILD/tests/fixtures/lumivex-fixture
CARD_BENCH=$BUILD/bench/lumivex_card_bench

WORK=$(mktemp -d /tmp/lvx-cold.XXXXXX)
IMG=$WORK/card.img
# Not under /mnt/ or /media/: every running Lumivex window shows disks mounted there, finds
# the card's DCIM folder and reads it, which both disturbs them and fills the page cache here.
MNT=$WORK/mnt
HOME_DIR=$WORK/home
CG="" LOOP=""
cleanup() {
    set +e
    mountpoint -q "$MNT" && umount "$MNT"
    [ -n "$LOOP" ] && losetup -d "$LOOP"
    [ -n "$CG" ] && [ -d "$CG" ] && rmdir "$CG"
    rm -rf "$WORK"
}
trap cleanup EXIT
trap 'exit 130' INT TERM

# ---- the card --------------------------------------------------------------------------
# Room for the stored bytes of every file and the file system's own, with a margin.
SIZE_MB=$((N * (DENSE + 65536) / 1048576 * 5 / 4 + 64))
truncate -s "${SIZE_MB}M" "$IMG"
mkfs.ext4 -q -F -L LVX_COLD -E lazy_itable_init=0,lazy_journal_init=0 "$IMG"
# Direct I/O on the image keeps its pages out of the host's cache: every read reaches the disk.
LOOP=$(losetup --find --show --direct-io=on "$IMG" 2>/dev/null || losetup --find --show "$IMG")
DEV=${LOOP#/dev/}
mkdir -p "$MNT" "$HOME_DIR/.config"
mount "$LOOP" "$MNT"
"$FIXTURE" realistic "$N" "$MNT/DCIM/100TEST" --size 3000000 --max-size 6000000 \
    --dense "$DENSE" --order mixed >/dev/null
umount "$MNT"
echo "card: $N files of 3-6 MB, first $((DENSE / 1024)) KiB of each stored, on $LOOP ($SIZE_MB MB image)"

# ---- the throttle ----------------------------------------------------------------------
MAJMIN=$(cat "/sys/block/$DEV/dev")
if [ -f /sys/fs/cgroup/blkio/blkio.throttle.read_bps_device ]; then
    CG=/sys/fs/cgroup/blkio/lvx-cold-$$
    mkdir "$CG"
    echo "$MAJMIN $BPS" >"$CG/blkio.throttle.read_bps_device"
    THROTTLE="cgroup v1 blkio.throttle.read_bps_device"
elif grep -qw io /sys/fs/cgroup/cgroup.controllers 2>/dev/null; then
    grep -qw io /sys/fs/cgroup/cgroup.subtree_control || echo +io >/sys/fs/cgroup/cgroup.subtree_control
    CG=/sys/fs/cgroup/lvx-cold-$$
    mkdir "$CG"
    echo "$MAJMIN rbps=$BPS" >"$CG/io.max"
    THROTTLE="cgroup v2 io.max"
else
    echo "cold-card: no blkio (v1) or io (v2) cgroup controller here" >&2
    exit 1
fi
# Runs a command inside the throttled cgroup.
throttled() { sh -c 'echo $$ >"$0/cgroup.procs" && exec "$@"' "$CG" "$@"; }

sectors() { awk '{print $3}' "/sys/block/$DEV/stat"; }
cold() {
    sync
    echo 3 >/proc/sys/vm/drop_caches
    blockdev --flushbufs "$LOOP"
}

# A plain read of the raw device shows whether the throttle holds: about BPS.
cold
t0=$EPOCHREALTIME
throttled dd if="$LOOP" of=/dev/null bs=1M count=$((BPS * 2 / 1048576 + 1)) iflag=direct 2>/dev/null
t1=$EPOCHREALTIME
DD_BPS=$(echo "scale=0; ($BPS * 2 / 1048576 + 1) * 1048576 / ($t1 - $t0)" | bc -l)
echo "throttle: $THROTTLE at $BPS B/s; dd of the raw device: $((DD_BPS / 1000)) kB/s"
if [ "$DD_BPS" -gt $((BPS * 3 / 2)) ]; then
    echo "cold-card: the kernel does not hold reads of $LOOP to $BPS B/s; figures would mislead" >&2
    exit 1
fi

# ---- runs ------------------------------------------------------------------------------
mount -o ro "$LOOP" "$MNT"
FOLDER=$MNT/DCIM/100TEST
OUT=$(mktemp -d /dev/shm/lvx-cold-out.XXXXXX 2>/dev/null || mktemp -d "$WORK/out.XXXXXX")
trap 'rm -rf "$OUT"; cleanup' EXIT

# Best of RUNS cold runs of a command on the mounted card: "seconds bytes-per-file" of the
# fastest run.
cold_run() {
    local best="" bytes="" t0 t1 s0 s1 t
    for _ in $(seq "$RUNS"); do
        rm -rf "${OUT:?}"/*
        cold
        s0=$(sectors)
        t0=$EPOCHREALTIME
        HOME=$HOME_DIR XDG_CONFIG_HOME=$HOME_DIR/.config throttled "$@" >/dev/null 2>&1 || true
        t1=$EPOCHREALTIME
        s1=$(sectors)
        t=$(echo "$t1 - $t0" | bc -l)
        if [ -z "$best" ] || [ "$(echo "$t < $best" | bc -l)" = 1 ]; then
            best=$t
            bytes=$(((s1 - s0) * 512 / N))
        fi
    done
    echo "$best $bytes"
}
row() { printf '%-40s %9.3f %12s\n' "$1" "$2" "$3"; }

printf '%-40s %9s %12s\n' "cold, $((BPS / 1000000)) MB/s" "seconds" "bytes/file"
read -r t b < <(cold_run "$LUMIVEX" scan "$FOLDER")
row "lumivex scan" "$t" "$b"
for k in 1 2 4 8; do
    read -r t b < <(cold_run "$LUMIVEX" scan --threads "$k" "$FOLDER")
    row "lumivex scan --threads $k" "$t" "$b"
done
# The folder is listed inside the run, as lumivex lists it; exiv2 exits 5 even when all went well.
read -r t b < <(cold_run sh -c 'exec exiv2 -f -et -l "$0" "$1"/*.JPG' "$OUT" "$FOLDER")
row "exiv2 -f -et" "$t" "$b"

# The window: the benchmark mounts the card under /media/ while the window runs, cold each
# round, in a mount namespace of its own, so that no other Lumivex window sees the card and
# reads it (unthrottled, filling the cache) behind the measurement's back.
umount "$MNT"
HOME=$HOME_DIR XDG_CONFIG_HOME=$HOME_DIR/.config \
    throttled "$CARD_BENCH" --device "$LOOP" --drop-caches "$N" 2>/dev/null | sed 's/^/window: /'

# What the scan asks of the system, warm: one listing, one open and a few reads per file.
mount -o ro "$LOOP" "$MNT"
echo "system calls of lumivex scan (strace -c -f, warm):"
HOME=$HOME_DIR XDG_CONFIG_HOME=$HOME_DIR/.config strace -c -f -o "$WORK/strace.txt" \
    "$LUMIVEX" scan "$FOLDER" >/dev/null 2>&1 || true
grep -E ' (openat|pread64|read|fadvise64|getdents64|newfstatat|statx|fstat|lstat|stat)$' \
    "$WORK/strace.txt" | awk '{printf "  %-12s %s\n", $NF, $4}'

#!/usr/bin/env bash
# Whole-process thumbnail work over N camera files in the page cache:
#   lumivex thumbs --raw  against  exiv2 -et  and  exiftool -b -ThumbnailImage -w
#   lumivex scan          against  lumivex_floor_scan (the least a scan can cost)
# Usage: bench/compare-thumbs.sh [N]   (default 2000)
source "$(dirname "$0")/common.sh"
N=${1:-2000}
bench_setup
FLOOR=$BUILD/bench/lumivex_floor_scan

DIR=$BUILD/bench-thumbs-$N
if [ ! -d "$DIR" ] || [ "$(ls "$DIR" | wc -l)" -ne "$N" ]; then
    rm -rf "$DIR"
    "$FIXTURE" realistic "$N" "$DIR" --size 3000000 --order mixed >/dev/null
fi
FILES=("$DIR"/*.JPG)
echo "files: ${#FILES[@]} in $DIR ($(du -sh --apparent-size "$DIR" | cut -f1) apparent)"

# Every run (the warm-ups too) writes into a folder of its own, made before the clock starts,
# since none of the extractors may find an earlier run's files. They go to a tmpfs unless
# LUMIVEX_BENCH_OUT names another place: on a journal-less ext4 a create soon after mass
# deletion scans past the just-freed inodes, which charged one run for the cleanup of the
# last and swung the figures several-fold.
OUT_BASE=${LUMIVEX_BENCH_OUT:-}
if [ -z "$OUT_BASE" ]; then
    OUT_BASE=$BUILD
    if [ -d /dev/shm ] && [ -w /dev/shm ]; then OUT_BASE=/dev/shm; fi
fi
OUTS=$(mktemp -d "$OUT_BASE/lumivex-bench-thumbs.XXXXXX")
trap 'rm -rf "$OUTS"' EXIT
echo "output: $OUT_BASE ($(stat -f -c %T "$OUT_BASE"))"
fresh_out() { OUT=$(mktemp -d "$OUTS/run.XXXXXX"); }

# Like best_of_3 for a function that takes its output folder as first argument.
best_of_3_fresh() {
    local best="" t0 t1 t
    fresh_out
    "$@" "$OUT" >/dev/null 2>&1 || true
    for _ in 1 2 3; do
        fresh_out
        t0=$EPOCHREALTIME
        "$@" "$OUT" >/dev/null 2>&1 || true
        t1=$EPOCHREALTIME
        t=$(echo "$t1 - $t0" | bc -l)
        if [ -z "$best" ] || [ "$(echo "$t < $best" | bc -l)" = 1 ]; then best=$t; fi
    done
    echo "$best"
}
lumivex_raw() { "$LUMIVEX" thumbs --raw --out "$1" "$DIR"; }
exiv2_et() { exiv2 -f -et -l "$1" "${FILES[@]}"; }  # exits 5 even when all went well
exiftool_w() { exiftool -q -b -ThumbnailImage -w "$1/%f_thumb.jpg" "$DIR"; }

# Once, untimed: lumivex's raw blocks must be exiv2's bytes (both byte orders are on the card).
verify() {
    local a b diffs=""
    fresh_out
    a=$OUT
    lumivex_raw "$a" >/dev/null 2>&1 || true
    fresh_out
    b=$OUT
    exiv2_et "$b" >/dev/null 2>&1 || true
    local i name
    for i in 0 1 2 $((N / 2)) $((N - 1)); do
        if [ "$i" -lt 0 ] || [ "$i" -ge "${#FILES[@]}" ]; then continue; fi
        name=$(basename "${FILES[$i]}")
        if ! cmp -s "$a/$name" "$b/${name%.*}-thumb.jpg"; then
            diffs+="$name: $(cmp "$a/$name" "$b/${name%.*}-thumb.jpg" 2>&1 | head -1); "
        fi
    done
    if [ -z "$diffs" ]; then echo "verified"; else echo "differs: $diffs"; fi
}
echo "raw thumbnails against exiv2: $(verify)"
echo "floor: $("$FLOOR" "$DIR")"

t_raw=$(best_of_3_fresh lumivex_raw)
t_exiv2=$(best_of_3_fresh exiv2_et)
t_exiftool=$(best_of_3_fresh exiftool_w)
t_scan=$(best_of_3 "$LUMIVEX" scan "$DIR")
t_floor=$(best_of_3 "$FLOOR" "$DIR")

printf '%-34s %10s %12s\n' "command" "seconds" "files/s"
printf '%-34s %10.3f %12s\n' "lumivex thumbs --raw" "$t_raw" "$(rate "$N" "$t_raw")"
printf '%-34s %10.3f %12s\n' "exiv2 -f -et" "$t_exiv2" "$(rate "$N" "$t_exiv2")"
printf '%-34s %10.3f %12s\n' "exiftool -b -ThumbnailImage -w" "$t_exiftool" "$(rate "$N" "$t_exiftool")"
printf '%-34s %10.3f %12s\n' "lumivex scan" "$t_scan" "$(rate "$N" "$t_scan")"
printf '%-34s %10.3f %12s\n' "lumivex_floor_scan" "$t_floor" "$(rate "$N" "$t_floor")"
echo "thumbs --raw / exiv2:    $(ratio "$t_exiv2" "$t_raw")x"
echo "thumbs --raw / exiftool: $(ratio "$t_exiftool" "$t_raw")x"
echo "scan / floor:            $(echo "scale=1; 100 * $t_floor / $t_scan" | bc -l)%"

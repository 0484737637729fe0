#!/usr/bin/env bash
# Whole-process tag reading over N camera files in the page cache:
#   lumivex info --json  against  exiv2 -pa  and  exiftool -j -n
# Usage: bench/compare-info.sh [N]   (default 2000)
source "$(dirname "$0")/common.sh"
N=${1:-2000}
bench_setup

DIR=$BUILD/bench-info-$N
if [ ! -d "$DIR" ] || [ "$(ls "$DIR" | wc -l)" -ne "$N" ]; then
    rm -rf "$DIR"
    "$FIXTURE" realistic "$N" "$DIR" --order mixed >/dev/null
fi
FILES=("$DIR"/*.JPG)
echo "files: ${#FILES[@]} in $DIR ($(du -sh --apparent-size "$DIR" | cut -f1) apparent)"

t_lumivex=$(best_of_3 "$LUMIVEX" info --json "${FILES[@]}")
t_exiv2=$(best_of_3 exiv2 -pa "${FILES[@]}")
t_exiftool=$(best_of_3 exiftool -j -n "$DIR")

r_lumivex=$(rate "$N" "$t_lumivex")
r_exiv2=$(rate "$N" "$t_exiv2")
r_exiftool=$(rate "$N" "$t_exiftool")
printf '%-28s %10s %12s\n' "command" "seconds" "files/s"
printf '%-28s %10.3f %12s\n' "lumivex info --json" "$t_lumivex" "$r_lumivex"
printf '%-28s %10.3f %12s\n' "exiv2 -pa" "$t_exiv2" "$r_exiv2"
printf '%-28s %10.3f %12s\n' "exiftool -j -n" "$t_exiftool" "$r_exiftool"
echo "lumivex / exiv2:    $(ratio "$t_exiv2" "$t_lumivex")x"
echo "lumivex / exiftool: $(ratio "$t_exiftool" "$t_lumivex")x"

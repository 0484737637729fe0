# Shared by the comparison scripts: build the release preset, install the peers, time commands.
set -euo pipefail
# The clock is bash's own $EPOCHREALTIME: forking `date` for each reading added about 10 ms
# to every time here, a fifth of a fast command's whole run. Its decimal point follows
# LC_NUMERIC, and bc wants a dot.
LC_NUMERIC=C
ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$ROOT"
source scripts/deps.sh

# The release preset builds in build/release unless LUMIVEX_BUILD_DIR names another folder
# (a developer who shares the tree keeps a build of their own); LUMIVEX_BUILD_JOBS bounds the
# compile jobs.
BUILD=${LUMIVEX_BUILD_DIR:-$ROOT/build/release}

bench_setup() {
    lumivex_install "${LUMIVEX_PACKAGES[@]}" exiv2 libimage-exiftool-perl
    cmake --preset release -B "$BUILD" >/dev/null
    cmake --build "$BUILD" -j "${LUMIVEX_BUILD_JOBS:-$(nproc)}" >/dev/null
    LUMIVEX=$BUILD/src/cli/lumivex
    FIXTURE=$BUILD/tests/fixtures/lumivex-fixture
}

# Best wall time in seconds of three runs of a command (after one warm-up run that also
# brings the files into the page cache); output goes to /dev/null.
best_of_3() {
    "$@" >/dev/null 2>&1 || true
    local best="" t0 t1 t
    for _ in 1 2 3; do
        t0=$EPOCHREALTIME
        "$@" >/dev/null 2>&1 || true
        t1=$EPOCHREALTIME
        t=$(echo "$t1 - $t0" | bc -l)
        if [ -z "$best" ] || [ "$(echo "$t < $best" | bc -l)" = 1 ]; then best=$t; fi
    done
    echo "$best"
}

rate() { echo "scale=0; $1 / $2" | bc -l; }
ratio() { echo "scale=1; $1 / $2" | bc -l; }

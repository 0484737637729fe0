#!/usr/bin/env bash
# Fuzzes the Exif engine with libFuzzer for SECONDS (default 600) and prints the figures.
# Usage: bench/fuzz.sh [SECONDS]
# The corpus in build/fuzz/corpus grows from run to run; the seeds in build/fuzz/seeds are
# written once by the fixture command. Inputs that crash, leak, run out of memory or time out
# land in build/fuzz/artifacts/, and then the script exits non-zero.
set -euo pipefail
ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$ROOT"
source scripts/deps.sh

DURATION=${1:-600}
if ! [[ "$DURATION" =~ ^[0-9]+$ ]] || [ "$DURATION" -eq 0 ]; then
    echo "usage: bench/fuzz.sh [SECONDS]" >&2
    exit 2
fi

OUT=$ROOT/build/fuzz
FUZZER=$OUT/tests/fuzz/lumivex_exif_fuzzer
SEEDS=$OUT/seeds
CORPUS=$OUT/corpus
ARTIFACTS=$OUT/artifacts
LOG=$OUT/fuzz.log

lumivex_install "${LUMIVEX_PACKAGES[@]}" clang libclang-rt-14-dev
cmake --preset fuzz >/dev/null
if ! cmake --build --preset fuzz -j "$(nproc)" >"$OUT/build.log" 2>&1; then
    tail -40 "$OUT/build.log" >&2
    exit 1
fi

# The seeds come from the fixture writer of the ordinary build; the fuzz build has none of
# its own tools instrumented for that.
# LUMIVEX_FIXTURE_BUILD_DIR names another build of the default preset to take it from.
FIXTURE_BUILD=${LUMIVEX_FIXTURE_BUILD_DIR:-$ROOT/build/default}
if [ ! -d "$SEEDS" ] || [ -z "$(ls -A "$SEEDS")" ]; then
    [ -f "$FIXTURE_BUILD/build.ninja" ] || cmake --preset default -B "$FIXTURE_BUILD" >/dev/null
    cmake --build "$FIXTURE_BUILD" --target lumivex-fixture >"$OUT/build.log" 2>&1 ||
        { tail -40 "$OUT/build.log" >&2; exit 1; }
    "$FIXTURE_BUILD/tests/fixtures/lumivex-fixture" seeds "$SEEDS"
fi
mkdir -p "$CORPUS" "$ARTIFACTS"

# Only what this run finds counts; artifacts of earlier runs stay for reference.
STAMP=$OUT/.fuzz-start
touch "$STAMP"
start=$(date +%s)
set +e
ASAN_OPTIONS=detect_leaks=1:allocator_may_return_null=0 \
UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1 \
"$FUZZER" "$CORPUS" "$SEEDS" \
    -max_total_time="$DURATION" -dict="$ROOT/tests/fuzz/exif.dict" -max_len=131072 \
    -timeout=5 -rss_limit_mb=2048 -print_final_stats=1 \
    -artifact_prefix="$ARTIFACTS/" >"$LOG" 2>&1
status=$?
set -e
elapsed=$(( $(date +%s) - start ))

execs=$(grep -o 'stat::number_of_executed_units: *[0-9]*' "$LOG" | tail -1 | grep -o '[0-9]*$' || true)
if [ -z "$execs" ]; then  # a crash ends the run before the final statistics
    execs=$(grep -o '^#[0-9]*' "$LOG" | tail -1 | tr -d '#' || true)
fi
execs=${execs:-0}
cov=$(grep -o 'cov: [0-9]*' "$LOG" | tail -1 | grep -o '[0-9]*' || true)
ft=$(grep -o 'ft: [0-9]*' "$LOG" | tail -1 | grep -o '[0-9]*' || true)
corpus=$(ls -A "$CORPUS" | wc -l)
rate=0
[ "$elapsed" -gt 0 ] && rate=$(( execs / elapsed ))

count() { find "$ARTIFACTS" -maxdepth 1 -type f -name "$1-*" -newer "$STAMP" | wc -l; }
crashes=$(count crash)
leaks=$(count leak)
timeouts=$(count timeout)
ooms=$(count oom)
slow=$(count slow-unit)
total=$(find "$ARTIFACTS" -maxdepth 1 -type f -newer "$STAMP" | wc -l)

printf '%-22s %s\n' "seconds:" "$elapsed"
printf '%-22s %s\n' "executions:" "$execs"
printf '%-22s %s\n' "exec/s:" "$rate"
printf '%-22s %s\n' "coverage (cov):" "${cov:-?}"
printf '%-22s %s\n' "features (ft):" "${ft:-?}"
printf '%-22s %s\n' "corpus files:" "$corpus"
printf '%-22s %s\n' "artifacts:" "$total (crash $crashes, leak $leaks, timeout $timeouts, oom $ooms, slow $slow)"
printf '%-22s %s\n' "log:" "$LOG"
if [ "$total" -gt 0 ]; then
    find "$ARTIFACTS" -maxdepth 1 -type f -newer "$STAMP" -printf '  %p\n'
    exit 1
fi
if [ "$status" -ne 0 ]; then
    echo "the fuzzer ended with status $status; see the log" >&2
    exit "$status"
fi

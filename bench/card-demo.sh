#!/usr/bin/env bash
# Shows what the program does when a camera card goes in while it runs, on a virtual X
# display: it starts with a home folder of its own, a tmpfs holding DCIM/100CANON with sample
# camera pictures is mounted under /media/ (as a desktop's automounter would), and a
# screenshot is taken once the card's thumbnails are in the grid. The card is then pulled and
# the program closed. Needs root (for the mount). Usage: bench/card-demo.sh [PICTURES]
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/deps.sh
if [ "$(id -u)" != 0 ]; then
    echo "card-demo: mounting the card needs root" >&2
    exit 1
fi
lumivex_install "${LUMIVEX_PACKAGES[@]}" "${LUMIVEX_HEADLESS_PACKAGES[@]}"
BUILD=${LUMIVEX_BUILD_DIR:-$PWD/build/release}
cmake --preset release -B "$BUILD" >/dev/null
cmake --build "$BUILD" -j "${LUMIVEX_BUILD_JOBS:-$(nproc)}" --target lumivex-plus lumivex-fixture
PICTURES=${1:-60}

DEMO=$BUILD/card-demo-home
rm -rf "$DEMO"
mkdir -p "$DEMO/Desktop/Holiday" "$DEMO/.config"
STAGE=$(mktemp -d)
CARD="/media/EOS_DIGITAL"
display=:$((90 + RANDOM % 100))
pid="" xvfb=""
cleanup() {
    [ -n "$pid" ] && kill "$pid" 2>/dev/null || true
    [ -n "$xvfb" ] && kill "$xvfb" 2>/dev/null || true
    mountpoint -q "$CARD" && umount -l "$CARD" || true
    mountpoint -q "$STAGE" && umount -l "$STAGE" || true
    rmdir "$CARD" "$STAGE" 2>/dev/null || true
}
trap cleanup EXIT

# The card's files exist before it appears, as on a real card.
mount -t tmpfs -o size=512m lumivex-card "$STAGE"
mkdir -p "$STAGE/MISC"
"$BUILD/tests/fixtures/lumivex-fixture" realistic "$PICTURES" "$STAGE/DCIM/100CANON" \
    --size 200000 >/dev/null

Xvfb "$display" -screen 0 1280x800x24 -nolisten tcp >/dev/null 2>&1 &
xvfb=$!
export DISPLAY=$display
for _ in $(seq 50); do xdpyinfo >/dev/null 2>&1 && break; sleep 0.1; done
HOME=$DEMO XDG_CONFIG_HOME=$DEMO/.config "$BUILD/src/lumivex-plus" &
pid=$!
for _ in $(seq 100); do
    xdotool search --name '^Lumivex Plus$' >/dev/null 2>&1 && break
    sleep 0.1
done
sleep 2

mkdir -p "$CARD"
mount --bind "$STAGE" "$CARD"
umount -l "$STAGE"
sleep 4
SHOT=$BUILD/card-screenshot.png
import -window root "$SHOT"
echo "screenshot with the card in: $SHOT"

umount -l "$CARD"
sleep 2
import -window root "$BUILD/card-pulled-screenshot.png"
echo "screenshot after the card was pulled: $BUILD/card-pulled-screenshot.png"
kill -TERM "$pid"
wait "$pid" || true
pid=""

#!/usr/bin/env bash
# Unpacks the Debian package into a scratch root and checks that what the desktop entry, the
# metainfo and the program name is where they look for it.
#   check-package.sh BUILD_DIR SCRATCH   makes the package from a build tree with CPack first
#   check-package.sh FILE.deb SCRATCH    checks a package made before
# Exit 77 (skipped) when dpkg's tools are missing.
set -euo pipefail
source_arg=$1
scratch=$2
for tool in dpkg-deb dpkg-shlibdeps cpack; do
    command -v "$tool" >/dev/null || { echo "no $tool: skipped"; exit 77; }
done
rm -rf "$scratch"
mkdir -p "$scratch"
if [[ $source_arg == *.deb ]]; then
    deb=$source_arg
else
    cpack -G DEB --config "$source_arg/CPackConfig.cmake" -B "$scratch/out" >"$scratch/cpack.log" 2>&1 ||
        { cat "$scratch/cpack.log"; exit 1; }
    deb=$(echo "$scratch"/out/*.deb)
fi
root=$scratch/root
dpkg-deb -x "$deb" "$root"

failures=0
fail() {
    echo "FAIL: $*"
    failures=$((failures + 1))
}

# The two programs and the files the desktop looks at, nothing else (no test programs, no
# headers, nothing under /usr/local).
while IFS= read -r f; do
    case $f in
        usr/bin/lumivex | usr/bin/lumivex-plus | usr/share/applications/* | \
            usr/share/icons/hicolor/* | usr/share/lumivex-plus/* | usr/share/man/man1/* | \
            usr/share/metainfo/*) ;;
        *) fail "unexpected file $f" ;;
    esac
done < <(cd "$root" && find . -type f -printf '%P\n')

desktop_files=("$root"/usr/share/applications/*.desktop)
[ ${#desktop_files[@]} -eq 1 ] && [ -f "${desktop_files[0]}" ] ||
    { fail "expected one desktop file, found: ${desktop_files[*]}"; exit 1; }
desktop=${desktop_files[0]}
desktop_id=$(basename "$desktop")
key() { sed -n "s/^$1=//p" "$desktop" | head -n1; }

# The command the menu runs, and TryExec, are executables in /usr/bin.
exec_line=$(key Exec)
for program in "${exec_line%% *}" "$(key TryExec)"; do
    [ -x "$root/usr/bin/$program" ] || fail "Exec/TryExec '$program' is not usr/bin/$program"
done
[[ $exec_line == *' %F' ]] || fail "Exec '$exec_line' does not take the folders (%F)"

# The icon name resolves in hicolor: the SVG and every drawn size, each PNG of its size.
icon=$(key Icon)
[ -f "$root/usr/share/icons/hicolor/scalable/apps/$icon.svg" ] || fail "no scalable icon $icon.svg"
for size in 16 24 32 48 64 128 256; do
    png=$root/usr/share/icons/hicolor/${size}x${size}/apps/$icon.png
    if [ ! -f "$png" ]; then
        fail "no ${size}x${size} icon"
        continue
    fi
    # The PNG's IHDR: width and height as big-endian 32-bit numbers at bytes 16 and 20.
    read -r w h < <(od -An -tu1 -j16 -N8 "$png" |
        awk '{print $1*16777216+$2*65536+$3*256+$4, $5*16777216+$6*65536+$7*256+$8}')
    [ "$w" = "$size" ] && [ "$h" = "$size" ] || fail "${size}x${size} icon is ${w}x$h"
done

# The program finds its eject script beside its own location.
program=$root/usr/bin/${exec_line%% *}
[ -x "$(dirname "$program")/../share/lumivex-plus/EjectDisk.sh" ] ||
    fail "EjectDisk.sh is not at ../share/lumivex-plus from $program"
# The Help menu opens the help and the read-me from the same folder.
for doc in help/index.html help/help.css お読み下さい.html; do
    [ -f "$(dirname "$program")/../share/lumivex-plus/$doc" ] ||
        fail "$doc is not at ../share/lumivex-plus from $program"
done

# The metainfo is named by its id, launches this desktop file and announces this version.
metainfo_id=${desktop_id%.desktop}
metainfo=$root/usr/share/metainfo/$metainfo_id.metainfo.xml
if [ -f "$metainfo" ]; then
    grep -q "<id>$metainfo_id</id>" "$metainfo" || fail "metainfo id is not $metainfo_id"
    launchable=$(sed -n 's|.*<launchable type="desktop-id">\(.*\)</launchable>.*|\1|p' "$metainfo")
    [ "$launchable" = "$desktop_id" ] || fail "launchable '$launchable' is not $desktop_id"
    version=$("$program" --version | awk '{print $NF}')
    grep -q "<release version=\"$version\"" "$metainfo" ||
        fail "metainfo has no release $version (the program's --version)"
else
    fail "no metainfo $metainfo_id.metainfo.xml"
fi

# Each manual page is there, and lumivex's page names every command its --help lists.
for page in lumivex lumivex-plus; do
    gzip -t "$root/usr/share/man/man1/$page.1.gz" 2>/dev/null || fail "no man page $page.1.gz"
done
for command in $("$root/usr/bin/lumivex" --help | sed -n 's/^  \([a-z][a-z]*\) .*/\1/p'); do
    zcat "$root/usr/share/man/man1/lumivex.1.gz" 2>/dev/null | grep -q "^\.B lumivex $command\$" ||
        fail "lumivex.1 does not describe '$command'"
done

# The control fields: the libraries found by dpkg-shlibdeps plus what the program loads.
depends=$(dpkg-deb -f "$deb" Depends)
for p in libturbojpeg0 libqt6widgets6 fonts-noto-cjk libqt6svg6 qt6-image-formats-plugins; do
    [[ ", $depends," == *", $p"[\ ,]* ]] || fail "Depends lacks $p: $depends"
done
recommends=$(dpkg-deb -f "$deb" Recommends)
for p in udisks2 libglib2.0-bin; do
    [[ ", $recommends," == *", $p"[\ ,]* ]] || fail "Recommends lacks $p: $recommends"
done
[ "$(dpkg-deb -f "$deb" Section)" = graphics ] || fail "Section is not graphics"

[ $failures -eq 0 ] || exit 1
echo "$(basename "$deb"): layout, icons, metainfo, man pages and control fields agree"
